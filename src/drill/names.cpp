// Poker Hand Names: exercise 1 names five picked cards, exercise 2 deals a hand and asks
// for its name.
#include "drill/detail.h"
#include "drill/steering.h"

namespace drill {
namespace detail {

std::int16_t DealFirstHand(State& state, Show& show, cards::RandomSource& random) {
    cards::ShuffleDeck(state.deck, random);
    show.wipe(Surface::first);
    state.xincr = detail::ThirdOfCard(state);
    for (std::size_t i = 0; i < state.hand1.size(); ++i) {
        detail::DrawCard(state, show, Surface::first, state.deck[i]);
        cards::CardFromKey(state.deck[i], state.keyMap, state.hand1[i]);
    }
    state.hand1Result = detail::Evaluate(state.hand1, show);
    state.hand1[0].category = state.hand1Result;
    return state.hand1Result;
}

Show PressKeyNamesPick(State& state, std::int16_t key) {
    Show show = KeyPicked(key);
    PickCard(state, show, Surface::first, key, state.hand1, state.cardCount);
    if (++state.cardCount == 5) {
        state.hand1Result = Evaluate(state.hand1, show);
        state.cardCount = 0;
        Mark(show, static_cast<std::int16_t>(cards::CategoryPlace(state.hand1Result)));
        show.setAllKeys(false);
    }
    show.clearEnabled = true;
    return show;
}

void ClickNameNamesRandom(State& state, Show& show, std::int16_t name) {
    if (state.hand1Result == cards::CategoryAtPlace(name)) {
        Mark(show, name);
        state.answerPending = false;
        show.sound = Sound::yes;
    } else {
        // The question stays open; the user may try again as often as they like.
        show.sound = Sound::no;
    }
}

}  // namespace detail

Show StartNamesPick(State& state) {
    Show show;
    show.wipe(Surface::first);
    show.setAllKeys(true);
    state.xincr = detail::ThirdOfCard(state);
    state.cardCount = 0;
    show.setNamesPlain();
    show.clearEnabled = true;
    detail::SteadyMessage(state, show, "Pick 5 cards from the keyboard..");
    state.run(&State::modeNamesPick);
    return show;
}

Show StartNamesRandom(State& state, cards::RandomSource& random) {
    Show show;
    show.setAllKeys(false);
    show.setNamesPlain();
    const int row = steering::drawRow(random);
    steering::dealSteered(steering::kHandNames, row,
                          [&] { return detail::DealFirstHand(state, show, random); });
    state.answerPending = true;
    show.clearEnabled = true;
    detail::SteadyMessage(state, show, "Click a poker hand name from the list..");
    state.run(&State::modeNamesRandom);
    return show;
}

}  // namespace drill
