// The string splitter. Pieces are views into the caller's text, so a long text with many
// cuts costs one pass and no repeated copying of what is left.
#include "pairs/mParse.h"

#include <array>
#include <charconv>
#include <cstddef>
#include <limits>
#include <optional>
#include <stdexcept>
#include <string_view>
#include <vector>

namespace pairs {
namespace {

constexpr std::int32_t kFirstGroupMask = 3;
constexpr std::int32_t kCounterMax = std::numeric_limits<std::int16_t>::max();
constexpr std::string_view kKeyPrefix = "String";

// The routine's own failure: an option value outside the defined sums.
class SplitOptionsError : public std::invalid_argument {
  public:
    SplitOptionsError() : std::invalid_argument(kDescription) {}
    static constexpr std::int32_t kNumber = 10010;
    static constexpr const char* kSource = "SplitString()";
    static constexpr const char* kDescription =
        "An invalid argument was passed into the SplitOptions parameter.";
};

// The 16-bit key counter: going past its range is a failure like any other.
class CounterOverflow : public std::overflow_error {
  public:
    CounterOverflow() : std::overflow_error("Overflow") {}
};

// A key added twice is a failure, as in a keyed collection.
class DuplicateKey : public std::invalid_argument {
  public:
    DuplicateKey() : std::invalid_argument("This key is already associated with an element") {}
};

// The number k of a key written exactly "String<k>" (no sign, no leading zero), if any.
std::optional<std::size_t> NumberOfKey(std::string_view key) {
    if (!key.starts_with(kKeyPrefix)) {
        return std::nullopt;
    }
    const std::string_view digits = key.substr(kKeyPrefix.size());
    if (digits.empty() || digits.front() == '0') {
        return std::nullopt;
    }
    std::size_t number = 0;
    const auto [end, error] = std::from_chars(digits.data(), digits.data() + digits.size(), number);
    if (error != std::errc{} || end != digits.data() + digits.size()) {
        return std::nullopt;
    }
    return number;
}

std::string KeyOf(std::int32_t number) {
    return std::string(kKeyPrefix) + std::to_string(number);
}

class Splitter {
  public:
    Splitter(KeyedList& target, std::string_view text, std::string_view delimiter,
             std::int32_t options)
        : target_(target),
          rest_(text),
          delimiter_(delimiter),
          firstGroup_(options & kFirstGroupMask),
          secondGroup_(options & ~kFirstGroupMask) {
        if (firstGroup_ != splitAnyCharacter && firstGroup_ != splitWholeString) {
            throw SplitOptionsError();
        }
        for (char c : delimiter_) {
            isDelimiterChar_[static_cast<unsigned char>(c)] = true;
        }
        for (const auto& [key, item] : target_.items) {
            MarkKeyUsed(key);
        }
    }

    void Run() {
        while (const auto at = FindDelimiter()) {
            Raise();
            if (!Cut(*at)) {
                break;
            }
        }
        if (!rest_.empty()) {
            Raise();
            Store(rest_, n_);
        }
    }

  private:
    bool AnyCharacter() const { return firstGroup_ == splitAnyCharacter; }
    std::size_t DelimiterLength() const { return AnyCharacter() ? 1 : delimiter_.size(); }

    // Position of the next delimiter in rest_. Under 17 every scan after the first starts
    // at the second character, which after a cut with a piece is the delimiter kept at
    // the front; so only a text that begins with a delimiter gives an empty piece. An empty
    // delimiter text never matches under either group: under splitWholeString it would
    // match everywhere and free nothing, so the text is taken as holding no delimiter.
    std::optional<std::size_t> FindDelimiter() const {
        if (delimiter_.empty()) {
            return std::nullopt;
        }
        if (AnyCharacter()) {
            return FindAnyCharacter(skipFirstCharacter_ ? 1 : 0);
        }
        return FindWhole(0);
    }

    std::optional<std::size_t> FindAnyCharacter(std::size_t from) const {
        const bool* const isDelimiter = isDelimiterChar_.data();
        for (std::size_t i = from; i < rest_.size(); ++i) {
            if (isDelimiter[static_cast<unsigned char>(rest_.data()[i])]) {
                return i;
            }
        }
        return std::nullopt;
    }

    std::optional<std::size_t> FindWhole(std::size_t from) const {
        const std::size_t at = rest_.find(delimiter_, from);
        return at == std::string_view::npos ? std::nullopt : std::optional(at);
    }

    // Carries out one cut at `at`; false when the cut sends the routine to its closing step.
    bool Cut(std::size_t at) {
        const std::string_view piece = rest_.substr(0, at);
        const std::string_view found = rest_.substr(at, DelimiterLength());
        const std::string_view behind = rest_.substr(at + found.size());
        switch (secondGroup_) {
            case splitDiscard:
                if (piece.empty()) {
                    SetCounterToCount();
                } else {
                    Store(piece, n_);
                }
                rest_ = behind;
                return true;
            case splitAsItems:
                if (piece.empty()) {
                    Store(found, n_);
                } else {
                    Store(piece, n_);
                    Store(found, Checked(std::int32_t{n_} + 1));
                }
                rest_ = behind;
                SetCounterToCount();
                return true;
            case splitAtEnd:
                Store(rest_.substr(0, at + found.size()), n_);  // the delimiter alone if no piece
                rest_ = behind;
                return true;
            case splitAtStart:
                return CutKeepingAtStart(piece, found, behind);
            default:
                throw SplitOptionsError();
        }
    }

    bool CutKeepingAtStart(std::string_view piece, std::string_view found,
                           std::string_view behind) {
        if (AnyCharacter()) {
            Store(piece.empty() ? found : piece, n_);
            rest_ = piece.empty() ? behind : rest_.substr(piece.size());
            skipFirstCharacter_ = true;
            return true;
        }
        if (!piece.empty()) {
            Store(piece, n_);
            rest_ = rest_.substr(piece.size());
            return true;
        }
        // rest_ begins with the delimiter: look for the next one behind its first character.
        // When there is none, the closing step raises the counter once more: a key gap.
        const auto next = FindWhole(1);
        if (!next) {
            return false;
        }
        Store(rest_.substr(0, *next), n_);
        rest_ = rest_.substr(*next);
        return true;
    }

    static std::int16_t Checked(std::int64_t value) {
        if (value > kCounterMax) {
            throw CounterOverflow();
        }
        return static_cast<std::int16_t>(value);
    }

    void Raise() { n_ = Checked(std::int64_t{n_} + 1); }
    void SetCounterToCount() { n_ = Checked(static_cast<std::int64_t>(target_.Count())); }

    void MarkKeyUsed(std::string_view key) {
        if (const auto number = NumberOfKey(key); number && *number <= kCounterMax) {
            usedNumbers_[*number] = true;
        }
    }

    void Store(std::string_view item, std::int16_t number) {
        if (usedNumbers_[static_cast<std::size_t>(number)]) {
            throw DuplicateKey();
        }
        target_.items.emplace_back(KeyOf(number), std::string(item));
        usedNumbers_[static_cast<std::size_t>(number)] = true;
    }

    KeyedList& target_;
    std::string_view rest_;
    std::string_view delimiter_;
    std::int32_t firstGroup_;
    std::int32_t secondGroup_;
    std::int16_t n_ = 0;
    bool skipFirstCharacter_ = false;
    std::array<bool, 256> isDelimiterChar_{};
    std::vector<bool> usedNumbers_ = std::vector<bool>(kCounterMax + 1, false);
};

// The failure handler: drops the items under "String1" up to "String<count>" (the count
// taken once, before any removal; other keys stay) and adds the whole text under "String1".
void RecoverFromFailure(KeyedList& target, const std::string& text) {
    const std::size_t count = target.Count();
    std::erase_if(target.items, [count](const auto& entry) {
        const auto number = NumberOfKey(entry.first);
        return number && *number >= 1 && *number <= count;
    });
    target.items.emplace_back(KeyOf(1), text);
}

}  // namespace

void SplitString(KeyedList& target, std::string text, std::string delimiter,
                 std::int32_t SplitOptions) {
    try {
        Splitter(target, text, delimiter, SplitOptions).Run();
    } catch (...) {
        try {
            RecoverFromFailure(target, text);
        } catch (...) {
            // Out of memory inside the handler: nothing may leave the routine.
        }
    }
}

}  // namespace pairs
