// The rules of the four exercises: what each event does to the state, and what the window
// must then show. No window is needed: the window reads its event, calls the rule and shows
// the result.
#pragma once

#include <cstdint>

#include "cards/cards.h"
#include "drill/show.h"
#include "drill/state.h"

namespace drill {

// The key map filled: which card each key stands for.
void MapKeys(State& state);
// The keyboard laid out anew: every key and Clear off, the invitation to start shown,
// blinking.
Show KeyboardReady(State& state);
// A screen of the panel opened from the topic tree.
Layout OpenScreen(State& state, Screen screen);

Show StartNamesPick(State& state);
Show StartNamesRandom(State& state, cards::RandomSource& random);
Show StartRanksPick(State& state);
Show StartRanksRandom(State& state, cards::RandomSource& random);
Show StartPairPick(State& state);
Show StartPairRandom(State& state, cards::RandomSource& random);
Show StartBestHand(State& state, cards::RandomSource& random);

// Key 0..51 pressed; any other key does nothing.
Show PressKey(State& state, std::int16_t key);
// Name 0..8 of the list clicked, or the pointer moved over it.
Show ClickName(State& state, std::int16_t name);
Show HoverName(State& state, std::int16_t name);
// Either drawing surface clicked: both ask for the same verdict.
Show ClickSurface(State& state);
Show Clear(State& state, cards::RandomSource& random);
// One tick of the blinking clock: the message's new colour, if it changes.
std::optional<std::int32_t> Tick(State& state, std::int32_t messageColour);

}  // namespace drill
