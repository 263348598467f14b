// The state of the exercises: what the window keeps between two events.
#pragma once

#include <cstdint>
#include <string>

#include "cards/cards.h"
#include "pairs/mParse.h"

namespace drill {

struct State {
    std::int32_t cWidth = 0;  // a card's width and height in pixels
    std::int32_t cHeight = 0;
    std::int32_t xincr = 0;  // where the next card goes on its surface
    cards::KeyMap keyMap{};
    cards::Hand hand1{};
    cards::Hand hand2{};
    cards::Deck deck{};
    std::int16_t hand1Result = 0;
    std::int16_t hand2Result = 0;
    std::int16_t cardCount = 0;
    pairs::KeyedList pairTable;
    std::string flushAnswer;
    // At most one mode runs at a time.
    bool modeNamesPick = false;
    bool modeNamesRandom = false;
    bool modeRanksPick = false;
    bool modeRanksRandom = false;
    bool modePairPick = false;
    bool modePairRandom = false;
    bool modeBestHand = false;
    bool answerPending = false;
    bool messageBlinking = false;
    std::int16_t lastHoverName = 0;  // the name the pointer last bordered
    std::int16_t blinkTicks = 0;

    // Sets the one running mode; every other flag goes down.
    void run(bool State::*mode);
};

}  // namespace drill
