// The card engine: keys, the shuffle, five cards classified, verdicts in the exercise's words.
#include <gtest/gtest.h>

#include <algorithm>
#include <climits>
#include <cmath>
#include <limits>
#include <map>
#include <numeric>
#include <string>
#include <string_view>
#include <vector>

#include "cards/compare.h"

namespace cards {
namespace {

// Row k / 13 is clubs, diamonds, spades, hearts; column k % 13 runs two to king, then ace.
TEST(Keys, EveryKeyGivesItsOwnCardAndOtherKeysLeaveTheCardAlone) {
    KeyMap keyMap{};
    keyMap[52] = 7;
    FillKeyMap(keyMap);
    EXPECT_EQ(keyMap[52], 7);
    constexpr std::array<std::int16_t, 4> kSuitOfRow{0, 1, 3, 2};
    for (std::int16_t k = 0; k < 52; ++k) {
        const auto value = static_cast<std::int16_t>(k % 13 == 12 ? 1 : k % 13 + 2);
        const auto drawId = static_cast<std::int16_t>((value - 1) * 4 + kSuitOfRow[k / 13]);
        Card card{-5, -5, -5, 9};
        CardFromKey(k, keyMap, card);
        EXPECT_EQ(card, (Card{drawId, value, kSuitOfRow[k / 13], 9})) << "key " << k;
        EXPECT_EQ(DrawIdOfKey(k, keyMap), drawId) << "key " << k;
    }
    const Card kept{1, 2, 3, 4};
    for (const std::int16_t k : {-1, 52, 300, -32768, 5}) {
        Card card = kept;
        const KeyMap& map = k == 5 ? KeyMap{} : keyMap;  // key 5 missing from an empty map
        CardFromKey(k, map, card);
        EXPECT_EQ(card, kept) << "key " << k;
        EXPECT_EQ(DrawIdOfKey(k, map), -1) << "key " << k;
    }
    // A hand takes deck places from `first` on; places off the deck leave their slot alone.
    Deck deck{};
    std::iota(deck.rbegin(), deck.rend(), std::int16_t{0});  // place p holds key 51 - p
    std::array<Card, 3> edge{};
    BuildHandFromDeck(deck, 50, keyMap, edge);
    BuildHandFromDeck(deck, INT_MAX, keyMap, edge);  // no overflow back into the deck
    EXPECT_EQ(edge, (std::array<Card, 3>{Card{8, 3, 0, 0}, Card{4, 2, 0, 0}, Card{}}));
    BuildHandFromDeck(deck, -1, keyMap, edge);
    EXPECT_EQ(edge, (std::array<Card, 3>{Card{8, 3, 0, 0}, Card{2, 1, 2, 0}, Card{50, 13, 2, 0}}));
}

// Places 0..8 and their categories match one to one; other places give 0, other codes -1.
TEST(CategoryPlaces, CategoriesAndPlacesMatchOneToOne) {
    for (int place = -1; place <= 9; ++place) {
        const bool named = place >= 0 && place <= 8;
        EXPECT_EQ(CategoryPlace(CategoryAtPlace(place)), named ? place : -1) << place;
        EXPECT_EQ(CategoryAtPlace(place) == 0, !named) << place;
    }
}

// Plays back a fixed list of values and counts the reseeds.
struct ScriptedRandom final : RandomSource {
    explicit ScriptedRandom(std::vector<float> v) : values(std::move(v)) {}
    void Randomize() override { ++reseeds; }
    float Rnd() override { return values[draws++ % values.size()]; }
    std::vector<float> values;
    int reseeds = 0;
    std::size_t draws = 0;
};

// With u = 0 every place trades with place 0: one pass of exchanges, not Fisher-Yates.
TEST(Shuffle, ExchangesEachPlaceWithThePartnerOfItsValue) {
    Deck deck{};
    deck.fill(33);  // ShuffleDeck refills the deck first
    ScriptedRandom zero({0.0f});
    ShuffleDeck(deck, zero);
    Deck expected{51};
    std::iota(expected.begin() + 1, expected.end(), std::int16_t{0});
    EXPECT_EQ(deck, expected);
    // ShuffleInPlace keeps the order it finds: the card that lay last ends first.
    std::reverse(deck.begin(), deck.end());
    ShuffleInPlace(deck, zero);
    EXPECT_EQ((std::array{deck[0], deck[1]}), (std::array<std::int16_t, 2>{51, 50}));
    EXPECT_EQ(zero.reseeds, 2);  // once a shuffle
    // The largest value below one partners place 50, never 51.
    ScriptedRandom top({std::nextafter(1.0f, 0.0f)});
    ShuffleDeck(deck, top);
    EXPECT_EQ((std::array{deck[50], deck[51]}), (std::array<std::int16_t, 2>{51, 49}));
    // A value outside [0, 1) ends the shuffle silently, the deck whole.
    for (const float bad : {1.5f, -0.5f, std::numeric_limits<float>::quiet_NaN()}) {
        ScriptedRandom wild({0.3f, 0.7f, bad});
        ShuffleDeck(deck, wild);
        EXPECT_TRUE(std::is_permutation(deck.begin(), deck.end(), expected.begin())) << bad;
        EXPECT_EQ(wild.draws, 3U) << bad;
    }
}

TEST(ClockRandomSource, StaysInZeroToOne) {
    ClockRandomSource random;
    std::vector<float> draws(500'000);
    std::generate(draws.begin(), draws.end(), [&random] { return random.Rnd(); });
    const auto [lowest, highest] = std::minmax_element(draws.begin(), draws.end());
    EXPECT_TRUE(*lowest >= 0.0f && *lowest < 0.001f) << *lowest;
    EXPECT_TRUE(*highest > 0.999f && *highest < 1.0f) << *highest;
}

// A card as a deal builds it: value 1 for the ace, drawId = (value - 1) * 4 + suit.
Card MakeCard(int value, int suit) {
    return Card{static_cast<std::int16_t>((value - 1) * 4 + suit), static_cast<std::int16_t>(value),
                static_cast<std::int16_t>(suit), 0};
}

// The textbook counts of all 2,598,960 hands, each dealt in a scrambled order of its cards.
TEST(EvaluatePokerHand, EveryHandOfTheDeckGivesTheKnownCounts) {
    std::array<Card, 52> deck{};
    for (int c = 0; c < 52; ++c) {
        deck[c * 31 % 52] = MakeCard(c % 13 + 1, c / 13);
    }
    std::map<int, long> countOfCode;
    for (int a = 0; a < 52; ++a)
        for (int b = a + 1; b < 52; ++b)
            for (int c = b + 1; c < 52; ++c)
                for (int d = c + 1; d < 52; ++d)
                    for (int e = d + 1; e < 52; ++e) {
                        ++countOfCode[EvaluatePokerHand(
                                          {deck[a], deck[b], deck[c], deck[d], deck[e]})
                                          .value];
                    }
    const std::map<int, long> expected{{2, 40},     {3, 624},     {4, 3744},
                                       {5, 5108},   {6, 10200},   {7, 54912},
                                       {8, 123552}, {9, 1098240}, {20, 1302540}};
    EXPECT_EQ(countOfCode, expected);
}

// "AS KS QS JS TS" (ranks A 2..9 T J Q K, suits C D H S), classified as a deal leaves it.
Hand RankedHand(std::string_view notation) {
    Hand hand{};
    for (std::size_t i = 0; i < hand.size(); ++i) {
        hand[i] =
            MakeCard(static_cast<int>(std::string_view("A23456789TJQK").find(notation[3 * i])) + 1,
                     static_cast<int>(std::string_view("CDHS").find(notation[3 * i + 1])));
    }
    hand[0].category = EvaluatePokerHand(hand).value;
    return hand;
}

TEST(Verdicts, ReadExactly) {
    const char* const rows[][3] = {
        // Hand 1, hand 2, the verdict. Across categories the lower code wins and is named.
        {"9H 8H 7H 6H 5H", "7C 7D 7H 7S 2C", "Hand (1) wins with a straight flush"},
        {"5C 5D 5H 9S 9C", "7C 7D 7H 7S 2C", "Hand (2) wins with a four of a kind"},
        {"5C 5D 5H 9S 9C", "2D 6D 9D JD KD", "Hand (1) wins with a full house "},
        {"4C 5D 6H 7S 8C", "2D 6D 9D JD KD", "Hand (2) wins with a flush"},
        {"4C 5D 6H 7S 8C", "QC QD QH 3S 6C", "Hand (1) wins with a straight"},
        {"JC JD 4H 4S 8C", "QC QD QH 3S 6C", "Hand (2) wins with a three of a kind"},
        {"JC JD 4H 4S 8C", "TC TD 2H 6S KC", "Hand (1) wins with a two pair"},
        {"AC 3D 6H 9S JC", "TC TD 2H 6S KC", "Hand (2) wins with a pair"},
        // Runs: A-2-3-4-5 is the lowest and is never named.
        {"8H 9H TH JH QH", "TD JD QD KD AD", "Hand (2) wins with a Royal flush"},
        {"AS 2D 3C 4H 5S", "2C 3D 4H 5S 6C", "Hand (2) wins with a six high straight"},
        {"TC JD QH KS AC", "9D TH JS QC KD", "Hand (1) wins with a ace high straight"},
        {"AS 2D 3C 4H 5S", "AD 2C 3H 4S 5D", "There is a tie"},
        // Fours, full houses and threes: only the set decides; threes go without "with".
        {"AC AD AH AS 2C", "KC KD KH KS QC", "Hand (1) wins with four of a kind aces"},
        {"AC AD AH KS KC", "QC QD QH JS JC", "Hand (1) wins with aces full of kings"},
        {"3C 3D 3H 4S 4C", "2C 2D 2H AS AC", "Hand (1) wins threes full of fours"},
        {"3C 3D 3H AS AC", "4C 4D 4H 2S 2H", "Hand (2) wins with fours full of twos"},
        {"2C 5D 5H 5S 9C", "3C 4D 4H 4S KC", "Hand (1) wins with three of a kind fives"},
        {"2C 3D 3H 3S AC", "AD AH AS 4C 5D", "Hand (2) wins with three of a kind aces"},
        // Pairs and high cards name the deciding kicker.
        {"9C 9D AH 5S 3C", "9H 9S KC 5D 3D", "Hand (1) wins with pair of nines ace kicker"},
        {"6C 6D KH 5S 2C", "6H 6S KC 5D 3D", "Hand (2) wins with pair of sixes three kicker"},
        {"6C 6D KH 5S 3C", "6H 6S KC 5D 3D", "There is a tie"},
        {"2C 2D KH 5S 3C", "2H 2S QC 5D 3D", "Hand (1) wins with pair of twos king kicker"},
        {"AC AD 7H 5S 3C", "KH KS QC JD 9D", "Hand (1) wins with pair of aces"},
        {"2C 2D 7H 5S 3C", "KH KS QC JD 9D", "Hand (2) wins with pair of kings"},
        {"AC KD QH JS 8C", "AD KH QS JC 9D", "Hand (2) wins with high card ace nine kicker"},
        {"9C 7D 6H 4S 2C", "9D 7H 5S 4C 2D", "Hand (1) wins with high card nine sixe kicker"},
        {"7C 5D 4H 3S 2C", "AD 7H 5S 4C 2D", "Hand (2) wins with high card ace"},
        {"AC KD QH JS 9C", "AD KH QS JC 9D", "There is a tie"},
        // Flushes: only a win of hand 1 names the card that decided, from its own table.
        {"KH QH 9H 5H 3H", "KS JS 9S 5S 3S", "Hand (1) wins with a king high flush queen kicker"},
        {"KH JH 9H 5H 3H", "KS QS 9S 5S 3S", "Hand (2) wins with a king high flush"},
        {"KH 9H 7H 6H 3H", "KS 9S 7S 4S 2S", "Hand (1) wins with a king high flush six kicker"},
        {"KH 9H 7H 4H 3H", "KS 9S 7S 4S 2S", "Hand (1) wins with a king high flush three kicker"},
        {"AH 9H 7H 4H 3H", "KS QS 7S 4S 2S", "Hand (1) wins with an ace high flush"},
        {"JH 9H 7H 4H 3H", "8S 6S 5S 4S 2S", "Hand (1) wins with an jack high flush"},
        {"QS KS AS 2S 3S", "QH KH AH 2H 3H", "There is a tie"},
        // Two pair, the odd card in the middle, first and last; the words never say which.
        {"KC KD 4H 4S 7C", "KH KS 4C 4D 6C", "Hand (1) wins with two pair"},
        {"AC QD QH 5S 5C", "KH KS 9C 9D 2C", "Hand (2) wins with two pair"},
        {"AC QD QH 5S 5C", "KC QC QS 5D 5H", "Hand (1) wins with two pair"},
        {"QC QD 9H 5S 5C", "QH QS 3C 3D AC", "Hand (1) wins with two pair"},
        {"QC QD 5H 5S 2C", "QH QS 5C 5D 3D", "Hand (2) wins with two pair"},
        {"QC QD 2H 5S 5C", "QH QS 2C 5D 5H", "There is a tie"},
    };
    for (std::size_t i = 0; i < std::size(rows); ++i) {
        Hand hand1 = RankedHand(rows[i][0]), hand2 = RankedHand(rows[i][1]);
        const bool same = hand1[0].category == hand2[0].category;
        const Verdict verdict =
            same ? CompareHands(hand1, hand2) : ReportCategoryWinner(hand1, hand2);
        EXPECT_EQ(verdict.text.value_or("<none>"), rows[i][2]) << "row " << i;
        EXPECT_TRUE(verdict.callsForAttention) << "row " << i;
    }
}

TEST(Verdicts, UnknownCategoriesAndValuesWithoutWords) {
    Hand hand1 = RankedHand("2C 3D 4H 5S 7C"), hand2 = RankedHand("2D 3H 4S 5C 7D");
    for (const std::int16_t unknown : {1, 10, 21, -3, 0}) {  // 0 is a failed evaluation
        hand1[0].category = unknown;
        EXPECT_EQ(CompareHands(hand1, hand2), Verdict{}) << unknown;
    }
    EXPECT_EQ(ReportCategoryWinner(hand1, hand2),  // a code without a row is named high card
              (Verdict{"Hand (1) wins with a high card", true}));
    // Twos have no value word, and no straight starts at the jack.
    const Verdict silent{std::nullopt, true};
    EXPECT_EQ(CompareFours(RankedHand("2C 2D 2H 2S 7C"), RankedHand("2C 2D 2H 2S 7C")), silent);
    EXPECT_EQ(CompareFullHouses(RankedHand("2C 2D 2H 5S 5C"), RankedHand("2C 2D 2H 5S 5C")),
              silent);
    EXPECT_EQ(CompareStraights(RankedHand("JC QD KH AS AC"), hand2), silent);
    // Values off the tables have no words (the ace is passed as 14).
    for (const std::int16_t v : {-32768, -1, 0, 1, 15, 32767}) {
        for (const auto wording :
             {PairName, FullOfName, HighCardName, KickerName, FlushKickerName, FlushName}) {
            EXPECT_EQ(wording(v), "") << v;
        }
    }
}

}  // namespace
}  // namespace cards
