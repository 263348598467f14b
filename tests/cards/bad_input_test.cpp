// Cards that no deal builds: values and suits far outside their ranges go through the
// classification, every comparison and every wording table without harm.
#include <gtest/gtest.h>

#include <random>
#include <set>
#include <string>
#include <vector>

#include "cards/compare.h"

namespace cards {
namespace {

constexpr std::array<std::int16_t, 16> kWildValues{-32768, -7, -1, 0,   1,   2,   5,     11,
                                                   13,     14, 15, 299, 300, 301, 32767, 9};
constexpr std::array<std::int16_t, 6> kWildSuits{-1, 0, 2, 3, 9, -32768};
constexpr std::array<std::int16_t, 13> kCodes{2, 3, 4, 5, 6, 7, 8, 9, 20, 0, 1, 10, -20};

Hand WildHand(std::mt19937& random) {
    std::uniform_int_distribution<std::size_t> value(0, kWildValues.size() - 1);
    std::uniform_int_distribution<std::size_t> suit(0, kWildSuits.size() - 1);
    Hand hand{};
    for (Card& card : hand) {
        card = Card{-1, kWildValues[value(random)], kWildSuits[suit(random)], 0};
    }
    return hand;
}

bool IsVerdictText(const std::optional<std::string>& text) {
    return !text || text->starts_with("Hand (1) wins ") || text->starts_with("Hand (2) wins ") ||
           *text == "There is a tie";
}

TEST(BadInput, WildCardsAreClassifiedAndComparedWithoutHarm) {
    constexpr unsigned kSeed = 20240611;
    std::mt19937 random(kSeed);
    std::vector<std::string> shown;
    SetMessageSink([&](const std::string& text) { shown.push_back(text); });
    const std::set<std::int16_t> categories{2, 3, 4, 5, 6, 7, 8, 9, 20};
    int unknownCategories = 0, oddVerdicts = 0, quietRoutines = 0;
    for (int n = 0; n < 20000; ++n) {
        Hand hand1 = WildHand(random);
        Hand hand2 = WildHand(random);
        unknownCategories += categories.count(EvaluatePokerHand(hand1)) == 0 ? 1 : 0;
        for (const std::int16_t code : kCodes) {
            hand1[0].category = code;
            hand2[0].category = kCodes[(static_cast<std::size_t>(n) + 3) % kCodes.size()];
            const Verdict across = ReportCategoryWinner(hand1, hand2);
            oddVerdicts +=
                across.startsBlinking && across.text && IsVerdictText(across.text) ? 0 : 1;
            const Verdict within = CompareHands(hand1, hand2);
            const bool known = categories.count(code) != 0;
            oddVerdicts += IsVerdictText(within.text) && within.startsBlinking == known ? 0 : 1;
        }
        for (const Verdict& verdict :
             {CompareStraightFlushes(hand1, hand2), CompareFours(hand1, hand2),
              CompareFullHouses(hand1, hand2), CompareFlushes(hand1, hand2),
              CompareStraights(hand1, hand2), CompareThrees(hand1, hand2),
              CompareTwoPairs(hand1, hand2), ComparePairs(hand1, hand2),
              CompareHighCards(hand1, hand2)}) {
            oddVerdicts += IsVerdictText(verdict.text) ? 0 : 1;
            quietRoutines += verdict.startsBlinking ? 0 : 1;
        }
    }
    SetMessageSink({});
    EXPECT_EQ(unknownCategories, 0) << "seed " << kSeed;
    EXPECT_EQ(oddVerdicts, 0) << "seed " << kSeed;
    EXPECT_EQ(quietRoutines, 0) << "seed " << kSeed;
    EXPECT_TRUE(shown.empty());
}

TEST(BadInput, EveryValueOutsideTwoToAceHasNoWords) {
    int worded = 0;
    for (int v = -32768; v <= 32767; ++v) {
        if (v >= 2 && v <= 14) {
            continue;
        }
        const auto value = static_cast<std::int16_t>(v);
        for (const std::string& words :
             {PairName(value), FullOfName(value), HighCardName(value), KickerName(value),
              FlushKickerName(value), FlushName(value)}) {
            worded += words.empty() ? 0 : 1;
        }
    }
    EXPECT_EQ(worded, 0);
}

TEST(BadInput, ShuffleAndKeysCopeWithAWildKeyMapAndDeck) {
    KeyMap keyMap{};
    keyMap.fill(-4);
    Deck deck{};
    deck.fill(-32768);
    deck[2] = 12;
    std::array<Card, 5> hand{};
    BuildHandFromDeck(deck, -2, keyMap, hand);  // places -2, -1 are skipped; only key 12 builds
    EXPECT_EQ(hand[0], Card{});
    EXPECT_EQ(hand[4], (Card{0, 1, 0, 0}));
    BuildHandFromDeck(deck, 2147483647, keyMap, hand);
    EXPECT_EQ(DrawIdOfKey(-4, keyMap), -1);
}

}  // namespace
}  // namespace cards
