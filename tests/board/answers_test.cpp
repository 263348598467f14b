// The reader's sentences for boards whose answer is known.
#include <array>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "board/board.h"
#include "cards/cards.h"
#include "keyboard.h"

namespace board {
namespace {

using testkit::BoardCard;
using testkit::kClubs;
using testkit::kDiamonds;
using testkit::Keyboard;
using testkit::kHearts;
using testkit::kSpades;

using Captions = std::array<std::string, 5>;

struct BoardCase {
    Captions board;  // deliberately unsorted: the reader sorts
    std::string answer;
};

TEST(BoardBestFullHouseTest, AnswersEachShapeOfPairedBoard) {
    const std::vector<BoardCase> cases = {
        {{"5", "2", "K", "5", "2"}, "Any 5 makes a full house"},
        {{"K", "2", "5", "2", "K"}, "Any K makes a full house"},
        {{"5", "K", "2", "K", "5"}, "Any K makes a full house"},
        {{"K", "2", "9", "2", "5"}, "Best full house is a (KK)"},
        {{"9", "7", "K", "3", "7"}, "Best full house is a  (KK)"},
        {{"9", "K", "3", "9", "5"}, "Best full house is a  (KK)"},
        {{"K", "9", "5", "K", "3"}, "Best full house is a  (K-9)"},
        {{"A", "8", "A", "4", "6"}, "Best full house is a  (A-8)"},
        {{"10", "2", "9", "5", "2"}, "Best full house is a (1010)"},
        {{"10", "9", "3", "10", "5"}, "Best full house is a  (10-9)"},
        {{"A", "2", "A", "2", "7"}, "Any A makes a full house"},
        {{"2", "5", "9", "K", "A"}, ""},
    };
    for (const auto& [board, answer] : cases) {
        EXPECT_EQ(BoardBestFullHouse(BoardValueTokens(board)), answer)
            << board[0] << ' ' << board[1] << ' ' << board[2] << ' ' << board[3] << ' ' << board[4];
    }
}

TEST(IsStraightPossibleTest, NamesTheHighestRowWithThreeBoardValues) {
    const std::vector<BoardCase> cases = {
        {{"Q", "2", "10", "7", "J"}, "Best Hand is a Straight (10JQKA)"},
        {{"A", "3", "Q", "2", "K"}, "Best Hand is a Straight (10JQKA)"},
        {{"7", "K", "5", "6", "2"}, "Best Hand is a Straight (56789)"},
        {{"9", "5", "8", "6", "7"}, "Best Hand is a Straight (78910J)"},
        {{"A", "7", "2", "10", "4"}, "Best Hand is a Straight (A2345)"},
        {{"Q", "3", "A", "7", "5"}, "Best Hand is a Straight (34567)"},
        {{"8", "Q", "2", "7", "3"}, ""},
    };
    for (const auto& [board, answer] : cases) {
        EXPECT_EQ(IsStraightPossible(BoardValueTokens(board)), answer)
            << board[0] << ' ' << board[1] << ' ' << board[2] << ' ' << board[3] << ' ' << board[4];
    }
}

TEST(ReadBoardTest, ThreeOfAKindOfTheHighestValueWhenNothingElseAnswers) {
    const std::vector<BoardCase> cases = {
        {{"K", "8", "2", "J", "5"}, "Best Hand is 3 of a Kind (KKK)"},
        {{"Q", "8", "7", "3", "2"}, "Best Hand is 3 of a Kind (QQQ)"},
        {{"8", "A", "7", "3", "Q"}, "Best Hand is 3 of a Kind (AAA)"},
    };
    for (const auto& [board, answer] : cases) {
        EXPECT_EQ(ReadBoard(board, ""), answer) << board[0] << ' ' << board[4];
    }
}

struct FlushCase {
    std::vector<BoardCard> board;
    std::string answer;
};

TEST(BoardFlushPossibleTest, NamesTheHighestFreeCardsOfTheSuit) {
    const std::vector<FlushCase> cases = {
        {{{kClubs, "3"}, {kClubs, "7"}, {kClubs, "K"}, {kHearts, "9"}, {kSpades, "A"}},
         "Best hand is a Club Flush (AQ)"},
        {{{kDiamonds, "A"}, {kDiamonds, "K"}, {kDiamonds, "4"}, {kClubs, "4"}, {kHearts, "J"}},
         "Best hand is a Diamond Flush (QJ)"},
        {{{kSpades, "2"}, {kSpades, "3"}, {kSpades, "4"}, {kSpades, "5"}, {kSpades, "6"}},
         "Best hand is a Spade Flush (AK)"},
        {{{kHearts, "A"}, {kHearts, "K"}, {kHearts, "Q"}, {kClubs, "2"}, {kDiamonds, "2"}},
         "Best hand is a Hearts Flush (J10)"},
        // The ten is the highest free club: its two characters end the walk.
        {{{kClubs, "A"}, {kClubs, "K"}, {kClubs, "Q"}, {kClubs, "J"}, {kHearts, "3"}},
         "Best hand is a Club Flush (10)"},
        {{{kHearts, "A"}, {kHearts, "K"}, {kHearts, "Q"}, {kHearts, "J"}, {kHearts, "10"}},
         "Best hand is a Hearts Flush (98)"},
        {{{kClubs, "A"}, {kClubs, "K"}, {kSpades, "Q"}, {kSpades, "J"}, {kHearts, "10"}}, ""},
    };
    for (const auto& [cards, answer] : cases) {
        std::vector<int> keys;
        for (const BoardCard& card : cards) {
            keys.push_back(KeyOf(card));
        }
        Keyboard keyboard;
        keyboard.Deal(keys);
        EXPECT_EQ(keyboard.FlushAnswer(), answer) << "expected " << answer;
    }
}

// The whole exercise path: deal, flush answer from the keys, sentence from the captions.
std::string ReadDealtBoard(const std::vector<BoardCard>& cards) {
    std::vector<int> keys;
    Captions captions;
    for (std::size_t i = 0; i < cards.size() && i < captions.size(); ++i) {
        keys.push_back(KeyOf(cards[i]));
        captions[i] = cards[i].caption;
    }
    Keyboard keyboard;
    keyboard.Deal(keys);
    return ReadBoard(captions, keyboard.FlushAnswer());
}

TEST(ReadBoardTest, AsksFullHouseThenFlushThenStraight) {
    const std::vector<FlushCase> cases = {
        // A pair beats three of a suit; and four of a kind is never named.
        {{{kClubs, "3"}, {kClubs, "9"}, {kDiamonds, "9"}, {kClubs, "K"}, {kSpades, "K"}},
         "Any K makes a full house"},
        {{{kHearts, "2"}, {kSpades, "2"}, {kHearts, "5"}, {kHearts, "9"}, {kClubs, "K"}},
         "Best full house is a (KK)"},
        // No pair: the flush goes before a straight ...
        {{{kClubs, "3"}, {kClubs, "7"}, {kHearts, "9"}, {kClubs, "K"}, {kSpades, "A"}},
         "Best hand is a Club Flush (AQ)"},
        {{{kDiamonds, "5"}, {kSpades, "6"}, {kDiamonds, "7"}, {kClubs, "8"}, {kDiamonds, "K"}},
         "Best hand is a Diamond Flush (AQ)"},
        // ... and before a straight flush.
        {{{kClubs, "5"}, {kClubs, "6"}, {kClubs, "7"}, {kDiamonds, "8"}, {kSpades, "K"}},
         "Best hand is a Club Flush (AK)"},
        {{{kSpades, "9"}, {kSpades, "10"}, {kSpades, "J"}, {kSpades, "Q"}, {kSpades, "K"}},
         "Best hand is a Spade Flush (A8)"},
        // Two of a suit give no flush, so the straight answers.
        {{{kClubs, "2"}, {kClubs, "5"}, {kHearts, "6"}, {kSpades, "7"}, {kDiamonds, "K"}},
         "Best Hand is a Straight (56789)"},
        {{{kClubs, "2"}, {kClubs, "3"}, {kHearts, "7"}, {kHearts, "8"}, {kDiamonds, "Q"}},
         "Best Hand is 3 of a Kind (QQQ)"},
    };
    for (const auto& [cards, answer] : cases) {
        EXPECT_EQ(ReadDealtBoard(cards), answer) << "expected " << answer;
    }
}

// Captions that are no value text: no crash, no message, and the algorithm's own answer.
class GarbageCaptionsTest : public ::testing::Test {
  protected:
    void SetUp() override {
        cards::SetMessageSink([this](const std::string& text) { messages_.push_back(text); });
    }
    void TearDown() override {
        cards::SetMessageSink(nullptr);
        for (const std::string& message : messages_) {
            ADD_FAILURE() << "message shown: " << message;
        }
    }

  private:
    std::vector<std::string> messages_;
};

TEST_F(GarbageCaptionsTest, BoardValuesLeaveUnknownSlotsEmpty) {
    struct Case {
        Captions board;
        BoardValues values;
        std::string answer;
    };
    const std::vector<Case> cases = {
        {{"X", "5", "", "1", "2"}, {"2", "5", "", "", ""}, "Best full house is a  ()"},
        {{"", "", "", "", ""}, {"", "", "", "", ""}, "Any  makes a full house"},
        {{"J", "Q", "K", "A", "10 "}, {"J", "Q", "K", "A", ""}, "Best Hand is a Straight (10JQKA)"},
        {{"a", "j", "q", "1", "0"}, {"", "", "", "", ""}, "Any  makes a full house"},
    };
    for (const auto& [board, values, answer] : cases) {
        EXPECT_EQ(BoardValueTokens(board), values);
        EXPECT_EQ(ReadBoard(board, ""), answer);
        EXPECT_FALSE(BoardThreeOfAKind(BoardValueTokens(board)).empty());
    }
}

TEST_F(GarbageCaptionsTest, FlushWalkTakesWhateverTheKeysSay) {
    Keyboard blank;
    blank.captions.fill("");
    blank.enabled.fill(false);
    EXPECT_EQ(blank.FlushAnswer(), "");

    Keyboard oneFree = blank;
    oneFree.enabled[12] = true;
    oneFree.captions[12] = "X";
    EXPECT_EQ(oneFree.FlushAnswer(), "");

    // Every row full of board cards: the free texts of one row carry into the next.
    Keyboard twoRows = oneFree;
    twoRows.enabled[25] = true;
    twoRows.captions[25] = "1";
    EXPECT_EQ(twoRows.FlushAnswer(), "Best hand is a Diamond Flush (X1)");
}

}  // namespace
}  // namespace board
