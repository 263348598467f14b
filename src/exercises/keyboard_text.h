// What the keyboard and the board share: the value captions of a key column, and rounding
// to the nearest whole number with ties to even.
#pragma once

#include <array>
#include <cmath>
#include <cstdint>

namespace keyboard_text {

// The caption of each key column, two to ace; also the board's value texts.
inline constexpr std::array<const char*, 13> kColumnCaptions{"2", "3",  "4", "5", "6", "7", "8",
                                                             "9", "10", "J", "Q", "K", "A"};

inline std::int32_t rounded(double value) {
    return static_cast<std::int32_t>(std::nearbyint(value));
}

}  // namespace keyboard_text
