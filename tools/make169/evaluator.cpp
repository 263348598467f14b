// Bit-mask evaluation: the suit masks give, by plain AND/OR, the ranks held at least
// twice, three times and four times, so no counting loop over the cards is needed.
#include "evaluator.h"

#include <bit>

namespace make169 {
namespace {

constexpr int kCategoryShift = 20;
constexpr unsigned kAllRanks = (1u << kRankCount) - 1;

// Highest rank of a straight within a rank mask, or -1. The wheel (A-2-3-4-5) is five high.
constexpr std::array<std::int8_t, 1u << kRankCount> MakeStraightTable() {
    std::array<std::int8_t, 1u << kRankCount> table{};
    constexpr unsigned kRun = 0b11111;
    constexpr unsigned kWheel = (1u << 12) | 0b1111;
    for (unsigned mask = 0; mask <= kAllRanks; ++mask) {
        table[mask] = -1;
        for (int high = kRankCount - 1; high >= 4; --high) {
            if ((mask & (kRun << (high - 4))) == (kRun << (high - 4))) {
                table[mask] = static_cast<std::int8_t>(high);
                break;
            }
        }
        if (table[mask] < 0 && (mask & kWheel) == kWheel) {
            table[mask] = 3;
        }
    }
    return table;
}
constexpr auto kStraightHigh = MakeStraightTable();

// Cards in a rank mask; a table, as the portable popcount is slow without a CPU option.
constexpr std::array<std::uint8_t, 1u << kRankCount> MakeCountTable() {
    std::array<std::uint8_t, 1u << kRankCount> table{};
    for (unsigned mask = 0; mask <= kAllRanks; ++mask) {
        table[mask] = static_cast<std::uint8_t>(std::popcount(mask));
    }
    return table;
}
constexpr auto kCardsInMask = MakeCountTable();

constexpr int Highest(unsigned mask) {
    return std::bit_width(mask) - 1;
}
constexpr unsigned Without(unsigned mask, int rank) {
    return mask & ~(1u << rank);
}

// The five highest ranks of a mask, four bits each, the highest in the top nibble.
constexpr std::array<std::uint32_t, 1u << kRankCount> MakeTopRanksTable() {
    std::array<std::uint32_t, 1u << kRankCount> table{};
    for (unsigned mask = 0; mask <= kAllRanks; ++mask) {
        unsigned rest = mask;
        for (int i = 0; i < 5 && rest != 0; ++i) {
            const int rank = Highest(rest);
            table[mask] |= static_cast<std::uint32_t>(rank) << (16 - 4 * i);
            rest = Without(rest, rank);
        }
    }
    return table;
}
constexpr auto kTopRanks = MakeTopRanksTable();

class ValueBuilder {
  public:
    explicit ValueBuilder(Category category)
        : value_(static_cast<HandValue>(category) << kCategoryShift) {}

    ValueBuilder& Rank(int rank) {
        shift_ -= 4;
        value_ |= static_cast<HandValue>(rank) << shift_;
        return *this;
    }
    // The `count` highest ranks of `mask`, which holds at least that many.
    ValueBuilder& TopRanks(unsigned mask, int count) {
        shift_ -= 4 * count;
        value_ |= (kTopRanks[mask] >> (4 * (5 - count))) << shift_;
        return *this;
    }
    HandValue Value() const { return value_; }

  private:
    HandValue value_;
    int shift_ = kCategoryShift;
};

HandValue Value(Category category, int rank) {
    return ValueBuilder(category).Rank(rank).Value();
}

}  // namespace

HandValue Evaluate(const CardSet& cards) {
    const unsigned c = cards.bySuit[0], d = cards.bySuit[1], h = cards.bySuit[2],
                   s = cards.bySuit[3];
    const unsigned any = c | d | h | s;
    const unsigned twice = (c & d) | (c & h) | (c & s) | (d & h) | (d & s) | (h & s);
    const unsigned thrice = (c & d & h) | (c & d & s) | (c & h & s) | (d & h & s);
    const unsigned four = c & d & h & s;

    unsigned flush = 0;
    for (const unsigned suit : cards.bySuit) {
        if (kCardsInMask[suit] >= 5) {
            flush = suit;
        }
    }
    if (flush != 0 && kStraightHigh[flush] >= 0) {
        return Value(Category::kStraightFlush, kStraightHigh[flush]);
    }
    if (four != 0) {
        const int quad = Highest(four);
        return ValueBuilder(Category::kFourOfAKind)
            .Rank(quad)
            .TopRanks(Without(any, quad), 1)
            .Value();
    }
    const int trips = thrice != 0 ? Highest(thrice) : -1;
    if (trips >= 0 && Without(twice, trips) != 0) {
        return ValueBuilder(Category::kFullHouse)
            .Rank(trips)
            .Rank(Highest(Without(twice, trips)))
            .Value();
    }
    if (flush != 0) {
        return ValueBuilder(Category::kFlush).TopRanks(flush, 5).Value();
    }
    if (kStraightHigh[any] >= 0) {
        return Value(Category::kStraight, kStraightHigh[any]);
    }
    if (trips >= 0) {
        return ValueBuilder(Category::kThreeOfAKind)
            .Rank(trips)
            .TopRanks(Without(any, trips), 2)
            .Value();
    }
    if (twice != 0) {
        const int high = Highest(twice);
        const unsigned others = Without(twice, high);
        if (others != 0) {
            const int low = Highest(others);
            return ValueBuilder(Category::kTwoPair)
                .Rank(high)
                .Rank(low)
                .TopRanks(Without(Without(any, high), low), 1)
                .Value();
        }
        return ValueBuilder(Category::kPair).Rank(high).TopRanks(Without(any, high), 3).Value();
    }
    return ValueBuilder(Category::kHighCard).TopRanks(any, 5).Value();
}

Category CategoryOf(HandValue value) {
    return static_cast<Category>(value >> kCategoryShift);
}

}  // namespace make169
