// The lesson pages in app/html: one per page topic of the tree, well-formed, offline, in the
// tree's reading order, and right in every figure and winner worked out from their cards.
#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <filesystem>
#include <fstream>
#include <ranges>
#include <regex>
#include <set>
#include <sstream>
#include <string>
#include <vector>

#include "shell/topics.h"

namespace {

const std::string kDir = TABLEWRIGHT_LESSON_DIR;

// A file of the lesson folder, without its comments.
std::string readPage(const std::string& name) {
    const auto text = (std::ostringstream() << std::ifstream(kDir + "/" + name).rdbuf()).str();
    return std::regex_replace(text, std::regex("<!--[\\s\\S]*?-->"), "");
}

// Every match of a pattern, case ignored; the matches refer into `text`.
std::vector<std::smatch> all(const std::string& text, const std::string& pattern) {
    const std::regex re(pattern, std::regex::icase);
    return {std::sregex_iterator(text.begin(), text.end(), re), std::sregex_iterator()};
}

// The text of some HTML: tags dropped, each reference written as its name ("K&hearts;" reads
// "Khearts"), outer blanks trimmed.
std::string plain(const std::string& html) {
    static const std::regex tag("<[^>]*>"), reference("&(#?\\w+);"), edges(R"(^\s+|\s+$)");
    const std::string text =
        std::regex_replace(std::regex_replace(html, tag, " "), reference, "$1");
    return std::regex_replace(text, edges, "");
}

// The page topics of the tree, in its order.
std::vector<std::string> pageNames() {
    std::vector<std::string> names;
    for (const auto& topic : topics::kTopics)
        if (topic.action == topics::Action::Page)
            names.emplace_back(topic.page.substr(topic.page.rfind('\\') + 1));
    return names;
}

struct Card {
    int rank = 0, suit = 0;  // rank 2..14; 0 for a card whose class is not its suit's
};

// The cards written in some HTML as <span class="card h">K&hearts;</span>, in order.
std::vector<Card> cardsIn(const std::string& html) {
    std::vector<Card> cards;
    for (const auto& m :
         all(html, R"re(class="card ([a-z])">(10|[2-9JQKA])&(clubs|diams|hearts|spades);<)re")) {
        const auto rank = std::string("  23456789TJQKA").find(m[2] == "10" ? 'T' : m[2].str()[0]);
        const auto suit = std::string("cdhs").find(m[1]);
        cards.push_back(m[1] == m[3].str().substr(0, 1)
                            ? Card{static_cast<int>(rank), static_cast<int>(suit)}
                            : Card{});
    }
    return cards;
}

// The stylesheet is offline and whole; each page topic's file is well-formed, offline, sound
// in its links, references and cards, and ends with the link to the tree's next page topic.
TEST(LessonFolder, PagesAndStylesheetAreWellFormedOfflineSoundAndInTheTreesOrder) {
    const auto names = pageNames();
    const std::string css = readPage("style.css");
    ASSERT_FALSE(css.empty());
    EXPECT_TRUE(css.find("@import") == std::string::npos && css.find("url(") == std::string::npos);
    int depth = 0;  // a stray brace silently drops the rules behind it
    for (char c : css) {
        depth += c == '{' ? 1 : c == '}' ? -1 : 0;
        ASSERT_TRUE(depth == 0 || depth == 1) << "unbalanced or nested braces in style.css";
    }
    EXPECT_EQ(depth, 0);
    for (std::size_t page = 0; page < names.size(); ++page) {
        const std::string& name = names[page];
        const std::string html = readPage(name);
        ASSERT_FALSE(html.empty()) << "missing " << name;
        for (const char* once :
             {R"(<meta charset="utf-8">)", "<title>", "<h1>", R"(rel="stylesheet")",
              R"(<link rel="stylesheet" href="style.css">)"})
            EXPECT_EQ(all(html, once).size(), 1u) << name << ": " << once;
        EXPECT_TRUE(all(html, R"(<style|<script|<iframe|javascript:|<[^>]*\son[a-z]+\s*=)").empty())
            << name << ": a style block or a script";

        // Only links out may point outside; every other address names a file beside the page.
        for (const auto& m : all(html, R"re(<([a-z0-9]+)\b[^>]*?\s(href|src)\s*=\s*"([^"]*)")re")) {
            const std::string tag = m[1], attribute = m[2], url = m[3];
            if (std::regex_search(url, std::regex("^(https?:|ftp:|//)", std::regex::icase))) {
                EXPECT_TRUE(tag == "a" && attribute == "href") << name << " loads " << url;
            } else if (url[0] != '#' && !url.starts_with("mailto:")) {
                const std::string file = url.substr(0, url.find_first_of("#?"));
                EXPECT_TRUE(std::regex_match(file, std::regex(R"([\w-]+\.\w+)")) &&
                            std::filesystem::is_regular_file(kDir + "/" + file))
                    << name << ": " << url << " is no file of the folder";
            }
        }
        // The text pane shows any other reference as typed.
        const std::regex known(
            "&(amp|lt|gt|quot|nbsp|[nm]dash|[lr]dquo|rsquo|hellip|times|divide|"
            "minus|clubs|diams|hearts|spades|#[0-9]+);");
        for (const auto& m : all(html, "&[#a-zA-Z0-9]*;?"))
            EXPECT_TRUE(std::regex_match(m.str(), known)) << name << ": reference " << m[0];
        const auto cards = cardsIn(html);
        EXPECT_EQ(cards.size(), all(html, R"(class="card\b)").size()) << name;
        for (const Card& card : cards)
            EXPECT_GE(card.rank, 2) << name << ": a card needs a rank and its own suit's class";

        // Next leads to the tree's next page topic, the last back to the first; only end tags
        // follow it.
        const auto next = all(html, R"(<p class="next">([\s\S]*?)</p>([\s\S]*))");
        ASSERT_EQ(next.size(), 1u) << name;
        const std::string link = next[0][1], rest = next[0][2];
        const auto targets = all(link, R"re(href="([^"]*)")re");
        ASSERT_EQ(targets.size(), 1u) << name;
        EXPECT_EQ(targets[0][1], names[(page + 1) % names.size()]) << name;
        EXPECT_TRUE(std::regex_match(rest, std::regex(R"((\s*</[a-z]+>)*\s*)")))
            << name << ": more after Next";
    }
}

const std::array<std::string, 9> kKinds{"High card",       "One pair",       "Two pair",
                                        "Three of a kind", "Straight",       "Flush",
                                        "Full house",      "Four of a kind", "Straight flush"};
std::size_t kindNamed(const std::string& html) {
    return static_cast<std::size_t>(std::ranges::find(kKinds, plain(html)) - kKinds.begin());
}

// Of the five cards from `from`: the kind (index into kKinds), then the ranks that break
// ties, in the order they count.
std::array<int, 6> strength(const std::vector<Card>& cards, std::size_t from = 0) {
    std::array<int, 15> count{};
    bool flush = true;
    for (std::size_t i = from; i < from + 5; ++i) {
        ++count[static_cast<std::size_t>(cards.at(i).rank)];
        flush = flush && cards[i].suit == cards[from].suit;
    }
    std::array<int, 6> result{};
    std::array<int, 5> sizes{};  // of the groups of equal ranks: larger first, then higher
    std::size_t groups = 0;
    for (int size = 4; size >= 1; --size)
        for (int r = 14; r >= 2; --r)
            if (count[static_cast<std::size_t>(r)] == size) {
                result[groups + 1] = r;
                sizes[groups++] = size;
            }
    const bool wheel = groups == 5 && result[1] == 14 && result[2] == 5;  // A-2-3-4-5
    const bool straight = groups == 5 && (wheel || result[1] - result[5] == 4);
    if (straight)
        result = {0, wheel ? 5 : result[1]};
    // By the two largest groups: four of a kind, full house, threes, two pair, a pair.
    const int paired = sizes[0] == 4   ? 7
                       : sizes[0] == 3 ? 3 + 3 * (sizes[1] == 2)
                       : sizes[0] == 2 ? 1 + (sizes[1] == 2)
                                       : 0;
    result[0] = straight && flush ? 8 : paired >= 6 ? paired : flush ? 5 : straight ? 4 : paired;
    return result;
}

std::string winner(const std::vector<Card>& one, const std::vector<Card>& two, std::size_t from,
                   const char* first, const char* second, const char* tie) {
    const auto a = strength(one), b = strength(two, from);
    return a > b ? first : a < b ? second : tie;
}

// The rows of some HTML's tables, each as its cells' HTML.
std::vector<std::vector<std::string>> rowsOf(const std::string& html) {
    std::vector<std::vector<std::string>> rows;
    for (const auto& row : all(html, R"(<tr>([\s\S]*?)</tr>)")) {
        const std::string cells = row[1];
        for (auto& out = rows.emplace_back();
             const auto& cell : all(cells, R"(<t[dh][^>]*>([\s\S]*?)</t[dh]>)"))
            out.push_back(cell[1]);
    }
    return rows;
}

// A stated figure is right when it is the true one rounded to the decimals it shows.
void expectRounded(const std::string& stated, double truth, const std::string& what) {
    const std::string digits = std::regex_replace(plain(stated), std::regex("[^0-9.]"), "");
    ASSERT_FALSE(digits.empty()) << what;
    const auto point = digits.find('.');
    const double decimals =
        point == std::string::npos ? 0 : static_cast<double>(digits.size() - point - 1);
    EXPECT_LE(std::fabs(std::stod(digits) - truth), 0.5 * std::pow(10.0, -decimals) + 1e-9)
        << what << ": " << stated << " should be " << truth;
}

TEST(RankPage, FrequencyTableAndRoyalFlushFiguresMatchACountOfAllHands) {
    std::array<double, 9> counts{};
    double royals = 0;
    std::vector<bool> chosen(52);  // every five of the 52 cards, once
    std::fill(chosen.begin(), chosen.begin() + 5, true);
    do {
        std::vector<Card> hand;
        for (int id = 0; id < 52; ++id)
            if (chosen[static_cast<std::size_t>(id)])
                hand.push_back({2 + id / 4, id % 4});
        const auto s = strength(hand);
        ++counts[static_cast<std::size_t>(s[0])];
        royals += s[0] == 8 && s[1] == 14 ? 1 : 0;
    } while (std::prev_permutation(chosen.begin(), chosen.end()));
    const double total = 2598960;
    const std::string html = readPage("rank.html");
    const auto at = html.find(R"(<table class="data" id="frequencies">)");
    ASSERT_NE(at, std::string::npos) << "no frequency table in rank.html";
    std::vector<std::size_t> order;
    for (const auto& row :
         rowsOf(html.substr(at, html.find("</table>", at) - at)) | std::views::drop(1)) {
        ASSERT_GE(row.size(), 4u) << row[0] << " wants hand, count, chance, one in";
        const std::string hand = plain(row[0]);
        const auto kind = kindNamed(row[0]);
        const double count = hand == "Total" ? total : kind < kKinds.size() ? counts[kind] : -1;
        expectRounded(row[1], count, hand);
        expectRounded(row[2], 100.0 * count / total, hand + " chance");
        if (hand != "Total")
            expectRounded(row[3], total / count, hand + " one in");
        order.push_back(kind);
    }
    EXPECT_EQ(order, (std::vector<std::size_t>{8, 7, 6, 5, 4, 3, 2, 1, 0, kKinds.size()}))
        << "all nine, best first, then the total";
    expectRounded(all(html, R"((\d+) are royal flushes)").at(0)[1].str(), royals, "royal flushes");
    expectRounded(all(html, R"(once in ([\d,]+) five-card deals)").at(0)[1].str(), total / royals,
                  "a royal once in");
}

// rank.html's rows: examples (rank | kind | cards) and comparisons (Hand 1 | Hand 2 | Winner);
// quiz1.html asks "hand against hand" in a list and answers in a table (question | winner).
TEST(StatedHands, ExamplesAndWinnersAreRightAndNoQuestionShowsACardTwice) {
    int examples = 0, comparisons = 0;
    for (const auto& row : rowsOf(readPage("rank.html"))) {
        const auto kind = row.size() >= 3 ? kindNamed(row[1]) : kKinds.size();
        const auto one = cardsIn(row[0]), two = cardsIn(row.size() >= 3 ? row[1] : "");
        if (kind < kKinds.size()) {
            const auto cards = cardsIn(row[2]);
            EXPECT_EQ(cards.size(), 5u) << kKinds[kind];
            EXPECT_EQ(kKinds[static_cast<std::size_t>(strength(cards)[0])], kKinds[kind]);
            ++examples;
        } else if (one.size() == 5 && two.size() == 5) {
            const std::string expected = winner(one, two, 0, "Hand 1", "Hand 2", "A tie");
            EXPECT_TRUE(plain(row[2]).starts_with(expected))
                << plain(row[2]) << " but " << expected;
            ++comparisons;
        }
    }
    EXPECT_EQ(examples, 9) << "one example for each kind";
    EXPECT_GE(comparisons, 3);

    const std::string quiz = readPage("quiz1.html");
    std::vector<std::string> expected, answers;
    for (const auto& item : all(quiz, R"(<li>([\s\S]*?)</li>)")) {
        const auto cards = cardsIn(item[1]);
        if (cards.size() != 10)
            continue;
        expected.push_back(winner(cards, cards, 5, "First hand", "Second hand", "Tie"));
        std::set<int> distinct;
        for (const Card& card : cards)
            distinct.insert(card.rank * 4 + card.suit);
        EXPECT_EQ(distinct.size(), 10u) << "a card shown twice in question " << expected.size();
    }
    for (const auto& row : rowsOf(quiz) | std::views::drop(1))  // its one table: question, winner
        answers.push_back(plain(row.at(1)));
    EXPECT_GE(expected.size(), 3u);
    EXPECT_EQ(answers, expected);
}

}  // namespace
