// The generator of 169.txt: its evaluator on seven-card showdowns. The committed file's test
// checks the types.
#include <gtest/gtest.h>

#include <string_view>

#include "evaluator.h"

namespace make169 {
namespace {

// "Ah Kd ..." with ranks 2..9 T J Q K A and suits c d h s.
HandValue ValueOf(std::string_view text) {
    CardSet cards;
    for (std::size_t at = 0; at + 1 < text.size(); at += 3)
        cards.Add(CardOf(static_cast<int>(std::string_view("23456789TJQKA").find(text[at])),
                         static_cast<int>(std::string_view("cdhs").find(text[at + 1]))));
    return Evaluate(cards);
}

// The best five of seven decide, with every kicker they hold and none beyond.
TEST(Make169Evaluator, SevenCardShowdowns) {
    using enum Category;
    const struct {
        const char *first, *second;
        int order;          // +1, 0 or -1: the first wins, ties or loses
        Category category;  // of the first
    } rows[] = {
        {"Ah Kd Qc Js 9h 3c 2d", "Ah Kd Qc Js 8h 7c 2d", 1, kHighCard},
        {"Ah Ad Ks Kh Qc Qd 2c", "Ah Ad Ks Kh 3c 3d Jc", 1, kTwoPair},
        {"Ah 2d 3c 4s 5h Kc Kd", "2d 3c 4s 5h 6h Kc Qd", -1, kStraight},
        {"Ah 9h 7h 3h 2h 4c 5d", "Ah 9h 7h 3h 2h Kc Qd", 0, kFlush},  // and a straight off suit
        {"Ac Ad Ah As 2c 3d 9h", "Ac Ad Ah As 2c 3d 8h", 1, kFourOfAKind},
        {"Ah 2h 3h 4h 5h Kc Kd", "Ac Ad Ah As Kc Kd Kh", 1, kStraightFlush},
    };
    for (const auto& row : rows) {
        const HandValue first = ValueOf(row.first), second = ValueOf(row.second);
        EXPECT_EQ((first > second) - (first < second), row.order)
            << row.first << " / " << row.second;
        EXPECT_EQ(CategoryOf(first), row.category) << row.first;
    }
}

}  // namespace
}  // namespace make169
