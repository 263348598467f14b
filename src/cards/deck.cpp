// The random source and the shuffle: one pass of 52 exchanges after a reseed.
#include <chrono>

#include "cards/cards.h"

namespace cards {
namespace {

constexpr std::uint64_t kGoldenGamma = 0x9E3779B97F4A7C15ULL;
constexpr int kMantissaBits = 24;
constexpr float kMantissaScale = 1.0f / static_cast<float>(1U << kMantissaBits);
constexpr float kPartnerSpan = 51.0f;  // partners come from places 0..50 only

// SplitMix64's finaliser: every input bit reaches every output bit.
std::uint64_t Mix(std::uint64_t z) {
    z = (z ^ (z >> 30)) * 0xBF58476D1CE4E5B9ULL;
    z = (z ^ (z >> 27)) * 0x94D049BB133111EBULL;
    return z ^ (z >> 31);
}

std::uint64_t ClockTicks() {
    return static_cast<std::uint64_t>(
        std::chrono::high_resolution_clock::now().time_since_epoch().count());
}

// The integer part of u * 51, worked in single precision; -1 when the source strayed
// outside [0, 1) far enough to leave the deck.
int PartnerPlace(float u, int deckSize) {
    const float scaled = u * kPartnerSpan;
    if (!(scaled >= 0.0f && scaled < static_cast<float>(deckSize))) {
        return -1;
    }
    return static_cast<int>(scaled);
}

void ExchangeAll(Deck& deck, RandomSource& random) {
    random.Randomize();
    const int deckSize = static_cast<int>(deck.size());
    for (int i = 0; i < deckSize; ++i) {
        const std::int16_t kept = deck[static_cast<std::size_t>(i)];
        const int r = PartnerPlace(random.Rnd(), deckSize);
        if (r < 0) {
            return;  // a failed shuffle ends silently, as a dealing routine's failure does
        }
        deck[static_cast<std::size_t>(i)] = deck[static_cast<std::size_t>(r)];
        deck[static_cast<std::size_t>(r)] = kept;
    }
}

}  // namespace

ClockRandomSource::ClockRandomSource() : state_(Mix(ClockTicks())) {}

void ClockRandomSource::Randomize() {
    // The previous state takes part, so two reseeds inside one clock tick still differ.
    state_ = Mix(state_ + kGoldenGamma) ^ ClockTicks();
}

float ClockRandomSource::Rnd() {
    state_ += kGoldenGamma;
    // 24 bits fill a float's mantissa exactly, so the largest value is 1 - 2^-24, never 1.
    const auto bits = static_cast<std::uint32_t>(Mix(state_) >> (64 - kMantissaBits));
    return static_cast<float>(bits) * kMantissaScale;
}

void ShuffleDeck(Deck& deck, RandomSource& random) {
    for (std::size_t i = 0; i < deck.size(); ++i) {
        deck[i] = static_cast<std::int16_t>(i);
    }
    ExchangeAll(deck, random);
}

void ShuffleInPlace(Deck& deck, RandomSource& random) {
    ExchangeAll(deck, random);
}

}  // namespace cards
