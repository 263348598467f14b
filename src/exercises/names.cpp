// The list of names, the message line's blinking, and the comparison's verdict.
#include "platform/mDefs.h"
#include "shell/frmMain.h"

void frmMain::HighlightHandName(std::int16_t Index) {
    if (Index < 0 || Index > 8)
        return;
    for (auto* name : lblName) {
        name->setForeColor(0);
        name->setBackColor(0xE0E0E0);
    }
    lblName[static_cast<std::size_t>(Index)]->setForeColor(0xE0E0E0);
    lblName[static_cast<std::size_t>(Index)]->setBackColor(0);
}

void frmMain::lblName_MouseMove(std::int16_t Index) {
    if (Index < 0 || Index > 8)
        return;
    if ((modeNamesRandom || modePairRandom) && answerPending && Index != lastHoverName) {
        setAllNamesPlain();
        lblName[static_cast<std::size_t>(Index)]->setBorderStyle(1);
        lastHoverName = Index;
    }
}

void frmMain::lblName_Click(std::int16_t Index) {
    if (Index < 0 || Index > 8)
        return;
    if (modeNamesRandom && answerPending)
        nameClickNamesRandom(Index);
    if (modePairRandom && answerPending)
        nameClickPairRandom(Index);
}

void frmMain::Timer1_Timer() {
    if (!messageBlinking)
        return;
    if (lblMessage->ForeColor() == 0) {
        lblMessage->setForeColor(0xFFFFFF);
    } else {
        ++blinkTicks;
        if (blinkTicks == 4) {
            blinkTicks = 0;
            lblMessage->setForeColor(0);
        }
    }
}

void frmMain::applyVerdict(const cards::Verdict& verdict) {
    if (verdict.text)
        lblMessage->setCaption(QString::fromStdString(*verdict.text));
    if (verdict.callsForAttention)
        messageBlinking = true;
}

void frmMain::ReportCategoryWinner() {
    applyVerdict(cards::ReportCategoryWinner(hand1, hand2));
}

void frmMain::CompareHands() {
    applyVerdict(cards::CompareHands(hand1, hand2));
}
