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

namespace {

void Check(bool condition) {
    if (!condition) {
        std::abort();
    }
}

const std::filesystem::path& ScratchFile() {
    static const std::filesystem::path file =
        std::filesystem::temp_directory_path() /
        ("tablewright_fuzz169_" + std::to_string(::getpid()) + ".txt");
    return file;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string bytes(reinterpret_cast<const char*>(data), size);
    std::ofstream(ScratchFile(), std::ios::binary | std::ios::trunc) << bytes;
    const cards::Checked<pairs::KeyedList> loaded = pairs::load169(ScratchFile());
    Check(!loaded.failure);
    const pairs::KeyedList& table = loaded.value;

    Check(table.Count() <= size);
    for (const auto& [key, entry] : table.items) {
        Check(!entry.empty() && entry.find_first_of(",\r\n") == std::string::npos);
    }
    for (std::size_t i = 0; i + 1 < size && i < 8; i += 2) {
        const std::string key = bytes.substr(i, 2);
        const auto rank = pairs::PairValueRank(table, key, (data[i] & 1) != 0);
        Check(rank >= 0 && rank <= 100);
        std::array<cards::Card, 2> hand{};
        hand[0].value = static_cast<std::int16_t>(static_cast<std::int8_t>(data[i]));
        hand[1].value = static_cast<std::int16_t>(data[i + 1] % 16);
        hand[0].suit = static_cast<std::int16_t>(data[i] % 4);
        hand[1].suit = static_cast<std::int16_t>(data[i + 1] % 4);
        const auto keyRank = pairs::PairValueKey(table, hand);
        Check(keyRank >= 0 && keyRank <= 100);
    }
    return 0;
}
