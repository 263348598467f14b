// The board reader: the best hand, from full house down, that two pocket cards can make
// with a five-card board. Plain functions over the key captions and the keys' enabled
// states; the window reads those off its keys.
#pragma once

#include <array>
#include <span>
#include <string>

namespace board {

// Value texts, sorted "2" .. "10", "J", "Q", "K", "A".
using BoardValues = std::array<std::string, 5>;

// The board's value texts sorted low to high, from the captions of its five keys.
// A caption that is no value text is left out (its slot stays empty).
BoardValues BoardValueTokens(std::span<const std::string, 5> boardCaptions);

std::string BoardThreeOfAKind(const BoardValues& values);
// Empty when no straight is possible.
std::string IsStraightPossible(const BoardValues& values);
// Empty when the board has no pair.
std::string BoardBestFullHouse(const BoardValues& values);
// The flush answer from the keyboard at the moment of the deal: keys 0..51, a disabled key
// being a board card. Empty when no suit has three board cards.
std::string BoardFlushPossible(std::span<const bool, 52> keyEnabled,
                               std::span<const std::string, 52> keyCaptions);
// The answer that goes into the message line, in the reader's order of questions.
std::string ReadBoard(std::span<const std::string, 5> boardCaptions,
                      const std::string& flushAnswer);

}  // namespace board
