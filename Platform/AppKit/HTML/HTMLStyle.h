// SPDX-License-Identifier: Apache-2.0
//
// The few style properties that bear on a document's text, and their declarations as CSS writes them.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string_view>

enum class HTMLDisplay : uint8_t {
    none,
    contents,
    inlined,    // inline, inline-block and their like
    inlineFlex, // inline outside, its children are blocks; inline-grid too
    block,
    flex, // a block whose children are blocks; grid too
    listItem,
    table,
    caption,
    headerGroup,
    rowGroup,
    footerGroup,
    row,
    cell,
    column, // and column group
};

constexpr bool isBlock(HTMLDisplay display) { return display >= HTMLDisplay::block; }

enum class HTMLStyleProperty : uint8_t {
    display,       // an HTMLDisplay
    textTransform, // an HTMLTextTransform
    whiteSpace,    // 1 when white space is kept
    listStyle,     // an HTMLListStyle
    floating,      // 1 for a float
    positioned,    // 1 for absolute and fixed positions
};
constexpr size_t kHTMLStyleProperties = 6;

// What a block of declarations says; of declarations of one property in one block, the last that is as
// important.
struct HTMLDeclarations {
    std::array<uint8_t, kHTMLStyleProperties> values{};
    uint8_t set = 0, important = 0; // a bit for each property

    bool empty() const { return set == 0; }
};

// Reads declarations, as they stand in a style attribute or between the braces of a rule. What cannot be
// understood is skipped up to the next semicolon.
HTMLDeclarations parseDeclarations(std::string_view text);

// Walks over CSS text with its comments, strings, parentheses and escapes. Each byte is read once.
class HTMLStyleScanner {
public:
    explicit HTMLStyleScanner(std::string_view text) : text_(text) {}

    // Steps over white space, comments and the "<!--" and "-->" of old pages. False at the end.
    bool skipSpace();

    // Reads up to the first of `stops` that stands outside of strings, parentheses and brackets. The position
    // is behind it, `stop()` tells which it was, or 0 at the end.
    std::string_view readTo(std::string_view stops);
    char stop() const { return stop_; }

    // Behind a '{': reads what its block holds and goes behind the '}'.
    std::string_view readBlock();

    char current() const { return text_[position_]; }
    void advance() { ++position_; }

private:
    bool at(std::string_view what) const { return text_.substr(position_).starts_with(what); }
    void skipComment();
    void skipString();

    std::string_view text_;
    size_t position_ = 0;
    char stop_ = 0;
};
