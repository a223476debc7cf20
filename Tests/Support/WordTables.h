// SPDX-License-Identifier: Apache-2.0
//
// The tables of binary Word documents, made for tests: modifiers, pages of formatting, styles, fonts and
// lists.
#pragma once

#include <cstdint>
#include <initializer_list>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

enum class WordLayout { word6, word97 };

// A modifier of Word 97 and one of Word 6, with the bytes of its operand.
std::string modifier(unsigned code, std::initializer_list<unsigned> operand);
std::string oldModifier(unsigned code, std::initializer_list<unsigned> operand);

// Properties that hold up to a position.
struct WordRun {
    uint32_t end = 0;
    std::string modifiers;
    unsigned style = 0; // of paragraphs
};

// One page of formatting for runs that begin at `begin` and end at offsets of the main stream.
std::string formattingPage(WordLayout layout, bool isOfParagraphs, uint32_t begin,
                           const std::vector<WordRun>& runs);

struct WordStyle {
    bool isOfCharacters = false;
    unsigned base = 0xFFF;
    std::string characters, paragraph; // modifiers
};

class WordStyles {
public:
    explicit WordStyles(WordLayout layout) : layout_(layout) {}
    void add(const WordStyle& style) { styles_.push_back(style); }
    std::string bytes() const; // "" when there are none

private:
    std::string description(const WordStyle& style) const;

    WordLayout layout_;
    std::vector<WordStyle> styles_;
};

class WordFonts {
public:
    explicit WordFonts(WordLayout layout) : layout_(layout) {}
    void add(std::u16string_view name, unsigned characterSet);
    std::string bytes() const;

private:
    WordLayout layout_;
    unsigned count_ = 0;
    std::string fonts_;
};

struct WordListLevel {
    uint32_t start = 1;
    unsigned format = 0;
    std::u16string text; // with 0 to 8 for the numbers
    unsigned flags = 0, restartLimit = 0;
    std::string characters; // modifiers
};

struct WordList {
    uint32_t identifier = 1;
    std::vector<WordListLevel>
        levels; // one, or up to nine; those that are missing are copies of the last one
};

struct WordListOverride {
    uint32_t list = 1;
    struct Level {
        unsigned level = 0;
        std::optional<uint32_t> start;
        std::optional<WordListLevel> format;
    };
    std::vector<Level> levels;
};

class WordLists {
public:
    void add(const WordList& list) { lists_.push_back(list); }
    void add(const WordListOverride& change) { overrides_.push_back(change); }
    bool empty() const { return lists_.empty(); }

    std::string lists() const;  // what is declared as the table of lists
    std::string levels() const; // what follows it
    std::string overrides() const;

private:
    std::vector<WordList> lists_;
    std::vector<WordListOverride> overrides_;
};
