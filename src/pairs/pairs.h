// The starting-pair table: the 169 file, and the preflop rank of two cards.
#pragma once

#include <cstdint>
#include <filesystem>
#include <span>
#include <string>

#include "cards/cards.h"
#include "pairs/mParse.h"

namespace pairs {

// Reads the file as the table. A failure gives what was read so far (the new empty list
// when it came before the split) and "error in load169 -" followed by the platform's
// description, for the caller to show.
cards::Checked<KeyedList> load169(const std::filesystem::path& file);

// Rank of entry position 1..169: (170 - p) / 169 * 100, rounded down.
std::int16_t RankOfPosition(int position);

// 0..100; 0 on any failure (short table, no entry of the kind asked).
std::int16_t PairValueRank(const KeyedList& pairTable, std::string key, bool suited);
// Reads value and suit of cards[0] and cards[1].
std::int16_t PairValueKey(const KeyedList& pairTable, std::span<const cards::Card> cards);

}  // namespace pairs
