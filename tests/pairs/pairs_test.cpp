// The string splitter; the starting-pair table: the 169 file, the committed one, the ratings.
#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cstdint>
#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

#include "pairs/pairs.h"
#include "support/scripted_random.h"

namespace pairs {
namespace {

// "[item][item]...", each key written only where it is not "String<place in the list>".
std::string Split(const std::string& text, const std::string& delimiter, std::int32_t options,
                  KeyedList list = {}) {
    SplitString(list, text, delimiter, options);
    std::string shown;
    for (std::size_t i = 0; i < list.items.size(); ++i) {
        const auto& [key, item] = list.items[i];
        shown += "[" + (key == "String" + std::to_string(i + 1) ? "" : key + ":") + item + "]";
    }
    return shown;
}

// Keys follow a counter that an empty piece sets to the count; an option value outside the
// defined sums, or a key the caller's list already holds, leaves the whole text under
// "String1" after dropping "String1" up to "String<count>".
TEST(SplitString, KeepsDelimitersAsTheOptionsSayAndFailuresKeepTheWholeText) {
    const struct {
        const char* delimiter;
        std::int32_t options;
        const char *text, *shown;
        KeyedList list;
    } rows[] = {
        {";", 1, "a;;b;", "[a][b]", {}},
        {";", 5, ";a;b", "[;][a][;][b]", {}},
        {";", 9, "a;;b;", "[a;][;][b;]", {}},
        {";", 17, "a;;b;", "[a][;][;b][;]", {}},
        {",;", 17, "a,;b", "[a][,][;b]", {}},
        {"--", 18, "a--b--c", "[a][--b][String4:--c]", {}},
        {"--", 18, "--a--b", "[--a][String3:--b]", {}},
        {"ab", 2, "xbay-xaby", "[xbay-x][y]", {}},
        {"", 5, "a;b", "[a;b]", {}},  // an empty delimiter is found nowhere
        {";", 1, ";a", "[x:kept][a]", {{{"x", "kept"}}}},
        {";",
         0,
         "t",
         "[other:kept][String9:far][String1:t]",
         {{{"String2", "old"}, {"other", "kept"}, {"String9", "far"}}}},
        {";", 1, "c;d", "[c;d]", {{{"String1", "a"}, {"String2", "b"}}}},
    };
    for (const auto& r : rows)
        EXPECT_EQ(Split(r.text, r.delimiter, r.options, r.list), r.shown)
            << r.options << " " << r.text;
}

// The 169 types, higher letter first ("AA", "AK", "AKs", ...), `first` moved to the front.
KeyedList Table(const std::string& first = "AA") {
    constexpr std::string_view kLetters = "AKQJT98765432";
    KeyedList table{{{"String1", first}}};
    for (std::size_t high = 0; high < kLetters.size(); ++high)
        for (std::size_t low = high; low < kLetters.size(); ++low)
            for (const std::string& key : {std::string{kLetters[high], kLetters[low]},
                                           std::string{kLetters[high], kLetters[low], 's'}})
                if (key != first && (low != high || key.size() == 2))
                    table.items.emplace_back("String" + std::to_string(table.Count() + 1), key);
    return table;
}

// Entry p (1: "AA", 2: "AK", 3: "AKs", ...) replaced, then one key rated: either order and
// case of a key finds either order of an entry, of the kind asked only, written exactly.
TEST(PairValueRank, FindsOnlyEntriesOfTheKindAskedWrittenExactly) {
    const struct {
        std::size_t position;
        const char *entry, *key;
        bool suited;
        int rank;
    } rows[] = {
        {2, "KA", "ka", false, 99},  {3, "KAs", "AK", true, 98},
        {2, "AK ", "AK", false, 0},  {3, "AKS", "AK", true, 0},
        {3, "aks", "AK", true, 0},   {1, "72", "72", false, 15},  // the later entry, at 143, wins
        {169, "27", "72", false, 0},  // position 169 rates 0, like a failure
    };
    for (const auto& row : rows) {
        KeyedList table = Table();
        table.items[row.position - 1].second = row.entry;
        EXPECT_EQ(PairValueRank(table, row.key, row.suited), row.rank) << row.entry;
    }
    EXPECT_EQ(RankOfPosition(86), 49);  // (170 - p) / 169 * 100, rounded down
    // Two cards of either order find their key, "s" when suited.
    for (const auto& [hand, key] : {std::pair{"Ah Kh", "AKs"}, std::pair{"9s Th", "T9"}}) {
        const std::array cards{test_support::cardOf(hand), test_support::cardOf(hand + 3)};
        EXPECT_EQ(PairValueKey(Table(key), cards), 100) << key;
    }
}

// The entries read, or the failure message.
std::vector<std::string> Load(const std::filesystem::path& file) {
    const cards::Checked<KeyedList> loaded = load169(file);
    std::vector<std::string> entries;
    if (loaded.failure)
        entries.push_back("failure: " + *loaded.failure);
    for (const auto& [key, entry] : loaded.value.items)
        entries.push_back(entry);
    return entries;
}

// Line ends and commas separate alike; the committed table holds every type once, AA first.
TEST(Load169, ReadsEntriesAndTheCommittedFileHoldsEveryKeyOnce) {
    const auto folder = std::filesystem::temp_directory_path() / "tablewright_load169_test";
    std::filesystem::create_directories(folder);
    std::ofstream(folder / "169.txt", std::ios::binary) << ",AA,\nKK\r\nQQ\rJJ\n\r,,T\xff\n\n";
    EXPECT_EQ(Load(folder / "169.txt"),
              (std::vector<std::string>{"AA", "KK", "QQ", "JJ", "T\xff"}));
    std::filesystem::remove_all(folder);
    EXPECT_EQ(Load(folder / "169.txt"),
              std::vector<std::string>{"failure: error in load169 -No such file or directory"});

    std::vector<std::string> entries = Load(TABLEWRIGHT_169_FILE), all;
    for (const auto& [key, entry] : Table().items)
        all.push_back(entry);
    ASSERT_EQ(entries.front(), "AA");
    std::ranges::sort(entries);
    std::ranges::sort(all);
    EXPECT_EQ(entries, all);
    const KeyedList table = load169(TABLEWRIGHT_169_FILE).value;
    EXPECT_LE(PairValueRank(table, "72", false), 3);
    EXPECT_GT(PairValueRank(table, "AK", true), PairValueRank(table, "AK", false));
}

}  // namespace
}  // namespace pairs
