// Comparison of two hands and the verdict in words.
#pragma once

#include <optional>
#include <string>

#include "cards/cards.h"

namespace cards {

// The outcome of a comparison: the words of the verdict, if any (a comparison that finds no
// words leaves the last verdict standing), and whether it calls for attention.
struct Verdict {
    std::optional<std::string> text;
    bool callsForAttention = false;
    friend bool operator==(const Verdict&, const Verdict&) = default;
};

// Two hands of different categories; reads category of element 0 of each.
Verdict ReportCategoryWinner(const Hand& hand1, const Hand& hand2);
// Two hands of one category, by hand1[0].category. The ace-high comparisons write 14 into
// the aces of both hands, as the system does.
Verdict CompareHands(Hand& hand1, Hand& hand2);

Verdict CompareStraightFlushes(const Hand& hand1, const Hand& hand2);
Verdict CompareFours(const Hand& hand1, const Hand& hand2);
Verdict CompareFullHouses(const Hand& hand1, const Hand& hand2);
Verdict CompareFlushes(Hand& hand1, Hand& hand2);
Verdict CompareStraights(const Hand& hand1, const Hand& hand2);
Verdict CompareThrees(const Hand& hand1, const Hand& hand2);
Verdict CompareTwoPairs(Hand& hand1, Hand& hand2);
Verdict ComparePairs(Hand& hand1, Hand& hand2);
Verdict CompareHighCards(Hand& hand1, Hand& hand2);

// The wording tables; a value without a row gives the empty text. Aces are passed as 14.
std::string PairName(std::int16_t value);
std::string FullOfName(std::int16_t value);
std::string HighCardName(std::int16_t value);
std::string KickerName(std::int16_t value);
std::string FlushKickerName(std::int16_t value);
std::string FlushName(std::int16_t value);

}  // namespace cards
