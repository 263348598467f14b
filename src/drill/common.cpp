// The rules every exercise shares: the keyboard, the name list, the message line and Clear.
#include <algorithm>

#include "drill/detail.h"
#include "drill/palette.h"
#include "drill/rounding.h"

namespace drill {

void State::run(bool State::*mode) {
    for (bool State::*flag : {&State::modeNamesPick, &State::modeNamesRandom, &State::modeRanksPick,
                              &State::modeRanksRandom, &State::modePairPick, &State::modePairRandom,
                              &State::modeBestHand}) {
        this->*flag = flag == mode;
    }
}

void Show::wipe(Surface surface) {
    wiped[static_cast<std::size_t>(surface)] = true;
    std::erase_if(drawn, [surface](const CardDraw& draw) { return draw.surface == surface; });
}

void Show::setAllKeys(bool enabled) {
    allKeysEnabled = enabled;
    disabledKeys.clear();
}

void Show::setNamesPlain() {
    namesPlain = true;
    markedName.reset();
    borderedName.reset();
}

void Show::mark(std::int16_t name) {
    markedName = name;
}

namespace detail {

constexpr std::int16_t kNames = 9;
constexpr std::int16_t kKeys = 52;

void DrawCard(State& state, Show& show, Surface surface, std::int16_t key) {
    // The sum is taken in floating point: the fifth of a card is not rounded by itself.
    state.xincr = rounded(state.cWidth / 5.0 + state.xincr);
    const std::int16_t drawId = cards::DrawIdOfKey(key, state.keyMap);
    if (drawId >= 0) {
        show.drawn.push_back({surface, state.xincr, drawId});
    }
}

Show KeyPicked(std::int16_t key) {
    Show show;
    show.disabledKeys.push_back(key);
    show.focusFirstSurface = true;
    return show;
}

void PickCard(State& state, Show& show, Surface surface, std::int16_t key,
              std::span<cards::Card> hand, std::int16_t place) {
    DrawCard(state, show, surface, key);
    if (place >= 0 && static_cast<std::size_t>(place) < hand.size()) {
        cards::CardFromKey(key, state.keyMap, hand[static_cast<std::size_t>(place)]);
    }
}

std::int16_t Evaluate(const cards::Hand& hand, Show& show) {
    cards::Checked<std::int16_t> evaluated = cards::EvaluatePokerHand(hand);
    if (evaluated.failure) {
        show.failures.push_back(std::move(*evaluated.failure));
    }
    return evaluated.value;
}

void GiveVerdict(State& state, Show& show) {
    const cards::Verdict verdict = state.hand1Result != state.hand2Result
                                       ? cards::ReportCategoryWinner(state.hand1, state.hand2)
                                       : cards::CompareHands(state.hand1, state.hand2);
    if (verdict.text) {
        show.message = *verdict.text;
    }
    if (verdict.callsForAttention) {
        state.messageBlinking = true;
    }
}

void Mark(Show& show, std::int16_t name) {
    if (name >= 0 && name < kNames) {
        show.mark(name);
    }
}

void SteadyMessage(State& state, Show& show, std::string text) {
    state.messageBlinking = false;
    show.messageColour = palette::kWhite;
    show.message = std::move(text);
}

std::int32_t ThirdOfCard(const State& state) {
    return rounded(state.cWidth / 3.0);
}

}  // namespace detail

void MapKeys(State& state) {
    cards::FillKeyMap(state.keyMap);
}

Show KeyboardReady(State& state) {
    state.xincr = detail::ThirdOfCard(state);
    state.messageBlinking = true;
    Show show;
    show.message = "Click [Start] to begin...";
    show.setAllKeys(false);
    show.clearEnabled = false;
    return show;
}

Show PressKey(State& state, std::int16_t key) {
    if (key < 0 || key >= detail::kKeys) {
        return {};
    }
    // At most one mode runs, so at most one rule answers; with none, the press does nothing.
    if (state.modeNamesPick || state.modeNamesRandom) {
        return detail::PressKeyNamesPick(state, key);
    }
    if (state.modeRanksPick) {
        return detail::PressKeyRanksPick(state, key);
    }
    if (state.modePairPick) {
        return detail::PressKeyPairPick(state, key);
    }
    if (state.modeBestHand) {
        return detail::PressKeyBestHand(state, key);
    }
    return {};
}

Show ClickName(State& state, std::int16_t name) {
    Show show;
    if (name < 0 || name >= detail::kNames || !state.answerPending) {
        return show;
    }
    if (state.modeNamesRandom) {
        detail::ClickNameNamesRandom(state, show, name);
    }
    if (state.modePairRandom && state.answerPending) {
        detail::ClickNamePairRandom(state, show, name);
    }
    return show;
}

Show HoverName(State& state, std::int16_t name) {
    Show show;
    if (name < 0 || name >= detail::kNames) {
        return show;
    }
    if ((state.modeNamesRandom || state.modePairRandom) && state.answerPending &&
        name != state.lastHoverName) {
        show.setNamesPlain();
        show.borderedName = name;
        state.lastHoverName = name;
    }
    return show;
}

Show Clear(State& state, cards::RandomSource& random) {
    Show show;
    show.wipe(Surface::first);
    if (state.modeRanksPick || state.modeRanksRandom) {
        show.wipe(Surface::second);
    }
    state.xincr = detail::ThirdOfCard(state);
    state.cardCount = 0;
    show.setNamesPlain();
    detail::SteadyMessage(state, show, "");
    // A Start's show follows the wipe: what it draws stays.
    const auto then = [&show](const Show& start) {
        Show merged = start;
        for (std::size_t s = 0; s < show.wiped.size(); ++s) {
            merged.wiped[s] = merged.wiped[s] || show.wiped[s];
        }
        merged.namesPlain = true;
        merged.messageColour = merged.messageColour.value_or(palette::kWhite);
        merged.message = merged.message.value_or("");
        return merged;
    };
    if (state.modeNamesPick) {
        show.setAllKeys(true);
        show.message = "Pick 5 cards..";
        return show;
    }
    if (state.modeNamesRandom) {
        return then(StartNamesRandom(state, random));
    }
    if (state.modeRanksPick) {
        return then(StartRanksPick(state));
    }
    if (state.modeRanksRandom) {
        return then(StartRanksRandom(state, random));
    }
    if (state.modePairPick) {
        return then(StartPairPick(state));
    }
    if (state.modePairRandom) {
        return then(StartPairRandom(state, random));
    }
    if (state.modeBestHand) {
        return then(StartBestHand(state, random));
    }
    return show;
}

std::optional<std::int32_t> Tick(State& state, std::int32_t messageColour) {
    if (!state.messageBlinking) {
        return std::nullopt;
    }
    if (messageColour == palette::kBlack) {
        return palette::kWhite;
    }
    if (++state.blinkTicks == 4) {
        state.blinkTicks = 0;
        return palette::kBlack;
    }
    return std::nullopt;
}

}  // namespace drill
