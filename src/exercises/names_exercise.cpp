// The Poker Hand Names screen: exercise 1 names five picked cards, exercise 2 deals a hand
// and asks for its name.
#include "exercises/steering.h"
#include "platform/mDefs.h"
#include "shell/frmMain.h"

namespace {

constexpr std::int32_t kListGrey = 0xE0E0E0;
constexpr std::int32_t kWhite = 0xFFFFFF;

// The Pre-Flop Pair Value screen writes its own captions on labels 2 to 6.
constexpr std::array<const char*, 5> kMiddleNameCaptions{"Full House", "Flush", "Straight",
                                                         "Three of a Kind", "Two Pair"};
constexpr std::size_t kFirstMiddleName = 2;

std::int32_t thirdOfCard(std::int32_t cardWidth) {
    return static_cast<std::int32_t>(std::nearbyint(cardWidth / 3.0));
}

}  // namespace

void frmMain::ShowHandNamesScreen() {
    // Any failure leaves the screen as far as it got.
    try {
        cmdClear->setEnabled(false);
        for (auto* name : lblName)
            name->setVisible(true);
        for (std::size_t i = 0; i < kMiddleNameCaptions.size(); ++i) {
            lblName[kFirstMiddleName + i]->setCaption(QString::fromLatin1(kMiddleNameCaptions[i]));
        }
        picLabels->setBackColor(kListGrey);
        picLabels->setAccessibleName(QStringLiteral("Hand names"));
        picShow->setAccessibleName(QStringLiteral("Hand"));
        picShow->Cls();
        setAllNamesPlain();
        lblHeading1->setCaption(QStringLiteral("Poker Hand Names"));
        lblMessage->setCaption(QStringLiteral("Click [Start] to begin.."));
        lblEx1->setCaption(QStringLiteral(
            "You pick 5 cards from the keyboard the program displays the poker hand name"));
        lblEx2->setCaption(QStringLiteral(
            "The program will display a random hand, you pick the correct name from the list"));
        showStartButtons({cmdStart1A, cmdStart1B});
        setAllKeysEnabled(false);
        Frame2->setEnabled(true);
    } catch (const std::exception&) {
    }
}

void frmMain::cmdStart1A_Click() {
    picShow->Cls();
    setAllKeysEnabled(true);
    xincr = thirdOfCard(cWidth);
    cardCount = 0;
    setAllNamesPlain();
    cmdClear->setEnabled(true);
    messageBlinking = false;
    lblMessage->setForeColor(kWhite);
    lblMessage->setCaption(QStringLiteral("Pick 5 cards from the keyboard.."));
    setModeFlags(&modeNamesPick);
}

void frmMain::cmdStart1B_Click() {
    setAllKeysEnabled(false);
    setAllNamesPlain();
    const int row = steering::drawRow(platform::Random());
    steering::dealSteered(steering::kHandNames, row, [this] { return DealRandomHand(); });
    answerPending = true;
    cmdClear->setEnabled(true);
    messageBlinking = false;
    lblMessage->setForeColor(kWhite);
    lblMessage->setCaption(QStringLiteral("Click a poker hand name from the list.."));
    setModeFlags(&modeNamesRandom);
}

std::int16_t frmMain::DealRandomHand() {
    // Any failure ends the deal silently with what it has.
    try {
        cards::ShuffleDeck(deck, platform::Random());
        picShow->Cls();
        xincr = thirdOfCard(cWidth);
        for (std::size_t i = 0; i < hand1.size(); ++i) {
            DrawHandOneCard(deck[i]);
            cards::CardFromKey(deck[i], keyMap, hand1[i]);
        }
        hand1Result = EvaluatePokerHand(hand1);
        hand1[0].category = hand1Result;
        return hand1Result;
    } catch (const std::exception&) {
        return 0;
    }
}

void frmMain::nameClickNamesRandom(std::int16_t Index) {
    if (hand1Result == cards::CategoryAtPlace(Index)) {
        HighlightHandName(Index);
        answerPending = false;
        platform::PlaySound(platform::AppPath(QStringLiteral("\\wavs\\yes.wav")));
    } else {
        // The question stays open; the user may try again as often as they like.
        platform::PlaySound(platform::AppPath(QStringLiteral("\\wavs\\no.wav")));
    }
}
