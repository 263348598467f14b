// Poker Hand Rankings: exercise 1 compares two picked hands, exercise 2 deals two hands and
// gives the verdict when a hand is clicked.
#include "drill/detail.h"
#include "drill/steering.h"

namespace drill {
namespace {

// No shuffle: the second hand comes from the deck the first one left, so they never share
// a card.
void DealSecondHand(State& state, Show& show) {
    show.wipe(Surface::second);
    state.xincr = detail::ThirdOfCard(state);
    for (std::size_t i = 0; i < state.hand2.size(); ++i) {
        const std::int16_t key = state.deck[state.hand1.size() + i];
        detail::DrawCard(state, show, Surface::second, key);
        cards::CardFromKey(key, state.keyMap, state.hand2[i]);
    }
    state.hand2Result = detail::Evaluate(state.hand2, show);
    state.hand2[0].category = state.hand2Result;
}

}  // namespace

namespace detail {

Show PressKeyRanksPick(State& state, std::int16_t key) {
    Show show = KeyPicked(key);
    if (state.cardCount < 5) {
        PickCard(state, show, Surface::first, key, state.hand1, state.cardCount);
    } else {
        if (state.cardCount == 5) {
            state.xincr = ThirdOfCard(state);
        }
        PickCard(state, show, Surface::second, key, state.hand2,
                 static_cast<std::int16_t>(state.cardCount - 5));
    }
    if (++state.cardCount == 10) {
        state.hand1Result = Evaluate(state.hand1, show);
        state.hand1[0].category = state.hand1Result;
        state.hand2Result = Evaluate(state.hand2, show);
        state.hand2[0].category = state.hand2Result;
        GiveVerdict(state, show);
        state.cardCount = 0;
        show.setAllKeys(false);
    }
    show.clearEnabled = true;
    return show;
}

}  // namespace detail

Show StartRanksPick(State& state) {
    Show show;
    show.wipe(Surface::first);
    show.wipe(Surface::second);
    show.setAllKeys(true);
    state.xincr = detail::ThirdOfCard(state);
    state.cardCount = 0;
    detail::SteadyMessage(state, show, "Pick 2 sets of 5 card hands from the keyboard..");
    state.run(&State::modeRanksPick);
    return show;
}

Show StartRanksRandom(State& state, cards::RandomSource& random) {
    Show show;
    const int row = steering::drawRow(random);
    steering::dealSteered(steering::kRankings, row,
                          [&] { return detail::DealFirstHand(state, show, random); });
    // The second hand is not steered: it may be anything, also better than the first.
    DealSecondHand(state, show);
    state.answerPending = true;
    show.clearEnabled = true;
    detail::SteadyMessage(state, show, "Click the window with the best hand..");
    state.run(&State::modeRanksRandom);
    return show;
}

Show ClickSurface(State& state) {
    // Either hand asks for the same verdict: the choice is not checked, nothing is counted.
    Show show;
    if (state.modeRanksRandom && state.answerPending) {
        detail::GiveVerdict(state, show);
    }
    return show;
}

}  // namespace drill
