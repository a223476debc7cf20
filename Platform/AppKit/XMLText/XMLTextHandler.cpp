// SPDX-License-Identifier: Apache-2.0
#include "Platform/AppKit/XMLText/XMLTextHandler.h"

#include "Platform/Foundation/UnicodeText.h"

#include <algorithm>
#include <iterator>

namespace {

// Runs, phrases, links and marks, by their names in the formats of offices, books and drawings.
constexpr std::string_view kInWords[] = {"a",
                                         "abbr",
                                         "b",
                                         "bookmark",
                                         "bookmark-end",
                                         "bookmark-start",
                                         "cite",
                                         "code",
                                         "del",
                                         "em",
                                         "emphasis",
                                         "font",
                                         "i",
                                         "ins",
                                         "mark",
                                         "q",
                                         "r",
                                         "rPr",
                                         "s",
                                         "small",
                                         "soft-page-break",
                                         "span",
                                         "strong",
                                         "sub",
                                         "sup",
                                         "t",
                                         "textPath",
                                         "tspan",
                                         "u"};

// Programs, styles, pronunciations, bytes of pictures, and what only programs say to one another.
constexpr std::string_view kLeftOut[] = {"automatic-styles", "binary",        "binary-data", "headerFooter",
                                         "identifier",       "master-styles", "meta",        "rPh",
                                         "script",           "scripts",       "settings",    "style",
                                         "styles",           "tableStyleId"};

template <size_t count>
bool contains(const std::string_view (&names)[count], std::string_view name) {
    return std::find(std::begin(names), std::end(names), name) != std::end(names);
}

} // namespace

void XMLTextHandler::startElement(int, std::string_view name, const XMLAttributes& attributes) {
    hasRoot_ = true;
    if (leftOut_ > 0 || isLeftOut(name, attributes)) {
        ++leftOut_;
        return;
    }
    endLine(name);
    // An outline has its texts in attributes.
    for (const char* attribute : {"text", "_note"}) {
        if (name != "outline" || !attributes.has(0, attribute)) continue;
        appendUTF8(text_, attributes.value(0, attribute));
        text_ += u'\n';
    }
}

bool XMLTextHandler::isLeftOut(std::string_view name, const XMLAttributes& attributes) {
    if (name == "c") {
        isInCell_ = true;
        isSharedCell_ = attributes.value(0, "t") == "s";
    }
    // Of a cell of a sheet, the formula, and the number of a text that stands elsewhere.
    if (isInCell_ && (name == "f" || (name == "v" && isSharedCell_))) return true;
    // Books in FictionBook have phrases of this name that name their style.
    if (name == "style") return !attributes.has(0, "name");
    return contains(kLeftOut, name);
}

void XMLTextHandler::endElement(int, std::string_view name) {
    if (leftOut_ > 0) {
        --leftOut_;
        return;
    }
    if (name == "c") isInCell_ = false;
    endLine(name);
}

void XMLTextHandler::characters(std::string_view utf8) {
    if (leftOut_ == 0) appendUTF8(text_, utf8);
}

void XMLTextHandler::endLine(std::string_view element) {
    const bool isInWord = element == "style" || contains(kInWords, element);
    if (!isInWord && !text_.empty() && text_.back() != u'\n') text_ += u'\n';
}
