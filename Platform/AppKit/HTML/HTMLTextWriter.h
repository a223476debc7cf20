// SPDX-License-Identifier: Apache-2.0
//
// Puts the text of an HTML document together: collapses white space, breaks paragraphs, and sets list markers
// in front of the paragraphs of lists.
//
// A space or a break is "soft" when it came from the layout and gives way to the next break.
#pragma once

#include "Platform/AppKit/HTML/HTMLListMarker.h"
#include "Platform/AppKit/HTML/HTMLTextTransform.h"
#include "Platform/AppKit/TextCharacters.h"

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

struct HTMLTextRules {
    HTMLTextTransform transform = HTMLTextTransform::none;
    bool keepsSpace = false;        // as in PRE
    bool plainNoBreakSpace = false; // U+00A0 becomes a space
};

class HTMLTextWriter {
public:
    // The length of the text so far, in UTF-16 units.
    size_t length() const { return text_.size(); }

    void reserve(size_t units) { text_.reserve(units); }

    // A text node, or the text of a form control.
    void text(std::string_view utf8, const HTMLTextRules& rules);

    // A character that the markup stands for, such as a quotation mark.
    void append(char16_t unit) { text_.push_back(unit); }

    // Begins a new paragraph unless one has just begun; with `force` in any case. With `suppressSpace` a soft
    // space or line break at the end gives way to the break.
    void newParagraph(bool force, bool suppressSpace);

    // Where BODY and HTML begin and end: only takes a soft space or line break off the end.
    void endBody();

    void lineBreak();
    void tab();

    // Lists nest. Each paragraph that begins directly in a list gets TAB, marker, TAB in front.
    void openList(HTMLListStyle style, int64_t firstNumber);
    void closeList();
    bool inList() const { return !openLists_.empty(); }

    // The whole text.
    std::u16string finish() &&;

private:
    static constexpr uint32_t kNoList = UINT32_MAX;

    struct List {
        HTMLListStyle style;
        int64_t number;
    };

    // From `begin` on, paragraphs belong to `list`.
    struct Ownership {
        size_t begin;
        uint32_t list;
    };

    char16_t last() const { return text_.empty() ? u'\n' : text_.back(); }
    bool endsInSoftSpace() const { return soft_ && (last() == u' ' || last() == kLineBreak); }
    bool beginsParagraph(size_t position) const;
    void collapsed(std::string_view utf8);
    void changeOwner();

    std::u16string text_;
    bool soft_ = false;
    std::vector<List> lists_;
    std::vector<uint32_t> openLists_;
    std::vector<Ownership> owners_;
};
