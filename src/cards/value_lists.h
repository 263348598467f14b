// What the comparison routines share: the two ways of listing a hand's values, and the
// openings of a verdict.
#pragma once

#include <string>
#include <string_view>

#include "cards/cards.h"

namespace cards::detail {

using ValueList = std::array<std::int16_t, 5>;

inline constexpr std::string_view kTie = "There is a tie";

// Aces become 14 in the hand itself (and stay so); then the values from 14 down to 2.
ValueList AceHighList(Hand& hand);
// The values from 2 up to 13, aces left out; the slots behind the last card stay 0.
ValueList AcelessList(const Hand& hand);

// "Hand (1) wins with " or "Hand (2) wins with ".
std::string WinsWith(int winner);

// The verdict that every same-category routine starts from: no words yet, attention called.
inline Verdict OpenVerdict() {
    return Verdict{std::nullopt, true};
}

}  // namespace cards::detail
