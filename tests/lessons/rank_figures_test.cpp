// Figures and examples in the ranking lessons, checked against cards: the frequency table
// of rank.html against a count of all 2,598,960 five-card hands, and every example hand and
// stated winner against an independent comparison of the cards shown.

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <map>
#include <regex>
#include <string>
#include <vector>

#include "html_scan.h"

namespace {

using lessons::Page;
using lessons::Tag;

const std::string kDir = TABLEWRIGHT_LESSON_DIR;

struct Card {
    int rank;  // 2..14, ace high
    int suit;  // 0..3
};

enum Kind {
    kHighCard,
    kPair,
    kTwoPair,
    kThrees,
    kStraight,
    kFlush,
    kFullHouse,
    kFours,
    kStraightFlush
};

const std::map<std::string, Kind> kKindNames = {{"straight flush", kStraightFlush},
                                                {"four of a kind", kFours},
                                                {"full house", kFullHouse},
                                                {"flush", kFlush},
                                                {"straight", kStraight},
                                                {"three of a kind", kThrees},
                                                {"two pair", kTwoPair},
                                                {"one pair", kPair},
                                                {"high card", kHighCard}};

// Strength of five cards as a comparable list: the kind first, then the ranks that break
// ties in the order they are compared, zeros behind.
using Strength = std::array<int, 6>;

Strength strength(const std::array<Card, 5>& cards) {
    std::array<int, 15> count{};
    bool flush = true;
    for (const Card& c : cards) {
        ++count[static_cast<std::size_t>(c.rank)];
        flush = flush && c.suit == cards[0].suit;
    }
    // Ranks grouped by how often they occur: the larger groups first, then the higher ranks.
    std::array<int, 5> ranks{};
    std::array<int, 5> sizes{};
    std::size_t groups = 0;
    for (int size = 4; size >= 1; --size)
        for (int r = 14; r >= 2; --r)
            if (count[static_cast<std::size_t>(r)] == size) {
                ranks[groups] = r;
                sizes[groups] = size;
                ++groups;
            }

    int straightTop = 0;
    if (groups == 5) {
        if (ranks[0] - ranks[4] == 4)
            straightTop = ranks[0];
        if (ranks[0] == 14 && ranks[1] == 5)
            straightTop = 5;  // A-2-3-4-5
    }
    Kind kind = kHighCard;
    if (straightTop != 0 && flush)
        kind = kStraightFlush;
    else if (sizes[0] == 4)
        kind = kFours;
    else if (sizes[0] == 3 && sizes[1] == 2)
        kind = kFullHouse;
    else if (flush)
        kind = kFlush;
    else if (straightTop != 0)
        kind = kStraight;
    else if (sizes[0] == 3)
        kind = kThrees;
    else if (sizes[0] == 2 && sizes[1] == 2)
        kind = kTwoPair;
    else if (sizes[0] == 2)
        kind = kPair;

    Strength result{};
    result[0] = kind;
    if (kind == kStraight || kind == kStraightFlush) {
        result[1] = straightTop;
    } else {
        for (std::size_t i = 0; i < groups; ++i)
            result[i + 1] = ranks[i];
    }
    return result;
}

// A card written in a page as <span class="card h">K&hearts;</span>.
Card cardFrom(const Tag& tag, const std::string& text) {
    int suit = -1;
    for (const std::string& cls : lessons::classNames(tag)) {
        if (cls == "c")
            suit = 0;
        if (cls == "d")
            suit = 1;
        if (cls == "h")
            suit = 2;
        if (cls == "s")
            suit = 3;
    }
    const std::string rankText = text.substr(0, text.find_first_not_of("AKQJ0123456789 "));
    static const std::map<std::string, int> ranks = {
        {"A", 14}, {"K", 13}, {"Q", 12}, {"J", 11}, {"10", 10}, {"9", 9}, {"8", 8},
        {"7", 7},  {"6", 6},  {"5", 5},  {"4", 4},  {"3", 3},   {"2", 2}};
    const auto found = ranks.find(rankText);
    return Card{found == ranks.end() ? 0 : found->second, suit};
}

// The cards written between two tags of a page, in order.
std::vector<Card> cardsBetween(const Page& page, std::size_t from, std::size_t to) {
    std::vector<Card> cards;
    for (std::size_t k = from; k < to; ++k) {
        const Tag& tag = page.tags[k];
        if (tag.closing || tag.name != "span")
            continue;
        const auto names = lessons::classNames(tag);
        if (std::find(names.begin(), names.end(), "card") == names.end())
            continue;
        std::string text = lessons::textInside(page, k);
        text.erase(0, text.find_first_not_of(' '));
        cards.push_back(cardFrom(tag, text));
    }
    return cards;
}

std::array<Card, 5> five(const std::vector<Card>& cards, std::size_t from) {
    std::array<Card, 5> hand{};
    for (std::size_t i = 0; i < 5; ++i)
        hand[i] = cards.at(from + i);
    return hand;
}

struct Cell {
    std::size_t start;  // tag index of <td> or <th>
    std::size_t end;    // tag index of its end tag
    std::string text;
};

// The rows of the table that starts at tag index `table`, each a list of cells.
std::vector<std::vector<Cell>> rowsOf(const Page& page, std::size_t table) {
    std::vector<std::vector<Cell>> rows;
    const std::size_t tableEnd = lessons::matchingEnd(page, table);
    for (std::size_t k = table + 1; k < tableEnd && k < page.tags.size(); ++k) {
        const Tag& tag = page.tags[k];
        if (tag.closing)
            continue;
        if (tag.name == "tr")
            rows.emplace_back();
        if ((tag.name == "td" || tag.name == "th") && !rows.empty()) {
            std::string text = lessons::textInside(page, k);
            const auto first = text.find_first_not_of(" \n\t");
            const auto last = text.find_last_not_of(" \n\t");
            text = first == std::string::npos ? "" : text.substr(first, last - first + 1);
            rows.back().push_back(Cell{k, lessons::matchingEnd(page, k), text});
        }
    }
    return rows;
}

std::vector<std::size_t> tablesOf(const Page& page) {
    std::vector<std::size_t> tables;
    for (std::size_t k = 0; k < page.tags.size(); ++k)
        if (page.tags[k].name == "table" && !page.tags[k].closing)
            tables.push_back(k);
    return tables;
}

std::string lower(std::string s) {
    for (char& c : s)
        c = static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
    return s;
}

double numberIn(const std::string& text, int* decimals) {
    std::string digits;
    for (char c : text)
        if ((c >= '0' && c <= '9') || c == '.')
            digits += c;
    const auto point = digits.find('.');
    *decimals = point == std::string::npos ? 0 : static_cast<int>(digits.size() - point - 1);
    return digits.empty() ? -1.0 : std::stod(digits);
}

class RankPage : public ::testing::Test {
  protected:
    static void SetUpTestSuite() {
        const auto source = lessons::readFile(kDir + "/rank.html");
        if (!source.has_value())
            ADD_FAILURE() << "rank.html is missing";
        page_ = new Page(lessons::scan(source.value_or("")));
        counts_ = new std::array<long, 9>{};
        // Every five-card hand of the pack, once.
        std::array<Card, 52> deck{};
        for (int i = 0; i < 52; ++i)
            deck[static_cast<std::size_t>(i)] = Card{2 + i / 4, i % 4};
        std::array<Card, 5> hand{};
        for (int a = 0; a < 52; ++a)
            for (int b = a + 1; b < 52; ++b)
                for (int c = b + 1; c < 52; ++c)
                    for (int d = c + 1; d < 52; ++d)
                        for (int e = d + 1; e < 52; ++e) {
                            hand = {deck[static_cast<std::size_t>(a)],
                                    deck[static_cast<std::size_t>(b)],
                                    deck[static_cast<std::size_t>(c)],
                                    deck[static_cast<std::size_t>(d)],
                                    deck[static_cast<std::size_t>(e)]};
                            const auto s = strength(hand);
                            ++(*counts_)[static_cast<std::size_t>(s[0])];
                            if (s[0] == kStraightFlush && s[1] == 14)
                                ++royals_;
                        }
    }
    static void TearDownTestSuite() {
        delete page_;
        delete counts_;
    }

    static Page* page_;
    static std::array<long, 9>* counts_;
    static long royals_;
};

Page* RankPage::page_ = nullptr;
std::array<long, 9>* RankPage::counts_ = nullptr;
long RankPage::royals_ = 0;

TEST_F(RankPage, FrequencyTableMatchesACountOfAllHands) {
    long total = 0;
    for (long n : *counts_)
        total += n;
    ASSERT_EQ(total, 2598960);

    std::size_t table = std::string::npos;
    for (std::size_t k : tablesOf(*page_))
        if (page_->tags[k].attributes["id"] == "frequencies")
            table = k;
    ASSERT_NE(table, std::string::npos) << "no <table id=\"frequencies\"> in rank.html";

    std::vector<Kind> order;
    bool totalRow = false;
    for (const auto& row : rowsOf(*page_, table)) {
        if (row.empty() || page_->tags[row[0].start].name == "th")
            continue;
        ASSERT_GE(row.size(), 4u) << "row \"" << row[0].text
                                  << "\" wants name, count, chance, odds";
        int decimals = 0;
        const double stated = numberIn(row[1].text, &decimals);
        if (lower(row[0].text) == "total") {
            EXPECT_EQ(stated, 2598960.0);
            totalRow = true;
            continue;
        }
        const auto kind = kKindNames.find(lower(row[0].text));
        ASSERT_NE(kind, kKindNames.end()) << "unknown hand \"" << row[0].text << "\"";
        order.push_back(kind->second);
        const double actual = static_cast<double>((*counts_)[kind->second]);
        EXPECT_EQ(stated, actual) << row[0].text;

        const double percent = numberIn(row[2].text, &decimals);
        EXPECT_LE(std::fabs(percent - 100.0 * actual / total),
                  0.5 * std::pow(10.0, -decimals) + 1e-9)
            << row[0].text << ": " << row[2].text << " should be " << 100.0 * actual / total << "%";
        const double oneIn = numberIn(row[3].text, &decimals);
        EXPECT_LE(std::fabs(oneIn - total / actual), 0.5 * std::pow(10.0, -decimals) + 1e-9)
            << row[0].text << ": one in " << row[3].text << " should be " << total / actual;
    }
    EXPECT_TRUE(totalRow) << "no Total row";
    const std::vector<Kind> bestFirst = {kStraightFlush, kFours,   kFullHouse, kFlush,   kStraight,
                                         kThrees,        kTwoPair, kPair,      kHighCard};
    EXPECT_EQ(order, bestFirst) << "the table should list all nine kinds, best first";
}

TEST_F(RankPage, RoyalFlushFiguresAreRight) {
    const std::string text = page_->text;
    std::smatch match;
    ASSERT_TRUE(std::regex_search(text, match, std::regex(R"((\d+) are royal flushes)")));
    EXPECT_EQ(std::stol(match[1]), royals_);
    ASSERT_TRUE(std::regex_search(text, match, std::regex(R"(once in ([\d,]+) five-card deals)")));
    std::string digits = match[1];
    digits.erase(std::remove(digits.begin(), digits.end(), ','), digits.end());
    EXPECT_EQ(std::stol(digits), 2598960 / royals_);
}

TEST_F(RankPage, EveryExampleHandIsOfTheKindItIllustrates) {
    int examples = 0;
    for (std::size_t table : tablesOf(*page_)) {
        for (const auto& row : rowsOf(*page_, table)) {
            if (row.size() < 3)
                continue;
            const auto kind = kKindNames.find(lower(row[1].text));
            if (kind == kKindNames.end())
                continue;
            const auto cards = cardsBetween(*page_, row[2].start, row[2].end);
            ASSERT_EQ(cards.size(), 5u) << row[1].text;
            EXPECT_EQ(strength(five(cards, 0))[0], kind->second)
                << "the example of " << row[1].text;
            ++examples;
        }
    }
    EXPECT_EQ(examples, 9) << "one example for each of the nine kinds";
}

// A table whose header reads Hand 1 | Hand 2 | Winner, the winner cell starting with
// "Hand 1", "Hand 2" or "A tie".
TEST_F(RankPage, StatedWinnersOfTheTieBreakExamplesAreRight) {
    int examples = 0;
    for (std::size_t table : tablesOf(*page_)) {
        const auto rows = rowsOf(*page_, table);
        if (rows.empty() || rows[0].size() != 3 || rows[0][2].text != "Winner")
            continue;
        for (std::size_t r = 1; r < rows.size(); ++r) {
            const auto one = cardsBetween(*page_, rows[r][0].start, rows[r][0].end);
            const auto two = cardsBetween(*page_, rows[r][1].start, rows[r][1].end);
            ASSERT_EQ(one.size(), 5u);
            ASSERT_EQ(two.size(), 5u);
            const auto a = strength(five(one, 0));
            const auto b = strength(five(two, 0));
            const std::string expected = a > b ? "Hand 1" : a < b ? "Hand 2" : "A tie";
            EXPECT_EQ(rows[r][2].text.substr(0, expected.size()), expected) << "example " << r;
            ++examples;
        }
    }
    EXPECT_GE(examples, 3);
}

// The warm-up questions of the first interactive lesson: an ordered list of "hand against
// hand", answered by a table of question, winner ("First hand" or "Second hand"), reason.
TEST(WarmUpQuestions, AnswersNameTheRealWinner) {
    const auto source = lessons::readFile(kDir + "/quiz1.html");
    ASSERT_TRUE(source.has_value()) << "quiz1.html is missing";
    const Page page = lessons::scan(*source);

    std::vector<std::pair<std::array<Card, 5>, std::array<Card, 5>>> questions;
    for (std::size_t k = 0; k < page.tags.size(); ++k) {
        if (page.tags[k].name != "li" || page.tags[k].closing)
            continue;
        const auto cards = cardsBetween(page, k, lessons::matchingEnd(page, k));
        if (cards.size() != 10)
            continue;
        questions.emplace_back(five(cards, 0), five(cards, 5));
        // Two hands from one pack share no card.
        for (std::size_t i = 0; i < 10; ++i)
            for (std::size_t j = i + 1; j < 10; ++j)
                EXPECT_FALSE(cards[i].rank == cards[j].rank && cards[i].suit == cards[j].suit)
                    << "question " << questions.size() << " shows a card twice";
    }
    ASSERT_GE(questions.size(), 3u);

    std::vector<std::string> answers;
    for (std::size_t table : tablesOf(page)) {
        const auto rows = rowsOf(page, table);
        if (rows.empty() || rows[0].size() < 2 || rows[0][1].text != "Winner")
            continue;
        for (std::size_t r = 1; r < rows.size(); ++r)
            answers.push_back(rows[r][1].text);
    }
    ASSERT_EQ(answers.size(), questions.size());
    for (std::size_t q = 0; q < questions.size(); ++q) {
        const auto a = strength(questions[q].first);
        const auto b = strength(questions[q].second);
        const std::string expected = a > b ? "First hand" : a < b ? "Second hand" : "Tie";
        EXPECT_EQ(answers[q], expected) << "question " << q + 1;
    }
}

}  // namespace
