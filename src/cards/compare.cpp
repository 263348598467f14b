// Two hands compared: across categories by code, within one category by the routine for it.
#include <string_view>

#include "cards/compare.h"
#include "cards/value_lists.h"

namespace cards {

using detail::AcelessList;
using detail::kTie;
using detail::OpenVerdict;
using detail::ValueList;
using detail::WinsWith;

namespace {

constexpr std::int16_t kAce = 14;

// Indexed by value; no word for twos, since the value that wins such a verdict is above two.
constexpr std::array<std::string_view, 15> kValueWords{
    "",       "",      "",     "threes", "fours",  "fives", "sixes", "sevens",
    "eights", "nines", "tens", "jacks",  "queens", "kings", "aces"};

std::string_view ValueWord(std::int16_t value) {
    if (value < 0 || value >= static_cast<int>(kValueWords.size())) {
        return {};
    }
    return kValueWords[static_cast<std::size_t>(value)];
}

// By category place; any code without a place is named high card.
constexpr std::array<std::string_view, 9> kCategoryNames{
    "straight flush",  "four of a kind", "full house ", "flush",    "straight",
    "three of a kind", "two pair",       "pair",        "high card"};

std::string_view CategoryName(std::int16_t handCategory) {
    const int place = CategoryPlace(handCategory);
    return place < 0 ? kCategoryNames.back() : kCategoryNames[static_cast<std::size_t>(place)];
}

// Straight names by the lowest card of the aceless list (10 for the ace-high one).
struct StraightWords {
    std::array<std::string_view, 11> byLowestCard;
    std::string_view sixHigh;
};

constexpr StraightWords kStraightWords{
    {"", "", "", "seven high straight", "eight high straight", "nine high straight",
     "ten high straight", "jack high straight", "queen high straight", "king high straight",
     "ace high straight"},
    "six high straight"};

constexpr StraightWords kStraightFlushWords{
    {"", "", "", "seven high straight flush", "eight high straight flush",
     "nine high straight flush", "ten high straight flush", "jack high straight flush",
     "queen high straight flush", "king high straight flush", "Royal flush"},
    "six high straight flush"};

std::optional<std::string> StraightVerdict(int winner, std::string_view name) {
    if (name.empty()) {
        return std::nullopt;
    }
    return WinsWith(winner) + "a " + std::string(name);
}

std::string_view StraightName(const StraightWords& words, std::int16_t lowestCard) {
    if (lowestCard < 0 || lowestCard >= static_cast<int>(words.byLowestCard.size())) {
        return {};
    }
    return words.byLowestCard[static_cast<std::size_t>(lowestCard)];
}

// A-2-3-4-5 lists as 2, 3, 4, 5, 0 and 2-3-4-5-6 as 2, ..., 6: both start at 2, and only the
// top slot tells them apart. A-2-3-4-5 has no name: it loses in words that name the winner.
Verdict CompareRuns(const Hand& hand1, const Hand& hand2, const StraightWords& words) {
    Verdict verdict = OpenVerdict();
    const ValueList a = AcelessList(hand1);
    const ValueList b = AcelessList(hand2);
    if (a[0] > b[0]) {
        verdict.text = StraightVerdict(1, StraightName(words, a[0]));
    } else if (a[0] < b[0]) {
        verdict.text = StraightVerdict(2, StraightName(words, b[0]));
    } else {
        if (a[0] == 2 && b[4] == 6 && a[4] == 0) {
            verdict.text = StraightVerdict(2, words.sixHigh);
        } else if (a[0] == 2 && a[4] == 6 && b[4] == 0) {
            verdict.text = StraightVerdict(1, words.sixHigh);
        }
        if (a == b) {
            verdict.text = std::string(kTie);
        }
    }
    return verdict;
}

std::int16_t AceWhenZero(std::int16_t value) {
    return value == 0 ? kAce : value;
}

// "Hand (n) wins with <what><value word>", or no text when the value has no word.
std::optional<std::string> ValueWordVerdict(int winner, std::string_view what, std::int16_t value) {
    const std::string_view word = ValueWord(value);
    if (word.empty()) {
        return std::nullopt;
    }
    return WinsWith(winner) + std::string(what) + std::string(word);
}

struct FullHouseParts {
    std::int16_t trips;
    std::int16_t pair;
};

FullHouseParts PartsOfFullHouse(const ValueList& list) {
    const bool tripsBelow = list[0] == list[1] && list[0] == list[2];
    return {AceWhenZero(tripsBelow ? list[0] : list[4]),
            AceWhenZero(tripsBelow ? list[4] : list[0])};
}

// Threes are the one value whose verdict goes without "with".
std::optional<std::string> FullHousePrefix(int winner, std::int16_t trips) {
    const std::string_view word = ValueWord(trips);
    if (word.empty()) {
        return std::nullopt;
    }
    const std::string hand = winner == 1 ? "Hand (1) wins " : "Hand (2) wins ";
    return hand + (trips == 3 ? "" : "with ") + std::string(word) + " ";
}

// The value held three times among 2..13; three aces are left out of the list, hence 14.
std::int16_t TripsOf(const ValueList& list) {
    for (std::int16_t v = 2; v <= 13; ++v) {
        int count = 0;
        for (const std::int16_t value : list) {
            count += value == v ? 1 : 0;
        }
        if (count == 3) {
            return v;
        }
    }
    return kAce;
}

}  // namespace

Verdict ReportCategoryWinner(const Hand& hand1, const Hand& hand2) {
    const std::int16_t c1 = hand1[0].category;
    const std::int16_t c2 = hand2[0].category;
    const int winner = c1 < c2 ? 1 : 2;
    Verdict verdict;
    verdict.text = WinsWith(winner) + "a " + std::string(CategoryName(winner == 1 ? c1 : c2));
    verdict.callsForAttention = true;
    return verdict;
}

Verdict CompareHands(Hand& hand1, Hand& hand2) {
    switch (hand1[0].category) {
        case category::kStraightFlush:
            return CompareStraightFlushes(hand1, hand2);
        case category::kFourOfAKind:
            return CompareFours(hand1, hand2);
        case category::kFullHouse:
            return CompareFullHouses(hand1, hand2);
        case category::kFlush:
            return CompareFlushes(hand1, hand2);
        case category::kStraight:
            return CompareStraights(hand1, hand2);
        case category::kThreeOfAKind:
            return CompareThrees(hand1, hand2);
        case category::kTwoPair:
            return CompareTwoPairs(hand1, hand2);
        case category::kPair:
            return ComparePairs(hand1, hand2);
        case category::kHighCard:
            return CompareHighCards(hand1, hand2);
        default:
            return Verdict{};
    }
}

Verdict CompareStraightFlushes(const Hand& hand1, const Hand& hand2) {
    return CompareRuns(hand1, hand2, kStraightFlushWords);
}

Verdict CompareStraights(const Hand& hand1, const Hand& hand2) {
    return CompareRuns(hand1, hand2, kStraightWords);
}

// The kicker plays no part.
Verdict CompareFours(const Hand& hand1, const Hand& hand2) {
    Verdict verdict = OpenVerdict();
    const auto quads = [](const ValueList& list) {
        return AceWhenZero(list[0] == list[1] ? list[0] : list[4]);
    };
    const std::int16_t q1 = quads(AcelessList(hand1));
    const std::int16_t q2 = quads(AcelessList(hand2));
    verdict.text = q1 > q2 ? ValueWordVerdict(1, "four of a kind ", q1)
                           : ValueWordVerdict(2, "four of a kind ", q2);
    return verdict;
}

// Only the three of a kind decides; the pairs are not compared.
Verdict CompareFullHouses(const Hand& hand1, const Hand& hand2) {
    Verdict verdict = OpenVerdict();
    const FullHouseParts first = PartsOfFullHouse(AcelessList(hand1));
    const FullHouseParts second = PartsOfFullHouse(AcelessList(hand2));
    const int winner = first.trips > second.trips ? 1 : 2;
    const FullHouseParts& won = winner == 1 ? first : second;
    if (const auto prefix = FullHousePrefix(winner, won.trips)) {
        verdict.text = *prefix + FullOfName(won.pair);
    }
    return verdict;
}

// The kickers play no part.
Verdict CompareThrees(const Hand& hand1, const Hand& hand2) {
    Verdict verdict = OpenVerdict();
    const std::int16_t t1 = TripsOf(AcelessList(hand1));
    const std::int16_t t2 = TripsOf(AcelessList(hand2));
    verdict.text = t1 > t2 ? ValueWordVerdict(1, "three of a kind ", t1)
                           : ValueWordVerdict(2, "three of a kind ", t2);
    return verdict;
}

}  // namespace cards
