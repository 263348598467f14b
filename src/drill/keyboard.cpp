#include "drill/keyboard.h"

namespace drill::keyboard {
namespace {

const cards::KeyMap& FixedKeyMap() {
    static const cards::KeyMap keyMap = [] {
        cards::KeyMap filled{};
        cards::FillKeyMap(filled);
        return filled;
    }();
    return keyMap;
}

}  // namespace

cards::Card CardOfKey(std::int16_t key) {
    cards::Card card;
    cards::CardFromKey(key, FixedKeyMap(), card);
    return card;
}

std::string Caption(std::int16_t key) {
    return cards::ValueText(CardOfKey(key).value);
}

std::string SpokenName(std::int16_t key) {
    return cards::CardName(cards::DrawIdOfKey(key, FixedKeyMap()));
}

std::string RowName(int row) {
    return cards::SuitName(CardOfKey(static_cast<std::int16_t>(row * kColumns)).suit);
}

}  // namespace drill::keyboard
