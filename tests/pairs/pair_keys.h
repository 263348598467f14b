// The 169 keys in the accepted form, for building test tables.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "pairs/mParse.h"

namespace pairs::testing {

inline constexpr std::string_view kValueLetters = "AKQJT98765432";  // highest first

// Pairs, suited and offsuit keys, higher letter first, in a fixed order.
inline std::vector<std::string> AllKeys() {
    std::vector<std::string> keys;
    for (std::size_t high = 0; high < kValueLetters.size(); ++high) {
        for (std::size_t low = high; low < kValueLetters.size(); ++low) {
            const std::string key{kValueLetters[high], kValueLetters[low]};
            keys.push_back(key);
            if (low != high) {
                keys.push_back(key + "s");
            }
        }
    }
    return keys;
}

// A table as load169 builds it: entry p under the key "String<p>".
inline KeyedList TableOf(const std::vector<std::string>& entries) {
    KeyedList table;
    for (const auto& entry : entries) {
        table.items.emplace_back("String" + std::to_string(table.Count() + 1), entry);
    }
    return table;
}

}  // namespace pairs::testing
