// Classification of five cards into a HandCategory.
#include <exception>

#include "cards/cards.h"

namespace cards {
namespace {

constexpr std::int16_t kSweepTop = 300;  // the sort sweeps values 0..300
constexpr std::int16_t kLowestRank = 1;
constexpr std::int16_t kHighestRank = 13;
constexpr std::array<std::int16_t, 5> kTopRun{1, 10, 11, 12, 13};

using SortedHand = std::array<Card, 5>;
using RankCounts = std::array<int, kHighestRank + 1>;  // index 1..13

// Gives what a sweep of v from 0 to 300, copying the cards of value v in hand order, gives:
// a stable sort of the cards whose value the sweep meets. The others never arrive, and the
// slots they leave behind stay zero. Insertion keeps it cheap enough for full enumerations.
SortedHand SortByValue(const Hand& hand) {
    SortedHand sorted{};
    std::size_t filled = 0;
    for (const Card& card : hand) {
        if (card.value < 0 || card.value > kSweepTop) {
            continue;
        }
        std::size_t slot = filled++;
        while (slot > 0 && sorted[slot - 1].value > card.value) {
            sorted[slot] = sorted[slot - 1];
            --slot;
        }
        sorted[slot] = card;
    }
    return sorted;
}

bool IsSameSuit(const SortedHand& s) {
    for (std::size_t i = 1; i < s.size(); ++i) {
        if (s[i].suit != s[0].suit) {
            return false;
        }
    }
    return true;
}

bool IsRun(const SortedHand& s) {
    for (std::size_t i = 1; i < s.size(); ++i) {
        if (s[i].value != s[0].value + static_cast<int>(i)) {
            return false;
        }
    }
    return true;
}

// Ten to king with the ace, which sorts first and so needs a test of its own.
bool IsTopRun(const SortedHand& s) {
    for (std::size_t i = 0; i < s.size(); ++i) {
        if (s[i].value != kTopRun[i]) {
            return false;
        }
    }
    return true;
}

RankCounts CountRanks(const SortedHand& s) {
    RankCounts counts{};
    for (const Card& card : s) {
        if (card.value >= kLowestRank && card.value <= kHighestRank) {
            ++counts[static_cast<std::size_t>(card.value)];
        }
    }
    return counts;
}

bool HasRankCount(const RankCounts& counts, int wanted) {
    for (int v = kLowestRank; v <= kHighestRank; ++v) {
        if (counts[static_cast<std::size_t>(v)] == wanted) {
            return true;
        }
    }
    return false;
}

int CountValue(const SortedHand& s, std::int16_t value) {
    int count = 0;
    for (const Card& card : s) {
        count += card.value == value ? 1 : 0;
    }
    return count;
}

// The full-house and two-pair tests: whenever a rank reaches `reach` cards, the cards of the
// value of the last card in sorted order that differs from it go into pairCount. pairCount
// is kept across all ranks, which is what lets 2-2-3-3-K reach 2 only at the threes.
bool PairCountReachesTwo(const SortedHand& s, const RankCounts& counts, int reach) {
    int pairCount = 0;
    std::int16_t other = 0;
    for (std::int16_t v = kLowestRank; v <= kHighestRank; ++v) {
        if (counts[static_cast<std::size_t>(v)] < reach) {
            continue;
        }
        for (const Card& card : s) {
            if (card.value != v) {
                other = card.value;
            }
        }
        pairCount += CountValue(s, other);
    }
    return pairCount >= 2;
}

std::int16_t Classify(const SortedHand& s) {
    const bool sameSuit = IsSameSuit(s);
    const bool run = IsRun(s);
    const bool topRun = IsTopRun(s);
    const RankCounts counts = CountRanks(s);
    if (sameSuit && (topRun || run)) {
        return category::kStraightFlush;
    }
    if (HasRankCount(counts, 4)) {
        return category::kFourOfAKind;
    }
    if (PairCountReachesTwo(s, counts, 3)) {
        return category::kFullHouse;
    }
    if (sameSuit) {
        return category::kFlush;
    }
    if (run || topRun) {
        return category::kStraight;
    }
    if (HasRankCount(counts, 3)) {
        return category::kThreeOfAKind;
    }
    if (PairCountReachesTwo(s, counts, 2)) {
        return category::kTwoPair;
    }
    if (HasRankCount(counts, 2)) {
        return category::kPair;
    }
    return category::kHighCard;
}

}  // namespace

Checked<std::int16_t> EvaluatePokerHand(const Hand& hand) {
    try {
        return {Classify(SortByValue(hand)), std::nullopt};
    } catch (const std::exception& failure) {
        return {0, "Error  in  EvaluatePokerHand (  " + std::string(failure.what()) + "  )"};
    }
}

}  // namespace cards
