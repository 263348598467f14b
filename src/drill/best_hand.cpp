// Best Hand Recognition: a dealt board of five, two pocket picks, and the best hand (full
// house or less) that the board allows.
#include <algorithm>

#include "board/board.h"
#include "drill/detail.h"
#include "drill/rounding.h"

namespace drill {
namespace {

constexpr std::size_t kBoardSize = 5;

std::array<cards::Card, kBoardSize> BoardCards(const State& state) {
    std::array<cards::Card, kBoardSize> board{};
    cards::BuildHandFromDeck(state.deck, 0, state.keyMap, board);
    return board;
}

// True when one value stands on three or more of the board's cards.
bool BoardHasThreeOfAValue(const State& state) {
    const auto board = BoardCards(state);
    return std::any_of(board.begin(), board.end(), [&board](const cards::Card& card) {
        return std::count_if(board.begin(), board.end(), [&card](const cards::Card& other) {
                   return other.value == card.value;
               }) >= 3;
    });
}

void DealBoard(State& state, Show& show, cards::RandomSource& random) {
    for (std::size_t i = 0; i < state.deck.size(); ++i) {
        state.deck[i] = static_cast<std::int16_t>(i);
    }
    // A redeal shuffles the deck as it lies, with a new seed, as often as it takes.
    do {
        cards::ShuffleInPlace(state.deck, random);
    } while (BoardHasThreeOfAValue(state));
    show.wipe(Surface::first);
    state.xincr = detail::ThirdOfCard(state);
    for (std::size_t i = 0; i < kBoardSize; ++i) {
        detail::DrawCard(state, show, Surface::first, state.deck[i]);
        show.disabledKeys.push_back(state.deck[i]);
    }
    state.flushAnswer = board::BoardFlushPossible(BoardCards(state));
}

}  // namespace

namespace detail {

Show PressKeyBestHand(State& state, std::int16_t key) {
    // The picks only trigger the answer: neither key goes into it.
    Show show;
    ++state.cardCount;
    show.disabledKeys.push_back(key);
    DrawCard(state, show, Surface::second, key);
    if (state.cardCount > 1) {
        state.cardCount = 0;
        cards::Checked<std::string> answer = board::ReadBoard(BoardCards(state), state.flushAnswer);
        if (answer.failure) {
            show.failures.push_back(std::move(*answer.failure));
        }
        show.message = std::move(answer.value);
        show.clearEnabled = true;
        show.setAllKeys(false);
    }
    return show;
}

}  // namespace detail

Show StartBestHand(State& state, cards::RandomSource& random) {
    // Blinking, the message colour and Clear stay as they are: Clear comes with the answer.
    Show show;
    state.run(&State::modeBestHand);
    state.xincr = detail::ThirdOfCard(state);
    show.wipe(Surface::second);
    show.setAllKeys(true);
    state.cardCount = 0;
    DealBoard(state, show, random);
    state.xincr = rounded(state.cWidth / 2.0);
    show.message = "Select the best pocket pair (full house or less)";
    return show;
}

}  // namespace drill
