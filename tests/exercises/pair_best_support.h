// Helpers for the pair value and best hand window tests: keys by card, a random script that
// deals chosen cards to the top of the deck, and reading the cards that lie on a surface.
#pragma once

#include <QString>
#include <QStringList>
#include <QTest>
#include <algorithm>
#include <array>
#include <map>
#include <ostream>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "board/board.h"
#include "cards/cards.h"
#include "platform/cardface.h"
#include "shell/frmMain.h"

// Readable texts in failure messages.
inline void PrintTo(const QString& text, std::ostream* out) {
    *out << '"' << text.toStdString() << '"';
}

namespace pair_best {

// Keyboard rows from the top, and the key captions of a row from the left.
enum Row { kClubs = 0, kDiamonds = 1, kSpades = 2, kHearts = 3 };
inline constexpr std::array<std::string_view, 13> kCaptions{"2", "3",  "4", "5", "6", "7", "8",
                                                            "9", "10", "J", "Q", "K", "A"};

inline int Key(Row row, std::string_view caption) {
    const auto column = std::find(kCaptions.begin(), kCaptions.end(), caption) - kCaptions.begin();
    return static_cast<int>(row) * 13 + static_cast<int>(column);
}

inline std::string CaptionOfKey(int key) {
    return std::string(kCaptions[static_cast<std::size_t>(key % 13)]);
}

// A value u whose partner place is r whether the shuffle scales u by 51 or by 52.
inline float PartnerValue(int r) {
    return static_cast<float>((r / 51.0 + (r + 1) / 52.0) / 2.0);
}

// The 52 random values that make one pass of exchanges over `deck` (as it lies) leave
// `wanted` on its first places; `deck` becomes the deck after that pass. A key still at
// place 51 can reach the top only at the last exchange, which is used for it.
inline std::vector<float> ScriptPlacing(cards::Deck& deck, std::span<const int> wanted) {
    std::vector<int> partner(52);
    for (int i = 0; i < 52; ++i) {
        partner[static_cast<std::size_t>(i)] = std::min(i, 50);
    }
    const auto exchange = [&](int i, int r) {
        partner[static_cast<std::size_t>(i)] = r;
        std::swap(deck[static_cast<std::size_t>(i)], deck[static_cast<std::size_t>(r)]);
    };
    int lastPlace = 50;
    for (int i = 0; i < 52; ++i) {
        if (i < static_cast<int>(wanted.size())) {
            const auto at =
                std::find(deck.begin(), deck.end(), wanted[static_cast<std::size_t>(i)]) -
                deck.begin();
            if (at <= 50) {
                exchange(i, static_cast<int>(at));
            } else {
                lastPlace = i;  // the key at place 51 comes here with the last exchange
                exchange(i, i);
            }
        } else if (i < 51) {
            exchange(i, i);
        } else {
            exchange(51, lastPlace);
        }
    }
    std::vector<float> values;
    for (const int r : partner) {
        values.push_back(PartnerValue(r));
    }
    return values;
}

// The values that a shuffle from the fresh order needs to deal `wanted` first.
inline std::vector<float> ScriptDeal(std::span<const int> wanted) {
    cards::Deck deck{};
    for (std::size_t i = 0; i < deck.size(); ++i) {
        deck[i] = static_cast<std::int16_t>(i);
    }
    return ScriptPlacing(deck, wanted);
}

// The key of every card name that a surface reports for the cards lying on it.
inline std::map<QString, int> KeysByCardName(const frmMain& form) {
    std::map<QString, int> keys;
    for (int key = 0; key < 52; ++key) {
        keys[platform::cardName(cards::DrawIdOfKey(static_cast<std::int16_t>(key), form.keyMap))] =
            key;
    }
    return keys;
}

// The keys of the cards on a surface, in the order they were drawn.
inline std::vector<int> KeysOnSurface(const frmMain& form, const platform::PictureBox& surface) {
    const auto byName = KeysByCardName(form);
    std::vector<int> keys;
    for (const QString& name : surface.drawnItems()) {
        const auto found = byName.find(name);
        keys.push_back(found == byName.end() ? -1 : found->second);
    }
    return keys;
}

// The board reader's answer for five board keys, worked out from the board alone.
inline QString AnswerForBoard(std::span<const int> boardKeys) {
    std::array<bool, 52> enabled{};
    std::array<std::string, 52> captions;
    for (int key = 0; key < 52; ++key) {
        enabled[static_cast<std::size_t>(key)] = true;
        captions[static_cast<std::size_t>(key)] = CaptionOfKey(key);
    }
    std::array<std::string, 5> boardCaptions;
    for (std::size_t i = 0; i < 5 && i < boardKeys.size(); ++i) {
        enabled[static_cast<std::size_t>(boardKeys[i])] = false;
        boardCaptions[i] = CaptionOfKey(boardKeys[i]);
    }
    return QString::fromStdString(
        board::ReadBoard(boardCaptions, board::BoardFlushPossible(enabled, captions)));
}

// A user's click on a label of the name list.
inline void ClickName(frmMain& form, int index) {
    QTest::mouseClick(form.lblName[static_cast<std::size_t>(index)], Qt::LeftButton);
}

}  // namespace pair_best
