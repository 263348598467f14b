// The sample game's stage: setting the table up for a new hand, and the scene's moving
// moments (deal, flop, turn, river, showdown), paced by waits that keep serving events.
#include <cmath>

#include "drill/rounding.h"
#include "platform/mDefs.h"
#include "shell/frmMain.h"

namespace {

constexpr std::int32_t kBlindsPause = 500;
constexpr std::int32_t kPocketPause = 200;
constexpr std::int32_t kBoardCardPause = 300;
// The button slides this many single-twip steps left and down, tunasia's seat to sharky's.
constexpr int kButtonSlide = 1300;

std::int16_t roundedTwips(double twips) {
    return static_cast<std::int16_t>(drill::rounded(twips));
}

// The bets of the round go to the pot, whose label then shows the new total.
void collectBets(const std::array<platform::Label*, 9>& lblArray, const QString& pot) {
    for (std::size_t seat = 0; seat < 8; ++seat)
        lblArray[seat]->setVisible(false);
    lblArray[8]->setCaption(pot);
}

}  // namespace

void frmMain::shortDelay(std::int32_t delayTime) {
    // A click served inside the wait runs at once; the wait itself sleeps between events.
    platform::WaitServingEvents(delayTime);
}

void frmMain::ShowSampleGame() {
    ensureStage();
    picShowDown1->setVisible(false);
    picShowDown2->setVisible(false);
    cmdNext->setCaption(QStringLiteral("Next"));
    // The design place is taken at the first showing and kept, so that a restart brings the
    // button home even when the screen was left in the middle of a hand.
    if (dealerHomeLeft == 0)
        dealerHomeLeft = roundedTwips(picDealer->Left());
    if (dealerHomeTop == 0)
        dealerHomeTop = roundedTwips(picDealer->Top());
    picDealer->setLeft(dealerHomeLeft);
    picDealer->setTop(dealerHomeTop);
    lblEnough->setVisible(false);
    for (std::size_t seat = 0; seat < picPocket.size(); ++seat) {
        lblArray[seat]->setVisible(false);
        picPocket[seat]->setVisible(false);
    }
    for (auto* card : picFlop)
        card->setVisible(false);
    lblArray[8]->setVisible(false);
    cmdNext_Click();
}

void frmMain::ShowSampleDeal() {
    // Each step that moves the button a pixel is painted at once, so it is seen to slide;
    // no event is served until it stands at its new seat.
    for (int move = 0; move < kButtonSlide; ++move) {
        const QRect before = picDealer->geometry();
        picDealer->setLeft(picDealer->Left() - 1);
        picDealer->setTop(picDealer->Top() + 1);
        platform::paintMoveNow(*picDealer, before);
    }
    shortDelay(kBlindsPause);
    lblArray[0]->setCaption(QStringLiteral("0.25"));
    lblArray[1]->setCaption(QStringLiteral("0.50"));
    lblArray[0]->setVisible(true);
    lblArray[1]->setVisible(true);
    shortDelay(kBlindsPause);
    for (auto* pocket : picPocket) {
        pocket->setVisible(true);
        shortDelay(kPocketPause);
    }
}

void frmMain::ShowSampleFlop() {
    collectBets(lblArray, QStringLiteral("Pot  $3.00"));
    lblArray[8]->setVisible(true);
    for (std::size_t i = 0; i < 3; ++i) {
        picFlop[i]->setVisible(true);
        shortDelay(kBoardCardPause);
    }
}

void frmMain::ShowSampleTurn() {
    collectBets(lblArray, QStringLiteral("Pot  $4.50"));
    shortDelay(kBoardCardPause);
    picFlop[3]->setVisible(true);
}

void frmMain::ShowSampleRiver() {
    collectBets(lblArray, QStringLiteral("Pot  $6.50"));
    shortDelay(kBoardCardPause);
    picFlop[4]->setVisible(true);
}

void frmMain::ShowSampleShowdown() {
    collectBets(lblArray, QStringLiteral("Pot  $10.50"));
    shortDelay(kBoardCardPause);
    picShowDown1->setVisible(true);
    picShowDown2->setVisible(true);
}
