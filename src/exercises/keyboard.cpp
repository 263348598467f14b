// The card keyboard: its layout (which also lays out the panes), the key press hub and Clear.
#include <algorithm>
#include <cmath>

#include "exercises/keyboard_text.h"
#include "platform/mDefs.h"
#include "shell/frmMain.h"

void frmMain::initKeys() {
    // Any failure ends the routine silently; what was done so far stays done.
    try {
        for (auto* name : lblName)
            name->setBorderStyle(0);
        for (auto* key : cmdKey) {
            key->setLeft(0);
            key->setTop(0);
        }
        for (std::size_t row = 0; row < 4; ++row) {
            auto* first = cmdKey[row * 13];
            first->setCaption(QStringLiteral("2"));
            first->setTop(static_cast<double>(row) * cmdKey[0]->Height());
            for (std::size_t column = 1; column < 13; ++column) {
                auto* key = cmdKey[row * 13 + column];
                const auto* before = cmdKey[row * 13 + column - 1];
                key->setLeft(key->Width() + before->Left());
                key->setTop(first->Top());
                key->setCaption(QString::fromLatin1(keyboard_text::kColumnCaptions[column]));
            }
        }
        cards::FillKeyMap(keyMap);

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
        xincr = keyboard_text::rounded(cWidth / 3.0);
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
        lblMessage->setCaption(QStringLiteral("Click [Start] to begin..."));
        setAllKeysEnabled(false);
        cmdClear->setEnabled(false);
        messageBlinking = true;
    } catch (const std::exception&) {
    }
}

void frmMain::cmdKey_Click(std::int16_t Index) {
    if (Index < 0 || Index > 51)
        return;
    // At most one flag is set, so at most one branch runs; with none, the press does nothing.
    if (modeNamesPick || modeNamesRandom)
        keyPressNamesPick(Index);
    if (modeRanksPick)
        keyPressRanksPick(Index);
    if (modePairPick)
        keyPressPairPick(Index);
    if (modeBestHand)
        keyPressBestHand(Index);
}

void frmMain::keyPressNamesPick(std::int16_t Index) {
    cmdKey[static_cast<std::size_t>(Index)]->setEnabled(false);
    picShow->setFocus();
    DrawHandOneCard(Index);
    if (cardCount >= 0 && cardCount < 5)
        cards::CardFromKey(Index, keyMap, hand1[static_cast<std::size_t>(cardCount)]);
    ++cardCount;
    if (cardCount == 5) {
        hand1Result = EvaluatePokerHand(hand1);
        cardCount = 0;
        const int row = cards::CategoryPlace(hand1Result);
        if (row >= 0)
            HighlightHandName(static_cast<std::int16_t>(row));
        setAllKeysEnabled(false);
    }
    cmdClear->setEnabled(true);
}

void frmMain::keyPressRanksPick(std::int16_t Index) {
    cmdKey[static_cast<std::size_t>(Index)]->setEnabled(false);
    picShow->setFocus();
    if (cardCount < 5) {
        DrawHandOneCard(Index);
        if (cardCount >= 0)
            cards::CardFromKey(Index, keyMap, hand1[static_cast<std::size_t>(cardCount)]);
    } else {
        if (cardCount == 5)
            xincr = keyboard_text::rounded(cWidth / 3.0);
        DrawHandTwoCard(Index);
        if (cardCount < 10)
            cards::CardFromKey(Index, keyMap, hand2[static_cast<std::size_t>(cardCount - 5)]);
    }
    ++cardCount;
    if (cardCount == 10) {
        hand1Result = EvaluatePokerHand(hand1);
        hand1[0].category = hand1Result;
        hand2Result = EvaluatePokerHand(hand2);
        hand2[0].category = hand2Result;
        if (hand1Result != hand2Result) {
            ReportCategoryWinner();
        } else {
            CompareHands();
        }
        cardCount = 0;
        setAllKeysEnabled(false);
    }
    cmdClear->setEnabled(true);
}

void frmMain::cmdClear_Click() {
    picShow->Cls();
    if (modeRanksPick || modeRanksRandom)
        picLabels->Cls();
    xincr = keyboard_text::rounded(cWidth / 3.0);
    cardCount = 0;
    setAllNamesPlain();
    messageBlinking = false;
    lblMessage->setForeColor(0xFFFFFF);
    lblMessage->setCaption(QString());
    if (modeNamesPick) {
        setAllKeysEnabled(true);
        lblMessage->setCaption(QStringLiteral("Pick 5 cards.."));
    } else if (modeNamesRandom) {
        cmdStart1B_Click();
    } else if (modeRanksPick) {
        cmdStart2A_Click();
    } else if (modeRanksRandom) {
        cmdStart2B_Click();
    } else if (modePairPick) {
        cmdStart3A_Click();
    } else if (modePairRandom) {
        cmdStart3B_Click();
    } else if (modeBestHand) {
        cmdStart4_Click();
    }
}

void frmMain::setAllKeysEnabled(bool enabled) {
    for (auto* key : cmdKey)
        key->setEnabled(enabled);
}

void frmMain::setAllNamesPlain() {
    for (auto* name : lblName) {
        name->setForeColor(0);
        name->setBackColor(0xE0E0E0);
        name->setBorderStyle(0);
    }
}

void frmMain::setModeFlags(bool* runningFlag) {
    for (bool* flag : {&modeNamesPick, &modeNamesRandom, &modeRanksPick, &modeRanksRandom,
                       &modePairPick, &modePairRandom, &modeBestHand}) {
        *flag = flag == runningFlag;
    }
}

void frmMain::showStartButtons(std::initializer_list<platform::CommandButton*> visible) {
    for (auto* button :
         {cmdStart1A, cmdStart2A, cmdStart3A, cmdStart4, cmdStart1B, cmdStart2B, cmdStart3B}) {
        button->setVisible(std::find(visible.begin(), visible.end(), button) != visible.end());
    }
}

std::int16_t frmMain::EvaluatePokerHand(cards::Hand& hand) {
    const cards::Checked<std::int16_t> evaluated = cards::EvaluatePokerHand(hand);
    if (evaluated.failure)
        platform::MsgBox(QString::fromStdString(*evaluated.failure));
    return evaluated.value;
}
