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

struct Row {
    const char* delimiter;
    std::int32_t options;
    const char *text, *shown;
};

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
    }
    for (const std::int32_t options : {1, 5, 9, 17, 2, 6, 10, 18}) {
        EXPECT_EQ(Split("", ";", options), "") << options;
        // An empty delimiter is found nowhere.
        EXPECT_EQ(Split("a;b", "", options, true), "[String1:a;b]") << options;
    }
}

// Keys follow a counter that an empty piece sets to the count; an option value outside the
// defined sums leaves the whole text under "String1", but only at the first delimiter found.
TEST(SplitString, KeysFollowTheCounterAndBadOptionsKeepTheWholeText) {
    const Row rows[] = {
        // Under 17 every scan after the first starts at the second character.
        {";", 17, ";;a", "[String1:;][String2:;a]"},
        {",;", 17, "a,;b", "[String1:a][String2:,][String3:;b]"},
        // Delimiters are exact: case counts, and a whole-text delimiter keeps its order.
        {"a", 1, "xAy", "[String1:xAy]"},
        {"ab", 2, "xbay-xaby", "[String1:xbay-x][String2:y]"},
        {"ab", 1, "xbay", "[String1:x][String2:y]"},
        {";,", 1, ";;,;", ""},
        {"--", 2, "------", ""},
        {";", 1, ";a;;b;", "[String1:a][String2:b]"},
        {";", 5, "a;;b", "[String1:a][String2:;][String3:;][String4:b]"},
        {"--", 18, "--a--b", "[String1:--a][String3:--b]"},  // a gap before the closing step
        {"--", 18, "a--b--c", "[String1:a][String2:--b][String4:--c]"},
        {"--", 18, "--", "[String2:--]"},
        {",\r", 1, "AA,\rKK,\r", "[String1:AA][String2:KK]"},
        {";", 0, "a;b", "[String1:a;b]"},
        {";", 3, "", "[String1:]"},
        {";", -1, "a;b", "[String1:a;b]"},
        {";", 21, ";", "[String1:;]"},
        {";", 13, "a;b", "[String1:a;b]"},
        {";", 13, "abc", "[String1:abc]"},
        {";", 13, "", ""},
    };
    for (std::size_t i = 0; i < std::size(rows); ++i) {
        const Row& r = rows[i];
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

std::string Repeat(const std::string& unit, int times) {
    std::string text;
    while (times-- > 0) {
        text += unit;
    }
    return text;
}

// The key counter is 16 bits: going past it is a failure; delimiter runs never count.
TEST(SplitString, CounterLimit) {
    KeyedList full;
    SplitString(full, Repeat("a;", 32767), ";", 1);
    ASSERT_EQ(full.Count(), 32767u);
    EXPECT_EQ(full.items.back().first, "String32767");
    const std::string tooMany = Repeat("a;", 32767) + "a";
    EXPECT_EQ(Split(tooMany, ";", 1), "[" + tooMany + "]");
    const std::string asItems = Repeat("a;", 16384);
    EXPECT_EQ(Split(asItems, ";", 5), "[" + asItems + "]");
    EXPECT_EQ(Split(Repeat(";", 40000) + "a", ";", 1), "[a]");
}

namespace fs = std::filesystem;
using Entries = std::vector<std::string>;

// The 169 keys, higher letter first ("AA", "AK", "AKs", ...), with `first` moved to the front.
Entries AllKeys(const std::string& first = "AA") {
    constexpr std::string_view kLetters = "AKQJT98765432";
    Entries keys;
    for (std::size_t high = 0; high < kLetters.size(); ++high) {
        for (std::size_t low = high; low < kLetters.size(); ++low) {
            keys.push_back({kLetters[high], kLetters[low]});
            if (low != high) {
                keys.push_back(keys.back() + "s");
            }
        }
    }
    const auto at = std::find(keys.begin(), keys.end(), first);
    if (at != keys.end()) {
        std::rotate(keys.begin(), at, at + 1);
    }
    return keys;
}

// A table as load169 builds it: entry p under the key "String<p>".
KeyedList TableOf(const Entries& entries) {
    KeyedList table;
    for (const auto& entry : entries) {
        table.items.emplace_back("String" + std::to_string(table.Count() + 1), entry);
    }
    return table;
}

// Table entry p (1: "AA", 2: "AK", 3: "AKs", ...) replaced, then one key rated: either order
// and case of a key finds either order of an entry, of the kind asked only, written exactly.
TEST(PairValueRank, FindsOnlyEntriesOfTheKindAskedWrittenExactly) {
    const struct {
        int position;
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
        Entries keys = AllKeys();
        keys[static_cast<std::size_t>(rows[i].position - 1)] = rows[i].entry;
        EXPECT_EQ(PairValueRank(TableOf(keys), rows[i].key, rows[i].suited), rows[i].rank)
            << "row " << i;
    }
    EXPECT_EQ(RankOfPosition(86), 49);  // (170 - p) / 169 * 100, rounded down
    EXPECT_EQ(RankOfPosition(168), 1);
}

// The scan always runs to position 169: a shorter table rates nothing, not even what it holds.
TEST(PairValueRank, OnlyTheFirst169EntriesCount) {
    Entries keys = AllKeys();
    keys.pop_back();
    EXPECT_EQ(PairValueRank(TableOf(keys), "AA", false), 0);
    EXPECT_EQ(PairValueRank(TableOf(keys), "AK", true), 0);
    EXPECT_EQ(PairValueRank(KeyedList{}, "AA", false), 0);
    keys = AllKeys();
    keys.push_back("AA");  // position 170 would rate 0 if it were read
    EXPECT_EQ(PairValueRank(TableOf(keys), "AA", false), 100);
}

cards::Card CardOf(int value, int suit) {
    return cards::Card{0, static_cast<std::int16_t>(value), static_cast<std::int16_t>(suit), 0};
}

// Every pair of values in both orders, suited or not, finds exactly its own key: the table
// holds that key first, so any other rates less than 100.
TEST(PairValueKey, EveryTwoCardsFindTheirKey) {
    constexpr std::string_view kLetters = "AKQJT98765432";
    const auto letter = [&](int value) { return kLetters.find("A23456789TJQK"[value - 1]); };
    for (int v1 = 1; v1 <= 13; ++v1) {
        for (int v2 = 1; v2 <= 13; ++v2) {
            for (const bool suited : {false, true}) {
                const std::size_t a = letter(v1), b = letter(v2);
                const std::string key =
                    std::string{kLetters[std::min(a, b)], kLetters[std::max(a, b)]} +
                    (suited ? "s" : "");
                const std::array hand{CardOf(v1, 2), CardOf(v2, suited ? 2 : 3)};
                const int expected = suited && v1 == v2 ? 0 : 100;  // a suited pair has no key
                EXPECT_EQ(PairValueKey(TableOf(AllKeys(key)), hand), expected) << key;
            }
        }
    }
    // A promoted ace (14) reads "A4" and finds no key; one card is too few.
    const KeyedList table = TableOf(AllKeys());
    EXPECT_EQ(PairValueKey(table, std::array{CardOf(14, 0), CardOf(13, 1)}), 0);
    EXPECT_EQ(PairValueKey(table, std::array{CardOf(0, 0), CardOf(13, 1)}), 0);
    EXPECT_EQ(PairValueKey(table, std::array{CardOf(1, 0)}), 0);
}

Entries EntriesOf(const KeyedList& table) {
    Entries entries;
    for (const auto& [key, entry] : table.items) {
        entries.push_back(entry);
    }
    return entries;
}

class Load169 : public ::testing::Test {
  protected:
    void SetUp() override {
        fs::create_directories(folder_);
        cards::SetMessageSink([this](const std::string& text) { messages_.push_back(text); });
    }
    void TearDown() override {
        cards::SetMessageSink(nullptr);
        fs::remove_all(folder_);
    }
    Entries Load(const std::string& bytes) {
        std::ofstream(folder_ / "169.txt", std::ios::binary) << bytes;
        return EntriesOf(load169(folder_ / "169.txt"));
    }

    const fs::path folder_ =
        fs::temp_directory_path() /
        ("tablewright_load169_" +
         std::string(::testing::UnitTest::GetInstance()->current_test_info()->name()));
    Entries messages_;
};

TEST_F(Load169, LineEndsAndCommasSeparateAlikeAndAllElseIsKept) {
    using namespace std::string_literals;
    const std::pair<std::string, Entries> rows[] = {
        {"AA,\nKK,\n", {"AA", "KK"}},
        {"AA\r\nKK\r\n", {"AA", "KK"}},
        {"AA\rKK", {"AA", "KK"}},
        {"AA\n\rKK\n\n\n", {"AA", "KK"}},
        {"AA,KK,QQ", {"AA", "KK", "QQ"}},
        {",\r\n,AA,,KK,\r\n\r\n,", {"AA", "KK"}},
        {"AA, KK ,\tQQ", {"AA", " KK ", "\tQQ"}},
        {"", {}},
        {"A\0A,K\0"s, {"A\0A"s, "K\0"s}},
        {"\xff\xfe\xc3,\xe2\x82", {"\xff\xfe\xc3", "\xe2\x82"}},
    };
    for (std::size_t i = 0; i < std::size(rows); ++i) {
        EXPECT_EQ(Load(rows[i].first), rows[i].second) << "row " << i;
    }
    // More cuts than the key counter holds: the whole text, read in one pass.
    std::string many;
    while (many.size() < (10u << 20)) {
        many += "AK,";
    }
    EXPECT_EQ(Load(many), Entries{many + "\r"});
    EXPECT_TRUE(messages_.empty());
}

TEST_F(Load169, AFileThatCannotBeReadShowsTheMessageOnce) {
    const KeyedList absent = load169(folder_ / "absent.txt");
    fs::create_directory(folder_ / "folder");
    const KeyedList folder = load169(folder_ / "folder");
    EXPECT_EQ(absent.Count() + folder.Count(), 0u);
    EXPECT_EQ(messages_, (Entries{"error in load169 -No such file or directory",
                                  "error in load169 -Is a directory"}));
}

// The committed table: every type once, AA first, and ranks that make sense at the table.
TEST_F(Load169, TheCommittedFileHoldsEveryKeyOnce) {
    const KeyedList table = load169(TABLEWRIGHT_169_FILE);
    Entries entries = EntriesOf(table), all = AllKeys();
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
