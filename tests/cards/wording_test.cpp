// The wording tables, row by row, and values without a row.
#include <gtest/gtest.h>

#include <map>
#include <string>

#include "cards/compare.h"

namespace cards {
namespace {

using Wording = std::string (*)(std::int16_t);
using Rows = std::map<int, std::string>;

void ExpectRows(Wording wording, const Rows& rows) {
    for (int value = -3; value <= 17; ++value) {
        const auto row = rows.find(value);
        EXPECT_EQ(wording(static_cast<std::int16_t>(value)), row == rows.end() ? "" : row->second)
            << "value " << value;
    }
    for (const std::int16_t far : {-32768, 32767, 300}) {
        EXPECT_EQ(wording(far), "") << "value " << far;
    }
}

// A row for each value from..to: the card's word between `before` and `after`.
Rows Words(const std::string& before, const std::string& after, int from, int to,
           const std::map<int, std::string>& exceptions = {}) {
    const std::map<int, std::string> words{{2, "two"},  {3, "three"}, {4, "four"},   {5, "five"},
                                           {6, "six"},  {7, "seven"}, {8, "eight"},  {9, "nine"},
                                           {10, "ten"}, {11, "jack"}, {12, "queen"}, {13, "king"},
                                           {14, "ace"}};
    Rows rows;
    for (int value = from; value <= to; ++value) {
        const auto exception = exceptions.find(value);
        rows[value] =
            exception != exceptions.end() ? exception->second : before + words.at(value) + after;
    }
    return rows;
}

TEST(Wording, PairAndFullOfNamesCoverTwosToAces) {
    ExpectRows(PairName, Words("pair of ", "s", 2, 14, {{6, "pair of sixes"}}));
    ExpectRows(FullOfName, Words("full of ", "s", 2, 14, {{6, "full of sixes"}}));
}

TEST(Wording, HighCardNamesRunFromFiveAndSayHighCardSixe) {
    ExpectRows(HighCardName, Words("high card ", "", 5, 14, {{6, "high card sixe"}}));
}

TEST(Wording, TheTwoKickerTablesDiffer) {
    ExpectRows(KickerName, Words(" ", " kicker", 2, 14, {{6, " sixe kicker"}}));
    ExpectRows(FlushKickerName, Words(" ", " kicker", 3, 13));
    EXPECT_EQ(FlushKickerName(6), " six kicker");
}

TEST(Wording, FlushNamesTakeAOrAnAsTheTableHasThem) {
    ExpectRows(
        FlushName,
        Words("a ", " high flush", 6, 14,
              {{8, "an eight high flush"}, {11, "an jack high flush"}, {14, "an ace high flush"}}));
}

}  // namespace
}  // namespace cards
