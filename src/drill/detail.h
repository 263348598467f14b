// What the rules of the exercises share.
#pragma once

#include <span>

#include "cards/compare.h"
#include "drill/rules.h"

namespace drill::detail {

// Moves one fifth of a card to the right and draws key's card there; a key without a card
// draws nothing, but the place still moves.
void DrawCard(State& state, Show& show, Surface surface, std::int16_t key);
// What a key picked for a hand shows first: the key off, the focus on the first surface.
Show KeyPicked(std::int16_t key);
// Draws key's card on the surface and, when place lies in the hand, records it there.
void PickCard(State& state, Show& show, Surface surface, std::int16_t key,
              std::span<cards::Card> hand, std::int16_t place);
// Classifies a built hand; a failure is added to the show and gives 0.
std::int16_t Evaluate(const cards::Hand& hand, Show& show);
// The verdict of the two hands, into the message line.
void GiveVerdict(State& state, Show& show);
// Marks a name 0..8; other indices mark nothing.
void Mark(Show& show, std::int16_t name);
// The message line shown steady in white with this text.
void SteadyMessage(State& state, Show& show, std::string text);
std::int32_t ThirdOfCard(const State& state);

// Shuffles and deals the first hand onto the first surface; gives its category.
std::int16_t DealFirstHand(State& state, Show& show, cards::RandomSource& random);

Show PressKeyNamesPick(State& state, std::int16_t key);
Show PressKeyRanksPick(State& state, std::int16_t key);
Show PressKeyPairPick(State& state, std::int16_t key);
Show PressKeyBestHand(State& state, std::int16_t key);
void ClickNameNamesRandom(State& state, Show& show, std::int16_t name);
void ClickNamePairRandom(State& state, Show& show, std::int16_t name);

}  // namespace drill::detail
