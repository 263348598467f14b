// The committed app/169.txt: every starting type once, in the form the lookup accepts.
#include <gtest/gtest.h>

#include <algorithm>
#include <fstream>
#include <set>
#include <string>
#include <vector>

#include "pair_keys.h"
#include "pairs/pairs.h"

namespace pairs {
namespace {

std::vector<std::string> Lines() {
    std::ifstream in(TABLEWRIGHT_169_FILE, std::ios::binary);
    std::vector<std::string> lines;
    for (std::string line; std::getline(in, line);) {
        lines.push_back(line);
    }
    return lines;
}

TEST(Committed169, OneAcceptedKeyPerLineWithAComma) {
    const auto lines = Lines();
    ASSERT_EQ(lines.size(), 169u);
    const auto all = testing::AllKeys();
    const std::set<std::string> accepted(all.begin(), all.end());
    std::set<std::string> seen;
    for (const auto& line : lines) {
        ASSERT_FALSE(line.empty());
        EXPECT_EQ(line.back(), ',') << line;
        const std::string key = line.substr(0, line.size() - 1);
        EXPECT_TRUE(accepted.contains(key)) << line;
        EXPECT_TRUE(seen.insert(key).second) << "twice: " << line;
    }
    EXPECT_EQ(seen.size(), 169u);
}

TEST(Committed169, LoadsAndRanksSensibly) {
    cards::SetMessageSink([](const std::string& text) { ADD_FAILURE() << text; });
    const KeyedList table = load169(TABLEWRIGHT_169_FILE);
    cards::SetMessageSink(nullptr);
    ASSERT_EQ(table.Count(), 169u);
    EXPECT_EQ(table.Item(1), "AA");
    EXPECT_EQ(PairValueRank(table, "AA", false), 100);
    EXPECT_LE(PairValueRank(table, "72", false), 3);
    EXPECT_GT(PairValueRank(table, "KK", false), PairValueRank(table, "22", false));
    EXPECT_GT(PairValueRank(table, "AK", true), PairValueRank(table, "AK", false));
    EXPECT_GT(PairValueRank(table, "T9", true), PairValueRank(table, "T9", false));
}

}  // namespace
}  // namespace pairs
