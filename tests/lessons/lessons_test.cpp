// The lesson pages in app/html: one per page topic of the tree, well-formed, offline, in the
// tree's reading order, and right in every figure and winner worked out from their cards.
#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <bit>
#include <cmath>
#include <compare>
#include <filesystem>
#include <fstream>
#include <functional>
#include <numeric>
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
    int rank = 0, suit = 0;  // rank 2..14
    auto operator<=>(const Card&) const = default;
};

// The cards written in some HTML as <span class="card h">K&hearts;</span>, in order: the class
// names the suit, by its first letter.
std::vector<Card> cardsIn(const std::string& html) {
    std::vector<Card> cards;
    for (const auto& m :
         all(html, R"re(class="card ([cdhs])">(10|[2-9JQKA])&\1(lubs|iams|earts|pades);<)re")) {
        const auto rank = std::string("  23456789TJQKA").find(m[2] == "10" ? 'T' : m[2].str()[0]);
        const auto suit = std::string("cdhs").find(m[1]);
        cards.push_back({static_cast<int>(rank), static_cast<int>(suit)});
    }
    return cards;
}

// Each page topic's file is well-formed, sound in its links, anchors and cards, and ends with
// the link to the tree's next page topic.
TEST(LessonFolder, PagesAreWellFormedSoundInTheirLinksAndInTheTreesOrder) {
    const auto names = pageNames();
    for (std::size_t page = 0; page < names.size(); ++page) {
        const std::string& name = names[page];
        const std::string html = readPage(name);
        ASSERT_FALSE(html.empty()) << "missing " << name;
        for (const char* once : {"<title>", "<h1>", R"(<link rel="stylesheet" href="style.css">)"})
            EXPECT_EQ(all(html, once).size(), 1u) << name << ": " << once;
        // Only links out may point outside; every other address names a file beside the page,
        // and the anchor it names is there once, on no table: the text pane sees no table's id.
        for (const auto& m : all(html, R"re(<([a-z0-9]+)\b[^>]*?\s(href|src)\s*=\s*"([^"]*)")re")) {
            const std::string tag = m[1], attribute = m[2], url = m[3];
            const std::string file = url.substr(0, url.find_first_of("#?"));
            const auto hash = url.find('#');
            if (std::regex_search(url, std::regex("^(https?:|ftp:|//)", std::regex::icase))) {
                EXPECT_TRUE(tag == "a" && attribute == "href") << name << " loads " << url;
                continue;
            }
            EXPECT_TRUE(file.empty() || (std::regex_match(file, std::regex(R"([\w-]+\.\w+)")) &&
                                         std::filesystem::is_regular_file(kDir + "/" + file)))
                << name << ": " << url << " is no file of the folder";
            if (hash == std::string::npos)
                continue;
            // The matches point into the page, so it must outlive them.
            const std::string target = file.empty() ? html : readPage(file);
            const auto holders =
                all(target, "<([a-z0-9]+)[^>]*\\sid=\"" + url.substr(hash + 1) + "\"");
            EXPECT_TRUE(holders.size() == 1 && holders[0][1] != "table")
                << name << ": " << url << " finds no anchor outside a table";
        }
        EXPECT_EQ(cardsIn(html).size(), all(html, R"(class="card\b)").size())
            << name << ": a card needs a rank and its own suit's class";
        // Next leads to the tree's next page topic, the last back to the first; only end tags
        // follow it.
        const auto next = all(
            html,
            R"re(<p class="next">[^<]*<a href="([^"]*)">[^<]*</a>\s*</p>(\s*</[a-z]+>)*\s*$)re");
        ASSERT_EQ(next.size(), 1u) << name << ": one Next link, at the end";
        EXPECT_EQ(next[0][1], names[(page + 1) % names.size()]) << name;
    }
}

const std::array<std::string, 9> kKinds{"High card",       "One pair",       "Two pair",
                                        "Three of a kind", "Straight",       "Flush",
                                        "Full house",      "Four of a kind", "Straight flush"};
std::size_t kindNamed(const std::string& html) {
    return static_cast<std::size_t>(std::ranges::find(kKinds, plain(html)) - kKinds.begin());
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
    const auto point = digits.find('.');
    const double decimals =
        point == std::string::npos ? 0 : static_cast<double>(digits.size() - point - 1);
    EXPECT_LE(std::fabs(std::stod(digits) - truth), 0.5 * std::pow(10.0, -decimals) + 1e-9)
        << what << ": " << stated << " should be " << truth;
}

// The number of ways to take k of n things.
double choose(int n, int k) {
    double result = 1;  // each step is itself a whole number, so nothing is rounded
    for (int i = 0; i < k; ++i)
        result = result * (n - i) / (i + 1);
    return result;
}

// Of a set of ranks, one bit per rank 2..14: whether five of them run in sequence, the ace
// also counting low.
bool holdsStraight(unsigned ranks) {
    ranks |= (ranks >> 14 & 1U) << 1;
    for (int low = 1; low <= 10; ++low)
        if ((ranks >> low & 0x1FU) == 0x1FU)
            return true;
    return false;
}

// The kind (index into kKinds) of the best five of at most seven cards, no five of one suit,
// from how many of each rank they hold.
std::size_t kindByRanks(const std::array<int, 15>& of) {
    unsigned present = 0;
    std::array<int, 5> groups{};  // how many ranks come once, twice, three or four times
    for (std::size_t r = 2; r <= 14; ++r) {
        present |= of[r] > 0 ? 1U << r : 0U;
        ++groups[static_cast<std::size_t>(of[r])];
    }
    return groups[4]                                 ? 7
           : groups[3] && groups[3] + groups[2] >= 2 ? 6
           : holdsStraight(present)                  ? 4
           : groups[3]                               ? 3
           : groups[2] >= 2                          ? 2
           : groups[2]                               ? 1
                                                     : 0;
}

// Of the five cards from `from`: the kind, then the ranks that break ties, in the order they
// count.
std::array<int, 6> strength(const std::vector<Card>& cards, std::size_t from = 0) {
    std::array<int, 15> of{};
    bool flush = true;
    for (std::size_t i = from; i < from + 5; ++i) {
        ++of[static_cast<std::size_t>(cards.at(i).rank)];
        flush = flush && cards[i].suit == cards[from].suit;
    }
    std::array<int, 6> result{static_cast<int>(kindByRanks(of))};
    std::size_t next = 1;  // the ranks by how often they come, then by height
    for (int size = 4; size >= 1; --size)
        for (int r = 14; r >= 2; --r)
            if (of[static_cast<std::size_t>(r)] == size)
                result[next++] = r;
    if (result[0] == 4 && result[1] == 14 && result[2] == 5)  // A-2-3-4-5 runs to the five
        result = {4, 5};
    if (flush)  // five of one suit hold no two of a rank
        result[0] = result[0] == 4 ? 8 : 5;
    return result;
}

// Of two players' hole cards and a flop, first mine, then the flop, then theirs: the share of
// all turns and rivers on which my best five cards beat theirs.
double winShare(const std::vector<Card>& known) {
    const auto best = [](const std::vector<Card>& seven) {
        std::array<int, 6> result{};
        for (std::size_t one = 0; one < 7; ++one)  // the two cards left out
            for (std::size_t other = one + 1; other < 7; ++other) {
                std::vector<Card> five = seven;
                five.erase(five.begin() + static_cast<long>(other));
                five.erase(five.begin() + static_cast<long>(one));
                result = std::max(result, strength(five));
            }
        return result;
    };
    std::vector<Card> unseen;
    for (int rank = 2; rank <= 14; ++rank)
        for (int suit = 0; suit < 4; ++suit)
            if (std::ranges::find(known, Card{rank, suit}) == known.end())
                unseen.push_back({rank, suit});
    double wins = 0, boards = 0;
    for (std::size_t turn = 0; turn < unseen.size(); ++turn)
        for (std::size_t river = turn + 1; river < unseen.size(); ++river, ++boards) {
            std::vector<Card> mine(known.begin(), known.begin() + 5);
            std::vector<Card> theirs(known.begin() + 2, known.begin() + 7);
            for (auto* cards : {&mine, &theirs})
                cards->insert(cards->end(), {unseen[turn], unseen[river]});
            wins += best(mine) > best(theirs) ? 1 : 0;
        }
    return wins / boards;
}

// How many of the hands of n cards (n up to 7) are of each kind, by their best five cards, and
// how many hold a royal flush. Not dealt one by one: each way of taking n ranks, at most four
// of each, is counted with the number of suit choices it has. Of those choices, the ones with
// five or more cards in one suit hold a flush, and the rest go by their ranks alone: seven
// cards or fewer never hold a flush together with four of a kind or a full house.
struct HandCounts {
    std::array<double, 10> kinds{};  // by kind, then all hands
    double royals = 0;
};
void countHands(int left, HandCounts& counts, std::array<int, 15> of = {}, std::size_t rank = 2) {
    if (rank <= 14) {
        for (of[rank] = 0; of[rank] <= std::min(4, left); ++of[rank])
            countHands(left - of[rank], counts, of, rank + 1);
        return;
    }
    if (left != 0)
        return;
    unsigned present = 0;
    double ways = 1, flushes = 0;  // flushes: the suit choices with five or more in one suit
    for (std::size_t r = 2; r <= 14; ++r) {
        present |= of[r] > 0 ? 1U << r : 0U;
        ways *= choose(4, of[r]);
    }
    for (unsigned suited = present; suited != 0; suited = (suited - 1) & present) {
        if (std::popcount(suited) < 5)
            continue;
        double choices = 4;  // the suit, then the other suits of each rank
        for (std::size_t r = 2; r <= 14; ++r)
            choices *= choose(3, of[r] - static_cast<int>(suited >> r & 1U));
        flushes += choices;
        counts.kinds[holdsStraight(suited) ? 8 : 5] += choices;
        counts.royals += (suited & 0x7C00U) == 0x7C00U ? choices : 0;
    }
    counts.kinds[kindByRanks(of)] += ways - flushes;
}

// Some HTML as plain text on one line, each table cell closed by " |".
std::string flat(const std::string& html) {
    static const std::regex cellEnd("</t[dh]>"), blanks("\\s+");
    return std::regex_replace(plain(std::regex_replace(html, cellEnd, " |")), blanks, " ");
}

// The chance that at least one of `outs` cards comes among `dealt` of `unseen`.
double hitChance(int outs, int dealt, int unseen) {
    return 1 - choose(unseen - outs, dealt) / choose(unseen, dealt);
}

// A figure the pages state is worked out again from the cards: the rank page's tables from a
// count of all hands of five and of seven, the others from how many cards help.
TEST(PageFigures, AreWhatCountingTheCardsGives) {
    std::array<HandCounts, 2> counts;
    countHands(5, counts[0]);
    countHands(7, counts[1]);
    const std::string rank = readPage("rank.html");
    for (const auto& [table, cards] : {std::pair{"frequencies", 5}, std::pair{"frequencies7", 7}}) {
        auto& count = counts[cards == 5 ? 0 : 1].kinds;
        const double total = count[kKinds.size()] = choose(52, cards);  // the Total row
        const auto at = rank.find(std::string(R"(<table class="data" id=")") + table + "\">");
        ASSERT_NE(at, std::string::npos) << "no table " << table << " in rank.html";
        std::vector<std::size_t> order;
        for (const auto& row :
             rowsOf(rank.substr(at, rank.find("</table>", at) - at)) | std::views::drop(1)) {
            ASSERT_GE(row.size(), 4u) << row[0] << " wants hand, count, chance, one in";
            const std::string hand = plain(row[0]) + " of " + std::to_string(cards);
            const auto kind = kindNamed(row[0]);  // none: the Total row, or a name to fail below
            const double n = count.at(kind);
            expectRounded(row[1], n, hand);
            expectRounded(row[2], 100.0 * n / total, hand + " chance");
            if (kind < kKinds.size())
                expectRounded(row[3], total / n, hand + " one in");
            order.push_back(kind);
        }
        EXPECT_EQ(order, (std::vector<std::size_t>{8, 7, 6, 5, 4, 3, 2, 1, 0, kKinds.size()}))
            << table << ": all nine, best first, then the total";
    }

    const auto& five = counts[0].kinds;
    const double hands = choose(52, 5), flops = choose(50, 3), pairs = 12 * choose(4, 2);
    using Truths = std::function<std::vector<double>(const std::smatch&)>;
    const auto fixed = [](std::vector<double> truths) {
        return Truths([truths](const std::smatch&) { return truths; });
    };
    const auto number = [](const std::smatch& m, std::size_t group) { return std::stod(m[group]); };
    // Example 3 of txpot.html: the cards of its first paragraph are my hole cards, the flop and
    // theirs.
    const std::string pot = readPage("txpot.html");
    const auto example3 = cardsIn(pot.substr(pot.find("Example 3")));
    const struct {
        const char* page;
        const char* pattern;  // in the page's flat text; the figures are its last groups
        std::size_t times;    // how often the page states it
        Truths truths;
    } stated[] = {
        {"rank.html", R"((\d+) are royal flushes.*once in ([\d,]+) five-card deals)", 1,
         fixed({counts[0].royals, hands / counts[0].royals})},
        {"quiz1.html", R"(two pair or better, [^(]*\(([\d.]+)%\))", 1,
         fixed({100 * std::accumulate(five.begin() + 2, five.begin() + 9, 0.0) / hands})},
        // the outs table: from the flop by the river, from the turn on the river, odds against
        {"txpot.html", R"((\d+) \| [^|]+ \| ([\d.]+)% \| ([\d.]+)% \| ([\d.]+) to 1 \|)", 7,
         [&](auto& m) {
             const double outs = number(m, 1);
             return std::vector{100 * hitChance(static_cast<int>(outs), 2, 47), 100 * outs / 46,
                                (46 - outs) / outs};
         }},
        {"txpot.html", R"(\$?(\d+) divide \$?(\d+) = ([\d.]+)%)", 4,
         [&](auto& m) { return std::vector{100 * number(m, 1) / number(m, 2)}; }},
        {"txpot.html", R"(Example 3.*?you win ([\d.]+)% of the time)", 1,
         fixed({100 * winShare({example3.begin(), example3.begin() + 7})})},
        // a pocket pair: two of the other 50 cards make a set by the flop, turn and river
        {"txpair.html", R"(\((?:all )?(\d) cards\) \| ([\d.]+)% \| 1 in ([\d.]+))", 3,
         [&](auto& m) {
             const double hit = hitChance(2, static_cast<int>(number(m, 1)), 50);
             return std::vector{100 * hit, 1 / hit};
         }},
        {"txpair.html", R"(1 in [\d.]+, or ([\d.]+) to 1 against)", 1,
         fixed({(1 - hitChance(2, 3, 50)) / hitChance(2, 3, 50)})},
        // the flop set, without and with a pair of another rank, and four of a kind
        {"txpair.html",
         R"(set ([\d.]+)% of the time, a full house ([\d.]+)%.*four of a kind ([\d.]+)%)", 1,
         fixed({200 * (choose(48, 2) - pairs) / flops, 200 * pairs / flops, 100 * 48 / flops})},
        {"txpair.html", R"(2 in 47, about ([\d.]+)%, .*? about ([\d.]+)%)", 1,
         fixed({100 * 2.0 / 47, 100 * hitChance(2, 2, 47)})},
        // at least one card of a higher rank on the flop
        {"txpair.html", R"((10|[2-9JQK])-\1 \| [AKQJ, ]+ \| (\d+)% \|)", 4,
         [&](auto& m) {
             const auto rank =
                 std::string("  23456789TJQK").find(m[1].str().back() == '0' ? 'T' : m[1].str()[0]);
             return std::vector{100 * hitChance(4 * (14 - static_cast<int>(rank)), 3, 50)};
         }},
        {"txpair.html", R"((\d+) of 1,326 \| ([\d.]+)% \| ([\d.]+) hands)", 3,
         [&](auto& m) {
             return std::vector{100 * number(m, 1) / 1326, 1326 / number(m, 1)};
         }},
    };
    for (const auto& figure : stated) {
        const std::string text = flat(readPage(figure.page));
        const auto found = all(text, figure.pattern);
        EXPECT_EQ(found.size(), figure.times) << figure.page << ": " << figure.pattern;
        for (const auto& m : found) {
            const auto truths = figure.truths(m);
            for (std::size_t i = 0; i < truths.size(); ++i)
                expectRounded(m[m.size() - truths.size() + i].str(), truths[i],
                              std::string(figure.page) + ": " + m.str());
        }
    }
}

// Of hands of five given in order: "first", "second" or "tie" by which is the better.
std::string winner(const std::vector<Card>& cards, const char* first, const char* second,
                   const char* tie) {
    const auto a = strength(cards), b = strength(cards, 5);
    return a > b ? first : a < b ? second : tie;
}

// rank.html's rows: examples (rank | kind | cards) and comparisons (Hand 1 | Hand 2 | Winner);
// quiz1.html asks "hand against hand" in a list and answers in a table (question | winner).
TEST(StatedHands, ExamplesAndWinnersAreRightAndNoQuestionShowsACardTwice) {
    int examples = 0, comparisons = 0;
    for (const auto& row : rowsOf(readPage("rank.html"))) {
        if (row.size() < 3)
            continue;
        const auto kind = kindNamed(row[1]);
        if (kind < kKinds.size()) {
            const auto cards = cardsIn(row[2]);
            ASSERT_EQ(cards.size(), 5u) << kKinds[kind];
            EXPECT_EQ(kKinds[static_cast<std::size_t>(strength(cards)[0])], kKinds[kind]);
            ++examples;
        } else if (cardsIn(row[0]).size() == 5 && cardsIn(row[0] + row[1]).size() == 10) {
            const std::string expected =
                winner(cardsIn(row[0] + row[1]), "Hand 1", "Hand 2", "A tie");
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
        expected.push_back(winner(cards, "First hand", "Second hand", "Tie"));
        EXPECT_EQ(std::set(cards.begin(), cards.end()).size(), 10u)
            << "a card shown twice in question " << expected.size();
    }
    for (const auto& row : rowsOf(quiz) | std::views::drop(1))  // its one table: question, winner
        answers.push_back(plain(row.at(1)));
    EXPECT_GE(expected.size(), 3u);
    EXPECT_EQ(answers, expected);
}

}  // namespace
