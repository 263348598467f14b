// The card engine: keys, the shuffle, five cards classified, verdicts in the exercise's words.
#include <gtest/gtest.h>

#include <cmath>
#include <map>
#include <string>
#include <string_view>

#include "cards/compare.h"
#include "support/scripted_random.h"

namespace cards {
namespace {

// Row k / 13 is clubs, diamonds, spades, hearts; column k % 13 runs two to king, then ace.
TEST(Keys, EveryKeyGivesItsOwnCard) {
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
}

// The exchange partner of a place is u * 51, so the largest u below one reaches place 50, never
// 51. (The scripted deals of the exercise tests prove the pass of exchanges.)
TEST(Shuffle, TheLargestValuePartnersPlaceFifty) {
    test_support::ScriptedRandom top;
    top.script.assign(52, std::nextafter(1.0f, 0.0f));
    Deck deck{};
    ShuffleDeck(deck, top);
    EXPECT_EQ((std::array{deck[50], deck[51]}), (std::array<std::int16_t, 2>{51, 49}));
}

// The textbook counts of all 2,598,960 hands, each dealt in a scrambled order of its cards.
TEST(EvaluatePokerHand, EveryHandOfTheDeckGivesTheKnownCounts) {
    std::array<Card, 52> deck{};
    for (int c = 0; c < 52; ++c)
        deck[c * 31 % 52] =
            test_support::cardOf(std::string{"A23456789TJQK"[c % 13], "cdhs"[c / 13]});
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

// "As Ks Qs Js Ts", classified as a deal leaves it.
Hand RankedHand(std::string_view notation) {
    Hand hand{};
    for (std::size_t i = 0; i < hand.size(); ++i)
        hand[i] = test_support::cardOf(notation.substr(3 * i, 2));
    hand[0].category = EvaluatePokerHand(hand).value;
    return hand;
}

TEST(Verdicts, ReadExactly) {
    const char* const rows[][3] = {
        // Hand 1, hand 2, the verdict. Across categories the lower code wins and is named.
        {"9h 8h 7h 6h 5h", "7c 7d 7h 7s 2c", "Hand (1) wins with a straight flush"},
        {"5c 5d 5h 9s 9c", "7c 7d 7h 7s 2c", "Hand (2) wins with a four of a kind"},
        {"4c 5d 6h 7s 8c", "Qc Qd Qh 3s 6c", "Hand (1) wins with a straight"},
        {"Ac 3d 6h 9s Jc", "Tc Td 2h 6s Kc", "Hand (2) wins with a pair"},
        // Runs: A-2-3-4-5 is the lowest and is never named.
        {"8h 9h Th Jh Qh", "Td Jd Qd Kd Ad", "Hand (2) wins with a Royal flush"},
        {"As 2d 3c 4h 5s", "2c 3d 4h 5s 6c", "Hand (2) wins with a six high straight"},
        // Fours, full houses and threes: only the set decides; threes go without "with".
        {"Ac Ad Ah As 2c", "Kc Kd Kh Ks Qc", "Hand (1) wins with four of a kind aces"},
        {"Ac Ad Ah Ks Kc", "Qc Qd Qh Js Jc", "Hand (1) wins with aces full of kings"},
        {"3c 3d 3h 4s 4c", "2c 2d 2h As Ac", "Hand (1) wins threes full of fours"},
        {"3c 3d 3h As Ac", "4c 4d 4h 2s 2h", "Hand (2) wins with fours full of twos"},
        {"2c 3d 3h 3s Ac", "Ad Ah As 4c 5d", "Hand (2) wins with three of a kind aces"},
        // Pairs and high cards name the deciding kicker.
        {"9c 9d Ah 5s 3c", "9h 9s Kc 5d 3d", "Hand (1) wins with pair of nines ace kicker"},
        {"6c 6d Kh 5s 2c", "6h 6s Kc 5d 3d", "Hand (2) wins with pair of sixes three kicker"},
        {"Ac Ad 7h 5s 3c", "Kh Ks Qc Jd 9d", "Hand (1) wins with pair of aces"},
        {"Ac Kd Qh Js 8c", "Ad Kh Qs Jc 9d", "Hand (2) wins with high card ace nine kicker"},
        {"9c 7d 6h 4s 2c", "9d 7h 5s 4c 2d", "Hand (1) wins with high card nine sixe kicker"},
        {"7c 5d 4h 3s 2c", "Ad 7h 5s 4c 2d", "Hand (2) wins with high card ace"},
        // Flushes: only a win of hand 1 names the card that decided, from its own table.
        {"Kh Qh 9h 5h 3h", "Ks Js 9s 5s 3s", "Hand (1) wins with a king high flush queen kicker"},
        {"Kh Jh 9h 5h 3h", "Ks Qs 9s 5s 3s", "Hand (2) wins with a king high flush"},
        {"Ah 9h 7h 4h 3h", "Ks Qs 7s 4s 2s", "Hand (1) wins with an ace high flush"},
        {"Jh 9h 7h 4h 3h", "8s 6s 5s 4s 2s", "Hand (1) wins with an jack high flush"},
        // Two pair, the odd card in the middle, first and last; the words never say which.
        {"Kc Kd 4h 4s 7c", "Kh Ks 4c 4d 6c", "Hand (1) wins with two pair"},
        {"Qc Qd 2h 5s 5c", "Qh Qs 2c 5d 5h", "There is a tie"},
        {"2c 2d 2h 2s 7c", "2c 2d 2h 2s 7c", "<none>"},  // twos have no value word
    };
    for (const auto& [first, second, words] : rows) {
        Hand one = RankedHand(first), two = RankedHand(second);
        const Verdict verdict = one[0].category == two[0].category ? CompareHands(one, two)
                                                                   : ReportCategoryWinner(one, two);
        EXPECT_EQ(verdict.text.value_or("<none>"), words) << first << " / " << second;
        EXPECT_TRUE(verdict.callsForAttention) << first;
    }
}

}  // namespace
}  // namespace cards
