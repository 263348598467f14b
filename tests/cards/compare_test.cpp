// Verdicts between two hands, through the same path as the exercise: classify both, then
// name the better category or compare within it.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "cards/compare.h"
#include "hand_notation.h"

namespace cards {
namespace {

using testing::MakeCard;
using testing::RankedHand;

Verdict Decide(Hand& hand1, Hand& hand2) {
    return hand1[0].category == hand2[0].category ? CompareHands(hand1, hand2)
                                                  : ReportCategoryWinner(hand1, hand2);
}

std::string DecideText(const char* first, const char* second) {
    Hand hand1 = RankedHand(first);
    Hand hand2 = RankedHand(second);
    const Verdict verdict = Decide(hand1, hand2);
    EXPECT_TRUE(verdict.startsBlinking);
    return verdict.text.value_or("<no text>");
}

struct Case {
    const char* hand1;
    const char* hand2;
    const char* verdict;
};

void PrintTo(const Case& c, std::ostream* out) {
    *out << c.hand1 << " vs " << c.hand2;
}

class Verdicts : public ::testing::TestWithParam<Case> {};

TEST_P(Verdicts, ReadExactly) {
    EXPECT_EQ(DecideText(GetParam().hand1, GetParam().hand2), GetParam().verdict)
        << GetParam().hand1 << " vs " << GetParam().hand2;
}

INSTANTIATE_TEST_SUITE_P(
    Runs, Verdicts,
    ::testing::Values(
        Case{"8H 9H TH JH QH", "TD JD QD KD AD", "Hand (2) wins with a Royal flush"},
        Case{"AS 2D 3C 4H 5S", "2C 3D 4H 5S 6C", "Hand (2) wins with a six high straight"},
        Case{"2C 3D 4H 5S 6C", "AS 2D 3C 4H 5S", "Hand (1) wins with a six high straight"},
        Case{"AS 2D 3C 4H 5S", "AC 2H 3D 4S 5C", "There is a tie"},
        Case{"2S 3D 4C 5H 6S", "2C 3H 4D 5S 6C", "There is a tie"},
        Case{"TC JD QH KS AC", "9D TH JS QC KD", "Hand (1) wins with a ace high straight"},
        Case{"AH 2H 3H 4H 5H", "2C 3C 4C 5C 6C", "Hand (2) wins with a six high straight flush"},
        Case{"2D 3D 4D 5D 6D", "AS 2S 3S 4S 5S", "Hand (1) wins with a six high straight flush"},
        Case{"AH 2H 3H 4H 5H", "AS 2S 3S 4S 5S", "There is a tie"}));

INSTANTIATE_TEST_SUITE_P(
    Sets, Verdicts,
    ::testing::Values(
        Case{"AC AD AH AS 2C", "KC KD KH KS QC", "Hand (1) wins with four of a kind aces"},
        Case{"AC AD AH KS KC", "QC QD QH JS JC", "Hand (1) wins with aces full of kings"},
        Case{"3C 3D 3H 4S 4C", "2C 2D 2H AS AC", "Hand (1) wins threes full of fours"},
        Case{"2C 5D 5H 5S 9C", "3C 4D 4H 4S KC", "Hand (1) wins with three of a kind fives"},
        Case{"2C 3D 3H 3S AC", "AD AH AS 4C 5D", "Hand (2) wins with three of a kind aces"}));

INSTANTIATE_TEST_SUITE_P(
    AceHigh, Verdicts,
    ::testing::Values(
        Case{"9C 9D KH 5S 3C", "9H 9S QC 5D 3D", "Hand (1) wins with pair of nines king kicker"},
        Case{"9C 9D QH 5S 3C", "9H 9S KC 5D 3D", "Hand (2) wins with pair of nines king kicker"},
        Case{"9C 9D AH 5S 3C", "9H 9S KC 5D 3D", "Hand (1) wins with pair of nines ace kicker"},
        Case{"6C 6D KH 5S 2C", "6H 6S KC 5D 3D", "Hand (2) wins with pair of sixes three kicker"},
        Case{"6C 6D KH 5S 3C", "6H 6S KC 5D 3D", "There is a tie"},
        Case{"AC AD 7H 5S 3C", "KH KS QC JD 9D", "Hand (1) wins with pair of aces"},
        Case{"2C 2D 7H 5S 3C", "KH KS QC JD 9D", "Hand (2) wins with pair of kings"},
        Case{"AC KD QH JS 9C", "AD KH QS JC 8D", "Hand (1) wins with high card ace nine kicker"},
        Case{"AC KD QH JS 8C", "AD KH QS JC 9D", "Hand (2) wins with high card ace nine kicker"},
        Case{"9C 7D 5H 4S 2C", "9D 7H 5S 3C 2D", "Hand (1) wins with high card nine four kicker"},
        Case{"9C 6D 5H 4S 2C", "9D 7H 5S 3C 2D", "Hand (2) wins with high card nine seven kicker"},
        Case{"9C 7D 6H 4S 2C", "9D 7H 5S 4C 2D", "Hand (1) wins with high card nine sixe kicker"},
        Case{"7C 5D 4H 3S 2C", "AD 7H 5S 4C 2D", "Hand (2) wins with high card ace"},
        Case{"KC 5D 4H 3S 2C", "QD 7H 5S 4C 2D", "Hand (1) wins with high card king"},
        Case{"AC KD QH JS 9C", "AD KH QS JC 9D", "There is a tie"},
        Case{"KH QH 9H 5H 3H", "KS JS 9S 5S 3S",
             "Hand (1) wins with a king high flush queen kicker"},
        Case{"KH JH 9H 5H 3H", "KS QS 9S 5S 3S", "Hand (2) wins with a king high flush"},
        Case{"KH 9H 7H 4H 3H", "KS 9S 7S 4S 2S",
             "Hand (1) wins with a king high flush three kicker"},
        Case{"AH 9H 7H 4H 3H", "KS QS 7S 4S 2S", "Hand (1) wins with an ace high flush"},
        Case{"JH 9H 7H 4H 3H", "QS 9S 7S 4S 2S", "Hand (2) wins with a queen high flush"},
        Case{"JH 9H 7H 4H 3H", "8S 6S 5S 4S 2S", "Hand (1) wins with an jack high flush"},
        Case{"QS KS AS 2S 3S", "QH KH AH 2H 3H", "There is a tie"},
        // Two pair: odd card last, first and in the middle.
        Case{"KC KD 4H 4S 7C", "KH KS 4C 4D 6C", "Hand (1) wins with two pair"},
        Case{"KC KD 4H 4S 6C", "KH KS 4C 4D 7C", "Hand (2) wins with two pair"},
        Case{"AC QD QH 5S 5C", "KH KS 9C 9D 2C", "Hand (2) wins with two pair"},
        Case{"QC QD 9H 5S 5C", "QH QS 3C 3D AC", "Hand (1) wins with two pair"},
        Case{"QC QD 2H 5S 5C", "QH QS 3C 5D 5H", "Hand (2) wins with two pair"},
        Case{"QC QD 2H 5S 5C", "QH QS 2C 5D 5H", "There is a tie"}));

// Ranks 2..14 with the ace built as 1.
Card CardOfRank(int rank, int suit) {
    return MakeCard(rank == 14 ? 1 : rank, suit);
}

Hand RankedHand(std::array<int, 5> ranks, std::array<int, 5> suits) {
    Hand hand{};
    for (std::size_t i = 0; i < hand.size(); ++i) {
        hand[i] = CardOfRank(ranks[i], suits[i]);
    }
    hand[0].category = EvaluatePokerHand(hand);
    return hand;
}

constexpr std::array<int, 5> kMixedSuits{0, 1, 2, 3, 0};

Hand Straight(int lowest, std::array<int, 5> suits) {
    return RankedHand({lowest, lowest + 1, lowest + 2, lowest + 3, lowest + 4}, suits);
}

std::string Between(Hand hand1, Hand hand2) {
    return Decide(hand1, hand2).text.value_or("<no text>");
}

const std::array<std::string, 15> kPlurals{"",      "",      "twos",   "threes", "fours",
                                           "fives", "sixes", "sevens", "eights", "nines",
                                           "tens",  "jacks", "queens", "kings",  "aces"};

TEST(StraightVerdicts, NameEveryStraightByItsTopCard) {
    const std::array<std::string, 11> topCards{"",    "",     "",      "seven", "eight", "nine",
                                               "ten", "jack", "queen", "king",  "ace"};
    for (int lowest = 3; lowest <= 10; ++lowest) {
        SCOPED_TRACE(lowest);
        const std::string straight = topCards[lowest] + " high straight";
        const std::string straightFlush = lowest == 10 ? "Royal flush" : straight + " flush";
        const Hand high = Straight(lowest, kMixedSuits);
        const Hand low = Straight(lowest - 1, {2, 0, 1, 0, 3});
        EXPECT_EQ(Between(high, low), "Hand (1) wins with a " + straight);
        EXPECT_EQ(Between(low, high), "Hand (2) wins with a " + straight);
        const Hand highFlush = Straight(lowest, {3, 3, 3, 3, 3});
        const Hand lowFlush = Straight(lowest - 1, {1, 1, 1, 1, 1});
        EXPECT_EQ(Between(highFlush, lowFlush), "Hand (1) wins with a " + straightFlush);
        EXPECT_EQ(Between(lowFlush, highFlush), "Hand (2) wins with a " + straightFlush);
        EXPECT_EQ(Between(Straight(1, kMixedSuits), high), "Hand (2) wins with a " + straight);
    }
}

TEST(SetVerdicts, NameEveryValueOfFoursThreesAndFullHouses) {
    for (int rank = 3; rank <= 14; ++rank) {
        SCOPED_TRACE(rank);
        const int lower = rank - 1;
        const int kicker = rank == 14 ? 2 : 14;
        const Hand four = RankedHand({rank, rank, rank, rank, kicker}, {0, 1, 2, 3, 0});
        const Hand lowerFour = RankedHand({lower, lower, lower, lower, kicker}, {0, 1, 2, 3, 1});
        EXPECT_EQ(Between(four, lowerFour), "Hand (1) wins with four of a kind " + kPlurals[rank]);
        EXPECT_EQ(Between(lowerFour, four), "Hand (2) wins with four of a kind " + kPlurals[rank]);

        const int other = rank >= 9 ? 5 : 11;
        const Hand three = RankedHand({kicker, rank, rank, other, rank}, {0, 1, 2, 3, 0});
        const Hand lowerThree = RankedHand({lower, other, lower, kicker, lower}, {1, 1, 2, 3, 3});
        EXPECT_EQ(Between(three, lowerThree),
                  "Hand (1) wins with three of a kind " + kPlurals[rank]);
        EXPECT_EQ(Between(lowerThree, three),
                  "Hand (2) wins with three of a kind " + kPlurals[rank]);

        const std::string opening =
            rank == 3 ? " wins threes " : " wins with " + kPlurals[rank] + " ";
        for (int pair = 2; pair <= 14; ++pair) {
            if (pair == rank) {
                continue;
            }
            const Hand full = RankedHand({pair, rank, pair, rank, rank}, {0, 1, 2, 3, 0});
            const Hand lowerFull = RankedHand({lower, lower, lower, rank, rank}, {1, 2, 3, 0, 2});
            EXPECT_EQ(Between(full, lowerFull), "Hand (1)" + opening + "full of " + kPlurals[pair]);
            EXPECT_EQ(Between(lowerFull, full), "Hand (2)" + opening + "full of " + kPlurals[pair]);
        }
    }
}

TEST(CategoryVerdicts, TheLowerCodeWinsAndIsNamed) {
    const std::array<const char*, 9> hands{"9H 8H 7H 6H 5H", "7C 7D 7H 7S 2C", "5C 5D 5H 9S 9C",
                                           "2D 6D 9D JD KD", "4C 5D 6H 7S 8C", "QC QD QH 3S 6C",
                                           "JC JD 4H 4S 8C", "TC TD 2H 6S KC", "AC 3D 6H 9S JC"};
    const std::array<std::string, 9> names{"straight flush", "four of a kind", "full house ",
                                           "flush",          "straight",       "three of a kind",
                                           "two pair",       "pair",           "high card"};
    for (std::size_t first = 0; first < hands.size(); ++first) {
        for (std::size_t second = 0; second < hands.size(); ++second) {
            if (first == second) {
                continue;
            }
            const std::string expected = first < second ? "Hand (1) wins with a " + names[first]
                                                        : "Hand (2) wins with a " + names[second];
            EXPECT_EQ(DecideText(hands[first], hands[second]), expected);
        }
    }
}

TEST(AcePromotion, AceHighRoutinesLeaveFourteenInTheHandsAndRepeatTheirVerdict) {
    Hand hand1 = RankedHand("AC AD 7H 5S 3C");
    Hand hand2 = RankedHand("AH AS 7C 5D 2D");
    const Verdict first = CompareHands(hand1, hand2);
    EXPECT_EQ(first.text, "Hand (1) wins with pair of aces three kicker");
    EXPECT_EQ(hand1[0].value, 14);
    EXPECT_EQ(hand2[1].value, 14);
    EXPECT_EQ(hand2[2].value, 7);
    EXPECT_EQ(CompareHands(hand1, hand2), first);

    Hand wheel = RankedHand("AS 2D 3C 4H 5S");
    Hand sameWheel = RankedHand("AD 2C 3H 4S 5D");
    EXPECT_EQ(CompareHands(wheel, sameWheel).text, "There is a tie");
    EXPECT_EQ(wheel[0].value, 1);
    EXPECT_EQ(CompareHands(wheel, sameWheel).text, "There is a tie");
}

TEST(Blinking, EveryComparisonStartsItAndOnlyKnownCategoriesAreCompared) {
    Hand hand1 = RankedHand("2C 3D 4H 5S 7C");
    Hand hand2 = RankedHand("2D 3H 4S 5C 7D");
    EXPECT_EQ(ReportCategoryWinner(hand1, hand2),
              (Verdict{"Hand (2) wins with a high card", true}));
    for (const std::int16_t unknown : {0, 1, 10, 21, -3}) {
        hand1[0].category = unknown;
        EXPECT_EQ(CompareHands(hand1, hand2), Verdict{});
    }
    // Twos have no value word, and no straight starts at the jack: the routines end without
    // a text, yet blink.
    const Verdict silent{std::nullopt, true};
    const Hand fourTwos = RankedHand("2C 2D 2H 2S 7C");
    const Hand fullOfTwos = RankedHand("2C 2D 2H 5S 5C");
    EXPECT_EQ(CompareFours(fourTwos, fourTwos), silent);
    EXPECT_EQ(CompareFullHouses(fullOfTwos, fullOfTwos), silent);
    EXPECT_EQ(CompareStraights(RankedHand("JC QD KH AS AC"), hand2), silent);
}

}  // namespace
}  // namespace cards
