// Steered deals: the Start buttons of the dealt exercises draw a row r from 1 to 6 and
// deal again and again until the first hand's category lies in that row's set. Rows 4 to 6
// take the first deal as it comes, so half of all deals are unsteered.
#pragma once

#include <array>
#include <cstdint>
#include <initializer_list>

#include "cards/cards.h"

namespace drill::steering {

// A set of HandCategory codes (2..20), one bit per code.
using CategorySet = std::uint32_t;

constexpr CategorySet categories(std::initializer_list<std::int16_t> codes) {
    CategorySet set = 0;
    for (const std::int16_t code : codes)
        set |= CategorySet{1} << code;
    return set;
}

constexpr bool accepts(CategorySet set, std::int16_t category) {
    return category >= 0 && category < 32 && (set >> category & 1U) != 0;
}

// The accepted sets of rows 1, 2 and 3.
using Table = std::array<CategorySet, 3>;

// Poker Hand Names: three of a kind or better; two pair to full house; one pair to straight.
inline constexpr Table kHandNames{categories({2, 3, 4, 5, 6, 7}), categories({4, 5, 6, 7, 8}),
                                  categories({6, 7, 8, 9})};
// Poker Hand Rankings, first hand: three of a kind to full house; two pair to full house;
// one pair to three of a kind.
inline constexpr Table kRankings{categories({4, 5, 6, 7}), categories({4, 5, 6, 7, 8}),
                                 categories({7, 8, 9})};

// Reseeds the source, then r is the integer part of u * 6 + 1, worked in single precision.
inline int drawRow(cards::RandomSource& random) {
    random.Randomize();
    const float u = random.Rnd();
    return static_cast<int>(u * 6.0f + 1.0f);
}

// Deals once, or, in rows 1 to 3, until the dealt category is in the row's set. The loop
// does not serve events: no click or tick comes in between two deals. A deal that failed
// (category 0) ends it, since dealing again would fail again and the window would hang.
template <typename Deal>
void dealSteered(const Table& table, int row, Deal&& deal) {
    if (row < 1 || row > static_cast<int>(table.size())) {
        deal();
        return;
    }
    const CategorySet wanted = table[static_cast<std::size_t>(row - 1)];
    for (std::int16_t category = deal(); category != 0 && !accepts(wanted, category);)
        category = deal();
}

}  // namespace drill::steering
