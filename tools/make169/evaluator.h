// A seven-card poker evaluator for the 169 generator: the value of the best five cards
// among five to seven, as one number that orders hands like the rules do.
#pragma once

#include <array>
#include <cstdint>

namespace make169 {

inline constexpr int kRankCount = 13;  // rank 0 is the two, 12 the ace
inline constexpr int kSuitCount = 4;
inline constexpr int kCardCount = kRankCount * kSuitCount;

// Cards are numbered 0..51 as rank * 4 + suit.
constexpr int RankOf(int card) {
    return card / kSuitCount;
}
constexpr int SuitOf(int card) {
    return card % kSuitCount;
}
constexpr int CardOf(int rank, int suit) {
    return rank * kSuitCount + suit;
}

// Up to seven cards as one 13-bit rank mask per suit.
struct CardSet {
    std::array<std::uint16_t, kSuitCount> bySuit{};

    constexpr void Add(int card) {
        bySuit[static_cast<std::size_t>(SuitOf(card))] |=
            static_cast<std::uint16_t>(1u << RankOf(card));
    }
    constexpr CardSet With(int card) const {
        CardSet more = *this;
        more.Add(card);
        return more;
    }
};

enum class Category : std::uint8_t {
    kHighCard,
    kPair,
    kTwoPair,
    kThreeOfAKind,
    kStraight,
    kFlush,
    kFullHouse,
    kFourOfAKind,
    kStraightFlush,
};

// Higher is better; equal values are equal hands. The category sits in the top bits, then
// up to five ranks that break ties, most significant first, four bits each.
using HandValue = std::uint32_t;

HandValue Evaluate(const CardSet& cards);
Category CategoryOf(HandValue value);

}  // namespace make169
