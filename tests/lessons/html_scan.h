// A small reader for the lesson pages: splits a page into tags and text, enough to check
// structure, links and wording. Not a general HTML parser.
#pragma once

#include <map>
#include <optional>
#include <string>
#include <vector>

namespace lessons {

struct Tag {
    std::string name;  // lower case, without the slash
    bool closing = false;
    bool selfClosing = false;
    std::map<std::string, std::string> attributes;  // names in lower case
    std::size_t offset = 0;                         // where '<' stands in the page
    std::size_t end = 0;                            // just behind the closing '>'
};

struct Page {
    std::string source;
    std::vector<Tag> tags;
    std::string text;  // all text outside tags, entities decoded to plain characters
};

// Reads a whole file; nullopt if it cannot be opened.
std::optional<std::string> readFile(const std::string& path);

// Splits a page. Comments and the doctype are skipped; text inside tags is dropped.
Page scan(const std::string& source);

// Index of the end tag that closes the start tag at tags[index], or npos.
std::size_t matchingEnd(const Page& page, std::size_t index);

// Text between the start tag at tags[index] and its matching end tag, decoded.
std::string textInside(const Page& page, std::size_t index);

// Replaces character references (&amp;, &hearts;, &#39; ...) by plain characters.
std::string decodeEntities(const std::string& raw);

// Character references in the text that are not among the common named ones, or that lack
// their closing semicolon, such as "&heart;" or "&hearts ".
std::vector<std::string> unknownEntities(const std::string& source);

// Words of running text: runs of letters or digits (apostrophes and inner dots allowed).
std::size_t countWords(const std::string& text);

// Splits a class attribute into its names.
std::vector<std::string> classNames(const Tag& tag);

}  // namespace lessons
