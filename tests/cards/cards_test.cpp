// The card engine: keys, the shuffle, five cards classified, verdicts in the exercise's words.
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
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
    FillKeyMap(keyMap);
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
    for (const std::int16_t k : {-1, 52, 5}) {
        Card card = kept;
        const KeyMap& map = k == 5 ? KeyMap{} : keyMap;  // key 5 missing from an empty map
        CardFromKey(k, map, card);
        EXPECT_EQ(card, kept) << "key " << k;
        EXPECT_EQ(DrawIdOfKey(k, map), -1) << "key " << k;
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
    EXPECT_EQ(zero.reseeds, 1);
    // The largest value below one partners place 50, never 51.
    ScriptedRandom top({std::nextafter(1.0f, 0.0f)});
    ShuffleDeck(deck, top);
    EXPECT_EQ((std::array{deck[50], deck[51]}), (std::array<std::int16_t, 2>{51, 49}));
}

TEST(ClockRandomSource, StaysInZeroToOne) {
    ClockRandomSource random;
    std::vector<float> draws(500'000);
    std::generate(draws.begin(), draws.end(), [&random] { return random.Rnd(); });
    const auto [lowest, highest] = std::ranges::minmax(draws);
    EXPECT_TRUE(lowest >= 0.0f && lowest < 0.001f && highest > 0.999f && highest < 1.0f)
        << lowest << " to " << highest;
}

// A card as a deal builds it: value 1 for the ace, drawId = (value - 1) * 4 + suit.
Card MakeCard(int value, int suit) {
    return Card{static_cast<std::int16_t>((value - 1) * 4 + suit), static_cast<std::int16_t>(value),
                static_cast<std::int16_t>(suit), 0};
}

// The textbook counts of all 2,598,960 hands, each dealt in a scrambled order of its cards.
TEST(EvaluatePokerHand, EveryHandOfTheDeckGivesTheKnownCounts) {
    std::array<Card, 52> deck{};
    for (int c = 0; c < 52; ++c)
        deck[c * 31 % 52] = MakeCard(c % 13 + 1, c / 13);
    std::map<int, long> countOfCode;
    for (int a = 0; a < 52; ++a)
        for (int b = a + 1; b < 52; ++b)
            for (int c = b + 1; c < 52; ++c)
                for (int d = c + 1; d < 52; ++d)
                    for (int e = d + 1; e < 52; ++e)
                        ++countOfCode[EvaluatePokerHand(
                                          {deck[a], deck[b], deck[c], deck[d], deck[e]})
                                          .value];
    const std::map<int, long> expected{{2, 40},     {3, 624},     {4, 3744},
                                       {5, 5108},   {6, 10200},   {7, 54912},
                                       {8, 123552}, {9, 1098240}, {20, 1302540}};
    EXPECT_EQ(countOfCode, expected);
}

// "AS KS QS JS TS" (ranks A 2..9 T J Q K, suits C D H S), classified as a deal leaves it.
Hand RankedHand(std::string_view notation) {
    Hand hand{};
    for (std::size_t i = 0; i < hand.size(); ++i)
        hand[i] =
            MakeCard(static_cast<int>(std::string_view("A23456789TJQK").find(notation[3 * i])) + 1,
                     static_cast<int>(std::string_view("CDHS").find(notation[3 * i + 1])));
    hand[0].category = EvaluatePokerHand(hand).value;
    return hand;
}

TEST(Verdicts, ReadExactly) {
    const char* const rows[][3] = {
        // Hand 1, hand 2, the verdict. Across categories the lower code wins and is named.
        {"9H 8H 7H 6H 5H", "7C 7D 7H 7S 2C", "Hand (1) wins with a straight flush"},
        {"5C 5D 5H 9S 9C", "7C 7D 7H 7S 2C", "Hand (2) wins with a four of a kind"},
        {"4C 5D 6H 7S 8C", "QC QD QH 3S 6C", "Hand (1) wins with a straight"},
        {"AC 3D 6H 9S JC", "TC TD 2H 6S KC", "Hand (2) wins with a pair"},
        // Runs: A-2-3-4-5 is the lowest and is never named.
        {"8H 9H TH JH QH", "TD JD QD KD AD", "Hand (2) wins with a Royal flush"},
        {"AS 2D 3C 4H 5S", "2C 3D 4H 5S 6C", "Hand (2) wins with a six high straight"},
        // Fours, full houses and threes: only the set decides; threes go without "with".
        {"AC AD AH AS 2C", "KC KD KH KS QC", "Hand (1) wins with four of a kind aces"},
        {"AC AD AH KS KC", "QC QD QH JS JC", "Hand (1) wins with aces full of kings"},
        {"3C 3D 3H 4S 4C", "2C 2D 2H AS AC", "Hand (1) wins threes full of fours"},
        {"3C 3D 3H AS AC", "4C 4D 4H 2S 2H", "Hand (2) wins with fours full of twos"},
        {"2C 3D 3H 3S AC", "AD AH AS 4C 5D", "Hand (2) wins with three of a kind aces"},
        // Pairs and high cards name the deciding kicker.
        {"9C 9D AH 5S 3C", "9H 9S KC 5D 3D", "Hand (1) wins with pair of nines ace kicker"},
        {"6C 6D KH 5S 2C", "6H 6S KC 5D 3D", "Hand (2) wins with pair of sixes three kicker"},
        {"AC AD 7H 5S 3C", "KH KS QC JD 9D", "Hand (1) wins with pair of aces"},
        {"AC KD QH JS 8C", "AD KH QS JC 9D", "Hand (2) wins with high card ace nine kicker"},
        {"9C 7D 6H 4S 2C", "9D 7H 5S 4C 2D", "Hand (1) wins with high card nine sixe kicker"},
        {"7C 5D 4H 3S 2C", "AD 7H 5S 4C 2D", "Hand (2) wins with high card ace"},
        // Flushes: only a win of hand 1 names the card that decided, from its own table.
        {"KH QH 9H 5H 3H", "KS JS 9S 5S 3S", "Hand (1) wins with a king high flush queen kicker"},
        {"KH JH 9H 5H 3H", "KS QS 9S 5S 3S", "Hand (2) wins with a king high flush"},
        {"AH 9H 7H 4H 3H", "KS QS 7S 4S 2S", "Hand (1) wins with an ace high flush"},
        {"JH 9H 7H 4H 3H", "8S 6S 5S 4S 2S", "Hand (1) wins with an jack high flush"},
        // Two pair, the odd card in the middle, first and last; the words never say which.
        {"KC KD 4H 4S 7C", "KH KS 4C 4D 6C", "Hand (1) wins with two pair"},
        {"QC QD 2H 5S 5C", "QH QS 2C 5D 5H", "There is a tie"},
        {"2C 2D 2H 2S 7C", "2C 2D 2H 2S 7C", "<none>"},  // twos have no value word
    };
    for (const auto& [first, second, words] : rows) {
        Hand one = RankedHand(first), two = RankedHand(second);
        const Verdict verdict = one[0].category == two[0].category ? CompareHands(one, two)
                                                                   : ReportCategoryWinner(one, two);
        EXPECT_EQ(verdict.text.value_or("<none>"), words) << first << " / " << second;
        EXPECT_TRUE(verdict.callsForAttention) << first;
    }
    // Unknown categories have no words, and a code without a row is named high card.
    Hand hand1 = RankedHand("2C 3D 4H 5S 7C"), hand2 = RankedHand("2D 3H 4S 5C 7D");
    for (const std::int16_t unknown : {1, 10, 21, -3, 0}) {  // 0 is a failed evaluation
        hand1[0].category = unknown;
        EXPECT_EQ(CompareHands(hand1, hand2), Verdict{}) << unknown;
    }
    EXPECT_EQ(ReportCategoryWinner(hand1, hand2),  // a code without a row is named high card
              (Verdict{"Hand (1) wins with a high card", true}));
    // Values off the tables have no words (the ace is passed as 14).
    for (const std::int16_t v : {-1, 0, 1, 15})
        for (const auto wording :
             {PairName, FullOfName, HighCardName, KickerName, FlushKickerName, FlushName})
            EXPECT_EQ(wording(v), "") << v;
}

}  // namespace
}  // namespace cards
