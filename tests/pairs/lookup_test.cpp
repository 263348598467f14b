#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <string>
#include <vector>

#include "pair_keys.h"
#include "pairs/pairs.h"

namespace pairs {
namespace {

using testing::AllKeys;
using testing::kValueLetters;
using testing::TableOf;

TEST(RankOfPosition, TellingRows) {
    const std::vector<std::pair<int, int>> rows = {
        {1, 100}, {2, 99},  {3, 98},  {4, 98},  {17, 90}, {18, 89}, {34, 80}, {35, 79},
        {51, 70}, {52, 69}, {68, 60}, {69, 59}, {85, 50}, {86, 49}, {168, 1}, {169, 0},
    };
    for (const auto& [position, rank] : rows) {
        EXPECT_EQ(RankOfPosition(position), rank) << "position " << position;
    }
}

// The full table with `entry` put at `position` (1-based) in place of what stood there.
std::vector<std::string> KeysWith(std::string entry, int position) {
    auto keys = AllKeys();
    keys[static_cast<std::size_t>(position - 1)] = std::move(entry);
    return keys;
}

// The full table with `key` moved to the front, the others in their order.
std::vector<std::string> KeysWithFirst(const std::string& key) {
    auto keys = AllKeys();
    const auto at = std::find(keys.begin(), keys.end(), key);
    std::rotate(keys.begin(), at, at + 1);
    return keys;
}

std::size_t PositionOf(const std::vector<std::string>& keys, const std::string& key) {
    return static_cast<std::size_t>(std::find(keys.begin(), keys.end(), key) - keys.begin()) + 1;
}

TEST(PairValueRank, BothOrdersOfKeyAndEntry) {
    for (const std::string entry : {"AK", "KA"}) {
        auto keys = KeysWithFirst("AK");
        keys[0] = entry;
        const KeyedList table = TableOf(keys);
        for (const std::string key : {"AK", "KA", "ak", "kA"}) {
            EXPECT_EQ(PairValueRank(table, key, false), 100) << entry << " " << key;
            EXPECT_EQ(PairValueRank(table, key, true),
                      RankOfPosition(static_cast<int>(PositionOf(keys, "AKs"))));
        }
    }
    auto keys = KeysWithFirst("AKs");
    keys[0] = "KAs";
    for (const std::string key : {"AK", "KA"}) {
        EXPECT_EQ(PairValueRank(TableOf(keys), key, true), 100) << key;
    }
}

TEST(PairValueRank, EntriesThatMatchNothing) {
    const auto aks = PositionOf(AllKeys(), "AKs");
    const auto ak = PositionOf(AllKeys(), "AK");
    for (const std::string entry : {"AKS", "AK s", "AKs ", " AKs", "aks", "xx"}) {
        const KeyedList table = TableOf(KeysWith(entry, static_cast<int>(aks)));
        EXPECT_EQ(PairValueRank(table, "AK", true), 0) << entry;
        EXPECT_EQ(PairValueRank(table, "AK", false), RankOfPosition(static_cast<int>(ak))) << entry;
    }
    const KeyedList blank = TableOf(KeysWith("AK ", static_cast<int>(ak)));
    EXPECT_EQ(PairValueRank(blank, "AK", false), 0);
}

TEST(PairValueRank, LaterDuplicateWins) {
    auto keys = KeysWithFirst("72");
    keys[99] = "27";  // position 100
    EXPECT_EQ(PairValueRank(TableOf(keys), "72", false), RankOfPosition(100));
    keys[168] = "72";  // position 169 gives 0, like a failure
    EXPECT_EQ(PairValueRank(TableOf(keys), "72", false), 0);
}

TEST(PairValueRank, OnlyThe169FirstEntriesCount) {
    auto keys = AllKeys();
    ASSERT_EQ(keys.front(), "AA");
    keys.pop_back();
    const KeyedList shortTable = TableOf(keys);
    for (const auto& key : keys) {
        EXPECT_EQ(PairValueRank(shortTable, key.substr(0, 2), key.size() == 3), 0) << key;
    }
    EXPECT_EQ(PairValueRank(KeyedList{}, "AA", false), 0);

    keys = AllKeys();
    keys.push_back("AA");  // position 170 would give 0 if it were read
    const KeyedList longTable = TableOf(keys);
    EXPECT_EQ(PairValueRank(longTable, "AA", false), 100);
}

cards::Card CardOf(std::int16_t value, std::int16_t suit) {
    cards::Card card;
    card.value = value;
    card.suit = suit;
    return card;
}

std::size_t LetterIndex(int value) {
    return value == 1 ? 0 : static_cast<std::size_t>(14 - value);
}

// Every pair of values in both orders, suited or not, finds exactly the key of its type:
// the table holds that key at the front, so any other key gives less than 100.
TEST(PairValueKey, EveryValuePairFindsItsType) {
    for (std::int16_t v1 = 1; v1 <= 13; ++v1) {
        for (std::int16_t v2 = 1; v2 <= 13; ++v2) {
            for (const bool suited : {false, true}) {
                if (suited && v1 == v2) {
                    continue;
                }
                const std::size_t first = LetterIndex(v1);
                const std::size_t second = LetterIndex(v2);
                const std::size_t high = std::min(first, second);
                const std::size_t low = std::max(first, second);
                std::string key{kValueLetters[high], kValueLetters[low]};
                if (suited) {
                    key += 's';
                }
                const KeyedList table = TableOf(KeysWithFirst(key));
                const std::array hand = {CardOf(v1, 2), CardOf(v2, suited ? 2 : 3)};
                EXPECT_EQ(PairValueKey(table, hand), 100) << v1 << " " << v2 << " " << suited;
            }
        }
    }
}

TEST(PairValueKey, ImpossibleHandsGiveZero) {
    const KeyedList table = TableOf(AllKeys());
    // A suited pair has no key; a promoted ace (14) reads "A4" and finds no type.
    const std::vector<std::array<cards::Card, 2>> hands = {
        {CardOf(1, 0), CardOf(1, 0)},
        {CardOf(14, 0), CardOf(13, 1)},
        {CardOf(14, 0), CardOf(14, 1)},
        {CardOf(0, 0), CardOf(13, 1)},
    };
    for (const auto& hand : hands) {
        EXPECT_EQ(PairValueKey(table, hand), 0) << hand[0].value << " " << hand[1].value;
    }
    const std::array one = {CardOf(1, 0)};
    EXPECT_EQ(PairValueKey(table, one), 0);
}

}  // namespace
}  // namespace pairs
