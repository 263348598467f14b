// The wording tables: one card value to the words of a verdict.
#include <string_view>

#include "cards/compare.h"

namespace cards {
namespace {

// Indexed by card value 0..14 (the ace as 14); an empty entry is a value without a row.
using WordTable = std::array<std::string_view, 15>;

constexpr WordTable kPairNames{"",
                               "",
                               "pair of twos",
                               "pair of threes",
                               "pair of fours",
                               "pair of fives",
                               "pair of sixes",
                               "pair of sevens",
                               "pair of eights",
                               "pair of nines",
                               "pair of tens",
                               "pair of jacks",
                               "pair of queens",
                               "pair of kings",
                               "pair of aces"};

constexpr WordTable kFullOfNames{"",
                                 "",
                                 "full of twos",
                                 "full of threes",
                                 "full of fours",
                                 "full of fives",
                                 "full of sixes",
                                 "full of sevens",
                                 "full of eights",
                                 "full of nines",
                                 "full of tens",
                                 "full of jacks",
                                 "full of queens",
                                 "full of kings",
                                 "full of aces"};

constexpr WordTable kHighCardNames{"",
                                   "",
                                   "",
                                   "",
                                   "",
                                   "high card five",
                                   "high card sixe",
                                   "high card seven",
                                   "high card eight",
                                   "high card nine",
                                   "high card ten",
                                   "high card jack",
                                   "high card queen",
                                   "high card king",
                                   "high card ace"};

constexpr WordTable kKickerNames{"",
                                 "",
                                 " two kicker",
                                 " three kicker",
                                 " four kicker",
                                 " five kicker",
                                 " sixe kicker",
                                 " seven kicker",
                                 " eight kicker",
                                 " nine kicker",
                                 " ten kicker",
                                 " jack kicker",
                                 " queen kicker",
                                 " king kicker",
                                 " ace kicker"};

constexpr WordTable kFlushKickerNames{"",
                                      "",
                                      "",
                                      " three kicker",
                                      " four kicker",
                                      " five kicker",
                                      " six kicker",
                                      " seven kicker",
                                      " eight kicker",
                                      " nine kicker",
                                      " ten kicker",
                                      " jack kicker",
                                      " queen kicker",
                                      " king kicker",
                                      ""};

constexpr WordTable kFlushNames{"",
                                "",
                                "",
                                "",
                                "",
                                "",
                                "a six high flush",
                                "a seven high flush",
                                "an eight high flush",
                                "a nine high flush",
                                "a ten high flush",
                                "an jack high flush",
                                "a queen high flush",
                                "a king high flush",
                                "an ace high flush"};

std::string Lookup(const WordTable& table, std::int16_t value) {
    if (value < 0 || value >= static_cast<int>(table.size())) {
        return {};
    }
    return std::string(table[static_cast<std::size_t>(value)]);
}

}  // namespace

std::string PairName(std::int16_t value) {
    return Lookup(kPairNames, value);
}
std::string FullOfName(std::int16_t value) {
    return Lookup(kFullOfNames, value);
}
std::string HighCardName(std::int16_t value) {
    return Lookup(kHighCardNames, value);
}
std::string KickerName(std::int16_t value) {
    return Lookup(kKickerNames, value);
}
std::string FlushKickerName(std::int16_t value) {
    return Lookup(kFlushKickerNames, value);
}
std::string FlushName(std::int16_t value) {
    return Lookup(kFlushNames, value);
}

}  // namespace cards
