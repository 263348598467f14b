#include "hand_notation.h"

#include <stdexcept>
#include <string>

namespace cards::testing {
namespace {

constexpr std::string_view kRanks = "A23456789TJQK";
constexpr std::string_view kSuits = "CDHS";

std::size_t IndexIn(std::string_view letters, char letter, std::string_view notation) {
    const std::size_t index = letters.find(letter);
    if (index == std::string_view::npos) {
        throw std::invalid_argument("bad card in \"" + std::string(notation) + "\"");
    }
    return index;
}

}  // namespace

Card MakeCard(int value, int suit) {
    return Card{static_cast<std::int16_t>((value - 1) * 4 + suit), static_cast<std::int16_t>(value),
                static_cast<std::int16_t>(suit), 0};
}

Hand HandOf(std::string_view notation) {
    Hand hand{};
    std::size_t filled = 0;
    for (std::size_t at = 0; at < notation.size(); ++at) {
        if (notation[at] == ' ') {
            continue;
        }
        if (filled == hand.size() || at + 1 >= notation.size()) {
            throw std::invalid_argument("not five cards: \"" + std::string(notation) + "\"");
        }
        const auto value = static_cast<int>(IndexIn(kRanks, notation[at], notation)) + 1;
        const auto suit = static_cast<int>(IndexIn(kSuits, notation[++at], notation));
        hand[filled++] = MakeCard(value, suit);
    }
    if (filled != hand.size()) {
        throw std::invalid_argument("not five cards: \"" + std::string(notation) + "\"");
    }
    return hand;
}

Hand RankedHand(std::string_view notation) {
    Hand hand = HandOf(notation);
    hand[0].category = EvaluatePokerHand(hand);
    return hand;
}

}  // namespace cards::testing
