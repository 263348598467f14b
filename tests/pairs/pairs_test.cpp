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

namespace pairs {
namespace {

// "[item][item]..." or, with the keys, "[String1:item]...".
std::string Split(const std::string& text, const std::string& delimiter, std::int32_t options,
                  bool withKeys = false, KeyedList list = {}) {
    SplitString(list, text, delimiter, options);
    std::string shown;
    for (const auto& [key, item] : list.items) {
        shown += "[" + (withKeys ? key + ":" : "") + item + "]";
    }
    return shown;
}

TEST(SplitString, KeepsDelimitersAsTheOptionsSay) {
    const char* const texts[2][4] = {{"a;b;c", ";a;b", "a;;b;", ";"},
                                     {"a--b--c", "--a--b", "a--b--", "--"}};
    const struct {
        std::int32_t options;
        const char* shown[4];
    } grid[] = {
        {1, {"[a][b][c]", "[a][b]", "[a][b]", ""}},
        {5, {"[a][;][b][;][c]", "[;][a][;][b]", "[a][;][;][b][;]", "[;]"}},
        {9, {"[a;][b;][c]", "[;][a;][b]", "[a;][;][b;]", "[;]"}},
        {17, {"[a][;b][;c]", "[;][a][;b]", "[a][;][;b][;]", "[;]"}},
        {2, {"[a][b][c]", "[a][b]", "[a][b]", ""}},
        {6, {"[a][--][b][--][c]", "[--][a][--][b]", "[a][--][b][--]", "[--]"}},
        {10, {"[a--][b--][c]", "[--][a--][b]", "[a--][b--]", "[--]"}},
        {18, {"[a][--b][--c]", "[--a][--b]", "[a][--b][--]", "[--]"}},
    };
    for (const auto& row : grid) {
        const bool whole = (row.options & 2) != 0;
        for (int t = 0; t < 4; ++t) {
            EXPECT_EQ(Split(texts[whole][t], whole ? "--" : ";", row.options), row.shown[t])
                << "options " << row.options << ", text " << texts[whole][t];
        }
        EXPECT_EQ(Split("", ";", row.options), "") << row.options;
        // An empty delimiter is found nowhere.
        EXPECT_EQ(Split("a;b", "", row.options, true), "[String1:a;b]") << row.options;
    }
}

// Keys follow a counter that an empty piece sets to the count; an option value outside the
// defined sums leaves the whole text under "String1", but only at the first delimiter found.
TEST(SplitString, KeysFollowTheCounterAndBadOptionsKeepTheWholeText) {
    const struct {
        const char* delimiter;
        std::int32_t options;
        const char *text, *shown;
    } rows[] = {
        // Under 17 every scan after the first starts at the second character.
        {";", 17, ";;a", "[String1:;][String2:;a]"},
        {",;", 17, "a,;b", "[String1:a][String2:,][String3:;b]"},
        // A whole-text delimiter keeps its order; an any-character one takes each alone.
        {"ab", 2, "xbay-xaby", "[String1:xbay-x][String2:y]"},
        {";,", 1, ";;,;", ""},
        {";", 1, ";a;;b;", "[String1:a][String2:b]"},
        {";,", 5, "a;,b", "[String1:a][String2:;][String3:,][String4:b]"},
        {"--", 18, "--a--b", "[String1:--a][String3:--b]"},  // a gap before the closing step
        {"--", 18, "a--b--c", "[String1:a][String2:--b][String4:--c]"},
        {";", 0, "a;b", "[String1:a;b]"},
        {";", 3, "", "[String1:]"},
        {";", 21, ";", "[String1:;]"},
        {";", 13, "abc", "[String1:abc]"},
    };
    for (std::size_t i = 0; i < std::size(rows); ++i) {
        const auto& r = rows[i];
        EXPECT_EQ(Split(r.text, r.delimiter, r.options, true), r.shown) << "row " << i;
    }
}

TEST(SplitString, TheCallersListTakesPart) {
    const KeyedList two{{{"x", "kept"}, {"y", "kept"}}};
    EXPECT_EQ(Split(";a", ";", 1, true, two), "[x:kept][y:kept][String3:a]");
    // A failure drops "String1" up to "String<count>" only, then adds the whole text.
    const KeyedList mixed{{{"String2", "old"}, {"other", "kept"}, {"String9", "far"}}};
    EXPECT_EQ(Split("t", ";", 0, true, mixed), "[other:kept][String9:far][String1:t]");
    // A key the list already holds is a failure too.
    const KeyedList earlier{{{"String1", "a"}, {"String2", "b"}}};
    EXPECT_EQ(Split("c;d", ";", 1, true, earlier), "[String1:c;d]");
}

// The key counter is 16 bits: going past it is a failure; delimiter runs never count.
TEST(SplitString, CounterLimit) {
    std::string full;
    while (full.size() < 2 * 32767) {
        full += "a;";
    }
    EXPECT_TRUE(Split(full, ";", 1, true).ends_with("[String32767:a]"));
    EXPECT_EQ(Split(full + "a", ";", 1), "[" + full + "a]");
    EXPECT_EQ(Split(full.substr(32766), ";", 5), "[" + full.substr(32766) + "]");
    EXPECT_EQ(Split(std::string(40000, ';') + "a", ";", 1), "[a]");
}

using Entries = std::vector<std::string>;

// The 169 types as load169 reads them, higher letter first ("AA", "AK", "AKs", ...), entry p
// under the key "String<p>"; `first` moved to the front.
KeyedList Table(const std::string& first = "AA") {
    constexpr std::string_view kLetters = "AKQJT98765432";
    KeyedList table{{{"String1", first}}};
    for (std::size_t high = 0; high < kLetters.size(); ++high) {
        for (std::size_t low = high; low < kLetters.size(); ++low) {
            for (const std::string& key : {std::string{kLetters[high], kLetters[low]},
                                           std::string{kLetters[high], kLetters[low], 's'}}) {
                if (key != first && (low != high || key.size() == 2)) {
                    table.items.emplace_back("String" + std::to_string(table.Count() + 1), key);
                }
            }
        }
    }
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
        {1, "AA", "AA", false, 100}, {2, "AK", "kA", false, 99}, {2, "KA", "AK", false, 99},
        {2, "KA", "ka", false, 99},  {3, "KAs", "AK", true, 98}, {3, "AKs", "Ka", true, 98},
        {2, "AK ", "AK", false, 0},  {3, "AKS", "AK", true, 0},  {3, "AKS", "AK", false, 99},
        {3, "AK s", "AK", true, 0},  {3, " AKs", "AK", true, 0}, {3, "aks", "AK", true, 0},
        {1, "72", "72", false, 15},   // the later entry, at 143, wins
        {169, "27", "72", false, 0},  // position 169 rates 0, like a failure
    };
    for (std::size_t i = 0; i < std::size(rows); ++i) {
        KeyedList table = Table();
        table.items[rows[i].position - 1].second = rows[i].entry;
        EXPECT_EQ(PairValueRank(table, rows[i].key, rows[i].suited), rows[i].rank) << "row " << i;
    }
    KeyedList table = Table();
    table.items.pop_back();  // the scan always runs to position 169: a shorter table rates nothing
    EXPECT_EQ(PairValueRank(table, "AA", false), 0);
    table.items.insert(table.items.end(), {{"String169", "22"}, {"String170", "AA"}});
    EXPECT_EQ(PairValueRank(table, "AA", false), 100);  // and position 170 is never read
    EXPECT_EQ(RankOfPosition(86), 49);                  // (170 - p) / 169 * 100, rounded down
    EXPECT_EQ(RankOfPosition(168), 1);
}

cards::Card CardOf(int value, int suit) {
    return cards::Card{0, static_cast<std::int16_t>(value), static_cast<std::int16_t>(suit), 0};
}

// Two cards of either order find their key, first in the table, suited or not; a suited pair
// has no key, a promoted ace (14) reads "A4" and finds none, and one card is too few.
TEST(PairValueKey, TwoCardsFindTheirKey) {
    const struct {
        int value1, value2;
        bool suited;
        const char* key;
        int rank;
    } rows[] = {{1, 13, true, "AKs", 100},  {13, 1, false, "AK", 100}, {10, 9, false, "T9", 100},
                {11, 12, true, "QJs", 100}, {2, 7, false, "72", 100},  {12, 12, false, "QQ", 100},
                {8, 8, true, "88", 0},      {14, 13, false, "AK", 0},  {0, 13, false, "AK", 0}};
    for (const auto& row : rows) {
        const std::array hand{CardOf(row.value1, 2), CardOf(row.value2, row.suited ? 2 : 3)};
        EXPECT_EQ(PairValueKey(Table(row.key), hand), row.rank) << row.key;
    }
    EXPECT_EQ(PairValueKey(Table(), std::array{CardOf(1, 0)}), 0);
}

namespace fs = std::filesystem;

Entries EntriesOf(const KeyedList& table) {
    Entries entries;
    for (const auto& [key, entry] : table.items) {
        entries.push_back(entry);
    }
    return entries;
}

// Each test reads files in a folder of its own and records the messages shown.
class Load169 : public ::testing::Test {
  protected:
    void SetUp() override { fs::create_directories(folder_); }
    void TearDown() override { fs::remove_all(folder_); }
    // The table read, its failure message kept.
    KeyedList Read(const fs::path& file) {
        cards::Checked<KeyedList> loaded = load169(file);
        if (loaded.failure)
            messages_.push_back(*loaded.failure);
        return std::move(loaded.value);
    }
    Entries Load(const std::string& bytes) {
        std::ofstream(folder_ / "169.txt", std::ios::binary) << bytes;
        return EntriesOf(Read(folder_ / "169.txt"));
    }

    const fs::path folder_ =
        fs::temp_directory_path() /
        ("tablewright_" +
         std::string(testing::UnitTest::GetInstance()->current_test_info()->name()));
    Entries messages_;
};

TEST_F(Load169, LineEndsAndCommasSeparateAlikeAndAllElseIsKept) {
    using namespace std::string_literals;
    const std::pair<std::string, Entries> rows[] = {
        {"AA,\nKK\r\nQQ\rJJ\n\rTT\n\n", {"AA", "KK", "QQ", "JJ", "TT"}},
        {",\r\n,AA,,KK,\r\n\r\n,QQ", {"AA", "KK", "QQ"}},
        {"", {}},
        {"A\0A, K\0 ,\t\xff\xfe\xc3"s, {"A\0A"s, " K\0 "s, "\t\xff\xfe\xc3"}},
    };
    for (std::size_t i = 0; i < std::size(rows); ++i) {
        EXPECT_EQ(Load(rows[i].first), rows[i].second) << "row " << i;
    }
    EXPECT_TRUE(messages_.empty());
}

TEST_F(Load169, AFileThatCannotBeReadShowsTheMessageOnce) {
    fs::create_directory(folder_ / "folder");
    EXPECT_EQ(Read(folder_ / "absent.txt").Count() + Read(folder_ / "folder").Count(), 0u);
    EXPECT_EQ(messages_, (Entries{"error in load169 -No such file or directory",
                                  "error in load169 -Is a directory"}));
}

// The committed table: every type once, AA first, and ranks that make sense at the table.
TEST_F(Load169, TheCommittedFileHoldsEveryKeyOnce) {
    const KeyedList table = Read(TABLEWRIGHT_169_FILE);
    Entries entries = EntriesOf(table), all = EntriesOf(Table());
    ASSERT_EQ(entries.front(), "AA");
    std::sort(entries.begin(), entries.end());
    std::sort(all.begin(), all.end());
    EXPECT_EQ(entries, all);
    EXPECT_LE(PairValueRank(table, "72", false), 3);
    EXPECT_GT(PairValueRank(table, "KK", false), PairValueRank(table, "22", false));
    EXPECT_GT(PairValueRank(table, "AK", true), PairValueRank(table, "AK", false));
    EXPECT_GT(PairValueRank(table, "T9", true), PairValueRank(table, "T9", false));
    EXPECT_TRUE(messages_.empty());
}

}  // namespace
}  // namespace pairs
