// The board reader: the best hand, from full house down, that two pocket cards can make
// with a five-card board.
#pragma once

#include <array>
#include <span>
#include <string>

#include "cards/cards.h"

namespace board {

// The five board cards: value 1 (ace) to 13, and suit.
using Board = std::span<const cards::Card, 5>;

// Value texts, sorted "2" .. "10", "J", "Q", "K", "A".
using BoardValues = std::array<std::string, 5>;

// The board's value texts sorted low to high, the ace high. A card without a value text is
// left out (the slots behind the last text stay empty).
BoardValues BoardValueTexts(Board board);

std::string BoardThreeOfAKind(const BoardValues& values);
// Empty when no straight is possible.
cards::Checked<std::string> IsStraightPossible(const BoardValues& values);
// Empty when the board has no pair.
std::string BoardBestFullHouse(const BoardValues& values);
// Empty when no suit has three board cards.
std::string BoardFlushPossible(Board board);
// The answer, in the reader's order of questions.
cards::Checked<std::string> ReadBoard(Board board, const std::string& flushAnswer);

}  // namespace board
