// The board's sorted values, the last answer (three of a kind) and the order of questions.
#include "board/board.h"

#include <algorithm>

namespace board {
namespace {

constexpr std::int16_t kAceHigh = 14;

}  // namespace

BoardValues BoardValueTexts(Board board) {
    std::array<std::int16_t, 5> aceHigh{};
    std::transform(board.begin(), board.end(), aceHigh.begin(),
                   [](const cards::Card& card) { return card.value == 1 ? kAceHigh : card.value; });
    std::sort(aceHigh.begin(), aceHigh.end());
    BoardValues values;
    std::size_t filled = 0;
    for (const std::int16_t value : aceHigh) {
        if (value >= 2 && value <= kAceHigh) {
            values[filled++] = cards::ValueText(value);
        }
    }
    return values;
}

std::string BoardThreeOfAKind(const BoardValues& values) {
    // No test of its own: it is asked last, when no pair, flush or straight answered.
    const std::string& highest = values[4];
    return "Best Hand is 3 of a Kind (" + highest + highest + highest + ")";
}

cards::Checked<std::string> ReadBoard(Board board, const std::string& flushAnswer) {
    const BoardValues values = BoardValueTexts(board);
    if (std::string fullHouse = BoardBestFullHouse(values); !fullHouse.empty()) {
        return {fullHouse, std::nullopt};
    }
    if (!flushAnswer.empty()) {
        return {flushAnswer, std::nullopt};
    }
    cards::Checked<std::string> straight = IsStraightPossible(values);
    if (!straight.value.empty()) {
        return straight;
    }
    return {BoardThreeOfAKind(values), std::move(straight.failure)};
}

}  // namespace board
