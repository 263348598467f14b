// The card engine: keys, the shuffle, five cards classified, verdicts in the exercise's words.
#include <gtest/gtest.h>

#include <algorithm>
#include <climits>
#include <cmath>
#include <limits>
#include <map>
#include <numeric>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "cards/compare.h"
#include "cards/evaluate_failure.h"

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
        const std::int16_t suit = kSuitOfRow[k / 13];
        const auto drawId = static_cast<std::int16_t>((value - 1) * 4 + suit);
        Card card{-5, -5, -5, 9};
        CardFromKey(k, keyMap, card);
        EXPECT_EQ(card, (Card{drawId, value, suit, 9})) << "key " << k;  // category kept
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
}

TEST(Keys, BuildHandFromDeckTakesPlacesFromTheFirstOnAndSkipsPlacesOffTheDeck) {
    KeyMap keyMap{};
    FillKeyMap(keyMap);
    Deck deck{};
    std::iota(deck.rbegin(), deck.rend(), std::int16_t{0});  // place p holds key 51 - p
    const Card untouched{9, 9, 9, 9};
    std::array<Card, 3> edge{untouched, untouched, untouched};
    BuildHandFromDeck(deck, -1, keyMap, edge);
    EXPECT_EQ(edge, (std::array<Card, 3>{untouched, Card{2, 1, 2, 9}, Card{50, 13, 2, 9}}));
    edge.fill(untouched);
    BuildHandFromDeck(deck, 50, keyMap, edge);
    EXPECT_EQ(edge, (std::array<Card, 3>{Card{8, 3, 0, 9}, Card{4, 2, 0, 9}, untouched}));
    BuildHandFromDeck(deck, INT_MAX, keyMap, edge);  // no overflow back into the deck
    EXPECT_EQ(edge[2], untouched);
}

// Row 0 names the straight flush (2), row 8 the high card (20); no other row or code has a name.
TEST(NameRows, CategoriesAndRowsMatchOneToOne) {
    EXPECT_EQ(CategoryOfNameRow(0), 2);
    EXPECT_EQ(CategoryOfNameRow(8), 20);
    for (int row = -1; row <= 9; ++row) {
        EXPECT_EQ(NameRowOfCategory(CategoryOfNameRow(row)), row >= 0 && row <= 8 ? row : -1);
    }
    for (const std::int16_t code : {1, 10, 19, 21, -2}) {
        EXPECT_EQ(NameRowOfCategory(code), -1) << code;
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
    Deck expected{};
    expected[0] = 51;
    std::iota(expected.begin() + 1, expected.end(), std::int16_t{0});
    EXPECT_EQ(deck, expected);
    EXPECT_EQ(zero.reseeds, 1);
    EXPECT_EQ(zero.draws, 52U);

    // ShuffleInPlace keeps the order it finds: the card that lay last ends first.
    std::reverse(deck.begin(), deck.end());
    ShuffleInPlace(deck, zero);
    EXPECT_EQ(deck[0], expected[0]);
    EXPECT_EQ(deck[1], expected[51]);
    EXPECT_EQ(zero.reseeds, 2);

    // The largest value below one partners place 50, never 51.
    ScriptedRandom top({std::nextafter(1.0f, 0.0f)});
    ShuffleDeck(deck, top);
    expected[0] = 50;
    std::iota(expected.begin() + 1, expected.begin() + 50, std::int16_t{0});
    expected[50] = 51;
    expected[51] = 49;
    EXPECT_EQ(deck, expected);

    // A value outside [0, 1) ends the shuffle silently, the deck whole.
    Deck keys{};
    std::iota(keys.begin(), keys.end(), std::int16_t{0});
    for (const float bad : {1.5f, -0.5f, std::numeric_limits<float>::quiet_NaN()}) {
        ScriptedRandom wild({0.3f, 0.7f, bad});
        ShuffleDeck(deck, wild);
        EXPECT_TRUE(std::is_permutation(deck.begin(), deck.end(), keys.begin())) << bad;
        EXPECT_EQ(wild.draws, 3U) << bad;
    }
}

TEST(ClockRandomSource, StaysInZeroToOneAndReseedsNeverRepeat) {
    ClockRandomSource random;
    float lowest = 1.0f, highest = 0.0f;
    for (int n = 0; n < 500'000; ++n) {
        const float u = random.Rnd();
        lowest = std::min(lowest, u);
        highest = std::max(highest, u);
    }
    EXPECT_TRUE(lowest >= 0.0f && lowest < 0.001f) << lowest;
    EXPECT_TRUE(highest > 0.999f && highest < 1.0f) << highest;

    std::set<std::vector<float>> sequences;  // reseeds within one clock tick differ too
    for (int n = 0; n < 1000; ++n) {
        random.Randomize();
        sequences.insert({random.Rnd(), random.Rnd(), random.Rnd()});
    }
    EXPECT_EQ(sequences.size(), 1000U);
}

// A card as a deal builds it: value 1 for the ace, drawId = (value - 1) * 4 + suit.
Card MakeCard(int value, int suit) {
    return Card{static_cast<std::int16_t>((value - 1) * 4 + suit), static_cast<std::int16_t>(value),
                static_cast<std::int16_t>(suit), 0};
}

// "AS KS QS JS TS" (ranks A 2..9 T J Q K, suits C D H S), classified as a deal leaves it.
Hand RankedHand(std::string_view notation) {
    constexpr std::string_view kRanks = "A23456789TJQK", kSuits = "CDHS";
    Hand hand{};
    for (std::size_t i = 0; i < hand.size(); ++i) {
        const std::size_t rank = kRanks.find(notation.substr(3 * i, 1));
        const std::size_t suit = kSuits.find(notation.substr(3 * i + 1, 1));
        hand[i] = MakeCard(static_cast<int>(rank) + 1, static_cast<int>(suit));
    }
    hand[0].category = EvaluatePokerHand(hand);
    return hand;
}

// The textbook counts of all 2,598,960 hands; every 997th hand also arrives in all 120 orders.
TEST(EvaluatePokerHand, EveryHandOfTheDeckGivesTheKnownCounts) {
    std::array<Card, 52> deck{};
    for (int c = 0; c < 52; ++c) {
        deck[c] = MakeCard(c % 13 + 1, c / 13);
    }
    std::map<int, long> countOfCode;
    long handNumber = 0, orderMismatches = 0;
    for (int a = 0; a < 52; ++a)
        for (int b = a + 1; b < 52; ++b)
            for (int c = b + 1; c < 52; ++c)
                for (int d = c + 1; d < 52; ++d)
                    for (int e = d + 1; e < 52; ++e) {
                        const Hand hand{deck[a], deck[b], deck[c], deck[d], deck[e]};
                        const std::int16_t code = EvaluatePokerHand(hand);
                        ++countOfCode[code];
                        if (++handNumber % 997 != 0) {
                            continue;
                        }
                        std::array<std::size_t, 5> o{0, 1, 2, 3, 4};
                        while (std::next_permutation(o.begin(), o.end())) {
                            const Hand shuffled{hand[o[0]], hand[o[1]], hand[o[2]], hand[o[3]],
                                                hand[o[4]]};
                            orderMismatches += EvaluatePokerHand(shuffled) != code ? 1 : 0;
                        }
                    }
    const std::map<int, long> expected{{2, 40},     {3, 624},     {4, 3744},
                                       {5, 5108},   {6, 10200},   {7, 54912},
                                       {8, 123552}, {9, 1098240}, {20, 1302540}};
    EXPECT_EQ(countOfCode, expected);
    EXPECT_EQ(orderMismatches, 0);
}

TEST(EvaluatePokerHand, FailureShowsItsMessageAndGivesZero) {
    std::vector<std::string> shown;
    SetMessageSink([&](const std::string& text) { shown.push_back(text); });
    EXPECT_EQ(detail::ReportEvaluateFailure("Overflow"), 0);
    SetMessageSink({});
    ShowMessage("nobody listens");  // without a sink a message goes nowhere
    EXPECT_EQ(shown, std::vector<std::string>{"Error  in  EvaluatePokerHand (  Overflow  )"});
}

TEST(Verdicts, ReadExactly) {
    const struct {
        const char *hand1, *hand2, *verdict;
    } rows[] = {
        // Across categories the lower code wins and is named.
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
        {"2C 3D 4H 5S 6C", "AS 2D 3C 4H 5S", "Hand (1) wins with a six high straight"},
        {"AS 2D 3C 4H 5S", "3C 4D 5H 6S 7C", "Hand (2) wins with a seven high straight"},
        {"TC JD QH KS AC", "9D TH JS QC KD", "Hand (1) wins with a ace high straight"},
        {"AH 2H 3H 4H 5H", "2C 3C 4C 5C 6C", "Hand (2) wins with a six high straight flush"},
        // Fours, full houses and threes: only the set decides; threes go without "with".
        {"AC AD AH AS 2C", "KC KD KH KS QC", "Hand (1) wins with four of a kind aces"},
        {"2C 2D 2H 2S AC", "3C 3D 3H 3S 4C", "Hand (2) wins with four of a kind threes"},
        {"AC AD AH KS KC", "QC QD QH JS JC", "Hand (1) wins with aces full of kings"},
        {"3C 3D 3H 4S 4C", "2C 2D 2H AS AC", "Hand (1) wins threes full of fours"},
        {"3C 3D 3H AS AC", "4C 4D 4H 2S 2H", "Hand (2) wins with fours full of twos"},
        {"AC AD AH 6S 6C", "QC QD QH JS JC", "Hand (1) wins with aces full of sixes"},
        {"2C 5D 5H 5S 9C", "3C 4D 4H 4S KC", "Hand (1) wins with three of a kind fives"},
        {"2C 3D 3H 3S AC", "AD AH AS 4C 5D", "Hand (2) wins with three of a kind aces"},
        // Pairs and high cards name the deciding kicker.
        {"9C 9D KH 5S 3C", "9H 9S QC 5D 3D", "Hand (1) wins with pair of nines king kicker"},
        {"9C 9D QH 5S 3C", "9H 9S KC 5D 3D", "Hand (2) wins with pair of nines king kicker"},
        {"9C 9D AH 5S 3C", "9H 9S KC 5D 3D", "Hand (1) wins with pair of nines ace kicker"},
        {"6C 6D KH 5S 2C", "6H 6S KC 5D 3D", "Hand (2) wins with pair of sixes three kicker"},
        {"6C 6D KH 5S 3C", "6H 6S KC 5D 3D", "There is a tie"},
        {"2C 2D KH 5S 3C", "2H 2S QC 5D 3D", "Hand (1) wins with pair of twos king kicker"},
        {"AC AD 7H 5S 3C", "KH KS QC JD 9D", "Hand (1) wins with pair of aces"},
        {"2C 2D 7H 5S 3C", "KH KS QC JD 9D", "Hand (2) wins with pair of kings"},
        {"AC KD QH JS 9C", "AD KH QS JC 8D", "Hand (1) wins with high card ace nine kicker"},
        {"AC KD QH JS 8C", "AD KH QS JC 9D", "Hand (2) wins with high card ace nine kicker"},
        {"9C 7D 5H 4S 2C", "9D 7H 5S 3C 2D", "Hand (1) wins with high card nine four kicker"},
        {"9C 7D 6H 4S 2C", "9D 7H 5S 4C 2D", "Hand (1) wins with high card nine sixe kicker"},
        {"7C 5D 4H 3S 2C", "AD 7H 5S 4C 2D", "Hand (2) wins with high card ace"},
        {"KC 5D 4H 3S 2C", "QD 7H 5S 4C 2D", "Hand (1) wins with high card king"},
        {"AC KD QH JS 9C", "AD KH QS JC 9D", "There is a tie"},
        // Flushes: only a win of hand 1 names the card that decided, from its own table.
        {"KH QH 9H 5H 3H", "KS JS 9S 5S 3S", "Hand (1) wins with a king high flush queen kicker"},
        {"KH JH 9H 5H 3H", "KS QS 9S 5S 3S", "Hand (2) wins with a king high flush"},
        {"KH 9H 7H 4H 3H", "KS 9S 7S 4S 2S", "Hand (1) wins with a king high flush three kicker"},
        {"KH 9H 7H 6H 3H", "KS 9S 7S 4S 2S", "Hand (1) wins with a king high flush six kicker"},
        {"AH 9H 7H 4H 3H", "KS QS 7S 4S 2S", "Hand (1) wins with an ace high flush"},
        {"JH 9H 7H 4H 3H", "8S 6S 5S 4S 2S", "Hand (1) wins with an jack high flush"},
        {"8H 6H 5H 4H 3H", "7S 6S 5S 4S 2S", "Hand (1) wins with an eight high flush"},
        {"QS KS AS 2S 3S", "QH KH AH 2H 3H", "There is a tie"},
        // Two pair, the odd card last, first and in the middle; the words never say which.
        {"KC KD 4H 4S 7C", "KH KS 4C 4D 6C", "Hand (1) wins with two pair"},
        {"AC QD QH 5S 5C", "KH KS 9C 9D 2C", "Hand (2) wins with two pair"},
        {"AC QD QH 5S 5C", "KC QC QS 5D 5H", "Hand (1) wins with two pair"},
        {"QC QD 9H 5S 5C", "QH QS 3C 3D AC", "Hand (1) wins with two pair"},
        {"QC QD 2H 5S 5C", "QH QS 3C 5D 5H", "Hand (2) wins with two pair"},
        {"QC QD 2H 5S 5C", "QH QS 2C 5D 5H", "There is a tie"},
    };
    for (std::size_t i = 0; i < std::size(rows); ++i) {
        Hand hand1 = RankedHand(rows[i].hand1);
        Hand hand2 = RankedHand(rows[i].hand2);
        const Verdict verdict = hand1[0].category == hand2[0].category
                                    ? CompareHands(hand1, hand2)
                                    : ReportCategoryWinner(hand1, hand2);
        EXPECT_EQ(verdict.text.value_or("<none>"), rows[i].verdict) << "row " << i;
        EXPECT_TRUE(verdict.startsBlinking) << "row " << i;
    }
}

TEST(Verdicts, AceHighComparisonsLeaveFourteenInTheHandsAndRepeatThemselves) {
    Hand hand1 = RankedHand("AC AD 7H 5S 3C");
    Hand hand2 = RankedHand("AH AS 7C 5D 2D");
    const Verdict first = CompareHands(hand1, hand2);
    EXPECT_EQ(first.text, "Hand (1) wins with pair of aces three kicker");
    EXPECT_EQ(hand1[0].value, 14);
    EXPECT_EQ(hand2[1].value, 14);
    EXPECT_EQ(hand2[2].value, 7);
    EXPECT_EQ(CompareHands(hand1, hand2), first);

    Hand wheel = RankedHand("AS 2D 3C 4H 5S");  // the runs keep the ace low
    Hand sameWheel = RankedHand("AD 2C 3H 4S 5D");
    EXPECT_EQ(CompareHands(wheel, sameWheel).text, "There is a tie");
    EXPECT_EQ(wheel[0].value, 1);
}

TEST(Verdicts, UnknownCategoriesAndValuesWithoutWords) {
    Hand hand1 = RankedHand("2C 3D 4H 5S 7C");
    Hand hand2 = RankedHand("2D 3H 4S 5C 7D");
    EXPECT_EQ(ReportCategoryWinner(hand1, hand2),
              (Verdict{"Hand (2) wins with a high card", true}));
    for (const std::int16_t unknown : {0, 1, 10, 21, -3}) {
        hand1[0].category = unknown;
        EXPECT_EQ(CompareHands(hand1, hand2), Verdict{}) << unknown;
    }
    // Twos have no value word, and no straight starts at the jack.
    const Verdict silent{std::nullopt, true};
    const Hand fourTwos = RankedHand("2C 2D 2H 2S 7C");
    const Hand fullOfTwos = RankedHand("2C 2D 2H 5S 5C");
    EXPECT_EQ(CompareFours(fourTwos, fourTwos), silent);
    EXPECT_EQ(CompareFullHouses(fullOfTwos, fullOfTwos), silent);
    EXPECT_EQ(CompareStraights(RankedHand("JC QD KH AS AC"), hand2), silent);

    int worded = 0;  // values off the tables have no words (the ace is passed as 14)
    for (int v = -32768; v <= 32767; ++v) {
        for (const auto wording :
             {PairName, FullOfName, HighCardName, KickerName, FlushKickerName, FlushName}) {
            worded += (v < 2 || v > 14) && !wording(static_cast<std::int16_t>(v)).empty() ? 1 : 0;
        }
    }
    EXPECT_EQ(worded, 0);
}

}  // namespace
}  // namespace cards
