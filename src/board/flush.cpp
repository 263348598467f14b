// The flush answer: a suit with three board cards, and the best two cards of it still free.
#include <algorithm>
#include <array>
#include <string_view>

#include "board/board.h"

namespace board {
namespace {

constexpr int kMinBoardCardsOfSuit = 3;
constexpr std::int16_t kAceHigh = 14;
constexpr std::int16_t kTwo = 2;

struct SuitQuestion {
    std::int16_t suit;
    std::string_view answerStart;
};

// The suits in the order they are asked about.
constexpr std::array<SuitQuestion, 4> kSuitQuestions{{
    {0, "Best hand is a Club Flush ("},
    {1, "Best hand is a Diamond Flush ("},
    {3, "Best hand is a Spade Flush ("},
    {2, "Best hand is a Hearts Flush ("},
}};

bool OnBoard(Board board, std::int16_t suit, std::int16_t aceHighValue) {
    return std::any_of(board.begin(), board.end(), [&](const cards::Card& card) {
        const std::int16_t value = card.value == 1 ? kAceHigh : card.value;
        return card.suit == suit && value == aceHighValue;
    });
}

int BoardCardsOfSuit(Board board, std::int16_t suit) {
    return static_cast<int>(std::count_if(board.begin(), board.end(),
                                          [suit](const cards::Card& c) { return c.suit == suit; }));
}

}  // namespace

std::string BoardFlushPossible(Board board) {
    std::string flushAnswer;
    // Kept across the suits: a dealt board has at most one suit of three.
    std::string freeCards;
    for (const SuitQuestion& question : kSuitQuestions) {
        if (BoardCardsOfSuit(board, question.suit) < kMinBoardCardsOfSuit) {
            continue;
        }
        // From the ace down. The test is on the text's length, so a free ten ends the walk
        // at once with one card named.
        for (std::int16_t value = kAceHigh; value >= kTwo; --value) {
            if (OnBoard(board, question.suit, value)) {
                continue;
            }
            freeCards += cards::ValueText(value);
            if (freeCards.size() > 1) {
                flushAnswer = std::string(question.answerStart) + freeCards + ")";
                break;
            }
        }
    }
    return flushAnswer;
}

}  // namespace board
