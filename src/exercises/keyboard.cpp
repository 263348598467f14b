// The exercise panel's handlers: each reads its event, asks the rules and shows the answer.
#include "drill/keyboard.h"
#include "drill/rounding.h"
#include "platform/mDefs.h"
#include "shell/frmMain.h"

void frmMain::initKeys() {
    // A size the controls refuse ends the layout there; the keys keep what they got.
    try {
        layOutKeyboard();
    } catch (const platform::InvalidPropertyValue&) {
        return;
    }
    applyShow(drill::KeyboardReady(state_));
}

void frmMain::layOutKeyboard() {
    for (auto* name : lblName)
        name->setBorderStyle(0);
    for (auto* key : cmdKey) {
        key->setLeft(0);
        key->setTop(0);
    }
    for (std::size_t row = 0; row < drill::keyboard::kRows; ++row) {
        auto* first = cmdKey[row * drill::keyboard::kColumns];
        first->setTop(static_cast<double>(row) * cmdKey[0]->Height());
        for (std::size_t column = 0; column < drill::keyboard::kColumns; ++column) {
            const std::size_t index = row * drill::keyboard::kColumns + column;
            auto* key = cmdKey[index];
            if (column > 0) {
                key->setLeft(key->Width() + cmdKey[index - 1]->Left());
                key->setTop(first->Top());
            }
            key->setCaption(
                QString::fromStdString(drill::keyboard::Caption(static_cast<std::int16_t>(index))));
        }
    }
    drill::MapKeys(state_);

    WebBrowser1->setTop(TreeView1->Top());
    WebBrowser1->setLeft(TreeView1->Left() + TreeView1->Width() + 0.05 * TreeView1->Width());
    for (platform::TwipsGeometry* view : {static_cast<platform::TwipsGeometry*>(picQuiz),
                                          static_cast<platform::TwipsGeometry*>(picDemo)}) {
        view->setWidth(WebBrowser1->Width());
        view->setHeight(WebBrowser1->Height());
        view->setLeft(WebBrowser1->Left());
        view->setTop(WebBrowser1->Top());
    }
    if (platform::ScreenWidthPixels() == 800) {
        picDemo->setLeft(WebBrowser1->Left() - 800);
        picDemo->setWidth(WebBrowser1->Width() + 950);
    }
    picKeys->setWidth(13 * cmdKey[0]->Width());
    picKeys->setHeight(4 * cmdKey[0]->Height());
    picKeys->setLeft(picQuiz->Width() / 2 - picKeys->Width() / 2 + picSuits->Width() / 2);
    picKeys->setTop(picQuiz->Height() / 2);
    picShow->setLeft(picQuiz->Width() / 2 - picShow->Width());
    picLabels->setLeft(picQuiz->Width() / 2);
    picShow->setTop(picQuiz->Height() / 9);
    picLabels->setTop(picQuiz->Height() / 9);
    picShow->setWidth(picLabels->Width());
    picShow->setHeight(picLabels->Height());
    lblHeading1->setTop(picQuiz->Height() / 20);
    lblHeading1->setLeft(picQuiz->Width() / 2 - lblHeading1->Width() / 2);
    cmdClear->setLeft(picQuiz->Width() / 2 - cmdClear->Width() / 2);
    cmdClear->setTop(picKeys->Height() + picKeys->Top() + cmdClear->Height());
    picSuits->setLeft(picKeys->Left() - picSuits->Width() - picSuits->Width() / 25);
    picSuits->setTop(picKeys->Top());
    Frame1->setLeft(picQuiz->Width() / 2 - 1.3 * Frame1->Width());
    Frame1->setTop(picQuiz->Height() - 1.2 * Frame1->Height());
    Frame2->setLeft(picQuiz->Width() / 2 + 0.3 * Frame1->Width());
    Frame2->setTop(picQuiz->Height() - 1.2 * Frame1->Height());
    lblMessage->setWidth(2 * picShow->Width());
    lblMessage->setTop(picShow->Height() + picShow->Top());
    lblMessage->setLeft(picShow->Left());
}

void frmMain::cmdKey_Click(std::int16_t Index) {
    applyShow(drill::PressKey(state_, Index));
}

void frmMain::cmdClear_Click() {
    applyShow(drill::Clear(state_, platform::Random()));
}

void frmMain::lblName_MouseMove(std::int16_t Index) {
    applyShow(drill::HoverName(state_, Index));
}

void frmMain::lblName_Click(std::int16_t Index) {
    applyShow(drill::ClickName(state_, Index));
}

void frmMain::picShow_Click() {
    applyShow(drill::ClickSurface(state_));
}

void frmMain::picLabels_Click() {
    picShow_Click();
}

void frmMain::Timer1_Timer() {
    if (const auto colour = drill::Tick(state_, lblMessage->ForeColor()))
        lblMessage->setForeColor(*colour);
}

void frmMain::ShowHandNamesScreen() {
    applyLayout(drill::OpenScreen(state_, drill::Screen::names));
}

void frmMain::ShowRankingsScreen() {
    applyLayout(drill::OpenScreen(state_, drill::Screen::rankings));
}

void frmMain::ShowPairValueScreen() {
    applyLayout(drill::OpenScreen(state_, drill::Screen::pairValue));
}

void frmMain::ShowBestHandScreen() {
    applyLayout(drill::OpenScreen(state_, drill::Screen::bestHand));
}

void frmMain::cmdStart1A_Click() {
    applyShow(drill::StartNamesPick(state_));
}

void frmMain::cmdStart1B_Click() {
    applyShow(drill::StartNamesRandom(state_, platform::Random()));
}

void frmMain::cmdStart2A_Click() {
    applyShow(drill::StartRanksPick(state_));
}

void frmMain::cmdStart2B_Click() {
    applyShow(drill::StartRanksRandom(state_, platform::Random()));
}

void frmMain::cmdStart3A_Click() {
    applyShow(drill::StartPairPick(state_));
}

void frmMain::cmdStart3B_Click() {
    applyShow(drill::StartPairRandom(state_, platform::Random()));
}

void frmMain::cmdStart4_Click() {
    applyShow(drill::StartBestHand(state_, platform::Random()));
}
