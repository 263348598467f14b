// The generator of 169.txt: its evaluator against known counts and an independent
// brute-force reference, and the simulation's bookkeeping.
#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cstdint>
#include <map>
#include <random>
#include <set>
#include <vector>

#include "equity.h"
#include "evaluator.h"

namespace make169 {
namespace {

TEST(Make169Evaluator, CategoryCountsOfAllFiveCardHands) {
    std::map<Category, std::int64_t> counts;
    for (int a = 0; a < kCardCount; ++a) {
        for (int b = a + 1; b < kCardCount; ++b) {
            for (int c = b + 1; c < kCardCount; ++c) {
                const CardSet abc = CardSet{}.With(a).With(b).With(c);
                for (int d = c + 1; d < kCardCount; ++d) {
                    for (int e = d + 1; e < kCardCount; ++e) {
                        ++counts[CategoryOf(Evaluate(abc.With(d).With(e)))];
                    }
                }
            }
        }
    }
    const std::map<Category, std::int64_t> known = {
        {Category::kStraightFlush, 40}, {Category::kFourOfAKind, 624},
        {Category::kFullHouse, 3744},   {Category::kFlush, 5108},
        {Category::kStraight, 10200},   {Category::kThreeOfAKind, 54912},
        {Category::kTwoPair, 123552},   {Category::kPair, 1098240},
        {Category::kHighCard, 1302540},
    };
    EXPECT_EQ(counts, known);
}

// An independent five-card evaluator: ranks grouped by count, then by rank, compared as a
// tuple (category, then the group ranks). The best of the 21 five-card subsets is the
// reference value of seven cards.
using Reference = std::vector<int>;

Reference ReferenceOfFive(const std::array<int, 5>& cards) {
    std::array<int, kRankCount> count{};
    unsigned suits = 0;
    for (const int card : cards) {
        ++count[static_cast<std::size_t>(RankOf(card))];
        suits |= 1u << SuitOf(card);
    }
    std::vector<std::pair<int, int>> groups;  // (count, rank), biggest first
    for (int rank = 0; rank < kRankCount; ++rank) {
        if (count[static_cast<std::size_t>(rank)] > 0) {
            groups.emplace_back(count[static_cast<std::size_t>(rank)], rank);
        }
    }
    std::sort(groups.rbegin(), groups.rend());
    Reference ranks;
    for (const auto& group : groups) {
        ranks.push_back(group.second);
    }
    const bool flush = (suits & (suits - 1)) == 0;
    int straightHigh = -1;
    if (groups.size() == 5 && ranks[0] - ranks[4] == 4) {
        straightHigh = ranks[0];
    } else if (ranks == Reference{12, 3, 2, 1, 0}) {
        straightHigh = 3;
    }
    int category = 0;
    if (straightHigh >= 0) {
        category = flush ? 8 : 4;
        ranks = {straightHigh};
    } else if (groups[0].first == 4) {
        category = 7;
    } else if (groups[0].first == 3 && groups[1].first == 2) {
        category = 6;
    } else if (flush) {
        category = 5;
    } else if (groups[0].first == 3) {
        category = 3;
    } else if (groups[0].first == 2) {
        category = groups[1].first == 2 ? 2 : 1;
    }
    ranks.insert(ranks.begin(), category);
    return ranks;
}

Reference ReferenceOfSeven(const std::array<int, 7>& cards) {
    Reference best;
    for (int skipA = 0; skipA < 7; ++skipA) {
        for (int skipB = skipA + 1; skipB < 7; ++skipB) {
            std::array<int, 5> five{};
            std::size_t n = 0;
            for (int i = 0; i < 7; ++i) {
                if (i != skipA && i != skipB) {
                    five[n++] = cards[static_cast<std::size_t>(i)];
                }
            }
            best = std::max(best, ReferenceOfFive(five));
        }
    }
    return best;
}

// Cards from a part of the deck: the short decks make straights, wheels, quads, two
// trips, flushes and straight flushes common, where the full deck seldom deals them.
std::vector<int> DeckOf(int lowestRank, int suitCount) {
    std::vector<int> deck;
    for (int rank = lowestRank; rank < kRankCount; ++rank) {
        for (int suit = 0; suit < suitCount; ++suit) {
            deck.push_back(CardOf(rank, suit));
        }
    }
    for (int rank = 0; rank < lowestRank && rank < 4; ++rank) {  // keep the wheel possible
        for (int suit = 0; suit < suitCount; ++suit) {
            deck.push_back(CardOf(rank, suit));
        }
    }
    return deck;
}

// Two seven-card hands sharing a board, as at a showdown: the evaluator must order them
// as the reference does, ties included, and agree on the category.
TEST(Make169Evaluator, AgreesWithBestOfTwentyOneOnRandomShowdowns) {
    constexpr std::uint32_t kSeed = 7'169;
    std::mt19937 random(kSeed);
    const std::vector<std::vector<int>> decks = {DeckOf(0, 4), DeckOf(8, 4), DeckOf(0, 2),
                                                 DeckOf(7, 2)};
    int mismatches = 0;
    for (std::size_t d = 0; d < decks.size(); ++d) {
        std::vector<int> deck = decks[d];
        for (int round = 0; round < 2'500; ++round) {
            std::shuffle(deck.begin(), deck.end(), random);
            std::array<int, 7> first{};
            std::array<int, 7> second{};
            std::copy_n(deck.begin(), 5, first.begin());
            std::copy_n(deck.begin(), 5, second.begin());
            std::copy_n(deck.begin() + 5, 2, first.begin() + 5);
            std::copy_n(deck.begin() + 7, 2, second.begin() + 5);
            CardSet a, b;
            for (std::size_t i = 0; i < 7; ++i) {
                a.Add(first[i]);
                b.Add(second[i]);
            }
            const Reference ra = ReferenceOfSeven(first);
            const Reference rb = ReferenceOfSeven(second);
            const HandValue va = Evaluate(a);
            const HandValue vb = Evaluate(b);
            const bool agree = (va < vb) == (ra < rb) && (va == vb) == (ra == rb) &&
                               static_cast<int>(CategoryOf(va)) == ra[0];
            if (!agree && ++mismatches <= 3) {
                ADD_FAILURE() << "seed " << kSeed << ", deck " << d << ", round " << round
                              << ": values " << va << " " << vb;
            }
        }
    }
    EXPECT_EQ(mismatches, 0);
}

TEST(Make169Types, EveryHoldingHasOneOf169Keys) {
    std::map<int, int> holdings;
    for (int a = 0; a < kCardCount; ++a) {
        for (int b = a + 1; b < kCardCount; ++b) {
            EXPECT_EQ(TypeOfCards(a, b), TypeOfCards(b, a));
            ++holdings[TypeOfCards(a, b)];
        }
    }
    ASSERT_EQ(holdings.size(), 169u);
    std::set<std::string> keys;
    for (const auto& [type, count] : holdings) {
        const std::string key = KeyOfType(type);
        keys.insert(key);
        const int expected = key.size() == 3 ? 4 : (key[0] == key[1] ? 6 : 12);
        EXPECT_EQ(count, expected) << key;
    }
    EXPECT_EQ(keys.size(), 169u);
    EXPECT_EQ(KeyOfType(TypeOfCards(CardOf(12, 0), CardOf(11, 0))), "AKs");
    EXPECT_EQ(KeyOfType(TypeOfCards(CardOf(0, 1), CardOf(8, 2))), "T2");
}

TEST(Make169Simulation, SameSeedSameSharesAndHandsShareThePot) {
    constexpr int kOpponents = 4;
    const EquityTable first = Simulate(1500, 11, kOpponents);
    const EquityTable again = Simulate(1500, 11, kOpponents);
    const EquityTable other = Simulate(1500, 12, kOpponents);
    EXPECT_EQ(first.shares, again.shares);
    EXPECT_NE(first.shares, other.shares);

    // Over all holdings the players are alike, so the average share is 1 / (opponents + 1).
    std::uint64_t shares = 0;
    std::uint64_t samples = 0;
    for (int type = 0; type < kTypeCount; ++type) {
        shares += first.shares[static_cast<std::size_t>(type)];
        samples += first.samples[static_cast<std::size_t>(type)];
    }
    EXPECT_EQ(samples, 1500u * 741u);
    const double average =
        static_cast<double>(shares) /
        (static_cast<double>(EquityTable::kShareUnit) * static_cast<double>(samples));
    EXPECT_NEAR(average, 1.0 / (kOpponents + 1), 0.02);

    const auto order = first.OrderBestFirst();
    EXPECT_EQ(KeyOfType(order.front()), "AA");
    EXPECT_THROW(Simulate(1, 1, 0), std::invalid_argument);
}

}  // namespace
}  // namespace make169
