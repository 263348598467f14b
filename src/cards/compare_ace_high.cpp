// The comparisons that rank the ace above the king: flushes, high cards, pairs, two pair.
#include "cards/compare.h"
#include "cards/value_lists.h"

namespace cards {

using detail::AceHighList;
using detail::kTie;
using detail::OpenVerdict;
using detail::ValueList;
using detail::WinsWith;

namespace detail {
namespace {

constexpr std::int16_t kAceLow = 1;
constexpr std::int16_t kAceHigh = 14;
constexpr std::int16_t kTwo = 2;
constexpr std::int16_t kKing = 13;

// Appends the hand's values in the order of `from` to `to`; values outside never arrive.
ValueList ListValues(const Hand& hand, std::int16_t from, std::int16_t to) {
    ValueList list{};
    std::size_t filled = 0;
    const int step = from <= to ? 1 : -1;
    for (int v = from; v != to + step; v += step) {
        for (const Card& card : hand) {
            if (card.value == v) {
                list[filled++] = card.value;
            }
        }
    }
    return list;
}

}  // namespace

ValueList AceHighList(Hand& hand) {
    for (Card& card : hand) {
        if (card.value == kAceLow) {
            card.value = kAceHigh;
        }
    }
    return ListValues(hand, kAceHigh, kTwo);
}

ValueList AcelessList(const Hand& hand) {
    return ListValues(hand, kTwo, kKing);
}

std::string WinsWith(int winner) {
    return winner == 1 ? "Hand (1) wins with " : "Hand (2) wins with ";
}

}  // namespace detail

namespace {

// The first place where the two lists differ; the list size when they agree throughout.
std::size_t FirstDifference(const ValueList& a, const ValueList& b) {
    std::size_t i = 0;
    while (i < a.size() && a[i] == b[i]) {
        ++i;
    }
    return i;
}

struct TwoPairParts {
    std::int16_t highPair = 0;
    std::int16_t lowPair = 0;
    std::int16_t oddCard = 0;
    auto operator<=>(const TwoPairParts&) const = default;
};

// The odd card lies last, first, or in the middle; the three shapes exclude one another.
TwoPairParts PartsOfTwoPair(const ValueList& l) {
    if (l[0] == l[1] && l[3] == l[4]) {
        return {l[0], l[4], l[2]};
    }
    if (l[1] == l[2] && l[3] == l[4]) {
        return {l[1], l[4], l[0]};
    }
    if (l[0] == l[1] && l[2] == l[3]) {
        return {l[0], l[2], l[4]};
    }
    return {};
}

std::int16_t PairOf(const ValueList& list) {
    for (std::size_t i = 0; i + 1 < list.size(); ++i) {
        if (list[i] == list[i + 1]) {
            return list[i];
        }
    }
    return 0;
}

}  // namespace

// Only a win of hand 1 names the card behind the top one that decided.
Verdict CompareFlushes(Hand& hand1, Hand& hand2) {
    Verdict verdict = OpenVerdict();
    const ValueList a = AceHighList(hand1);
    const ValueList b = AceHighList(hand2);
    const std::size_t i = FirstDifference(a, b);
    if (i == a.size()) {
        verdict.text = std::string(kTie);
    } else if (a[i] > b[i]) {
        verdict.text = WinsWith(1) + FlushName(a[0]) + (i == 0 ? "" : FlushKickerName(a[i]));
    } else {
        verdict.text = WinsWith(2) + FlushName(b[0]);
    }
    return verdict;
}

Verdict CompareHighCards(Hand& hand1, Hand& hand2) {
    Verdict verdict = OpenVerdict();
    const ValueList a = AceHighList(hand1);
    const ValueList b = AceHighList(hand2);
    const std::size_t i = FirstDifference(a, b);
    if (i == a.size()) {
        verdict.text = std::string(kTie);
    } else if (i == 0) {
        verdict.text =
            a[0] > b[0] ? WinsWith(1) + HighCardName(a[0]) : WinsWith(2) + HighCardName(b[0]);
    } else {
        const int winner = a[i] > b[i] ? 1 : 2;
        verdict.text =
            WinsWith(winner) + HighCardName(a[0]) + KickerName(winner == 1 ? a[i] : b[i]);
    }
    return verdict;
}

// With the same pair in both lists, the first difference is always a kicker.
Verdict ComparePairs(Hand& hand1, Hand& hand2) {
    Verdict verdict = OpenVerdict();
    const ValueList a = AceHighList(hand1);
    const ValueList b = AceHighList(hand2);
    const std::int16_t p1 = PairOf(a);
    const std::int16_t p2 = PairOf(b);
    if (p1 != p2) {
        verdict.text = p1 > p2 ? WinsWith(1) + PairName(p1) : WinsWith(2) + PairName(p2);
        return verdict;
    }
    const std::size_t i = FirstDifference(a, b);
    if (i == a.size()) {
        verdict.text = std::string(kTie);
    } else {
        const int winner = a[i] > b[i] ? 1 : 2;
        verdict.text = WinsWith(winner) + PairName(p1) + KickerName(winner == 1 ? a[i] : b[i]);
    }
    return verdict;
}

// The words never say which card decided.
Verdict CompareTwoPairs(Hand& hand1, Hand& hand2) {
    Verdict verdict = OpenVerdict();
    const TwoPairParts first = PartsOfTwoPair(AceHighList(hand1));
    const TwoPairParts second = PartsOfTwoPair(AceHighList(hand2));
    if (first == second) {
        verdict.text = std::string(kTie);
    } else {
        verdict.text = WinsWith(first > second ? 1 : 2) + "two pair";
    }
    return verdict;
}

}  // namespace cards
