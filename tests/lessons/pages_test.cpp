// The lesson pages as a set: each of the 29 files is there under its exact name, follows
// the shared page template, is well-formed where it matters, works offline, uses only the
// shared stylesheet's classes, has a real amount of text, and leads to the next topic.

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <filesystem>
#include <set>
#include <string>
#include <vector>

#include "html_scan.h"

namespace {

using lessons::Page;
using lessons::Tag;

const std::string kDir = TABLEWRIGHT_LESSON_DIR;

// The reading order of the course; "Next" on the last page leads back to the first.
constexpr std::array<const char*, 29> kPages = {
    "intro.html",      "usage.html",         "basics.html",         "history.html",
    "rank.html",       "variants.html",      "terms.html",          "quiz1.html",
    "txholdem.html",   "txintro.html",       "txrules.html",        "txlimit.html",
    "txpair.html",     "txprestrategy.html", "txpoststrategy.html", "txpot.html",
    "txposition.html", "txsoftware.html",    "quiz2.html",          "online.html",
    "onselect.html",   "onpractice.html",    "onetiquette.html",    "ondeposit.html",
    "onreliable.html", "oncheating.html",    "onlegal.html",        "onaddiction.html",
    "enjoy.html",
};

const std::set<std::string> kStylesheetClasses = {
    "lead", "card", "c", "d", "h", "s", "data", "tip", "note", "warning", "glossary", "next"};

std::string trim(const std::string& s) {
    const auto first = s.find_first_not_of(" \t\r\n");
    if (first == std::string::npos)
        return {};
    const auto last = s.find_last_not_of(" \t\r\n");
    return s.substr(first, last - first + 1);
}

std::string collapseSpaces(const std::string& s) {
    std::string out;
    for (char c : trim(s)) {
        if (c == ' ' || c == '\n' || c == '\t' || c == '\r') {
            if (!out.empty() && out.back() != ' ')
                out += ' ';
        } else {
            out += c;
        }
    }
    return out;
}

bool hasClass(const Tag& tag, const std::string& name) {
    const auto names = lessons::classNames(tag);
    return std::find(names.begin(), names.end(), name) != names.end();
}

bool isRemote(const std::string& url) {
    std::string lowered;
    for (char c : url)
        lowered += static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
    return lowered.rfind("http://", 0) == 0 || lowered.rfind("https://", 0) == 0 ||
           lowered.rfind("//", 0) == 0 || lowered.rfind("ftp://", 0) == 0;
}

class LessonPage : public ::testing::TestWithParam<std::size_t> {
  protected:
    void SetUp() override {
        name_ = kPages.at(GetParam());
        const auto source = lessons::readFile(kDir + "/" + name_);
        ASSERT_TRUE(source.has_value()) << "missing lesson page " << kDir << "/" << name_;
        page_ = lessons::scan(*source);
    }

    std::vector<std::size_t> find(const std::string& tagName) const {
        std::vector<std::size_t> found;
        for (std::size_t i = 0; i < page_.tags.size(); ++i)
            if (page_.tags[i].name == tagName && !page_.tags[i].closing)
                found.push_back(i);
        return found;
    }

    std::string name_;
    Page page_;
};

TEST_P(LessonPage, FollowsThePageTemplate) {
    const auto titles = find("title");
    ASSERT_EQ(titles.size(), 1u) << name_ << ": wants exactly one <title>";
    const std::string title = collapseSpaces(lessons::textInside(page_, titles[0]));
    EXPECT_FALSE(title.empty()) << name_ << ": empty <title>";

    const auto headings = find("h1");
    ASSERT_EQ(headings.size(), 1u) << name_ << ": wants exactly one <h1>";
    const std::string heading = collapseSpaces(lessons::textInside(page_, headings[0]));
    EXPECT_FALSE(heading.empty()) << name_ << ": empty <h1>";
    EXPECT_EQ(title, heading) << name_ << ": the window title and the heading differ";

    const auto html = find("html");
    ASSERT_EQ(html.size(), 1u) << name_;
    EXPECT_EQ(page_.tags[html[0]].attributes.count("lang"), 1u) << name_ << ": <html> without lang";

    bool utf8 = false;
    for (std::size_t i : find("meta")) {
        const auto charset = page_.tags[i].attributes.find("charset");
        if (charset != page_.tags[i].attributes.end() &&
            (charset->second == "utf-8" || charset->second == "UTF-8"))
            utf8 = true;
    }
    EXPECT_TRUE(utf8) << name_ << ": no <meta charset=\"utf-8\">";

    const auto paragraphs = find("p");
    const bool lead = std::any_of(paragraphs.begin(), paragraphs.end(),
                                  [&](std::size_t i) { return hasClass(page_.tags[i], "lead"); });
    EXPECT_TRUE(lead) << name_ << ": no <p class=\"lead\"> introduction";
}

TEST_P(LessonPage, LinksTheSharedStylesheet) {
    int stylesheets = 0;
    for (std::size_t i : find("link")) {
        const auto& attributes = page_.tags[i].attributes;
        const auto rel = attributes.find("rel");
        const auto href = attributes.find("href");
        if (rel != attributes.end() && rel->second == "stylesheet") {
            ++stylesheets;
            ASSERT_NE(href, attributes.end()) << name_;
            EXPECT_EQ(href->second, "style.css") << name_ << ": links another stylesheet";
        }
    }
    EXPECT_EQ(stylesheets, 1) << name_
                              << ": wants one <link rel=\"stylesheet\" href=\"style.css\">";
    EXPECT_TRUE(find("style").empty()) << name_ << ": has its own <style> block";
}

TEST_P(LessonPage, BlockElementsAreBalancedAndNested) {
    const std::set<std::string> checked = {"html", "head", "body",  "table", "ul",
                                           "ol",   "dl",   "aside", "title", "h1"};
    std::vector<std::string> open;
    for (const Tag& tag : page_.tags) {
        if (checked.count(tag.name) == 0 || tag.selfClosing)
            continue;
        if (!tag.closing) {
            open.push_back(tag.name);
            continue;
        }
        ASSERT_FALSE(open.empty())
            << name_ << ": </" << tag.name << "> closes nothing (offset " << tag.offset << ")";
        ASSERT_EQ(open.back(), tag.name) << name_ << ": </" << tag.name << "> closes <"
                                         << open.back() << "> (offset " << tag.offset << ")";
        open.pop_back();
    }
    EXPECT_TRUE(open.empty()) << name_ << ": <" << (open.empty() ? "" : open.back())
                              << "> is never closed";
    EXPECT_EQ(find("html").size(), 1u) << name_;
    EXPECT_EQ(find("head").size(), 1u) << name_;
    EXPECT_EQ(find("body").size(), 1u) << name_;
}

TEST_P(LessonPage, WorksOfflineWithLocalLinksOnly) {
    for (const Tag& tag : page_.tags) {
        if (tag.closing)
            continue;
        for (const char* attribute : {"href", "src"}) {
            const auto found = tag.attributes.find(attribute);
            if (found == tag.attributes.end())
                continue;
            const std::string& url = found->second;
            ASSERT_FALSE(url.empty())
                << name_ << ": empty " << attribute << " on <" << tag.name << ">";
            if (isRemote(url)) {
                // A plain link out may exist; nothing may be loaded from the network.
                EXPECT_TRUE(tag.name == "a" && std::string(attribute) == "href")
                    << name_ << ": loads " << url << " from the network";
                continue;
            }
            if (url[0] == '#' || url.rfind("mailto:", 0) == 0)
                continue;
            EXPECT_EQ(url.find(':'), std::string::npos) << name_ << ": odd address " << url;
            EXPECT_NE(url[0], '/') << name_ << ": absolute path " << url;
            EXPECT_EQ(url.find('\\'), std::string::npos) << name_ << ": backslash in " << url;
            EXPECT_EQ(url.find(".."), std::string::npos)
                << name_ << ": leaves the lesson folder: " << url;
            const std::string file = url.substr(0, url.find_first_of("#?"));
            EXPECT_TRUE(std::filesystem::is_regular_file(kDir + "/" + file))
                << name_ << ": " << attribute << "=\"" << url << "\" points to no file in app/html";
        }
    }
}

TEST_P(LessonPage, HasNoScripts) {
    EXPECT_TRUE(find("script").empty()) << name_;
    EXPECT_TRUE(find("iframe").empty()) << name_;
    for (const Tag& tag : page_.tags) {
        for (const auto& [attribute, value] : tag.attributes) {
            EXPECT_NE(attribute.rfind("on", 0), 0u) << name_ << ": event handler " << attribute;
            EXPECT_EQ(value.find("javascript:"), std::string::npos) << name_;
        }
    }
}

TEST_P(LessonPage, HasASubstantialText) {
    const auto body = find("body");
    ASSERT_EQ(body.size(), 1u) << name_;
    const std::size_t words = lessons::countWords(lessons::textInside(page_, body[0]));
    EXPECT_GE(words, 250u) << name_ << " has only " << words << " words";
    EXPECT_LE(words, 6000u) << name_ << " has " << words << " words";
}

TEST_P(LessonPage, UsesOnlyTheStylesheetClassesAndKnownEntities) {
    for (const Tag& tag : page_.tags)
        for (const std::string& cls : lessons::classNames(tag))
            EXPECT_EQ(kStylesheetClasses.count(cls), 1u)
                << name_ << ": class \"" << cls << "\" on <" << tag.name << "> is not in style.css";
    for (const std::string& entity : lessons::unknownEntities(page_.source))
        ADD_FAILURE() << name_ << ": unknown or unterminated character reference " << entity;
}

TEST_P(LessonPage, CardsShowARankAndTheirOwnSuit) {
    const std::vector<std::pair<std::string, std::string>> suits = {
        {"c", "\xE2\x99\xA3"}, {"d", "\xE2\x99\xA6"}, {"h", "\xE2\x99\xA5"}, {"s", "\xE2\x99\xA0"}};
    const std::set<std::string> ranks = {"A", "K", "Q", "J", "10", "9", "8",
                                         "7", "6", "5", "4", "3",  "2"};
    for (std::size_t i = 0; i < page_.tags.size(); ++i) {
        const Tag& tag = page_.tags[i];
        if (tag.closing || !hasClass(tag, "card"))
            continue;
        const std::string text = trim(lessons::textInside(page_, i));
        int suitClasses = 0;
        std::string symbol;
        for (const auto& [cls, sym] : suits) {
            if (hasClass(tag, cls)) {
                ++suitClasses;
                symbol = sym;
            }
        }
        ASSERT_EQ(suitClasses, 1) << name_ << ": card \"" << text << "\" needs one suit class";
        ASSERT_GE(text.size(), symbol.size()) << name_ << ": card \"" << text << "\"";
        EXPECT_EQ(text.substr(text.size() - symbol.size()), symbol)
            << name_ << ": card \"" << text << "\" has the wrong suit class";
        EXPECT_EQ(ranks.count(text.substr(0, text.size() - symbol.size())), 1u)
            << name_ << ": card \"" << text << "\" has no rank";
    }
}

TEST_P(LessonPage, EndsWithTheLinkToTheNextTopic) {
    const std::string expected = kPages[(GetParam() + 1) % kPages.size()];
    std::vector<std::size_t> nextParagraphs;
    for (std::size_t i : find("p"))
        if (hasClass(page_.tags[i], "next"))
            nextParagraphs.push_back(i);
    ASSERT_EQ(nextParagraphs.size(), 1u) << name_ << ": wants one <p class=\"next\">";
    const std::size_t start = nextParagraphs[0];
    const std::size_t end = lessons::matchingEnd(page_, start);
    ASSERT_NE(end, std::string::npos) << name_ << ": <p class=\"next\"> is never closed";
    std::vector<std::string> targets;
    for (std::size_t k = start + 1; k < end; ++k)
        if (page_.tags[k].name == "a" && !page_.tags[k].closing)
            targets.push_back(page_.tags[k].attributes["href"]);
    ASSERT_EQ(targets.size(), 1u) << name_;
    EXPECT_EQ(targets[0], expected) << name_ << ": Next should lead to " << expected;

    // It is the last thing on the page.
    for (std::size_t k = end + 1; k < page_.tags.size(); ++k)
        EXPECT_TRUE(page_.tags[k].closing)
            << name_ << ": <" << page_.tags[k].name << "> after the Next link";
}

INSTANTIATE_TEST_SUITE_P(AllPages, LessonPage, ::testing::Range<std::size_t>(0, kPages.size()),
                         [](const ::testing::TestParamInfo<std::size_t>& info) {
                             std::string name = kPages.at(info.param);
                             return name.substr(0, name.find('.'));
                         });

TEST(LessonFolder, HoldsTheStylesheetAndNoStrayPages) {
    ASSERT_TRUE(std::filesystem::is_regular_file(kDir + "/style.css"));
    const std::set<std::string> expected(kPages.begin(), kPages.end());
    EXPECT_EQ(expected.size(), kPages.size()) << "a page is listed twice";
    for (const auto& entry : std::filesystem::directory_iterator(kDir)) {
        const std::string file = entry.path().filename().string();
        if (entry.path().extension() == ".html" || entry.path().extension() == ".htm") {
            EXPECT_EQ(expected.count(file), 1u) << "page " << file << " belongs to no topic";
        }
    }
}

TEST(LessonFolder, StylesheetDefinesEveryClassAndLoadsNothing) {
    const auto css = lessons::readFile(kDir + "/style.css");
    ASSERT_TRUE(css.has_value());
    for (const std::string& cls : kStylesheetClasses)
        EXPECT_NE(css->find("." + cls), std::string::npos) << "style.css lacks ." << cls;
    EXPECT_EQ(css->find("@import"), std::string::npos);
    EXPECT_EQ(css->find("url("), std::string::npos) << "style.css loads a resource";
    // Balanced braces: a stray one silently drops the rules behind it.
    int depth = 0;
    for (char c : *css) {
        if (c == '{')
            ++depth;
        if (c == '}')
            --depth;
        ASSERT_GE(depth, 0) << "a '}' too many in style.css";
        ASSERT_LE(depth, 1) << "nested '{' in style.css";
    }
    EXPECT_EQ(depth, 0) << "an unclosed '{' in style.css";
}

TEST(Glossary, ExplainsAtLeastSixtyDistinctTerms) {
    const auto source = lessons::readFile(kDir + "/terms.html");
    ASSERT_TRUE(source.has_value());
    const Page page = lessons::scan(*source);
    std::set<std::string> terms;
    std::size_t definitions = 0;
    std::size_t glossaries = 0;
    std::string previous;  // dt or dd: every term is followed by its explanation
    for (std::size_t i = 0; i < page.tags.size(); ++i) {
        const Tag& tag = page.tags[i];
        if (tag.closing)
            continue;
        if (tag.name == "dl" && hasClass(tag, "glossary"))
            ++glossaries;
        if (tag.name == "dt") {
            const std::string term = collapseSpaces(lessons::textInside(page, i));
            EXPECT_FALSE(term.empty()) << "empty term";
            EXPECT_TRUE(terms.insert(term).second) << "term \"" << term << "\" explained twice";
            EXPECT_NE(previous, "dt") << "term before \"" << term << "\" has no explanation";
            previous = "dt";
        }
        if (tag.name == "dd") {
            ++definitions;
            EXPECT_GE(lessons::countWords(lessons::textInside(page, i)), 4u)
                << "a very short explanation";
            previous = "dd";
        }
    }
    EXPECT_GE(glossaries, 1u) << "no <dl class=\"glossary\">";
    EXPECT_GE(terms.size(), 60u);
    EXPECT_EQ(definitions, terms.size());
}

}  // namespace
