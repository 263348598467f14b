#include "html_scan.h"

#include <cctype>
#include <fstream>
#include <sstream>

namespace lessons {
namespace {

const std::map<std::string, std::string>& namedEntities() {
    static const std::map<std::string, std::string> table = {
        {"amp", "&"},
        {"lt", "<"},
        {"gt", ">"},
        {"quot", "\""},
        {"apos", "'"},
        {"nbsp", " "},
        {"ndash", "-"},
        {"mdash", "-"},
        {"ldquo", "\""},
        {"rdquo", "\""},
        {"lsquo", "'"},
        {"rsquo", "'"},
        {"hellip", "..."},
        {"times", "x"},
        {"divide", "/"},
        {"minus", "-"},
        {"plusmn", "+-"},
        {"le", "<="},
        {"ge", ">="},
        {"asymp", "~"},
        {"frac12", "1/2"},
        {"frac14", "1/4"},
        {"frac34", "3/4"},
        {"deg", " deg"},
        {"middot", "."},
        {"bull", "*"},
        {"rarr", "->"},
        {"larr", "<-"},
        {"eacute", "e"},
        {"copy", "(c)"},
        {"reg", "(r)"},
        {"trade", "(tm)"},
        {"clubs", "\xE2\x99\xA3"},
        {"diams", "\xE2\x99\xA6"},
        {"hearts", "\xE2\x99\xA5"},
        {"spades", "\xE2\x99\xA0"},
    };
    return table;
}

std::string lower(std::string s) {
    for (char& c : s)
        c = static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
    return s;
}

bool isNameChar(char c) {
    return std::isalnum(static_cast<unsigned char>(c)) != 0 || c == '-' || c == '_' || c == ':';
}

// Parses the inside of "<...>" (without the brackets).
Tag parseTag(const std::string& inside) {
    Tag tag;
    std::size_t i = 0;
    if (i < inside.size() && inside[i] == '/') {
        tag.closing = true;
        ++i;
    }
    std::size_t start = i;
    while (i < inside.size() && isNameChar(inside[i]))
        ++i;
    tag.name = lower(inside.substr(start, i - start));
    while (i < inside.size()) {
        while (i < inside.size() && std::isspace(static_cast<unsigned char>(inside[i])) != 0)
            ++i;
        if (i >= inside.size())
            break;
        if (inside[i] == '/') {
            tag.selfClosing = true;
            ++i;
            continue;
        }
        start = i;
        while (i < inside.size() && isNameChar(inside[i]))
            ++i;
        if (i == start) {  // stray character: skip it
            ++i;
            continue;
        }
        std::string name = lower(inside.substr(start, i - start));
        std::string value;
        while (i < inside.size() && std::isspace(static_cast<unsigned char>(inside[i])) != 0)
            ++i;
        if (i < inside.size() && inside[i] == '=') {
            ++i;
            while (i < inside.size() && std::isspace(static_cast<unsigned char>(inside[i])) != 0)
                ++i;
            if (i < inside.size() && (inside[i] == '"' || inside[i] == '\'')) {
                const char quote = inside[i++];
                start = i;
                while (i < inside.size() && inside[i] != quote)
                    ++i;
                value = inside.substr(start, i - start);
                if (i < inside.size())
                    ++i;
            } else {
                start = i;
                while (i < inside.size() &&
                       std::isspace(static_cast<unsigned char>(inside[i])) == 0)
                    ++i;
                value = inside.substr(start, i - start);
            }
        }
        tag.attributes[name] = decodeEntities(value);
    }
    return tag;
}

std::string stripTags(const std::string& raw) {
    std::string out;
    bool inTag = false;
    for (char c : raw) {
        if (c == '<') {
            inTag = true;
            out += ' ';
        } else if (c == '>') {
            inTag = false;
        } else if (!inTag) {
            out += c;
        }
    }
    return out;
}

}  // namespace

std::optional<std::string> readFile(const std::string& path) {
    std::ifstream in(path, std::ios::binary);
    if (!in)
        return std::nullopt;
    std::ostringstream buffer;
    buffer << in.rdbuf();
    return buffer.str();
}

std::string decodeEntities(const std::string& raw) {
    std::string out;
    std::size_t i = 0;
    while (i < raw.size()) {
        if (raw[i] == '&') {
            const std::size_t semi = raw.find(';', i);
            if (semi != std::string::npos && semi - i <= 10) {
                const std::string name = raw.substr(i + 1, semi - i - 1);
                if (!name.empty() && name[0] == '#') {
                    out += ' ';
                    i = semi + 1;
                    continue;
                }
                const auto found = namedEntities().find(name);
                if (found != namedEntities().end()) {
                    out += found->second;
                    i = semi + 1;
                    continue;
                }
            }
        }
        out += raw[i++];
    }
    return out;
}

std::vector<std::string> unknownEntities(const std::string& source) {
    std::vector<std::string> unknown;
    for (std::size_t i = source.find('&'); i != std::string::npos; i = source.find('&', i + 1)) {
        std::size_t j = i + 1;
        if (j < source.size() && source[j] == '#') {
            ++j;
            while (j < source.size() && std::isalnum(static_cast<unsigned char>(source[j])) != 0)
                ++j;
            if (j >= source.size() || source[j] != ';' || j == i + 2)
                unknown.push_back(source.substr(i, j - i + 1));
            continue;
        }
        while (j < source.size() && std::isalnum(static_cast<unsigned char>(source[j])) != 0)
            ++j;
        const std::string name = source.substr(i + 1, j - i - 1);
        if (j >= source.size() || source[j] != ';' || namedEntities().count(name) == 0)
            unknown.push_back(source.substr(i, std::min<std::size_t>(j - i + 1, 16)));
    }
    return unknown;
}

Page scan(const std::string& source) {
    Page page;
    page.source = source;
    std::string rawText;
    std::size_t i = 0;
    while (i < source.size()) {
        if (source.compare(i, 4, "<!--") == 0) {
            const std::size_t close = source.find("-->", i + 4);
            i = close == std::string::npos ? source.size() : close + 3;
            continue;
        }
        if (source[i] == '<' && i + 1 < source.size() &&
            (std::isalpha(static_cast<unsigned char>(source[i + 1])) != 0 || source[i + 1] == '/' ||
             source[i + 1] == '!')) {
            const std::size_t close = source.find('>', i);
            if (close == std::string::npos)
                break;
            if (source[i + 1] != '!') {
                Tag tag = parseTag(source.substr(i + 1, close - i - 1));
                tag.offset = i;
                tag.end = close + 1;
                page.tags.push_back(std::move(tag));
            }
            rawText += ' ';
            i = close + 1;
            continue;
        }
        rawText += source[i++];
    }
    page.text = decodeEntities(rawText);
    return page;
}

std::string textInside(const Page& page, std::size_t index) {
    const std::size_t end = matchingEnd(page, index);
    if (end == std::string::npos)
        return {};
    const Tag& open = page.tags[index];
    return decodeEntities(
        stripTags(page.source.substr(open.end, page.tags[end].offset - open.end)));
}

std::size_t countWords(const std::string& text) {
    // A word is a run of letters or digits; an apostrophe, point or comma between two such
    // characters ("Hold'em", "2,598,960", "0.45") does not split it.
    std::size_t words = 0;
    for (std::size_t i = 0; i < text.size(); ++i) {
        const auto alnum = [&](std::size_t k) {
            return k < text.size() && std::isalnum(static_cast<unsigned char>(text[k])) != 0;
        };
        if (!alnum(i))
            continue;
        ++words;
        while (alnum(i) || ((text[i] == '\'' || text[i] == '.' || text[i] == ',') && alnum(i + 1) &&
                            i > 0 && alnum(i - 1)))
            ++i;
    }
    return words;
}

std::size_t matchingEnd(const Page& page, std::size_t index) {
    const Tag& open = page.tags.at(index);
    int depth = 0;
    for (std::size_t k = index + 1; k < page.tags.size(); ++k) {
        const Tag& tag = page.tags[k];
        if (tag.name != open.name || tag.selfClosing)
            continue;
        if (!tag.closing) {
            ++depth;
        } else if (depth == 0) {
            return k;
        } else {
            --depth;
        }
    }
    return std::string::npos;
}

std::vector<std::string> classNames(const Tag& tag) {
    std::vector<std::string> names;
    const auto found = tag.attributes.find("class");
    if (found == tag.attributes.end())
        return names;
    std::istringstream words(found->second);
    for (std::string name; words >> name;)
        names.push_back(name);
    return names;
}

}  // namespace lessons
