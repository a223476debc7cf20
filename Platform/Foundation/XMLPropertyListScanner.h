// SPDX-License-Identifier: Apache-2.0
//
// The markup of XML property lists: tags, text and what stands around the root. Attributes say nothing in a
// property list and are passed over. Answers of false come with a problem, and the scanner is of no use
// afterwards.
#pragma once

#include "Platform/Foundation/NSString.h"

#include <string>
#include <string_view>

class XMLPropertyListScanner {
public:
    struct Tag {
        std::u16string_view name;
        bool isEmpty = false; // "<name/>"
    };

    // The text must outlive the scanner.
    explicit XMLPropertyListScanner(std::u16string_view text) : text_(text) {}

    // Past declaration, document type, comments and white space, to the root's tag.
    bool skipProlog();
    // Past comments and white space, to the next tag.
    bool skipToTag();
    // At a tag: whether it is an end tag.
    bool isEndTag() const { return startsWith(u"</"); }

    bool startTag(Tag& tag);
    bool endTag(std::u16string_view name);
    // The text of an element, with its end tag.
    bool elementText(std::u16string_view name, std::u16string& text);
    // As it stands, to the next tag.
    std::u16string_view rawText();

    // Sets the problem, "<what> at line <n>".
    bool fail(const NSString& what);
    const NSString& problem() const { return problem_; }

private:
    bool startsWith(std::u16string_view prefix) const { return text_.substr(at_, prefix.size()) == prefix; }
    bool skipPast(std::u16string_view terminator);
    void skipSpaces();
    bool skipDocumentType();
    bool skipInternalSubset();
    bool reference(std::u16string& text);
    bool unexpected();

    const std::u16string_view text_;
    size_t at_ = 0;
    NSString problem_;
};
