// Classification of five cards: every hand of the deck, the ace's two roles, and the sort's
// reach of values 0..300.
#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <string>
#include <vector>

#include "cards/cards.h"
#include "cards/evaluate_failure.h"
#include "hand_notation.h"

namespace cards {
namespace {

using testing::HandOf;
using testing::MakeCard;

// Poker's rules written plainly, ace high, with the wheel as the one wrapping straight.
std::int16_t ReferenceCategory(const Hand& hand) {
    std::array<int, 15> countOfRank{};
    for (const Card& card : hand) {
        ++countOfRank[card.value == 1 ? 14 : card.value];
    }
    std::array<int, 5> groups{};
    std::size_t distinct = 0;
    for (int count : countOfRank) {
        if (count > 0) {
            groups[distinct++] = count;
        }
    }
    std::sort(groups.rbegin(), groups.rend());
    const bool flush = std::all_of(hand.begin(), hand.end(),
                                   [&](const Card& c) { return c.suit == hand[0].suit; });
    bool straight = false;
    if (distinct == 5) {
        int low = 14, high = 2;
        for (int r = 2; r <= 14; ++r) {
            if (countOfRank[r] > 0) {
                low = std::min(low, r);
                high = std::max(high, r);
            }
        }
        const bool wheel =
            countOfRank[14] && countOfRank[2] && countOfRank[3] && countOfRank[4] && countOfRank[5];
        straight = high - low == 4 || wheel;
    }
    if (straight && flush)
        return 2;
    if (groups[0] == 4)
        return 3;
    if (groups[0] == 3 && groups[1] == 2)
        return 4;
    if (flush)
        return 5;
    if (straight)
        return 6;
    if (groups[0] == 3)
        return 7;
    if (groups[0] == 2 && groups[1] == 2)
        return 8;
    if (groups[0] == 2)
        return 9;
    return 20;
}

std::string Describe(const Hand& hand) {
    std::string text;
    for (const Card& card : hand) {
        text += std::to_string(card.value) + "/" + std::to_string(card.suit) + " ";
    }
    return text;
}

TEST(EvaluatePokerHand, EveryHandOfTheDeckAgreesWithTheRulesAndTheKnownCounts) {
    std::array<Card, 52> deck{};
    for (int c = 0; c < 52; ++c) {
        deck[c] = MakeCard(c % 13 + 1, c / 13);
    }
    std::map<int, long> countOfCode;
    long mismatches = 0;
    long orderMismatches = 0;
    std::vector<std::string> firstMismatches;
    long handNumber = 0;
    Hand hand{};
    for (int a = 0; a < 52; ++a)
        for (int b = a + 1; b < 52; ++b)
            for (int c = b + 1; c < 52; ++c)
                for (int d = c + 1; d < 52; ++d)
                    for (int e = d + 1; e < 52; ++e) {
                        hand = {deck[a], deck[b], deck[c], deck[d], deck[e]};
                        const std::int16_t code = EvaluatePokerHand(hand);
                        ++countOfCode[code];
                        if (code != ReferenceCategory(hand)) {
                            if (++mismatches <= 5) {
                                firstMismatches.push_back(Describe(hand) + "-> " +
                                                          std::to_string(code));
                            }
                        }
                        // Every 997th hand also arrives in all 120 orders.
                        if (++handNumber % 997 != 0) {
                            continue;
                        }
                        std::array<int, 5> order{0, 1, 2, 3, 4};
                        while (std::next_permutation(order.begin(), order.end())) {
                            const Hand shuffled{hand[order[0]], hand[order[1]], hand[order[2]],
                                                hand[order[3]], hand[order[4]]};
                            orderMismatches += EvaluatePokerHand(shuffled) != code ? 1 : 0;
                        }
                    }
    const std::map<int, long> expected{{2, 40},     {3, 624},     {4, 3744},
                                       {5, 5108},   {6, 10200},   {7, 54912},
                                       {8, 123552}, {9, 1098240}, {20, 1302540}};
    EXPECT_EQ(handNumber, 2598960);
    EXPECT_EQ(countOfCode, expected);
    EXPECT_EQ(mismatches, 0) << ::testing::PrintToString(firstMismatches);
    EXPECT_EQ(orderMismatches, 0);
}

struct NamedHand {
    const char* notation;
    std::int16_t expected;
};

void PrintTo(const NamedHand& hand, std::ostream* out) {
    *out << hand.notation;
}

class EvaluateExample : public ::testing::TestWithParam<NamedHand> {};

TEST_P(EvaluateExample, GivesItsCategoryAndLeavesTheHandAlone) {
    Hand hand = HandOf(GetParam().notation);
    hand[0].category = 77;
    const Hand before = hand;
    EXPECT_EQ(EvaluatePokerHand(hand), GetParam().expected) << GetParam().notation;
    EXPECT_EQ(hand, before);
}

INSTANTIATE_TEST_SUITE_P(
    AcesAndPairCounting, EvaluateExample,
    ::testing::Values(NamedHand{"AS 2D 3C 4H 5S", 6}, NamedHand{"AH 2H 3H 4H 5H", 2},
                      NamedHand{"TC JD QH KS AC", 6}, NamedHand{"TD JD QD KD AD", 2},
                      NamedHand{"QC KD AH 2S 3C", 20}, NamedHand{"QS KS AS 2S 3S", 5},
                      NamedHand{"2C 2D 3H 3S KC", 8}, NamedHand{"2C 2D 3H KS KC", 8},
                      NamedHand{"2C 3D 3H KS KC", 8}, NamedHand{"KC 3D 2H 3S 2S", 8},
                      NamedHand{"AC AD AH KS KC", 4}, NamedHand{"AC AD KH KS KC", 4},
                      NamedHand{"KD AC AD KH AS", 4}, NamedHand{"AC AD AH AS KC", 3},
                      NamedHand{"9C 9D 9H 4S KC", 7}, NamedHand{"9C 9D 5H 4S KC", 9},
                      NamedHand{"9C 8D 5H 4S KC", 20}, NamedHand{"9C 8D 7H 6S TC", 6}));

// Values the sweep never meets leave zero cards (value 0, suit 0) at the end of the sorted
// hand; value 0 itself is met, and so is 300.
TEST(EvaluatePokerHand, SortsOnlyTheValuesFromZeroTo300) {
    const auto make = [](std::array<int, 5> values, std::array<int, 5> suits) {
        Hand hand{};
        for (std::size_t i = 0; i < hand.size(); ++i) {
            hand[i] = Card{0, static_cast<std::int16_t>(values[i]),
                           static_cast<std::int16_t>(suits[i]), 0};
        }
        return hand;
    };
    // Run 296..300 of one suit; with 301 in place of 296 the run is gone but the zero card
    // keeps the suit.
    EXPECT_EQ(EvaluatePokerHand(make({300, 299, 298, 297, 296}, {1, 1, 1, 1, 1})), 2);
    EXPECT_EQ(EvaluatePokerHand(make({300, 299, 298, 297, 301}, {0, 0, 0, 0, 0})), 5);
    EXPECT_EQ(EvaluatePokerHand(make({4, 3, 2, 1, 0}, {2, 2, 2, 2, 2})), 2);
    // Two cards beyond the sweep leave two zero cards: the fives count as full of them.
    EXPECT_EQ(EvaluatePokerHand(make({5, 5, 5, 301, 302}, {0, 1, 2, 3, 3})), 4);
    EXPECT_EQ(EvaluatePokerHand(make({5, 5, 5, 7, -1}, {0, 1, 2, 3, 3})), 7);
}

TEST(EvaluatePokerHand, FailureHandlerShowsItsMessageAndGivesZero) {
    std::vector<std::string> shown;
    SetMessageSink([&](const std::string& text) { shown.push_back(text); });
    EXPECT_EQ(detail::ReportEvaluateFailure("Overflow"), 0);
    SetMessageSink({});
    ShowMessage("nobody listens");
    EXPECT_EQ(shown, std::vector<std::string>{"Error  in  EvaluatePokerHand (  Overflow  )"});
}

}  // namespace
}  // namespace cards
