// The board reader: what it says of dealt boards, and of captions that are no value text.
#include <gtest/gtest.h>

#include <array>
#include <string>
#include <string_view>
#include <vector>

#include "board/board.h"
#include "cards/cards.h"

namespace board {
namespace {

// Key k lies in row k / 13 (clubs, diamonds, spades, hearts), column k % 13 ("2" .. "A").
constexpr std::array<const char*, 13> kCaptions{"2", "3",  "4", "5", "6", "7", "8",
                                                "9", "10", "J", "Q", "K", "A"};

// A board such as "Ah Tc 3d 3s Kh" read as the exercise does: the flush answer off the
// keyboard, with the board's keys disabled, then the board's captions.
std::string Read(std::string_view board) {
    std::array<bool, 52> enabled;
    enabled.fill(true);
    std::array<std::string, 52> keyCaptions;
    for (int key = 0; key < 52; ++key) {
        keyCaptions[key] = kCaptions[key % 13];
    }
    std::array<std::string, 5> captions;
    for (std::size_t i = 0; i < captions.size(); ++i) {
        const auto column = std::string_view("23456789TJQKA").find(board[3 * i]);
        enabled[std::string_view("cdsh").find(board[3 * i + 1]) * 13 + column] = false;
        captions[i] = kCaptions[column];
    }
    return ReadBoard(captions, BoardFlushPossible(enabled, keyCaptions));
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
    for (std::size_t i = 0; i < std::size(rows); ++i) {
        EXPECT_EQ(Read(rows[i][0]), rows[i][1]) << "row " << i;
    }
}

// Captions that are no value text are left out of the values, without a message.
TEST(ReadBoard, CaptionsThatAreNoValueText) {
    std::vector<std::string> shown;
    cards::SetMessageSink([&](const std::string& text) { shown.push_back(text); });
    const std::array<std::string, 5> board{"X", "5", "", "1", "2"};
    EXPECT_EQ(BoardValueTokens(board), (BoardValues{"2", "5", "", "", ""}));
    EXPECT_EQ(ReadBoard(board, ""), "Best full house is a  ()");
    const std::array<std::string, 5> spaced{"J", "Q", "K", "A", "10 "};
    EXPECT_EQ(ReadBoard(spaced, ""), "Best Hand is a Straight (10JQKA)");
    cards::SetMessageSink(nullptr);
    EXPECT_TRUE(shown.empty());
}

}  // namespace
}  // namespace board
