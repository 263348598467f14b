// The value texts of the board reader: the captions of the keys, low to high.
#pragma once

#include <array>
#include <string_view>

namespace board::detail {

inline constexpr std::array<std::string_view, 13> kValueTexts = {"2", "3",  "4", "5", "6", "7", "8",
                                                                 "9", "10", "J", "Q", "K", "A"};

}  // namespace board::detail
