// Hands written as people write them: "AS KS QS JS TS".
#pragma once

#include <string_view>

#include "cards/cards.h"

namespace cards::testing {

// A freshly built card: value 1 for the ace, drawId = (value - 1) * 4 + suit.
Card MakeCard(int value, int suit);

// Five cards of "<rank><suit>" separated by blanks; ranks A 2..9 T J Q K, suits C D H S.
Hand HandOf(std::string_view notation);

// HandOf, then classified with its category in element 0, as a deal leaves it.
Hand RankedHand(std::string_view notation);

}  // namespace cards::testing
