// Random dealt boards, each answer checked against a brute force over every pocket pair.
#include <algorithm>
#include <array>
#include <cstdint>
#include <map>
#include <optional>
#include <random>
#include <string>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

#include "board/board.h"
#include "keyboard.h"

namespace board {
namespace {

using testkit::kColumnCaptions;
using testkit::Keyboard;

constexpr std::uint32_t kSeed = 20241122;
constexpr int kBoards = 10000;
constexpr int kWheelHigh = 3;  // the five, top card of A2345
constexpr int kAce = 12;

// A key's rank is its column, 0 = "2" .. 12 = "A"; its suit is its row.
using Board = std::array<int, 5>;  // key indices in the order of the deal

std::string Caption(int rank) {
    return std::string(kColumnCaptions[(rank + 13) % 13]);
}

// Five distinct keys, redealt while a value shows three times.
Board DealBoard(std::mt19937& rng) {
    std::uniform_int_distribution<int> anyKey(0, 51);
    while (true) {
        Board board{};
        std::array<int, 13> perRank{};
        bool valid = true;
        for (std::size_t i = 0; i < board.size(); ++i) {
            do {
                board[i] = anyKey(rng);
            } while (std::find(board.begin(), board.begin() + i, board[i]) != board.begin() + i);
            valid = valid && ++perRank[board[i] % 13] < 3;
        }
        if (valid) {
            return board;
        }
    }
}

struct Ranks {
    std::array<int, 13> count{};

    int HighestWithAtLeast(int n, int except = -1) const {
        for (int rank = kAce; rank >= 0; --rank) {
            if (rank != except && count[rank] >= n) {
                return rank;
            }
        }
        return -1;
    }

    std::optional<std::pair<int, int>> FullHouse() const {
        const int trips = HighestWithAtLeast(3);
        const int pair = trips < 0 ? -1 : HighestWithAtLeast(2, trips);
        return pair < 0 ? std::nullopt : std::optional(std::pair{trips, pair});
    }

    int StraightHigh() const {
        for (int high = kAce; high >= kWheelHigh; --high) {
            bool run = true;
            for (int rank = high - 4; rank <= high; ++rank) {
                run = run && count[(rank + 13) % 13] > 0;  // the ace below the two in A2345
            }
            if (run) {
                return high;
            }
        }
        return -1;
    }
};

Ranks RanksOf(const Board& board) {
    Ranks ranks;
    for (const int key : board) {
        ++ranks.count[key % 13];
    }
    return ranks;
}

// The best full house and the highest straight over every pocket pair of free cards.
struct BruteForce {
    std::optional<std::pair<int, int>> fullHouse;
    int straightHigh = -1;
};

BruteForce SearchPockets(const Board& board) {
    std::vector<int> free;
    for (int key = 0; key < 52; ++key) {
        if (std::find(board.begin(), board.end(), key) == board.end()) {
            free.push_back(key);
        }
    }
    BruteForce best;
    for (std::size_t i = 0; i < free.size(); ++i) {
        for (std::size_t j = i + 1; j < free.size(); ++j) {
            Ranks seven = RanksOf(board);
            ++seven.count[free[i] % 13];
            ++seven.count[free[j] % 13];
            best.fullHouse = std::max(best.fullHouse, seven.FullHouse());
            best.straightHigh = std::max(best.straightHigh, seven.StraightHigh());
        }
    }
    return best;
}

std::string StraightText(int high) {
    if (high < 0) {
        return "";
    }
    std::string names;
    for (int rank = high - 4; rank <= high; ++rank) {
        names += Caption(rank);
    }
    return "Best Hand is a Straight (" + names + ")";
}

struct Expectation {
    std::string shape;
    std::string answer;
};

Expectation ExpectPaired(const Board& board, const BruteForce& best) {
    const Ranks ranks = RanksOf(board);
    const int higherPair = ranks.HighestWithAtLeast(2);
    if (ranks.HighestWithAtLeast(2, higherPair) >= 0) {
        return {"two pairs", "Any " + Caption(higherPair) + " makes a full house"};
    }
    // Trips of another value take both pocket cards; trips of the pair take one pocket card of
    // it and one of the value the full house pairs with.
    const auto [trips, under] = *best.fullHouse;
    const std::string pocket = trips == higherPair ? Caption(trips) + "-" + Caption(under)
                                                   : Caption(trips) + Caption(trips);
    const auto lowest =
        std::find_if(ranks.count.begin(), ranks.count.end(), [](int n) { return n > 0; });
    const bool pairIsLowest = lowest == ranks.count.begin() + higherPair;
    return {"one pair",
            std::string("Best full house is a") + (pairIsLowest ? " (" : "  (") + pocket + ")"};
}

Expectation ExpectFlush(const Board& board, int suit, const BruteForce& best) {
    static constexpr std::array<const char*, 4> kSuitNames = {"Club", "Diamond", "Spade", "Hearts"};
    std::vector<std::string> free;  // the suit's free cards, highest first
    for (int key = suit * 13 + kAce; key >= suit * 13; --key) {
        if (std::find(board.begin(), board.end(), key) == board.end()) {
            free.push_back(Caption(key % 13));
        }
    }
    // The ten's two characters stop the naming after one card.
    const std::string names = free[0] == "10" ? free[0] : free[0] + free[1];
    return {best.straightHigh >= 0 ? "flush, straight possible" : "flush",
            "Best hand is a " + std::string(kSuitNames[suit]) + " Flush (" + names + ")"};
}

Expectation Expect(const Board& board, const BruteForce& best) {
    std::array<int, 4> perSuit{};
    for (const int key : board) {
        ++perSuit[key / 13];
    }
    const auto suited = std::find_if(perSuit.begin(), perSuit.end(), [](int n) { return n >= 3; });
    const bool hasSuit = suited != perSuit.end();
    if (RanksOf(board).HighestWithAtLeast(2) >= 0) {
        Expectation paired = ExpectPaired(board, best);
        paired.shape += hasSuit ? ", three of a suit" : "";
        return paired;
    }
    if (hasSuit) {
        return ExpectFlush(board, static_cast<int>(suited - perSuit.begin()), best);
    }
    if (best.straightHigh >= 0) {
        return {"straight", StraightText(best.straightHigh)};
    }
    const std::string top = Caption(RanksOf(board).HighestWithAtLeast(1));
    return {"three of a kind", "Best Hand is 3 of a Kind (" + top + top + top + ")"};
}

std::string Describe(const Board& board) {
    std::string text;
    for (const int key : board) {
        text += Caption(key % 13) + "cdsh"[key / 13] + ' ';
    }
    return text;
}

TEST(RandomBoardsTest, ReaderAgreesWithBruteForceOverAllPockets) {
    std::mt19937 rng(kSeed);
    std::map<std::string, int> shapes;
    int mismatches = 0;
    for (int n = 0; n < kBoards; ++n) {
        const Board board = DealBoard(rng);
        std::array<std::string, 5> captions;
        std::transform(board.begin(), board.end(), captions.begin(),
                       [](int key) { return Caption(key % 13); });
        Keyboard keyboard;
        keyboard.Deal(board);
        const std::string answer = ReadBoard(captions, keyboard.FlushAnswer());

        const BruteForce best = SearchPockets(board);
        const Expectation expected = Expect(board, best);
        ++shapes[expected.shape];
        // Without a pair the straight question must hold on its own, also behind a flush.
        const std::string straight = IsStraightPossible(BoardValueTokens(captions));
        const bool paired = expected.shape.find("pair") != std::string::npos;
        if (answer != expected.answer || (!paired && straight != StraightText(best.straightHigh))) {
            if (++mismatches <= 5) {
                ADD_FAILURE() << "seed " << kSeed << ", board #" << n << ": " << Describe(board)
                              << "\n  answer   \"" << answer << "\"\n  expected \""
                              << expected.answer << "\"\n  straight \"" << straight << "\"";
            }
        }
    }
    EXPECT_EQ(mismatches, 0) << "seed " << kSeed;
    // Every shape of board the reader meets must have come up, or the check proves little.
    for (const char* shape :
         {"two pairs", "two pairs, three of a suit", "one pair", "one pair, three of a suit",
          "flush", "flush, straight possible", "straight", "three of a kind"}) {
        EXPECT_GT(shapes[shape], 0) << shape;
    }
}

}  // namespace
}  // namespace board
