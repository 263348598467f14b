// The Poker Hand Rankings screen: exercise 1 compares two picked hands, exercise 2 deals
// two hands and gives the verdict when a hand is clicked.
#include "exercises/steering.h"
#include "platform/mDefs.h"
#include "shell/frmMain.h"

namespace {

constexpr std::int32_t kGreen = 0x008000;
constexpr std::int32_t kWhite = 0xFFFFFF;

std::int32_t thirdOfCard(std::int32_t cardWidth) {
    return static_cast<std::int32_t>(std::nearbyint(cardWidth / 3.0));
}

}  // namespace

void frmMain::ShowRankingsScreen() {
    // Any failure leaves the screen as far as it got.
    try {
        for (auto* name : lblName)
            name->setVisible(false);
        cmdClear->setEnabled(false);
        picLabels->setBackColor(kGreen);
        picLabels->setAccessibleName(QStringLiteral("Second hand"));
        picShow->setAccessibleName(QStringLiteral("First hand"));
        picLabels->Cls();
        picShow->Cls();
        lblHeading1->setCaption(QStringLiteral("Poker Hand Rankings"));
        lblEx1->setCaption(
            QStringLiteral("You pick  2 sets of 5 cards from the keyboard, the program picks the "
                           "higher ranked hand"));
        lblEx2->setCaption(QStringLiteral(
            "The program will display 2 random hands, you pick the highest ranked hand"));
        messageBlinking = true;
        lblMessage->setCaption(QStringLiteral("Click [Start] to begin..."));
        showStartButtons({cmdStart2A, cmdStart2B});
        setAllKeysEnabled(false);
        Frame2->setEnabled(true);
    } catch (const std::exception&) {
    }
}

void frmMain::cmdStart2A_Click() {
    picShow->Cls();
    picLabels->Cls();
    setAllKeysEnabled(true);
    xincr = thirdOfCard(cWidth);
    cardCount = 0;
    messageBlinking = false;
    lblMessage->setForeColor(kWhite);
    lblMessage->setCaption(QStringLiteral("Pick 2 sets of 5 card hands from the keyboard.."));
    setModeFlags(&modeRanksPick);
}

void frmMain::cmdStart2B_Click() {
    const int row = steering::drawRow(platform::Random());
    steering::dealSteered(steering::kRankings, row, [this] { return DealRandomHand(); });
    // The second hand is not steered: it may be anything, also better than the first.
    DealSecondHand();
    answerPending = true;
    cmdClear->setEnabled(true);
    messageBlinking = false;
    lblMessage->setForeColor(kWhite);
    lblMessage->setCaption(QStringLiteral("Click the window with the best hand.."));
    setModeFlags(&modeRanksRandom);
}

std::int16_t frmMain::DealSecondHand() {
    // No shuffle: the second hand comes from the deck the first one left, so they never
    // share a card. Any failure ends the deal silently.
    try {
        picLabels->Cls();
        xincr = thirdOfCard(cWidth);
        for (std::size_t i = 0; i < hand2.size(); ++i) {
            const std::int16_t key = deck[hand1.size() + i];
            DrawHandTwoCard(key);
            cards::CardFromKey(key, keyMap, hand2[i]);
        }
        hand2Result = EvaluatePokerHand(hand2);
        hand2[0].category = hand2Result;
        return hand2Result;
    } catch (const std::exception&) {
        return 0;
    }
}

void frmMain::picShow_Click() {
    // Either hand asks for the same verdict: the choice is not checked, nothing is counted.
    if (!(modeRanksRandom && answerPending))
        return;
    if (hand1Result != hand2Result) {
        ReportCategoryWinner();
    } else {
        CompareHands();
    }
}

void frmMain::picLabels_Click() {
    picShow_Click();
}
