// The card engine: cards, the deck, classification of five cards.
// Standard library only, so the rules can be tested exhaustively and fast.
#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <span>
#include <string>

namespace cards {

// A card as the whole system stores it. `value` is 1 for the ace when built; a comparison
// may raise it to 14. `category` is meaningful on element 0 of a hand only.
struct Card {
    std::int16_t drawId = 0;
    std::int16_t value = 0;
    std::int16_t suit = 0;  // 0 clubs, 1 diamonds, 2 hearts, 3 spades
    std::int16_t category = 0;
    friend bool operator==(const Card&, const Card&) = default;
};

using Hand = std::array<Card, 5>;
using Deck = std::array<std::int16_t, 52>;    // key indices, place by place
using KeyMap = std::array<std::int16_t, 53>;  // draw-order position -> key index; slot 52 stays 0

// HandCategory codes: lower is stronger. 0 is what a failed evaluation gives.
namespace category {
inline constexpr std::int16_t kStraightFlush = 2;
inline constexpr std::int16_t kFourOfAKind = 3;
inline constexpr std::int16_t kFullHouse = 4;
inline constexpr std::int16_t kFlush = 5;
inline constexpr std::int16_t kStraight = 6;
inline constexpr std::int16_t kThreeOfAKind = 7;
inline constexpr std::int16_t kTwoPair = 8;
inline constexpr std::int16_t kPair = 9;
inline constexpr std::int16_t kHighCard = 20;
}  // namespace category

// A category's place when the categories are listed strongest first (2..9 -> 0..7,
// 20 -> 8); -1 for any other code.
int CategoryPlace(std::int16_t handCategory);
// The category at place 0..8 of that list; 0 for any other place.
std::int16_t CategoryAtPlace(int place);

// A result together with the failure that cut it short, if any: the text the caller shows.
template <typename T>
struct Checked {
    T value{};
    std::optional<std::string> failure;
};

// The value texts of the keys and the board answers: "2" .. "10", "J", "Q", "K", "A".
// Value 1 and value 14 are both the ace; any other value has no text.
std::string ValueText(std::int16_t value);
// "Clubs", "Diamonds", "Hearts", "Spades" for suits 0..3; empty for any other.
std::string SuitName(std::int16_t suit);
// "Ace of Spades", "Ten of Hearts"... for draw ids 0..51; empty for any other.
std::string CardName(std::int16_t drawId);

// The random source: single precision, 0 <= u < 1 strictly, reseeded at every shuffle.
class RandomSource {
  public:
    virtual ~RandomSource() = default;
    virtual void Randomize() = 0;  // reseed from the clock
    virtual float Rnd() = 0;       // 0 <= u < 1
};

// The real source: reseeded from a high-resolution clock mixed with the previous state,
// so two reseeds within one clock tick never repeat a sequence.
class ClockRandomSource final : public RandomSource {
  public:
    ClockRandomSource();
    void Randomize() override;
    float Rnd() override;

  private:
    std::uint64_t state_;
};

// Fills slots 0..51 in two passes (rows in order within each column, then positions 2 and 3
// of each group of four swapped). Slot 52 is left as it is.
void FillKeyMap(KeyMap& keyMap);

// Sets drawId, value and suit of `card` for key index k; leaves category alone.
// Keys outside 0..51 leave the card as it is.
void CardFromKey(std::int16_t k, const KeyMap& keyMap, Card& card);

// The draw id of key k (the aces from their table, the rest by searching keyMap); -1 if none.
std::int16_t DrawIdOfKey(std::int16_t k, const KeyMap& keyMap);

// One pass of 52 exchanges, partners from places 0..50, after a reseed. ShuffleDeck refills
// the deck 0..51 first; ShuffleInPlace shuffles it as it lies (the board's redeal).
void ShuffleDeck(Deck& deck, RandomSource& random);
void ShuffleInPlace(Deck& deck, RandomSource& random);

// Builds hand slots from deck places [first, first + hand.size()) -- the engine side of the deals.
void BuildHandFromDeck(const Deck& deck, int first, const KeyMap& keyMap, std::span<Card> hand);

// Classifies five cards (aces must still be 1). Changes nothing in the hand. A failure gives
// 0 with "Error  in  EvaluatePokerHand (  <description>  )".
Checked<std::int16_t> EvaluatePokerHand(const Hand& hand);

}  // namespace cards
