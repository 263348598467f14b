// Classifies every five-card hand of the deck, 2,598,960 of them, per iteration.
#include <benchmark/benchmark.h>

#include <array>
#include <cstdio>

#include "cards/cards.h"

namespace {

constexpr long kAllHands = 2'598'960;

std::array<cards::Card, 52> FullDeck() {
    std::array<cards::Card, 52> deck{};
    for (int c = 0; c < 52; ++c) {
        const auto value = static_cast<std::int16_t>(c % 13 + 1);
        const auto suit = static_cast<std::int16_t>(c / 13);
        deck[static_cast<std::size_t>(c)] =
            cards::Card{static_cast<std::int16_t>((value - 1) * 4 + suit), value, suit, 0};
    }
    return deck;
}

void ClassifyAllHands(benchmark::State& state) {
    const auto deck = FullDeck();
    long classified = 0;
    for (auto _ : state) {
        std::array<long, 21> countOfCode{};
        cards::Hand hand{};
        for (std::size_t a = 0; a < 52; ++a) {
            hand[0] = deck[a];
            for (std::size_t b = a + 1; b < 52; ++b) {
                hand[1] = deck[b];
                for (std::size_t c = b + 1; c < 52; ++c) {
                    hand[2] = deck[c];
                    for (std::size_t d = c + 1; d < 52; ++d) {
                        hand[3] = deck[d];
                        for (std::size_t e = d + 1; e < 52; ++e) {
                            hand[4] = deck[e];
                            ++countOfCode[static_cast<std::size_t>(
                                cards::EvaluatePokerHand(hand).value)];
                            ++classified;
                        }
                    }
                }
            }
        }
        benchmark::DoNotOptimize(countOfCode);
    }
    state.SetItemsProcessed(classified);
    state.counters["hands_per_second"] =
        benchmark::Counter(static_cast<double>(classified), benchmark::Counter::kIsRate);
    state.counters["hands_per_pass"] = static_cast<double>(kAllHands);
}
BENCHMARK(ClassifyAllHands)->Unit(benchmark::kMillisecond)->MinTime(2.0);

}  // namespace

BENCHMARK_MAIN();
