#include <gtest/gtest.h>

#include <cstdint>
#include <string>
#include <vector>

#include "pairs/mParse.h"

namespace pairs {
namespace {

using Items = std::vector<std::string>;

KeyedList Split(const std::string& text, const std::string& delimiter, std::int32_t options,
                KeyedList list = {}) {
    SplitString(list, text, delimiter, options);
    return list;
}

Items ItemsOf(const KeyedList& list) {
    Items items;
    for (const auto& [key, item] : list.items) {
        items.push_back(item);
    }
    return items;
}

Items KeysOf(const KeyedList& list) {
    Items keys;
    for (const auto& [key, item] : list.items) {
        keys.push_back(key);
    }
    return keys;
}

struct SplitCase {
    std::int32_t options;
    std::string text;
    Items items;
};

void ExpectSplits(const std::string& delimiter, const std::vector<SplitCase>& cases) {
    for (const auto& c : cases) {
        EXPECT_EQ(ItemsOf(Split(c.text, delimiter, c.options)), c.items)
            << "options " << c.options << ", text \"" << c.text << '"';
    }
}

TEST(SplitString, SemicolonTable) {
    ExpectSplits(";", {
                          {1, "a;b;c", {"a", "b", "c"}},
                          {1, ";a;b", {"a", "b"}},
                          {1, "a;;b;", {"a", "b"}},
                          {1, ";", {}},
                          {5, "a;b;c", {"a", ";", "b", ";", "c"}},
                          {5, ";a;b", {";", "a", ";", "b"}},
                          {5, "a;;b;", {"a", ";", ";", "b", ";"}},
                          {5, ";", {";"}},
                          {9, "a;b;c", {"a;", "b;", "c"}},
                          {9, ";a;b", {";", "a;", "b"}},
                          {9, "a;;b;", {"a;", ";", "b;"}},
                          {9, ";", {";"}},
                          {17, "a;b;c", {"a", ";b", ";c"}},
                          {17, ";a;b", {";", "a", ";b"}},
                          {17, "a;;b;", {"a", ";", ";b", ";"}},
                          {17, ";", {";"}},
                      });
}

TEST(SplitString, DoubleHyphenTable) {
    ExpectSplits("--", {
                           {2, "a--b--c", {"a", "b", "c"}},
                           {2, "--a--b", {"a", "b"}},
                           {2, "a--b--", {"a", "b"}},
                           {2, "--", {}},
                           {6, "a--b--c", {"a", "--", "b", "--", "c"}},
                           {6, "--a--b", {"--", "a", "--", "b"}},
                           {6, "a--b--", {"a", "--", "b", "--"}},
                           {6, "--", {"--"}},
                           {10, "a--b--c", {"a--", "b--", "c"}},
                           {10, "--a--b", {"--", "a--", "b"}},
                           {10, "a--b--", {"a--", "b--"}},
                           {10, "--", {"--"}},
                           {18, "a--b--c", {"a", "--b", "--c"}},
                           {18, "--a--b", {"--a", "--b"}},
                           {18, "a--b--", {"a", "--b", "--"}},
                           {18, "--", {"--"}},
                       });
}

TEST(SplitString, KeysFollowTheCounter) {
    struct KeyCase {
        std::int32_t options;
        std::string text;
        std::string delimiter;
        Items keys;
    };
    const std::vector<KeyCase> cases = {
        {1, ";a;;b;", ";", {"String1", "String2"}},
        {5, "a;;b", ";", {"String1", "String2", "String3", "String4"}},
        // An empty piece before the closing step under 18 skips a number.
        {18, "--a--b", "--", {"String1", "String3"}},
        {18, "a--b--c", "--", {"String1", "String2", "String4"}},
        {18, "--", "--", {"String2"}},
        {1, "AA,\rKK,\r", ",\r", {"String1", "String2"}},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(KeysOf(Split(c.text, c.delimiter, c.options)), c.keys)
            << "options " << c.options << ", text \"" << c.text << '"';
    }
}

TEST(SplitString, EmptyPieceSetsCounterToTheListCountIncludingTheCallersItems) {
    const KeyedList before{{{"x", "kept"}, {"y", "kept"}}};
    const KeyedList after = Split(";a", ";", 1, before);
    EXPECT_EQ(KeysOf(after), (Items{"x", "y", "String3"}));
    EXPECT_EQ(ItemsOf(after), (Items{"kept", "kept", "a"}));
}

TEST(SplitString, AnyCharacterUnderSeventeenRescansFromTheSecondCharacter) {
    EXPECT_EQ(ItemsOf(Split(";;a", ";", 17)), (Items{";", ";a"}));
    EXPECT_EQ(ItemsOf(Split("a,;b", ",;", 17)), (Items{"a", ",", ";b"}));
}

TEST(SplitString, EmptyAndDelimiterOnlyTexts) {
    for (const std::int32_t options : {1, 5, 9, 17, 2, 6, 10, 18}) {
        EXPECT_TRUE(Split("", ";", options).items.empty()) << options;
    }
    EXPECT_TRUE(Split(";;,;", ";,", 1).items.empty());
    EXPECT_TRUE(Split("------", "--", 2).items.empty());
}

TEST(SplitString, EmptyDelimiterKeepsTheWholeText) {
    for (const std::int32_t options : {1, 5, 9, 17, 2, 6, 10, 18}) {
        const KeyedList list = Split("a;b", "", options);
        EXPECT_EQ(KeysOf(list), (Items{"String1"})) << options;
        EXPECT_EQ(ItemsOf(list), (Items{"a;b"})) << options;
    }
}

TEST(SplitString, DelimitersAreExact) {
    EXPECT_EQ(ItemsOf(Split("xAy", "a", 1)), (Items{"xAy"}));
    EXPECT_EQ(ItemsOf(Split("xbay-xaby", "ab", 2)), (Items{"xbay-x", "y"}));
    EXPECT_EQ(ItemsOf(Split("xbay", "ab", 1)), (Items{"x", "y"}));
}

TEST(SplitString, InvalidOptionsLeaveTheWholeTextUnderString1) {
    struct InvalidCase {
        std::int32_t options;
        std::string text;
        Items items;  // under "String1" .. in order
    };
    const std::vector<InvalidCase> cases = {
        {0, "a;b", {"a;b"}},
        {3, "a;b", {"a;b"}},
        {0, "", {""}},
        {3, "", {""}},
        {-1, "a;b", {"a;b"}},
        {13, "a;b", {"a;b"}},
        {21, ";", {";"}},
        {25, "a;b;", {"a;b;"}},
        {29, "a;b", {"a;b"}},
        {33, "a;b", {"a;b"}},
        {34, "a;b", {"a;b"}},
        {-3, "a;b", {"a;b"}},
        // A bad second group shows only at the first delimiter found.
        {13, "abc", {"abc"}},
        {13, "", {}},
        {14, "a;b", {"a;b"}},
    };
    for (const auto& c : cases) {
        const KeyedList list = Split(c.text, ";", c.options);
        EXPECT_EQ(ItemsOf(list), c.items) << "options " << c.options << ", text " << c.text;
        if (!c.items.empty()) {
            EXPECT_EQ(list.items.front().first, "String1") << "options " << c.options;
        }
    }
}

TEST(SplitString, FailureRemovesOnlyKeysUpToTheCount) {
    const KeyedList before{{{"String2", "old"}, {"other", "kept"}, {"String9", "far"}}};
    const KeyedList after = Split("t", ";", 0, before);
    EXPECT_EQ(KeysOf(after), (Items{"other", "String9", "String1"}));
    EXPECT_EQ(ItemsOf(after), (Items{"kept", "far", "t"}));
}

TEST(SplitString, KeyAlreadyInTheListFails) {
    KeyedList list;
    SplitString(list, "a;b", ";", 1);
    SplitString(list, "c;d", ";", 1);
    EXPECT_EQ(KeysOf(list), (Items{"String1"}));
    EXPECT_EQ(ItemsOf(list), (Items{"c;d"}));
}

std::string Repeat(const std::string& unit, int times) {
    std::string text;
    for (int i = 0; i < times; ++i) {
        text += unit;
    }
    return text;
}

TEST(SplitString, CounterLimit) {
    const KeyedList full = Split(Repeat("a;", 32767), ";", 1);
    ASSERT_EQ(full.Count(), 32767u);
    EXPECT_EQ(full.items.back().first, "String32767");

    const std::string tooMany = Repeat("a;", 32767) + "a";
    EXPECT_EQ(ItemsOf(Split(tooMany, ";", 1)), (Items{tooMany}));
    const std::string asItems = Repeat("a;", 16384);
    EXPECT_EQ(ItemsOf(Split(asItems, ";", 5)), (Items{asItems}));

    // Empty pieces set the counter back, so delimiter runs never count.
    EXPECT_EQ(ItemsOf(Split(Repeat(";", 40000) + "a", ";", 1)), (Items{"a"}));
}

}  // namespace
}  // namespace pairs
