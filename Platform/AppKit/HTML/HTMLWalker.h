// SPDX-License-Identifier: Apache-2.0
//
// Writes the text that a browser would show of a document: goes through the tree without recursion, works out
// the style of each element, and turns blocks, breaks, lists, tables, pictures and form controls into text.
// Leaves off when the deadline passes.
#pragma once

#include "Platform/AppKit/HTML/HTMLElements.h"
#include "Platform/AppKit/HTML/HTMLStyleSheet.h"
#include "Platform/AppKit/HTML/HTMLTextWriter.h"
#include "Platform/Foundation/Deadline.h"

#include <cstddef>
#include <gumbo.h>
#include <vector>

class HTMLWalker {
public:
    // The page lies in as many others as `depth` says.
    HTMLWalker(HTMLStyleSheet& sheet, HTMLTextWriter& writer, Deadline& deadline, size_t depth)
        : sheet_(sheet), writer_(writer), deadline_(deadline), depth_(depth) {}

    void walk(const GumboNode& document);

private:
    // What an element hands down to its children.
    struct Inherited {
        HTMLTextRules text;
        bool blockChildren = false;  // children are blocks, as in a flex box
        bool softLineBreaks = false; // the innermost block is a paragraph, a list item or a heading
    };

    struct Style {
        HTMLDisplay display = HTMLDisplay::inlined;
        HTMLListStyle listStyle = HTMLListStyle::disc;
        Inherited inherited;
    };

    // An element whose children are being written.
    struct Frame {
        const GumboVector* children = nullptr;
        unsigned next = 0;
        GumboTag tag = GUMBO_TAG_UNKNOWN;
        HTMLDisplay display = HTMLDisplay::inlined;
        size_t begin = 0; // of its text
        Inherited inherited;
        std::vector<const GumboNode*> chosen; // the children in their order when that is not the document's
        bool usesChosen = false, isList = false;
    };

    const GumboNode* nextChild(Frame& frame) const;
    void visit(const GumboNode& node);
    void enter(const GumboNode& node);
    void leave(const Frame& frame);

    Style styleOf(const HTMLElement& element, const Inherited& outer);
    bool breaksParagraph(GumboTag tag, HTMLDisplay display) const;
    bool isPlainInList(GumboTag tag, HTMLDisplay display) const;
    bool writeWithoutChildren(const HTMLElement& element, const Style& style);
    void writeFrame(const char* page);
    void lineBreak(const HTMLElement& element);
    HTMLListStyle defaultListStyle(GumboTag tag) const;

    HTMLStyleSheet& sheet_;
    HTMLTextWriter& writer_;
    Deadline& deadline_;
    const size_t depth_;
    std::vector<Frame> frames_;                  // the document's own first
    std::vector<HTMLElementName> ancestors_;     // the names of all other frames
    size_t tables_ = 0, quotes_ = 0, lists_ = 0; // open ones
};
