// The full-house answer of a board with a pair.
#include "board/board.h"

namespace board {

std::string BoardBestFullHouse(const BoardValues& values) {
    const auto same = [&values](std::size_t a, std::size_t b) { return values[a] == values[b]; };
    const std::string& top = values[4];

    // Two pairs: one card of the higher pair makes the full house.
    if (same(0, 1) && same(2, 3)) {
        return "Any " + values[3] + " makes a full house";
    }
    if ((same(0, 1) && same(3, 4)) || (same(1, 2) && same(3, 4))) {
        return "Any " + top + " makes a full house";
    }
    // One pair: the pocket pair that makes the best full house. The lowest pair's text has
    // one blank before the bracket, the others two.
    if (same(0, 1)) {
        return "Best full house is a (" + top + top + ")";
    }
    if (same(1, 2) || same(2, 3)) {
        return "Best full house is a  (" + top + top + ")";
    }
    // The pair is the highest value: one card of it and one of the next value down.
    if (same(3, 4)) {
        return "Best full house is a  (" + top + "-" + values[2] + ")";
    }
    return {};
}

}  // namespace board
