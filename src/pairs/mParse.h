// The string splitter: cuts a text at delimiters into a keyed list the caller owns.
#pragma once

#include <cstdint>
#include <string>
#include <utility>
#include <vector>

namespace pairs {

// An ordered list of items, each added under a text key ("String1", "String2", ...);
// read by position from 1.
struct KeyedList {
    std::vector<std::pair<std::string, std::string>> items;  // (key, item)
    std::size_t Count() const { return items.size(); }
    const std::string& Item(std::size_t position) const { return items.at(position - 1).second; }
};

inline constexpr std::int32_t splitAnyCharacter = 1;
inline constexpr std::int32_t splitWholeString = 2;
inline constexpr std::int32_t splitDiscard = 0;
inline constexpr std::int32_t splitAsItems = 4;
inline constexpr std::int32_t splitAtEnd = 8;
inline constexpr std::int32_t splitAtStart = 16;

void SplitString(KeyedList& target, std::string text, std::string delimiter,
                 std::int32_t SplitOptions);

}  // namespace pairs
