// The board reader against poker itself on random dealt boards, and with odd captions.
#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <numeric>
#include <random>
#include <set>
#include <string>
#include <vector>

#include "board/board.h"
#include "cards/cards.h"

namespace board {
namespace {

// Key k lies in row k / 13 (clubs, diamonds, spades, hearts), column k % 13 ("2" .. "A").
constexpr std::array<const char*, 13> kCaptions{"2", "3",  "4", "5", "6", "7", "8",
                                                "9", "10", "J", "Q", "K", "A"};
using Board = std::array<int, 5>;  // keys in the order of the deal
using Counts = std::array<int, 13>;

std::string Caption(int rank) {
    return kCaptions[(rank + 13) % 13];  // rank -1 is the ace below the two
}

int Highest(const Counts& count, int atLeast, int except = -1) {
    for (int rank = 12; rank >= 0; --rank) {
        if (rank != except && count[rank] >= atLeast) {
            return rank;
        }
    }
    return -1;
}

// What the reader must say, in its own wording, of a board with no value three times. The best
// full house and straight come from a brute force over every pair of pocket values.
std::string Expected(const Board& board, std::set<std::string>& shapes) {
    Counts count{};
    std::array<int, 4> perSuit{};
    for (const int key : board) {
        ++count[key % 13];
        ++perSuit[key / 13];
    }
    std::pair<int, int> fullHouse{-1, -1};  // trips, pair
    int straightHigh = -1;
    for (int p = 0; p < 13; ++p) {
        for (int q = p; q < 13; ++q) {
            Counts seven = count;
            ++seven[p];
            ++seven[q];
            const int trips = Highest(seven, 3);
            if (trips >= 0 && Highest(seven, 2, trips) >= 0) {
                fullHouse = std::max(fullHouse, {trips, Highest(seven, 2, trips)});
            }
            for (int high = 12; high > std::max(straightHigh, 2); --high) {
                int run = 0;
                for (int rank = high - 4; rank <= high; ++rank) {
                    run += seven[(rank + 13) % 13] > 0 ? 1 : 0;
                }
                straightHigh = run == 5 ? high : straightHigh;
            }
        }
    }
    const int suit = static_cast<int>(
        std::find_if(perSuit.begin(), perSuit.end(), [](int n) { return n >= 3; }) -
        perSuit.begin());
    const int pair = Highest(count, 2);
    if (pair >= 0) {
        shapes.insert(suit < 4 ? "paired, three of a suit" : "paired");
        if (Highest(count, 2, pair) >= 0) {
            shapes.insert("two pairs");
            return "Any " + Caption(pair) + " makes a full house";
        }
        // Trips of the pair take one pocket card of it and one of the value it pairs with.
        const auto [trips, under] = fullHouse;
        const std::string pocket =
            trips == pair ? Caption(trips) + "-" + Caption(under) : Caption(trips) + Caption(trips);
        const bool lowest = std::find_if(count.begin(), count.end(), [](int n) { return n > 0; }) ==
                            count.begin() + pair;
        return std::string("Best full house is a") + (lowest ? " (" : "  (") + pocket + ")";
    }
    if (suit < 4) {
        shapes.insert(straightHigh >= 0 ? "flush, straight possible" : "flush");
        std::string names;  // the suit's free cards from the ace down, until two characters
        for (int rank = 12; names.size() < 2; --rank) {
            if (std::find(board.begin(), board.end(), suit * 13 + rank) == board.end()) {
                names += Caption(rank);
            }
        }
        const char* suitNames[] = {"Club", "Diamond", "Spade", "Hearts"};
        return "Best hand is a " + std::string(suitNames[suit]) + " Flush (" + names + ")";
    }
    if (straightHigh < 0) {
        shapes.insert("three of a kind");
        const std::string top = Caption(Highest(count, 1));
        return "Best Hand is 3 of a Kind (" + top + top + top + ")";
    }
    shapes.insert("straight");
    std::string names;
    for (int rank = straightHigh - 4; rank <= straightHigh; ++rank) {
        names += Caption(rank);
    }
    return "Best Hand is a Straight (" + names + ")";
}

TEST(ReadBoard, AgreesWithPokerOnRandomDealtBoards) {
    constexpr std::uint32_t kSeed = 20241122;
    std::mt19937 random(kSeed);
    std::array<int, 52> deck;
    std::iota(deck.begin(), deck.end(), 0);
    std::set<std::string> shapes;
    int mismatches = 0;
    for (int n = 0; n < 10000 && mismatches < 5; ++n) {
        Board board{};
        Counts count{};
        do {  // dealt again while a value shows three times
            std::shuffle(deck.begin(), deck.end(), random);
            std::copy_n(deck.begin(), board.size(), board.begin());
            count.fill(0);
            for (const int key : board) {
                ++count[key % 13];
            }
        } while (Highest(count, 3) >= 0);

        // The exercise's path: the flush answer off the keys, then the board's captions.
        std::array<bool, 52> enabled;
        std::array<std::string, 52> keyCaptions;
        for (int key = 0; key < 52; ++key) {
            enabled[key] = std::find(board.begin(), board.end(), key) == board.end();
            keyCaptions[key] = Caption(key % 13);
        }
        std::array<std::string, 5> captions;
        std::string shown;
        for (std::size_t i = 0; i < board.size(); ++i) {
            captions[i] = Caption(board[i] % 13);
            shown += captions[i] + "cdsh"[board[i] / 13] + ' ';
        }
        const std::string answer = ReadBoard(captions, BoardFlushPossible(enabled, keyCaptions));
        const std::string expected = Expected(board, shapes);
        EXPECT_EQ(answer, expected) << "seed " << kSeed << ", board #" << n << ": " << shown;
        mismatches += answer != expected ? 1 : 0;
    }
    EXPECT_EQ(shapes.size(), 7u);  // every kind of board came up, or the check proves little
}

// Captions that are no value text are left out of the values; no message, an answer still.
TEST(ReadBoard, CaptionsThatAreNoValueText) {
    std::vector<std::string> shown;
    cards::SetMessageSink([&](const std::string& text) { shown.push_back(text); });
    const struct {
        std::array<std::string, 5> board;
        BoardValues values;
        const char* answer;
    } rows[] = {
        {{"X", "5", "", "1", "2"}, {"2", "5", "", "", ""}, "Best full house is a  ()"},
        {{"", "", "", "", ""}, {"", "", "", "", ""}, "Any  makes a full house"},
        {{"J", "Q", "K", "A", "10 "}, {"J", "Q", "K", "A", ""}, "Best Hand is a Straight (10JQKA)"},
        {{"a", "j", "q", "1", "0"}, {"", "", "", "", ""}, "Any  makes a full house"},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(BoardValueTokens(row.board), row.values) << row.answer;
        EXPECT_EQ(ReadBoard(row.board, ""), row.answer);
    }
    const BoardValues unpaired{"2", "3", "7", "8", "Q"};
    EXPECT_EQ(BoardBestFullHouse(unpaired), "");
    EXPECT_EQ(IsStraightPossible(unpaired), "");
    EXPECT_EQ(BoardThreeOfAKind(BoardValues{}), "Best Hand is 3 of a Kind ()");

    // The flush walk takes whatever the keys say; free texts carry over from row to row.
    std::array<bool, 52> enabled{};
    std::array<std::string, 52> captions;
    EXPECT_EQ(BoardFlushPossible(enabled, captions), "");
    enabled[12] = enabled[25] = true;
    captions[12] = "X";
    EXPECT_EQ(BoardFlushPossible(enabled, captions), "");
    captions[25] = "1";
    EXPECT_EQ(BoardFlushPossible(enabled, captions), "Best hand is a Diamond Flush (X1)");
    cards::SetMessageSink(nullptr);
    EXPECT_TRUE(shown.empty());
}

}  // namespace
}  // namespace board
