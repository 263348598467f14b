// The lesson pages in app/html: one per page topic of the tree, well-formed, offline, in the
// tree's reading order, and right in every figure and winner worked out from their cards.
#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <filesystem>
#include <fstream>
#include <map>
#include <ranges>
#include <regex>
#include <set>
#include <sstream>
#include <string>
#include <vector>

#include "shell/topics.h"

namespace {

const std::string kDir = TABLEWRIGHT_LESSON_DIR;

// A file of the lesson folder, comments blanked out.
std::string readPage(const std::string& name) {
    std::string text = (std::ostringstream() << std::ifstream(kDir + "/" + name).rdbuf()).str();
    for (auto at = text.find("<!--"); at != std::string::npos; at = text.find("<!--")) {
        const auto stop = std::min(text.find("-->", at), text.size() - 3) + 3;
        text.replace(at, stop - at, stop - at, ' ');
    }
    return text;
}

// Every match of a pattern, case ignored; the matches refer into `text`.
std::vector<std::smatch> all(const std::string& text, const std::string& pattern) {
    const std::regex re(pattern, std::regex::icase);
    return {std::sregex_iterator(text.begin(), text.end(), re), std::sregex_iterator()};
}

// The character references the pages may use; any other would show as typed.
const std::regex kKnownReference(
    "&(amp|lt|gt|quot|nbsp|[nm]dash|[lr]dquo|rsquo|hellip|times|divide|minus|clubs|diams|hearts|"
    "spades|#[0-9]+);");

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
    int rank = 0, suit = 0;  // rank 2..14; 0 for a card not written as a rank and its suit
};

// The cards written in some HTML as <span class="card h">K&hearts;</span>, in order.
std::vector<Card> cardsIn(const std::string& html) {
    static const auto deck = [] {  // by suit class and text: "hKhearts"
        const char* ranks[] = {"2", "3", "4", "5", "6", "7", "8", "9", "10", "J", "Q", "K", "A"};
        const char* suits[] = {"clubs", "diams", "hearts", "spades"};
        std::map<std::string, Card> cards;
        for (int suit = 0; suit < 4; ++suit)
            for (int rank = 2; rank <= 14; ++rank)
                cards["cdhs"[suit] + (ranks[rank - 2] + std::string(suits[suit]))] = {rank, suit};
        return cards;
    }();
    std::vector<Card> cards;
    for (const auto& m : all(html, R"re(class="card(?: ([^"]*))?"[^>]*>([^<]*)<)re")) {
        const auto found = deck.find(m[1].str() + plain(m[2]));
        cards.push_back(found == deck.end() ? Card{} : found->second);
    }
    return cards;
}

class LessonPage : public ::testing::TestWithParam<std::size_t> {
  protected:
    std::string name = pageNames().at(GetParam());
    std::string html = readPage(name);
};

TEST_P(LessonPage, FollowsTheTemplateRunsNoScriptAndNestsItsBlocks) {
    ASSERT_FALSE(html.empty()) << "missing " << name;
    for (const char* once :
         {R"(<html lang="[a-z-]+">)", "<head>", "<body>", "<title>", "<h1>",
          R"(<meta charset="utf-8">)", R"(<p class="lead">)", R"(<p class="next">)",
          R"(rel="stylesheet")", R"(<link rel="stylesheet" href="style.css">)"})
        EXPECT_EQ(all(html, once).size(), 1u) << name << ": " << once;
    EXPECT_TRUE(all(html, R"(<style|<script|<iframe|javascript:|<[^>]*\son[a-z]+\s*=)").empty())
        << name << ": a style block or a script";
    EXPECT_EQ(plain(all(html, "<title>([^<]*)</title>").at(0)[1].str()),
              plain(all(html, R"(<h1>([\s\S]*?)</h1>)").at(0)[1].str()))
        << name << ": the window title and the heading differ";
    // A mis-nested block breaks the text pane's layout from there on.
    std::vector<std::string> open;
    for (const auto& tag : all(html, R"(<(/?)(html|head|body|table|ul|ol|dl|aside|title|h1)\b)")) {
        ASSERT_TRUE(tag[1] == "" || (!open.empty() && open.back() == tag[2].str()))
            << name << ": </" << tag[2] << "> at " << tag.position();
        tag[1] == "" ? open.push_back(tag[2]) : open.pop_back();
    }
    EXPECT_TRUE(open.empty()) << name << ": <" << open.back() << "> never closed";
}

// Only links out may point outside; every other address names a file beside the page.
TEST_P(LessonPage, LinksClassesReferencesAndCardsAreSound) {
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
    const std::string css = readPage("style.css");
    for (const auto& m : all(html, R"re(class="([^"]*)")re")) {
        std::istringstream names(m[1]);
        for (std::string cls; names >> cls;)
            EXPECT_TRUE(std::regex_search(css, std::regex("\\." + cls + "(?![-\\w])")))
                << name << ": class " << cls << " is not in style.css";
    }
    for (const auto& m : all(html, "&[#a-zA-Z0-9]*;?"))
        EXPECT_TRUE(std::regex_match(m.str(), kKnownReference)) << name << ": reference " << m[0];
    for (const Card& card : cardsIn(html))
        EXPECT_NE(card.rank, 0) << name << ": a card needs a rank and its own suit's class";
    EXPECT_EQ(cardsIn(html).size(), all(html, R"(class="card\b)").size()) << name;
}

// Next on each page leads to the tree's next page topic, the last back to the first; only
// end tags follow it.
TEST_P(LessonPage, EndsWithTheLinkToTheNextTopic) {
    const auto names = pageNames();
    const auto next = all(html, R"(<p class="next">([\s\S]*?)</p>([\s\S]*))");
    ASSERT_EQ(next.size(), 1u) << name;
    const std::string link = next[0][1], rest = next[0][2];
    const auto targets = all(link, R"re(href="([^"]*)")re");
    ASSERT_EQ(targets.size(), 1u) << name;
    EXPECT_EQ(targets[0][1], names[(GetParam() + 1) % names.size()]) << name;
    EXPECT_TRUE(std::regex_match(rest, std::regex(R"((\s*</[a-z]+>)*\s*)")))
        << name << ": more after Next";
}

INSTANTIATE_TEST_SUITE_P(AllPages, LessonPage, ::testing::Range<std::size_t>(0, pageNames().size()),
                         [](const auto& info) {
                             const std::string name = pageNames().at(info.param);
                             return name.substr(0, name.find('.'));
                         });

TEST(LessonFolder, HoldsOnlyTheTreesPagesAndASoundStylesheet) {
    const auto names = pageNames();
    EXPECT_EQ(std::set<std::string>(names.begin(), names.end()).size(), names.size());
    for (const auto& entry : std::filesystem::directory_iterator(kDir)) {
        const auto file = entry.path().filename().string();
        EXPECT_TRUE((!file.ends_with(".htm") && !file.ends_with(".html")) ||
                    std::count(names.begin(), names.end(), file) == 1)
            << file << " belongs to no topic";
    }
    const std::string css = readPage("style.css");
    ASSERT_FALSE(css.empty());
    EXPECT_TRUE(css.find("@import") == std::string::npos && css.find("url(") == std::string::npos);
    int depth = 0;  // a stray brace silently drops the rules behind it
    for (char c : css) {
        depth += c == '{' ? 1 : c == '}' ? -1 : 0;
        ASSERT_TRUE(depth == 0 || depth == 1) << "unbalanced or nested braces in style.css";
    }
    EXPECT_EQ(depth, 0);
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
    for (std::size_t i = from; i < from + 5 && i < cards.size(); ++i) {
        ++count[static_cast<std::size_t>(cards[i].rank)];
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

// The tables of a page whose opening tag matches, as rows (the header first) of cells' HTML.
using Table = std::vector<std::vector<std::string>>;
std::vector<Table> tablesOf(const std::string& html, const std::string& opening = "<table") {
    std::vector<Table> tables;
    for (auto at = html.find(opening); at != std::string::npos; at = html.find(opening, at + 1)) {
        const std::string inside = html.substr(at, html.find("</table>", at) - at);
        Table& table = tables.emplace_back();
        for (const auto& row : all(inside, R"(<tr>([\s\S]*?)</tr>)")) {
            const std::string cells = row[1];
            for (auto& out = table.emplace_back();
                 const auto& cell : all(cells, R"(<t[dh][^>]*>([\s\S]*?)</t[dh]>)"))
                out.push_back(cell[1]);
        }
    }
    return tables;
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
    const auto tables = tablesOf(html, R"(<table class="data" id="frequencies">)");
    ASSERT_EQ(tables.size(), 1u) << "no frequency table in rank.html";
    std::vector<std::size_t> order;
    for (const auto& row : tables[0] | std::views::drop(1)) {
        ASSERT_GE(row.size(), 4u) << row[0] << " wants hand, count, chance, one in";
        const std::string hand = plain(row[0]);
        const auto kind = kindNamed(row[0]);
        if (hand == "Total") {
            expectRounded(row[1], total, hand);
            continue;
        }
        ASSERT_LT(kind, kKinds.size()) << "unknown hand " << hand;
        order.push_back(kind);
        expectRounded(row[1], counts[kind], hand);
        expectRounded(row[2], 100.0 * counts[kind] / total, hand + " chance");
        expectRounded(row[3], total / counts[kind], hand + " one in");
    }
    EXPECT_EQ(order, (std::vector<std::size_t>{8, 7, 6, 5, 4, 3, 2, 1, 0}))
        << "all nine, best first";
    expectRounded(all(html, R"((\d+) are royal flushes)").at(0)[1].str(), royals, "royal flushes");
    expectRounded(all(html, R"(once in ([\d,]+) five-card deals)").at(0)[1].str(), total / royals,
                  "a royal once in");
}

// One table shows an example of each kind (name | kind | cards); another compares hands
// (Hand 1 | Hand 2 | Winner).
TEST(RankPage, ExampleHandsAndStatedWinnersAreRight) {
    int examples = 0, comparisons = 0;
    for (const Table& table : tablesOf(readPage("rank.html"))) {
        const bool winners =
            !table.empty() && table[0].size() == 3 && plain(table[0][2]) == "Winner";
        for (const auto& row : table | std::views::drop(1)) {
            const auto kind = row.size() < 3 ? kKinds.size() : kindNamed(row[1]);
            if (kind < kKinds.size()) {
                const auto cards = cardsIn(row[2]);
                EXPECT_EQ(cards.size(), 5u) << kKinds[kind];
                EXPECT_EQ(kKinds[static_cast<std::size_t>(strength(cards)[0])], kKinds[kind]);
                ++examples;
            } else if (winners) {
                const auto one = cardsIn(row[0]), two = cardsIn(row[1]);
                ASSERT_TRUE(one.size() == 5 && two.size() == 5) << plain(row[2]);
                const std::string expected = winner(one, two, 0, "Hand 1", "Hand 2", "A tie");
                EXPECT_TRUE(plain(row[2]).starts_with(expected))
                    << plain(row[2]) << " but " << expected;
                ++comparisons;
            }
        }
    }
    EXPECT_EQ(examples, 9) << "one example for each kind";
    EXPECT_GE(comparisons, 3);
}

// quiz1.html asks "hand against hand" in a list and answers in a table: question, winner.
TEST(WarmUpQuestions, AnswersNameTheRealWinnerAndNoCardIsShownTwice) {
    const std::string html = readPage("quiz1.html");
    std::vector<std::string> expected, answers;
    for (const auto& item : all(html, R"(<li>([\s\S]*?)</li>)")) {
        const auto cards = cardsIn(item[1]);
        if (cards.size() != 10)
            continue;
        expected.push_back(winner(cards, cards, 5, "First hand", "Second hand", "Tie"));
        std::set<int> distinct;
        for (const Card& card : cards)
            distinct.insert(card.rank * 4 + card.suit);
        EXPECT_EQ(distinct.size(), 10u) << "a card shown twice in question " << expected.size();
    }
    ASSERT_GE(expected.size(), 3u);
    for (const Table& table : tablesOf(html))
        for (const auto& row : table | std::views::drop(1))
            if (table[0].size() >= 2 && plain(table[0][1]) == "Winner")
                answers.push_back(plain(row[1]));
    EXPECT_EQ(answers, expected);
}

}  // namespace
