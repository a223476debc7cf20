// SPDX-License-Identifier: Apache-2.0
#include "Platform/AppKit/HTML/HTMLTagScanner.h"

#include "Platform/AppKit/HTML/HTMLCharacters.h"

namespace {

constexpr bool endsName(char c) { return isHTMLSpace(c) || c == '/' || c == '>'; }

} // namespace

void HTMLTagScanner::stepOver(std::string_view closing, size_t from) {
    const size_t found = source_.find(closing, from);
    position_ = found == std::string_view::npos ? source_.size() : found + closing.size();
}

// At "<!", "<?" or "</" before other than a letter.
void HTMLTagScanner::stepOverMarkup() {
    const std::string_view rest = source_.substr(position_);
    if (rest.substr(0, 4) == "<!--") {
        // "<!-->" and "<!--->" are whole comments; a comment may also end in "--!>".
        size_t dashes = position_ + 2;
        while ((dashes = source_.find("--", dashes)) != std::string_view::npos) {
            size_t closing = dashes + 2;
            if (dashes > position_ + 3 && closing < source_.size() && source_[closing] == '!') ++closing;
            if (closing < source_.size() && source_[closing] == '>') {
                position_ = closing + 1;
                return;
            }
            ++dashes;
        }
        moveToEnd();
    } else if (sections_ && rest.substr(0, 9) == "<![CDATA[") {
        stepOver("]]>", position_ + 9);
    } else {
        stepOver(">", position_ + 2);
    }
}

bool HTMLTagScanner::nextTag(HTMLTag& tag) {
    HTMLTagAttribute unread;
    while (inTag_ && nextAttribute(unread)) {
    }
    while (true) {
        const size_t open = source_.find('<', position_);
        if (open == std::string_view::npos || open + 1 >= source_.size()) {
            moveToEnd();
            return false;
        }
        position_ = open;
        const bool isEnd = source_[open + 1] == '/';
        const size_t nameBegin = open + 1 + (isEnd ? 1 : 0);
        if (nameBegin < source_.size() && isLetter(source_[nameBegin])) {
            position_ = nameBegin;
            while (!atEnd() && !endsName(current())) ++position_;
            tag = {isEnd, source_.substr(nameBegin, position_ - nameBegin), open};
            inTag_ = true;
            selfClosing_ = whole_ = false;
            return true;
        }
        if (isEnd || source_[open + 1] == '!' || source_[open + 1] == '?') {
            stepOverMarkup();
        } else {
            ++position_;
        }
    }
}

// Behind the '=' of an attribute.
std::string_view HTMLTagScanner::attributeValue() {
    while (!atEnd() && isHTMLSpace(current())) ++position_;
    if (atEnd()) return {};
    if (current() == '"' || current() == '\'') {
        const char quote = current();
        const size_t begin = ++position_;
        const size_t end = std::min(source_.find(quote, begin), source_.size());
        position_ = std::min(end + 1, source_.size());
        return source_.substr(begin, end - begin);
    }
    const size_t begin = position_;
    while (!atEnd() && !isHTMLSpace(current()) && current() != '>') ++position_;
    return source_.substr(begin, position_ - begin);
}

bool HTMLTagScanner::nextAttribute(HTMLTagAttribute& attribute) {
    if (!inTag_) return false;
    while (!atEnd() && (isHTMLSpace(current()) || current() == '/')) {
        selfClosing_ = current() == '/';
        ++position_;
    }
    if (atEnd() || current() == '>') {
        whole_ = !atEnd();
        if (whole_) ++position_;
        inTag_ = false;
        return false;
    }

    // A name may begin with '='.
    const size_t begin = position_++;
    while (!atEnd() && !endsName(current()) && current() != '=') ++position_;
    attribute = {source_.substr(begin, position_ - begin), {}, begin};
    selfClosing_ = false;

    size_t next = position_;
    while (next < source_.size() && isHTMLSpace(source_[next])) ++next;
    if (next < source_.size() && source_[next] == '=') {
        position_ = next + 1;
        attribute.value = attributeValue();
    }
    return true;
}

void HTMLTagScanner::skipRawText(std::string_view elementName) {
    HTMLTagAttribute unread;
    while (inTag_ && nextAttribute(unread)) {
    }
    while (!atEnd()) {
        const size_t open = source_.find("</", position_);
        if (open == std::string_view::npos) break;
        const size_t end = open + 2 + elementName.size();
        if (end < source_.size() && endsName(source_[end]) &&
            equalIgnoringCase(source_.substr(open + 2, elementName.size()), elementName)) {
            position_ = open;
            return;
        }
        position_ = open + 2;
    }
    moveToEnd();
}
