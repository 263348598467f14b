// The board reader: what it says of dealt boards.
#include <gtest/gtest.h>

#include <array>
#include <string>
#include <string_view>

#include "board/board.h"
#include "cards/cards.h"
#include "support/scripted_random.h"

namespace board {
namespace {

// A board such as "Ah Tc 3d 3s Kh", read as the exercise does: the flush answer, then the rest.
std::string Read(std::string_view notation) {
    std::array<cards::Card, 5> board{};
    for (std::size_t i = 0; i < board.size(); ++i)
        board[i] = test_support::cardOf(notation.substr(3 * i, 2));
    const cards::Checked<std::string> answer = ReadBoard(board, BoardFlushPossible(board));
    EXPECT_FALSE(answer.failure);
    return answer.value;
}

// A full house beats the flush, the flush the straight; pocket cards make up to two more.
TEST(ReadBoard, NamesTheBestHandTwoPocketCardsCanMake) {
    const char* const rows[][2] = {
        {"8h 3c Kc 3d 8s", "Any 8 makes a full house"},
        {"3c Kd 3d Kh 8s", "Any K makes a full house"},
        {"2c 8d Kh 8s Kc", "Any K makes a full house"},
        {"4c Jh Kc 4d 8c", "Best full house is a (KK)"},  // the lowest pair: one blank
        {"8d 4c 8s Jh Kc", "Best full house is a  (KK)"},
        {"Js 4c Jh 6d Kc", "Best full house is a  (KK)"},
        {"Kh 4c 9s Kc 6d", "Best full house is a  (K-9)"},
        {"2c 7c Jd 9c 4s", "Best hand is a Club Flush (AK)"},
        {"Ad 7d 9d Jc 4s", "Best hand is a Diamond Flush (KQ)"},
        {"5s 6s 7s 8d Jh", "Best hand is a Spade Flush (AK)"},
        {"Ah Kh Qh Jh 3c", "Best hand is a Hearts Flush (10)"},  // the ten fills the text
        {"Jh 4c 7d 8s Kc", "Best Hand is a Straight (78910J)"},
        {"Tc 3h Jd 5c Qs", "Best Hand is a Straight (10JQKA)"},
        {"Ac 3d 5s 9h Kd", "Best Hand is a Straight (A2345)"},
        {"2c 6d 4s 9h Kd", "Best Hand is a Straight (23456)"},
        {"2c 3d 8s Qh Kc", "Best Hand is 3 of a Kind (KKK)"},
        {"Ac 7d 8s Kh 2c", "Best Hand is 3 of a Kind (AAA)"},
    };
    for (const auto& [board, answer] : rows)
        EXPECT_EQ(Read(board), answer);
}

}  // namespace
}  // namespace board
