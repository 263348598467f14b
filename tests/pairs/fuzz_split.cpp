// libFuzzer target: SplitString with the option value, delimiter and text taken from the
// input. Besides the sanitizers it checks what must hold for any input: the caller's own
// item stays first, and every character is kept or dropped exactly as the option says.
#include <algorithm>
#include <array>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <string>
#include <string_view>

#include "pairs/mParse.h"

namespace {

constexpr std::array<std::int32_t, 12> kInteresting = {1, 5, 9, 17, 2, 6, 10, 18, 0, 3, 13, 34};

struct Input {
    std::int32_t options = 0;
    std::string delimiter;
    std::string text;
};

// Byte 0 picks a defined or nearly defined value, or (from 240 on) takes the next four
// bytes as the raw value; the next byte gives the delimiter length, 0 to 3.
bool Parse(const std::uint8_t* data, std::size_t size, Input& input) {
    std::string_view bytes(reinterpret_cast<const char*>(data), size);
    if (bytes.size() < 2) {
        return false;
    }
    const auto selector = static_cast<std::uint8_t>(bytes[0]);
    bytes.remove_prefix(1);
    if (selector >= 240) {
        if (bytes.size() < 5) {
            return false;
        }
        std::memcpy(&input.options, bytes.data(), sizeof input.options);
        bytes.remove_prefix(sizeof input.options);
    } else {
        input.options = kInteresting[selector % kInteresting.size()];
    }
    const std::size_t length =
        std::min<std::size_t>(static_cast<std::uint8_t>(bytes[0]) % 4, bytes.size() - 1);
    input.delimiter = std::string(bytes.substr(1, length));
    input.text = std::string(bytes.substr(1 + length));
    return true;
}

bool IsDefined(std::int32_t options) {
    for (std::size_t i = 0; i < 8; ++i) {
        if (kInteresting[i] == options) {
            return true;
        }
    }
    return false;
}

// What splitDiscard leaves of the text, joined.
std::string WithoutDelimiters(const Input& input) {
    std::string kept;
    if (input.options == 1) {
        for (const char c : input.text) {
            if (input.delimiter.find(c) == std::string::npos) {
                kept += c;
            }
        }
        return kept;
    }
    std::string_view rest = input.text;
    for (std::size_t at;
         !input.delimiter.empty() && (at = rest.find(input.delimiter)) != std::string_view::npos;) {
        kept += rest.substr(0, at);
        rest.remove_prefix(at + input.delimiter.size());
    }
    return kept += rest;
}

void Check(bool condition) {
    if (!condition) {
        std::abort();
    }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    Input input;
    if (!Parse(data, size, input)) {
        return 0;
    }
    pairs::KeyedList list{{{"caller", "kept"}}};
    pairs::SplitString(list, input.text, input.delimiter, input.options);

    Check(!list.items.empty() && list.items.front().first == "caller");
    if (!IsDefined(input.options)) {
        return 0;
    }
    std::string joined;
    for (std::size_t i = 1; i < list.items.size(); ++i) {
        Check(!list.items[i].second.empty());
        joined += list.items[i].second;
    }
    const bool discards = input.options == 1 || input.options == 2;
    Check(joined == (discards ? WithoutDelimiters(input) : input.text));
    return 0;
}
