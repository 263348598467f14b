// Rounding to the nearest whole number, ties to even, as every figure of the program rounds.
#pragma once

#include <cmath>
#include <cstdint>

namespace drill {

inline std::int32_t rounded(double value) {
    return static_cast<std::int32_t>(std::nearbyint(value));
}

}  // namespace drill
