// Card numberings: key index, draw-order position, draw id; the category list; value texts.
#include <utility>

#include "cards/cards.h"

namespace cards {
namespace {

constexpr int kKeyCount = 52;
constexpr int kColumns = 13;
constexpr int kSuits = 4;
constexpr int kFirstDrawIdAfterAces = 4;

constexpr std::array<std::int16_t, 9> kCategoryAtPlace{
    category::kStraightFlush, category::kFourOfAKind, category::kFullHouse,
    category::kFlush,         category::kStraight,    category::kThreeOfAKind,
    category::kTwoPair,       category::kPair,        category::kHighCard};

// The aces never go through the keyMap search; their draw ids come from this table.
struct AceKey {
    std::int16_t key;
    std::int16_t drawId;
    std::int16_t suit;
};
constexpr std::array<AceKey, 4> kAceKeys{{{12, 0, 0}, {25, 1, 1}, {38, 3, 3}, {51, 2, 2}}};

const AceKey* FindAceKey(std::int16_t k) {
    for (const AceKey& ace : kAceKeys) {
        if (ace.key == k) {
            return &ace;
        }
    }
    return nullptr;
}

// The lowest draw-order position holding key k; -1 when no slot 0..51 does.
int FindPosition(std::int16_t k, const KeyMap& keyMap) {
    for (int p = 0; p < kKeyCount; ++p) {
        if (keyMap[p] == k) {
            return p;
        }
    }
    return -1;
}

bool IsKey(std::int16_t k) {
    return k >= 0 && k < kKeyCount;
}

constexpr std::array<const char*, 15> kValueTexts{"",  "A", "2",  "3", "4", "5", "6", "7",
                                                  "8", "9", "10", "J", "Q", "K", "A"};
constexpr std::array<const char*, 13> kRankNames{"Ace",  "Two",   "Three", "Four", "Five",
                                                 "Six",  "Seven", "Eight", "Nine", "Ten",
                                                 "Jack", "Queen", "King"};
constexpr std::array<const char*, kSuits> kSuitNames{"Clubs", "Diamonds", "Hearts", "Spades"};

}  // namespace

int CategoryPlace(std::int16_t handCategory) {
    for (std::size_t place = 0; place < kCategoryAtPlace.size(); ++place) {
        if (kCategoryAtPlace[place] == handCategory) {
            return static_cast<int>(place);
        }
    }
    return -1;
}

std::int16_t CategoryAtPlace(int place) {
    if (place < 0 || place >= static_cast<int>(kCategoryAtPlace.size())) {
        return 0;
    }
    return kCategoryAtPlace[static_cast<std::size_t>(place)];
}

std::string ValueText(std::int16_t value) {
    if (value < 1 || value >= static_cast<int>(kValueTexts.size())) {
        return {};
    }
    return kValueTexts[static_cast<std::size_t>(value)];
}

std::string SuitName(std::int16_t suit) {
    return suit >= 0 && suit < kSuits ? kSuitNames[static_cast<std::size_t>(suit)] : "";
}

std::string CardName(std::int16_t drawId) {
    if (drawId < 0 || drawId >= kKeyCount) {
        return {};
    }
    return std::string(kRankNames[static_cast<std::size_t>(drawId / kSuits)]) + " of " +
           SuitName(static_cast<std::int16_t>(drawId % kSuits));
}

void FillKeyMap(KeyMap& keyMap) {
    // Rows in key order within each column first...
    for (int a = 0; a < kColumns; ++a) {
        for (int b = 0; b < kSuits; ++b) {
            keyMap[static_cast<std::size_t>(kSuits * a + b)] =
                static_cast<std::int16_t>(a + kColumns * b);
        }
    }
    // ...then spades and hearts trade places, since their keyboard rows run opposite to
    // their suit numbers.
    for (int a = 0; a < kColumns; ++a) {
        std::swap(keyMap[static_cast<std::size_t>(kSuits * a + 2)],
                  keyMap[static_cast<std::size_t>(kSuits * a + 3)]);
    }
}

void CardFromKey(std::int16_t k, const KeyMap& keyMap, Card& card) {
    if (!IsKey(k)) {
        return;
    }
    if (const AceKey* ace = FindAceKey(k)) {
        card.drawId = ace->drawId;
        card.value = 1;
        card.suit = ace->suit;
        return;
    }
    const int p = FindPosition(k, keyMap);
    if (p < 0) {
        return;
    }
    const int drawId = p + kFirstDrawIdAfterAces;
    card.drawId = static_cast<std::int16_t>(drawId);
    card.value = static_cast<std::int16_t>(drawId / kSuits + 1);
    card.suit = static_cast<std::int16_t>(drawId % kSuits);
}

std::int16_t DrawIdOfKey(std::int16_t k, const KeyMap& keyMap) {
    if (!IsKey(k)) {
        return -1;
    }
    if (const AceKey* ace = FindAceKey(k)) {
        return ace->drawId;
    }
    const int p = FindPosition(k, keyMap);
    return p < 0 ? std::int16_t{-1} : static_cast<std::int16_t>(p + kFirstDrawIdAfterAces);
}

void BuildHandFromDeck(const Deck& deck, int first, const KeyMap& keyMap, std::span<Card> hand) {
    for (std::size_t i = 0; i < hand.size(); ++i) {
        const long long place = static_cast<long long>(first) + static_cast<long long>(i);
        if (place < 0 || place >= static_cast<long long>(deck.size())) {
            continue;
        }
        CardFromKey(deck[static_cast<std::size_t>(place)], keyMap, hand[i]);
    }
}

}  // namespace cards
