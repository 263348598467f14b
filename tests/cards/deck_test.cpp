// Key indices, the key map, building cards and the shuffle.
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <limits>
#include <numeric>
#include <set>
#include <vector>

#include "cards/cards.h"

namespace cards {
namespace {

KeyMap FilledKeyMap() {
    KeyMap keyMap{};
    FillKeyMap(keyMap);
    return keyMap;
}

TEST(KeyMap, RunsByRankWithSpadesAndHeartsTraded) {
    KeyMap keyMap{};
    keyMap[52] = 7;
    FillKeyMap(keyMap);
    const std::vector<std::int16_t> head(keyMap.begin(), keyMap.begin() + 12);
    const std::vector<std::int16_t> tail(keyMap.begin() + 48, keyMap.begin() + 52);
    EXPECT_EQ(head, (std::vector<std::int16_t>{0, 13, 39, 26, 1, 14, 40, 27, 2, 15, 41, 28}));
    EXPECT_EQ(tail, (std::vector<std::int16_t>{12, 25, 51, 38}));
    EXPECT_EQ(keyMap[52], 7);
}

struct KeyRow {
    std::int16_t key, drawId, value, suit;
};

TEST(CardFromKey, BuildsTheCardsOfTheKnownKeys) {
    const KeyMap keyMap = FilledKeyMap();
    for (const KeyRow row :
         {KeyRow{0, 4, 2, 0}, KeyRow{26, 7, 2, 3}, KeyRow{39, 6, 2, 2}, KeyRow{50, 50, 13, 2},
          KeyRow{12, 0, 1, 0}, KeyRow{25, 1, 1, 1}, KeyRow{38, 3, 1, 3}, KeyRow{51, 2, 1, 2}}) {
        Card card{-5, -5, -5, 9};
        CardFromKey(row.key, keyMap, card);
        EXPECT_EQ(card, (Card{row.drawId, row.value, row.suit, 9})) << "key " << row.key;
        EXPECT_EQ(DrawIdOfKey(row.key, keyMap), row.drawId);
    }
}

// Row k / 13 is clubs, diamonds, spades, hearts; column k % 13 is two to king, then ace.
TEST(CardFromKey, EveryKeyGivesItsOwnCardByRowAndColumn) {
    const KeyMap keyMap = FilledKeyMap();
    constexpr std::array<std::int16_t, 4> kSuitOfRow{0, 1, 3, 2};
    std::set<std::int16_t> drawIds;
    for (std::int16_t k = 0; k < 52; ++k) {
        Card card{};
        CardFromKey(k, keyMap, card);
        const int column = k % 13;
        EXPECT_EQ(card.value, column == 12 ? 1 : column + 2) << "key " << k;
        EXPECT_EQ(card.suit, kSuitOfRow[k / 13]) << "key " << k;
        EXPECT_EQ(card.drawId, (card.value - 1) * 4 + card.suit) << "key " << k;
        drawIds.insert(card.drawId);
    }
    EXPECT_EQ(drawIds.size(), 52U);
}

TEST(CardFromKey, LeavesTheCardAloneForKeysOffTheKeyboard) {
    const KeyMap keyMap = FilledKeyMap();
    for (const std::int16_t k : {-1, 52, 300, -32768}) {
        Card card{1, 2, 3, 4};
        CardFromKey(k, keyMap, card);
        EXPECT_EQ(card, (Card{1, 2, 3, 4}));
        EXPECT_EQ(DrawIdOfKey(k, keyMap), -1);
    }
    // A key missing from the map is not found either.
    Card card{1, 2, 3, 4};
    CardFromKey(5, KeyMap{}, card);
    EXPECT_EQ(card, (Card{1, 2, 3, 4}));
    EXPECT_EQ(DrawIdOfKey(5, KeyMap{}), -1);
}

TEST(BuildHandFromDeck, TakesTheDeckPlacesFromTheFirstOn) {
    const KeyMap keyMap = FilledKeyMap();
    Deck deck{};
    std::iota(deck.begin(), deck.end(), std::int16_t{0});
    std::reverse(deck.begin(), deck.end());
    std::array<Card, 5> hand{};
    BuildHandFromDeck(deck, 5, keyMap, hand);
    for (std::size_t i = 0; i < hand.size(); ++i) {
        Card expected{};
        CardFromKey(static_cast<std::int16_t>(46 - i), keyMap, expected);
        EXPECT_EQ(hand[i], expected);
    }
    std::array<Card, 2> pair{Card{9, 9, 9, 9}, Card{9, 9, 9, 9}};
    BuildHandFromDeck(deck, 51, keyMap, pair);  // the place behind the deck stays untouched
    EXPECT_EQ(pair[1], (Card{9, 9, 9, 9}));
    EXPECT_EQ(pair[0], (Card{4, 2, 0, 9}));  // key 0, the two of clubs; category kept
}

TEST(NameRows, NameTheNineCategoriesInOrder) {
    const std::array<std::int16_t, 9> codes{2, 3, 4, 5, 6, 7, 8, 9, 20};
    for (int row = 0; row < 9; ++row) {
        EXPECT_EQ(CategoryOfNameRow(row), codes[row]);
        EXPECT_EQ(NameRowOfCategory(codes[row]), row);
    }
    for (const std::int16_t code : {0, 1, 10, 19, 21, -2}) {
        EXPECT_EQ(NameRowOfCategory(code), -1);
    }
    EXPECT_EQ(CategoryOfNameRow(-1), 0);
    EXPECT_EQ(CategoryOfNameRow(9), 0);
}

// Plays back a fixed list of values and counts the reseeds.
class ScriptedRandom final : public RandomSource {
  public:
    explicit ScriptedRandom(std::vector<float> values) : values_(std::move(values)) {}
    void Randomize() override { ++reseeds; }
    float Rnd() override { return values_[draws++ % values_.size()]; }
    int reseeds = 0;
    std::size_t draws = 0;

  private:
    std::vector<float> values_;
};

bool HoldsEveryKeyOnce(const Deck& deck) {
    Deck sorted = deck;
    std::sort(sorted.begin(), sorted.end());
    Deck keys{};
    std::iota(keys.begin(), keys.end(), std::int16_t{0});
    return sorted == keys;
}

// With u = 0 every place trades with place 0: one pass of exchanges, not Fisher-Yates.
TEST(ShuffleDeck, ExchangesEachPlaceWithThePartnerOfItsValue) {
    Deck deck{};
    deck.fill(33);
    ScriptedRandom zero({0.0f});
    ShuffleDeck(deck, zero);
    Deck expected{};
    expected[0] = 51;
    std::iota(expected.begin() + 1, expected.end(), std::int16_t{0});
    EXPECT_EQ(deck, expected);
    EXPECT_EQ(zero.reseeds, 1);
    EXPECT_EQ(zero.draws, 52U);

    // Without the refill the deck is shuffled as it lies: the card that lay last ends first.
    std::reverse(deck.begin(), deck.end());
    ShuffleInPlace(deck, zero);
    EXPECT_EQ(deck[0], expected[0]);
    EXPECT_EQ(deck[1], expected[51]);
    EXPECT_EQ(zero.reseeds, 2);
}

TEST(ShuffleDeck, LargestValueBelowOnePartnersPlace50) {
    ASSERT_EQ(std::nextafter(1.0f, 0.0f), 0.99999994f);
    Deck deck{};
    ScriptedRandom top({0.99999994f});
    ShuffleDeck(deck, top);
    // Place 50 trades with every place in turn; the last exchange takes 51 and leaves 49.
    Deck expected{};
    expected[0] = 50;
    std::iota(expected.begin() + 1, expected.begin() + 50, std::int16_t{0});
    expected[50] = 51;
    expected[51] = 49;
    EXPECT_EQ(deck, expected);
}

TEST(ShuffleDeck, ValuesOutOfRangeEndTheShuffleWithTheDeckWhole) {
    for (const float bad : {1.5f, -0.5f, std::numeric_limits<float>::quiet_NaN()}) {
        Deck deck{};
        ScriptedRandom wild({0.3f, 0.7f, bad});
        ShuffleDeck(deck, wild);
        EXPECT_TRUE(HoldsEveryKeyOnce(deck));
        EXPECT_EQ(wild.draws, 3U);
    }
}

TEST(ShuffleDeck, RealSourceGivesWholeDecksAndNeverLeavesKey51Last) {
    ClockRandomSource random;
    Deck deck{};
    int wholeDecks = 0, key51Last = 0;
    for (int n = 0; n < 20000; ++n) {
        ShuffleDeck(deck, random);
        wholeDecks += HoldsEveryKeyOnce(deck) ? 1 : 0;
        key51Last += deck[51] == 51 ? 1 : 0;
    }
    EXPECT_EQ(wholeDecks, 20000);
    EXPECT_EQ(key51Last, 0);
}

TEST(ClockRandomSource, StaysBelowOneAndNeverPartnersPlace51) {
    ClockRandomSource random;
    random.Randomize();
    float lowest = 1.0f, highest = 0.0f;
    int highestPartner = 0;
    for (int n = 0; n < 2'000'000; ++n) {
        const float u = random.Rnd();
        lowest = std::min(lowest, u);
        highest = std::max(highest, u);
        const float scaled = u * 51.0f;
        highestPartner = std::max(highestPartner, static_cast<int>(scaled));
    }
    EXPECT_GE(lowest, 0.0f);
    EXPECT_LT(highest, 1.0f);
    EXPECT_GT(highest, 0.999f);
    EXPECT_LT(lowest, 0.001f);
    EXPECT_EQ(highestPartner, 50);
}

TEST(ClockRandomSource, ImmediateReseedsGiveDifferentSequences) {
    ClockRandomSource random;
    std::set<std::vector<float>> sequences;
    for (int n = 0; n < 100; ++n) {
        random.Randomize();
        std::vector<float> drawn(4);
        std::generate(drawn.begin(), drawn.end(), [&] { return random.Rnd(); });
        sequences.insert(drawn);
    }
    EXPECT_EQ(sequences.size(), 100U);
}

}  // namespace
}  // namespace cards
