// The Pre-Flop Pair Value exercise: two hole cards, their value label and preflop rank.
// Exercise 1: the user picks two cards and is shown the label. Exercise 2: two cards are dealt
// and the user names the label.
#include <cmath>

#include "pairs/pairs.h"
#include "platform/mDefs.h"
#include "shell/frmMain.h"

namespace {

constexpr std::int16_t kFirstValueLabel = 2;
constexpr std::int16_t kLastValueLabel = 6;

struct ValueLabel {
    std::int16_t nameIndex;
    const char* caption;
};

constexpr std::array<ValueLabel, 5> kValueLabels{{
    {2, "Very Good"},
    {3, "Good"},
    {4, "Average"},
    {5, "Bad"},
    {6, "Very Bad"},
}};

// Exercise 1 shows the first label whose lowest rank the pair reaches; "Very Bad" takes the rest.
struct ShownFrom {
    std::int16_t lowestRank;
    std::int16_t nameIndex;
};
constexpr std::array<ShownFrom, 4> kShownLabel{{{90, 2}, {70, 3}, {60, 4}, {50, 5}}};
constexpr std::int16_t kShownOtherwise = 6;

// Exercise 2 is stricter from "Good" downwards: each label accepts its own band of ranks.
struct AcceptedBand {
    std::int16_t nameIndex;
    std::int16_t lowestRank;
    std::int16_t highestRank;
};
constexpr std::array<AcceptedBand, 5> kAcceptedBand{{
    {2, 90, 100},
    {3, 80, 89},
    {4, 70, 79},
    {5, 60, 69},
    {6, 0, 59},
}};

std::int16_t ShownLabelOfRank(std::int16_t rank) {
    for (const ShownFrom& row : kShownLabel) {
        if (rank >= row.lowestRank) {
            return row.nameIndex;
        }
    }
    return kShownOtherwise;
}

bool LabelAcceptsRank(std::int16_t nameIndex, std::int16_t rank) {
    for (const AcceptedBand& band : kAcceptedBand) {
        if (band.nameIndex == nameIndex) {
            return rank >= band.lowestRank && rank <= band.highestRank;
        }
    }
    return false;
}

QString RankMessage(std::int16_t rank) {
    return QStringLiteral("Preflop rank is %1%").arg(rank);
}

std::int32_t rounded(double value) {
    return static_cast<std::int32_t>(std::nearbyint(value));
}

}  // namespace

void frmMain::ShowPairValueScreen() {
    // A failure ends the set-up silently; what was done so far stays done.
    try {
        cmdClear->setEnabled(false);
        for (auto* name : lblName) {
            name->setVisible(true);
        }
        lblName[0]->setVisible(false);
        lblName[1]->setVisible(false);
        for (const ValueLabel& label : kValueLabels) {
            lblName[static_cast<std::size_t>(label.nameIndex)]->setCaption(
                QString::fromLatin1(label.caption));
        }
        lblName[7]->setVisible(false);
        lblName[8]->setVisible(false);
        setAllNamesPlain();
        picLabels->setBackColor(0xE0E0E0);
        picShow->setAccessibleName(QStringLiteral("Two cards"));
        picLabels->setAccessibleName(QStringLiteral("Pair values"));
        picShow->Cls();
        lblHeading1->setCaption(QStringLiteral("Pre-Flop Pair Value"));
        lblMessage->setCaption(QStringLiteral("Click [Start] to begin.."));
        lblEx1->setCaption(QStringLiteral(
            "Pick 2 cards from the keyboard, program displays the preflop pair value"));
        lblEx2->setCaption(QStringLiteral(
            "The program will display a random pair, you pick a value label from the list"));
        cmdStart3A->setVisible(true);
        cmdStart3B->setVisible(true);
        for (auto* other : {cmdStart1A, cmdStart1B, cmdStart2A, cmdStart2B, cmdStart4}) {
            other->setVisible(false);
        }
        setAllKeysEnabled(false);
        Frame2->setEnabled(true);
    } catch (const std::exception&) {
    }
}

void frmMain::cmdStart3A_Click() {
    setModeFlags(&modePairPick);
    xincr = rounded(cWidth * 0.7);
    cardCount = 0;
    setAllNamesPlain();
    setAllKeysEnabled(true);
    picShow->Cls();
    cmdClear->setEnabled(true);
    messageBlinking = false;
    lblMessage->setForeColor(0xFFFFFF);
    lblMessage->setCaption(QStringLiteral("Pick 2 cards from the keyboard.."));
}

void frmMain::keyPressPairPick(std::int16_t Index) {
    cmdKey[static_cast<std::size_t>(Index)]->setEnabled(false);
    picShow->setFocus();
    DrawHandOneCard(Index);
    if (cardCount >= 0 && cardCount < 2) {
        cards::CardFromKey(Index, keyMap, hand1[static_cast<std::size_t>(cardCount)]);
    }
    ++cardCount;
    if (cardCount == 2) {
        hand1Result = PairValueKey(hand1);
        cardCount = 0;
        HighlightHandName(ShownLabelOfRank(hand1Result));
        lblMessage->setCaption(RankMessage(hand1Result));
        setAllKeysEnabled(false);
    }
    cmdClear->setEnabled(true);
}

void frmMain::cmdStart3B_Click() {
    xincr = rounded(cWidth * 0.7);
    setAllKeysEnabled(false);
    setAllNamesPlain();
    // The new pair is drawn over whatever cards lie on picShow: nothing clears it here.
    DealRandomPair();
    answerPending = true;
    cmdClear->setEnabled(true);
    messageBlinking = false;
    lblMessage->setForeColor(0xFFFFFF);
    lblMessage->setCaption(QStringLiteral("Click a pair value label from the list.."));
    setModeFlags(&modePairRandom);
}

std::int16_t frmMain::DealRandomPair() {
    cards::ShuffleDeck(deck, platform::Random());
    for (std::size_t i = 0; i < 2; ++i) {
        DrawHandOneCard(deck[i]);
        cards::CardFromKey(deck[i], keyMap, hand2[i]);
    }
    hand2Result = PairValueKey(hand2);
    hand2[0].category = hand2Result;
    return hand2Result;
}

void frmMain::nameClickPairRandom(std::int16_t Index) {
    if (Index < kFirstValueLabel || Index > kLastValueLabel) {
        return;
    }
    if (LabelAcceptsRank(Index, hand2Result)) {
        HighlightHandName(Index);
        answerPending = false;
        platform::PlaySound(platform::AppPath(QStringLiteral("\\wavs\\yes.wav")));
        lblMessage->setCaption(RankMessage(hand2Result));
    } else {
        // A wrong label changes nothing: the question stays open for another try.
        platform::PlaySound(platform::AppPath(QStringLiteral("\\wavs\\no.wav")));
    }
}

std::int16_t frmMain::PairValueKey(const cards::Hand& hand) {
    return pairs::PairValueKey(pairTable, hand);
}
