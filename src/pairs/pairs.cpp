// The starting-pair table: reading the 169 file and rating two hole cards by it.
#include "pairs/pairs.h"

#include <array>
#include <cerrno>
#include <cmath>
#include <fstream>
#include <new>
#include <optional>
#include <string_view>
#include <system_error>
#include <utility>

namespace pairs {
namespace {

constexpr int kTablePositions = 169;
constexpr std::string_view kMessagePrefix = "error in load169 -";

[[noreturn]] void ThrowError(std::errc fallback) {
    const int number = errno;
    throw std::system_error(number != 0 ? std::error_code(number, std::generic_category())
                                        : std::make_error_code(fallback));
}

std::string ReadWholeFile(const std::filesystem::path& file) {
    std::error_code status;
    if (std::filesystem::is_directory(file, status)) {
        throw std::system_error(std::make_error_code(std::errc::is_a_directory));
    }
    errno = 0;
    std::ifstream in(file, std::ios::binary);
    if (!in.is_open()) {
        ThrowError(std::errc::no_such_file_or_directory);
    }
    constexpr std::size_t kChunk = 1 << 16;
    std::string bytes;
    while (in) {
        const std::size_t before = bytes.size();
        bytes.resize(before + kChunk);
        errno = 0;
        in.read(bytes.data() + before, static_cast<std::streamsize>(kChunk));
        if (in.bad()) {
            ThrowError(std::errc::io_error);
        }
        bytes.resize(before + static_cast<std::size_t>(in.gcount()));
    }
    return bytes;
}

// Each line (ended by CR LF, CR or LF, or by the end of the file) followed by one CR:
// every line end becomes a single CR, and an unended last line gets one. Done in place,
// as the file may be large.
std::string LinesEachEndedByCarriageReturn(std::string bytes) {
    const bool lastLineOpen = !bytes.empty() && bytes.back() != '\r' && bytes.back() != '\n';
    const char* in = bytes.data();
    const char* const end = in + bytes.size();
    char* out = bytes.data();
    while (in != end) {
        char c = *in++;
        if (c == '\n') {
            c = '\r';
        } else if (c == '\r' && in != end && *in == '\n') {
            ++in;
        }
        *out++ = c;
    }
    bytes.resize(static_cast<std::size_t>(out - bytes.data()));
    if (lastLineOpen) {
        bytes += '\r';
    }
    return bytes;
}

char UpperAscii(char c) {
    return (c >= 'a' && c <= 'z') ? static_cast<char>(c - 'a' + 'A') : c;
}

// The text of one card value: 1 and 10 to 13 become their letters. The two-digit texts are
// replaced before "1", or "1" would spoil them; a value outside 1..13 keeps its digits
// except that a "1" in it still becomes "A" (a promoted ace, 14, reads "A4"), so such a key
// finds no entry of a well-formed table.
std::string ValueText(std::int16_t value) {
    constexpr std::array<std::pair<std::string_view, std::string_view>, 5> kReplacements{{
        {"10", "T"},
        {"11", "J"},
        {"12", "Q"},
        {"13", "K"},
        {"1", "A"},
    }};
    std::string text = std::to_string(value);
    for (const auto& [from, to] : kReplacements) {
        for (auto at = text.find(from); at != std::string::npos;
             at = text.find(from, at + to.size())) {
            text.replace(at, from.size(), to);
        }
    }
    return text;
}

std::int16_t RankInTable(const KeyedList& pairTable, std::string key, bool suited) {
    // The scan runs to position 169 whatever it found before; a shorter table fails there.
    if (pairTable.Count() < kTablePositions) {
        return 0;
    }
    for (char& c : key) {
        c = UpperAscii(c);
    }
    const std::string a = key.substr(0, 1);
    const std::string b = key.size() > 1 ? key.substr(1, 1) : std::string();
    const std::string offsuitTexts[] = {key, b + a};
    const std::string suitedTexts[] = {key + "s", b + a + "s"};

    std::optional<std::int16_t> offsuitRank;
    std::optional<std::int16_t> suitedRank;
    for (int p = 1; p <= kTablePositions; ++p) {
        const std::string& entry = pairTable.Item(static_cast<std::size_t>(p));
        if (entry == offsuitTexts[0] || entry == offsuitTexts[1]) {
            offsuitRank = RankOfPosition(p);
        }
        if (entry == suitedTexts[0] || entry == suitedTexts[1]) {
            suitedRank = RankOfPosition(p);
        }
    }
    return (suited ? suitedRank : offsuitRank).value_or(0);
}

}  // namespace

cards::Checked<KeyedList> load169(const std::filesystem::path& file) {
    cards::Checked<KeyedList> loaded;
    try {
        const std::string delimiter = ",\r";
        SplitString(loaded.value, LinesEachEndedByCarriageReturn(ReadWholeFile(file)), delimiter,
                    splitAnyCharacter + splitDiscard);
    } catch (const std::system_error& error) {
        loaded.failure = std::string(kMessagePrefix) + error.code().message();
    } catch (const std::bad_alloc&) {
        loaded.failure = std::string(kMessagePrefix) +
                         std::make_error_code(std::errc::not_enough_memory).message();
    } catch (const std::exception& error) {
        loaded.failure = std::string(kMessagePrefix) + error.what();
    }
    return loaded;
}

std::int16_t RankOfPosition(int position) {
    const double share = (170 - position) / 169.0;
    return static_cast<std::int16_t>(std::floor(share * 100));
}

std::int16_t PairValueRank(const KeyedList& pairTable, std::string key, bool suited) {
    try {
        return RankInTable(pairTable, std::move(key), suited);
    } catch (...) {
        return 0;
    }
}

std::int16_t PairValueKey(const KeyedList& pairTable, std::span<const cards::Card> cards) {
    if (cards.size() < 2) {
        return 0;
    }
    try {
        const bool suited = cards[0].suit == cards[1].suit;
        return PairValueRank(pairTable, ValueText(cards[0].value) + ValueText(cards[1].value),
                             suited);
    } catch (...) {
        return 0;
    }
}

}  // namespace pairs
