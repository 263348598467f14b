// Pre-Flop Pair Value: two hole cards, their value label and preflop rank. Exercise 1: the
// user picks two cards and is shown the label. Exercise 2: two cards are dealt and the user
// names the label.
#include <array>

#include "drill/detail.h"
#include "drill/rounding.h"
#include "pairs/pairs.h"

namespace drill {
namespace {

constexpr std::int16_t kFirstValueLabel = 2;
constexpr std::int16_t kLastValueLabel = 6;

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

std::string RankMessage(std::int16_t rank) {
    return "Preflop rank is " + std::to_string(rank) + "%";
}

std::int32_t PairStart(const State& state) {
    return rounded(state.cWidth * 0.7);
}

}  // namespace

namespace detail {

Show PressKeyPairPick(State& state, std::int16_t key) {
    Show show = KeyPicked(key);
    // Two hole cards: only the first two places of the hand.
    PickCard(state, show, Surface::first, key, std::span(state.hand1).first(2), state.cardCount);
    if (++state.cardCount == 2) {
        state.hand1Result = pairs::PairValueKey(state.pairTable, state.hand1);
        state.cardCount = 0;
        Mark(show, ShownLabelOfRank(state.hand1Result));
        show.message = RankMessage(state.hand1Result);
        show.setAllKeys(false);
    }
    show.clearEnabled = true;
    return show;
}

void ClickNamePairRandom(State& state, Show& show, std::int16_t name) {
    if (name < kFirstValueLabel || name > kLastValueLabel) {
        return;
    }
    if (LabelAcceptsRank(name, state.hand2Result)) {
        Mark(show, name);
        state.answerPending = false;
        show.sound = Sound::yes;
        show.message = RankMessage(state.hand2Result);
    } else {
        // A wrong label changes nothing: the question stays open for another try.
        show.sound = Sound::no;
    }
}

}  // namespace detail

Show StartPairPick(State& state) {
    Show show;
    state.run(&State::modePairPick);
    state.xincr = PairStart(state);
    state.cardCount = 0;
    show.setNamesPlain();
    show.setAllKeys(true);
    show.wipe(Surface::first);
    show.clearEnabled = true;
    detail::SteadyMessage(state, show, "Pick 2 cards from the keyboard..");
    return show;
}

Show StartPairRandom(State& state, cards::RandomSource& random) {
    Show show;
    state.xincr = PairStart(state);
    show.setAllKeys(false);
    show.setNamesPlain();
    // The new pair is drawn over whatever cards lie on the surface: nothing wipes it here.
    cards::ShuffleDeck(state.deck, random);
    for (std::size_t i = 0; i < 2; ++i) {
        detail::DrawCard(state, show, Surface::first, state.deck[i]);
        cards::CardFromKey(state.deck[i], state.keyMap, state.hand2[i]);
    }
    state.hand2Result = pairs::PairValueKey(state.pairTable, state.hand2);
    state.hand2[0].category = state.hand2Result;
    state.answerPending = true;
    show.clearEnabled = true;
    detail::SteadyMessage(state, show, "Click a pair value label from the list..");
    state.run(&State::modePairRandom);
    return show;
}

}  // namespace drill
