// The card keyboard's layout: 4 rows of 13 keys, key k in row k / 13 and column k % 13.
// Which card a key stands for comes from the keyMap; captions, row names and spoken names
// all follow from that card.
#pragma once

#include <cstdint>
#include <string>

#include "cards/cards.h"

namespace drill::keyboard {

inline constexpr int kRows = 4;
inline constexpr int kColumns = 13;
inline constexpr int kKeys = kRows * kColumns;

// The card of key 0..51 under the keyboard's fixed key map.
cards::Card CardOfKey(std::int16_t key);
// "2" .. "10", "J", "Q", "K", "A": the key's value.
std::string Caption(std::int16_t key);
// "Two of Clubs": what a screen reader says for the key.
std::string SpokenName(std::int16_t key);
// The suit name of a keyboard row, top row first.
std::string RowName(int row);

}  // namespace drill::keyboard
