#include <gtest/gtest.h>

#include <array>
#include <filesystem>
#include <fstream>
#include <string>
#include <system_error>
#include <vector>

#include "pair_keys.h"
#include "pairs/pairs.h"

namespace pairs {
namespace {

namespace fs = std::filesystem;
using Entries = std::vector<std::string>;

class Load169 : public ::testing::Test {
  protected:
    void SetUp() override {
        const auto* test = ::testing::UnitTest::GetInstance()->current_test_info();
        folder_ = fs::temp_directory_path() / ("tablewright_load169_" + std::string(test->name()));
        fs::remove_all(folder_);
        fs::create_directories(folder_);
        cards::SetMessageSink([this](const std::string& text) { messages_.push_back(text); });
    }
    void TearDown() override {
        cards::SetMessageSink(nullptr);
        std::error_code ignored;
        fs::remove_all(folder_, ignored);
    }

    fs::path Write(const std::string& bytes) const {
        const fs::path file = folder_ / "169.txt";
        std::ofstream(file, std::ios::binary) << bytes;
        return file;
    }

    static Entries EntriesOf(const KeyedList& table) {
        Entries entries;
        for (const auto& [key, entry] : table.items) {
            entries.push_back(entry);
        }
        return entries;
    }

    fs::path folder_;
    std::vector<std::string> messages_;
};

TEST_F(Load169, LineEndsAndCommasSeparateAlike) {
    using namespace std::string_literals;
    const std::vector<std::pair<std::string, Entries>> cases = {
        {"AA,\nKK,\n", {"AA", "KK"}},
        {"AA\r\nKK\r\n", {"AA", "KK"}},
        {"AA\rKK", {"AA", "KK"}},
        {"AA\n\rKK\n\n\n", {"AA", "KK"}},
        {"AA,KK,QQ", {"AA", "KK", "QQ"}},
        {",\r\n,AA,,KK,\r\n\r\n,", {"AA", "KK"}},
        {"AA, KK ,\tQQ", {"AA", " KK ", "\tQQ"}},
        {"", {}},
        {",,,\n\r\n\r,", {}},
        {"A\0A,K\0"s, {"A\0A"s, "K\0"s}},
        {"\xff\xfe\xc3,\xe2\x82", {"\xff\xfe\xc3", "\xe2\x82"}},
        {"\x1a\x7f;AK", {"\x1a\x7f;AK"}},
    };
    for (const auto& [bytes, entries] : cases) {
        EXPECT_EQ(EntriesOf(load169(Write(bytes))), entries) << bytes;
    }
    EXPECT_TRUE(messages_.empty());
}

TEST_F(Load169, MissingFileShowsTheMessageOnce) {
    const KeyedList table = load169(folder_ / "absent.txt");
    EXPECT_EQ(table.Count(), 0u);
    EXPECT_EQ(messages_, (std::vector<std::string>{"error in load169 -No such file or directory"}));
    EXPECT_EQ(PairValueRank(table, "AA", false), 0);
}

TEST_F(Load169, DirectoryInPlaceOfTheFile) {
    fs::create_directory(folder_ / "169.txt");
    const KeyedList table = load169(folder_ / "169.txt");
    EXPECT_EQ(table.Count(), 0u);
    EXPECT_EQ(messages_, (std::vector<std::string>{"error in load169 -Is a directory"}));
}

TEST_F(Load169, FullTableRatesCards) {
    std::string bytes;
    for (const auto& key : testing::AllKeys()) {
        bytes += key + ",\r\n";
    }
    const KeyedList table = load169(Write(bytes));
    ASSERT_EQ(table.Count(), 169u);
    cards::Card ace1;
    ace1.value = 1;
    cards::Card ace2 = ace1;
    ace2.suit = 3;
    EXPECT_EQ(PairValueKey(table, std::array{ace1, ace2}), 100);
    EXPECT_TRUE(messages_.empty());
}

// Large files read in one pass: one huge entry, and more cuts than the key counter holds
// (the splitter then keeps the whole text, the CR that ends its one line included).
TEST_F(Load169, TenMegabyteFiles) {
    constexpr std::size_t kSize = 10u << 20;
    const KeyedList oneLine = load169(Write(std::string(kSize, 'A')));
    ASSERT_EQ(oneLine.Count(), 1u);
    EXPECT_EQ(oneLine.Item(1).size(), kSize);

    std::string manyEntries;
    while (manyEntries.size() < kSize) {
        manyEntries += "AK,";
    }
    const KeyedList overflowed = load169(Write(manyEntries));
    ASSERT_EQ(overflowed.Count(), 1u);
    EXPECT_EQ(overflowed.Item(1), manyEntries + "\r");

    const KeyedList separators = load169(Write(std::string(kSize, '\n')));
    EXPECT_EQ(separators.Count(), 0u);
    EXPECT_TRUE(messages_.empty());
}

}  // namespace
}  // namespace pairs
