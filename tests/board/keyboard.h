// The card keyboard as the board reader sees it: 52 captions and enabled states.
// Key k lies in row k / 13 (clubs, diamonds, spades, hearts) and column k % 13 ("2" .. "A").
#pragma once

#include <array>
#include <initializer_list>
#include <span>
#include <string>
#include <string_view>

#include "board/board.h"

namespace board::testkit {

inline constexpr std::array<std::string_view, 13> kColumnCaptions = {
    "2", "3", "4", "5", "6", "7", "8", "9", "10", "J", "Q", "K", "A"};

enum Row { kClubs = 0, kDiamonds = 1, kSpades = 2, kHearts = 3 };

struct BoardCard {
    int row;
    std::string_view caption;
};

inline int ColumnOf(std::string_view caption) {
    for (int column = 0; column < 13; ++column) {
        if (kColumnCaptions[column] == caption) {
            return column;
        }
    }
    return -1;
}

struct Keyboard {
    std::array<bool, 52> enabled{};
    std::array<std::string, 52> captions;

    Keyboard() {
        for (int key = 0; key < 52; ++key) {
            enabled[key] = true;
            captions[key] = kColumnCaptions[key % 13];
        }
    }

    // Disables the keys of the board, as the deal leaves them.
    void Deal(std::span<const int> boardKeys) {
        for (const int key : boardKeys) {
            enabled[key] = false;
        }
    }

    std::string FlushAnswer() const { return BoardFlushPossible(enabled, captions); }
};

inline int KeyOf(BoardCard card) {
    return card.row * 13 + ColumnOf(card.caption);
}

}  // namespace board::testkit
