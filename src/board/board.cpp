// The board's sorted values, the last answer (three of a kind) and the order of questions.
#include "board/board.h"

#include "board/values.h"

namespace board {

BoardValues BoardValueTokens(std::span<const std::string, 5> boardCaptions) {
    BoardValues values;
    // A caption equals at most one value text, so at most five slots are ever filled.
    std::size_t filled = 0;
    for (const std::string_view text : detail::kValueTexts) {
        for (const std::string& caption : boardCaptions) {
            if (caption == text) {
                values[filled++] = caption;
            }
        }
    }
    return values;
}

std::string BoardThreeOfAKind(const BoardValues& values) {
    // No test of its own: it is asked last, when no pair, flush or straight answered.
    const std::string& highest = values[4];
    return "Best Hand is 3 of a Kind (" + highest + highest + highest + ")";
}

std::string ReadBoard(std::span<const std::string, 5> boardCaptions,
                      const std::string& flushAnswer) {
    if (std::string fullHouse = BoardBestFullHouse(BoardValueTokens(boardCaptions));
        !fullHouse.empty()) {
        return fullHouse;
    }
    if (!flushAnswer.empty()) {
        return flushAnswer;
    }
    if (std::string straight = IsStraightPossible(BoardValueTokens(boardCaptions));
        !straight.empty()) {
        return straight;
    }
    return BoardThreeOfAKind(BoardValueTokens(boardCaptions));
}

}  // namespace board
