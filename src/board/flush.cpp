// The flush answer, read off the keyboard rows at the moment of the deal.
#include <array>
#include <string_view>

#include "board/board.h"

namespace board {
namespace {

constexpr int kKeysPerRow = 13;
constexpr int kMinBoardCardsOfSuit = 3;

// Keyboard rows in their order of work.
constexpr std::array<std::string_view, 4> kRowAnswerStarts = {
    "Best hand is a Club Flush (",
    "Best hand is a Diamond Flush (",
    "Best hand is a Spade Flush (",
    "Best hand is a Hearts Flush (",
};

int BoardCardsInRow(std::span<const bool, 52> keyEnabled, int row) {
    int count = 0;
    for (int column = 0; column < kKeysPerRow; ++column) {
        if (!keyEnabled[row * kKeysPerRow + column]) {
            ++count;
        }
    }
    return count;
}

}  // namespace

std::string BoardFlushPossible(std::span<const bool, 52> keyEnabled,
                               std::span<const std::string, 52> keyCaptions) {
    std::string flushAnswer;
    // Kept across the rows: a dealt board has at most one row of three.
    std::string freeCards;
    for (int row = 0; row < static_cast<int>(kRowAnswerStarts.size()); ++row) {
        if (BoardCardsInRow(keyEnabled, row) < kMinBoardCardsOfSuit) {
            continue;
        }
        // From the ace down. The test is on the text's length, so a free ten ends the walk
        // at once with one card named.
        for (int key = (row + 1) * kKeysPerRow - 1; key >= row * kKeysPerRow; --key) {
            if (!keyEnabled[key]) {
                continue;
            }
            freeCards += keyCaptions[key];
            if (freeCards.size() > 1) {
                flushAnswer = std::string(kRowAnswerStarts[row]) + freeCards + ")";
                break;
            }
        }
    }
    return flushAnswer;
}

}  // namespace board
