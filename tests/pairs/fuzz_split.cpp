// libFuzzer target: SplitString with the option value, delimiter and text taken from the
// input. Besides the sanitizers it checks what must hold for any input: the caller's own
// item stays first, and every character is kept or dropped exactly as the option says.
#include <algorithm>
#include <array>
#include <cstdint>
#include <cstdlib>
#include <string>
#include <string_view>

#include "pairs/mParse.h"

// The defined option values, then some that are not.
constexpr std::array<std::int32_t, 12> kOptions = {1, 5, 9, 17, 2, 6, 10, 18, 0, 3, 13, 34};

static void Check(bool condition) {
    if (!condition)
        std::abort();
}

// Byte 0 picks the option value (from 240 on, itself), byte 1 the delimiter length, 0 to 3.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    if (size < 2)
        return 0;
    const std::int32_t options = data[0] >= 240 ? data[0] : kOptions[data[0] % kOptions.size()];
    const std::string_view rest(reinterpret_cast<const char*>(data) + 2, size - 2);
    const std::string delimiter(rest.substr(0, data[1] % 4));
    const std::string text(rest.substr(delimiter.size()));
    pairs::KeyedList list{{{"caller", "kept"}}};
    pairs::SplitString(list, text, delimiter, options);

    Check(!list.items.empty() && list.items.front().first == "caller");
    if (std::find(kOptions.begin(), kOptions.begin() + 8, options) == kOptions.begin() + 8)
        return 0;  // an undefined value keeps the whole text
    std::string joined;
    for (std::size_t i = 1; i < list.items.size(); ++i) {
        Check(!list.items[i].second.empty());
        joined += list.items[i].second;
    }
    std::string kept = text;  // what splitDiscard leaves of the text, joined
    if (options == 1)
        std::erase_if(kept, [&](char c) { return delimiter.find(c) != std::string::npos; });
    for (std::size_t at = 0; options == 2 && !delimiter.empty() &&
                             (at = kept.find(delimiter, at)) != std::string::npos;)
        kept.erase(at, delimiter.size());
    Check(joined == kept);
    return 0;
}
