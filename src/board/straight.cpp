// The highest straight that two pocket cards can make with the board.
#include <array>
#include <exception>
#include <string_view>

#include "board/board.h"
#include "cards/cards.h"

namespace board {
namespace {

using StraightWindow = std::array<std::string_view, 5>;

// Highest straight first; the ace counts low only in the last row.
constexpr std::array<StraightWindow, 10> kStraightWindows = {{
    {"10", "J", "Q", "K", "A"},
    {"9", "10", "J", "Q", "K"},
    {"8", "9", "10", "J", "Q"},
    {"7", "8", "9", "10", "J"},
    {"6", "7", "8", "9", "10"},
    {"5", "6", "7", "8", "9"},
    {"4", "5", "6", "7", "8"},
    {"3", "4", "5", "6", "7"},
    {"2", "3", "4", "5", "6"},
    {"A", "2", "3", "4", "5"},
}};

// Three board values in a window are enough: the two pocket cards supply the rest.
constexpr int kMatchesNeeded = 3;

bool BoardFillsWindow(const StraightWindow& window, const BoardValues& values) {
    int matches = 0;
    for (auto text = window.rbegin(); text != window.rend(); ++text) {
        for (const std::string& value : values) {
            if (value == *text && ++matches >= kMatchesNeeded) {
                return true;
            }
        }
    }
    return false;
}

std::string StraightAnswer(const StraightWindow& window) {
    std::string answer = "Best Hand is a Straight (";
    for (const std::string_view text : window) {
        answer += text;
    }
    return answer + ")";
}

}  // namespace

cards::Checked<std::string> IsStraightPossible(const BoardValues& values) {
    try {
        for (const StraightWindow& window : kStraightWindows) {
            if (BoardFillsWindow(window, values)) {
                return {StraightAnswer(window), std::nullopt};
            }
        }
        return {};
    } catch (const std::exception& failure) {
        return {{}, std::string("error in IsStraightPossible ") + failure.what()};
    }
}

}  // namespace board
