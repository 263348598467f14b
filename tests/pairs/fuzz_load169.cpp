// libFuzzer target: load169 on a file of arbitrary bytes, then a few lookups. A readable
// file must never bring the message, and no entry may hold a separator or be empty.
#include <unistd.h>

#include <array>
#include <cstdint>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>

#include "pairs/pairs.h"

static void Check(bool condition) {
    if (!condition)
        std::abort();
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static const auto file = std::filesystem::temp_directory_path() /
                             ("tablewright_fuzz169_" + std::to_string(::getpid()) + ".txt");
    const std::string bytes(reinterpret_cast<const char*>(data), size);
    std::ofstream(file, std::ios::binary | std::ios::trunc) << bytes;
    const cards::Checked<pairs::KeyedList> loaded = pairs::load169(file);
    Check(!loaded.failure && loaded.value.Count() <= size);
    for (const auto& [key, entry] : loaded.value.items)
        Check(!entry.empty() && entry.find_first_of(",\r\n") == std::string::npos);
    for (std::size_t i = 0; i + 1 < size && i < 8; i += 2) {
        const auto rank = pairs::PairValueRank(loaded.value, bytes.substr(i, 2), data[i] & 1);
        const std::array hand{
            cards::Card{0, static_cast<std::int8_t>(data[i]), std::int16_t(data[i] % 4), 0},
            cards::Card{0, std::int16_t(data[i + 1] % 16), std::int16_t(data[i + 1] % 4), 0}};
        const auto keyRank = pairs::PairValueKey(loaded.value, hand);
        Check(rank >= 0 && rank <= 100 && keyRank >= 0 && keyRank <= 100);
    }
    return 0;
}
