// What a user does on the exercise panel, for the window tests of the two hand screens:
// clicks on what they can reach, keys found by the card a screen reader says.
#pragma once

#include <gtest/gtest.h>

#include <QStringList>
#include <QTest>
#include <array>
#include <ostream>
#include <string>

#include "shell/frmMain.h"

// Readable texts in GoogleTest's failure messages.
inline void PrintTo(const QString& text, std::ostream* out) {
    *out << '"' << text.toStdString() << '"';
}
inline void PrintTo(const QStringList& texts, std::ostream* out) {
    *out << '[' << texts.join(QStringLiteral(", ")).toStdString() << ']';
}

namespace exercises_test {

// The name row of a category: rows 0..7 name codes 2..9, row 8 the high card (20).
inline int nameRowOf(std::int16_t category) {
    constexpr std::array<std::int16_t, 9> kCategoryOfRow{2, 3, 4, 5, 6, 7, 8, 9, 20};
    for (std::size_t row = 0; row < kCategoryOfRow.size(); ++row) {
        if (kCategoryOfRow[row] == category)
            return static_cast<int>(row);
    }
    return -1;
}

// A left click, as a user gives it: only on a control that is on screen and enabled.
inline bool userClick(QWidget* widget) {
    if (!widget->isVisible() || !widget->isEnabled())
        return false;
    QTest::mouseClick(widget, Qt::LeftButton, Qt::NoModifier, widget->rect().center());
    return true;
}

// Presses the keys that say these cards ("Ace of Spades"), in order; each must be enabled.
inline void pressCards(frmMain& form, std::initializer_list<const char*> cardNames) {
    for (const char* name : cardNames) {
        const auto key = std::find_if(form.cmdKey.begin(), form.cmdKey.end(), [&](auto* k) {
            return k->accessibleName() == QLatin1String(name);
        });
        ASSERT_NE(key, form.cmdKey.end()) << "no key says " << name;
        ASSERT_TRUE(userClick(*key)) << name << " is not enabled";
    }
}

// The mode flags that are set, as one word such as "NamesPick" or "none".
inline std::string modeFlags(const frmMain& form) {
    const std::array<std::pair<const char*, bool>, 7> all{{{"NamesPick", form.modeNamesPick},
                                                           {"NamesRandom", form.modeNamesRandom},
                                                           {"RanksPick", form.modeRanksPick},
                                                           {"RanksRandom", form.modeRanksRandom},
                                                           {"PairPick", form.modePairPick},
                                                           {"PairRandom", form.modePairRandom},
                                                           {"BestHand", form.modeBestHand}}};
    std::string flags;
    for (const auto& [name, set] : all) {
        if (set)
            flags += (flags.empty() ? "" : "+") + std::string(name);
    }
    return flags.empty() ? "none" : flags;
}

// u such that the integer part of u * 6 + 1 is `row`.
inline float uForRow(int row) {
    return (static_cast<float>(row) - 0.5f) / 6.0f;
}

}  // namespace exercises_test
