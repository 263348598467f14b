// A random source that plays scripted values first, then a seeded engine; and the script
// that makes the next shuffle of a fresh deck deal chosen cards first. No window needed.
#pragma once

#include <algorithm>
#include <deque>
#include <numeric>
#include <random>
#include <string_view>
#include <vector>

#include "cards/cards.h"
#include "drill/keyboard.h"

namespace test_support {

class ScriptedRandom final : public cards::RandomSource {
  public:
    explicit ScriptedRandom(std::uint32_t seed = 12345) : engine_(seed) {}
    void Randomize() override { ++reseeds; }
    float Rnd() override {
        if (script.empty())
            return std::uniform_real_distribution<float>(0.0f, 0.99999994f)(engine_);
        const float u = script.front();
        script.pop_front();
        return u;
    }
    std::deque<float> script;  // played first, then the seeded engine
    int reseeds = 0;

  private:
    std::mt19937 engine_;
};

// A card written as value and suit ("Th", "Ac"), as a deal builds it: value 1 for the ace,
// drawId (value - 1) * 4 + suit.
inline cards::Card cardOf(std::string_view text) {
    const auto value = std::int16_t(std::string_view("A23456789TJQK").find(text[0]) + 1);
    const auto suit = std::int16_t(std::string_view("cdhs").find(text[1]));
    return {std::int16_t((value - 1) * 4 + suit), value, suit, 0};
}

// The key of each card written as value and suit ("Th 2c"), found by the card it stands for.
inline std::vector<std::int16_t> keysOf(std::string_view cards) {
    std::vector<std::int16_t> keys;
    for (std::size_t at = 0; at + 1 < cards.size(); at += 3)
        for (std::int16_t k = 0; k < 52; ++k)
            if (drill::keyboard::CardOfKey(k).drawId == cardOf(cards.substr(at, 2)).drawId)
                keys.push_back(k);
    return keys;
}

// Scripts the next shuffle of a fresh deck to deal these keys first, whether it scales a value
// by 51 or by 52. A card at place 51 reaches the top only with the last exchange.
inline void scriptDeal(ScriptedRandom& random, const std::vector<std::int16_t>& wanted) {
    cards::Deck deck{};
    std::iota(deck.begin(), deck.end(), std::int16_t{0});
    int lastPlace = 50;
    for (int i = 0; i < 52; ++i) {
        int r = std::min(i, 50);
        if (i < int(wanted.size())) {
            const auto at = std::find(deck.begin(), deck.end(), wanted[std::size_t(i)]);
            r = at - deck.begin() <= 50 ? int(at - deck.begin()) : (lastPlace = i);
        } else if (i == 51) {
            r = lastPlace;
        }
        std::swap(deck[std::size_t(i)], deck[std::size_t(r)]);
        random.script.push_back(float((r / 51.0 + (r + 1) / 52.0) / 2.0));
    }
}

}  // namespace test_support
