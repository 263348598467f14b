// The colours of the program's windows, as 0xRRGGBB.
#pragma once

#include <cstdint>

namespace palette {

inline constexpr std::int32_t kBlack = 0x000000;
inline constexpr std::int32_t kWhite = 0xFFFFFF;
inline constexpr std::int32_t kGrey = 0xC0C0C0;       // window and panel background
inline constexpr std::int32_t kLightGrey = 0xE0E0E0;  // the name list, the keyboard
inline constexpr std::int32_t kDarkGrey = 0x808080;
inline constexpr std::int32_t kFrameText = 0x404040;  // exercise frame captions
inline constexpr std::int32_t kTableGreen = 0x008000;
inline constexpr std::int32_t kLinkGreen = 0x00C000;

}  // namespace palette
