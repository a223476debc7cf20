// SPDX-License-Identifier: Apache-2.0
#include "Platform/AppKit/HTML/HTMLHead.h"

#include "Platform/AppKit/HTML/HTMLCharacters.h"
#include "Platform/AppKit/HTML/HTMLTree.h"
#include "Platform/Foundation/CalendarDate.h"
#include "Platform/Foundation/UnicodeText.h"

#include <charconv>
#include <optional>
#include <string>

namespace {

std::string textOf(const GumboNode& element) {
    std::string text;
    const GumboVector& children = element.v.element.children;
    for (unsigned i = 0; i < children.length; ++i) {
        const auto& child = *static_cast<const GumboNode*>(children.data[i]);
        if (!childrenOf(&child) && child.type != GUMBO_NODE_COMMENT) text.append(child.v.text.text);
    }
    return text;
}

std::u16string titleFrom(std::string_view text) {
    std::string title;
    for (std::string_view word = takeWord(text); !word.empty(); word = takeWord(text)) {
        if (!title.empty()) title.push_back(' ');
        title.append(word);
    }
    return fromUTF8(title);
}

std::string_view attributeOf(const GumboNode& element, const char* name) {
    const GumboAttribute* attribute = gumbo_get_attribute(&element.v.element.attributes, name);
    return attribute ? std::string_view(attribute->value) : std::string_view();
}

// "2020-05-31T23:59:59Z", and nothing else.
std::optional<DocumentTime> timeFrom(std::string_view text) {
    constexpr std::string_view kPattern = "dddd-dd-ddTdd:dd:ddZ";
    if (text.size() != kPattern.size()) return std::nullopt;
    for (size_t i = 0; i < kPattern.size(); ++i) {
        if (kPattern[i] == 'd' ? !isDigit(text[i]) : text[i] != kPattern[i]) return std::nullopt;
    }
    auto number = [text](size_t begin, size_t length) {
        int value = 0;
        std::from_chars(text.data() + begin, text.data() + begin + length, value);
        return value;
    };
    const CalendarDate date{number(0, 4),  number(5, 2),  number(8, 2),
                            number(11, 2), number(14, 2), number(17, 2)};
    if (!isCalendarDay(date) || date.hour > 23 || date.minute > 59 || date.second > 59) return std::nullopt;
    return referenceTime(date);
}

void takeStyle(const GumboNode& element, HTMLStyleSheet& sheet) {
    const std::string_view type = trimmed(attributeOf(element, "type"));
    if (!type.empty() && !equalIgnoringCase(type, "text/css")) return;
    const std::string_view media = attributeOf(element, "media");
    const GumboVector& children = element.v.element.children;
    for (unsigned i = 0; i < children.length; ++i) {
        const auto& child = *static_cast<const GumboNode*>(children.data[i]);
        if (child.type == GUMBO_NODE_TEXT || child.type == GUMBO_NODE_CDATA)
            sheet.add(child.v.text.text, media);
    }
}

} // namespace

std::vector<std::u16string> splitMetaKeywords(std::string_view content) {
    std::vector<std::u16string> keywords;
    if (content.empty()) return keywords;
    std::string_view separator = ", ";
    if (content.find(separator) == std::string_view::npos) {
        separator = content.find(',') != std::string_view::npos ? "," : " ";
    }
    while (true) {
        const size_t end = content.find(separator);
        keywords.push_back(fromUTF8(content.substr(0, end)));
        if (end == std::string_view::npos) return keywords;
        content.remove_prefix(end + separator.size());
    }
}

void takeMeta(std::string_view name, std::string_view content, DocumentInfo& info) {
    struct Text {
        std::string_view name;
        std::u16string DocumentInfo::*member;
    };
    constexpr Text kTexts[] = {
        {"author", &DocumentInfo::author},   {"lastauthor", &DocumentInfo::editor},
        {"company", &DocumentInfo::company}, {"copyright", &DocumentInfo::copyright},
        {"subject", &DocumentInfo::subject}, {"description", &DocumentInfo::comment},
        {"comment", &DocumentInfo::comment},
    };
    for (const Text& text : kTexts) {
        if (equalIgnoringCase(name, text.name)) info.*text.member = fromUTF8(content);
    }
    if (equalIgnoringCase(name, "keywords")) {
        info.keywords = splitMetaKeywords(content);
    } else if (equalIgnoringCase(name, "creationtime")) {
        if (const auto time = timeFrom(content)) info.creationTime = time;
    } else if (equalIgnoringCase(name, "modificationtime")) {
        if (const auto time = timeFrom(content)) info.modificationTime = time;
    } else if (equalIgnoringCase(name, "cocoaversion")) {
        double version = 0;
        content = trimmed(content);
        const auto [end, error] = std::from_chars(content.data(), content.data() + content.size(), version);
        info.cocoaVersion = error == std::errc() ? version : 0;
    }
}

void readHead(const GumboNode& document, Deadline& deadline, DocumentInfo& info, HTMLStyleSheet& sheet) {
    struct Place {
        const GumboVector* children;
        unsigned next;
    };
    std::vector<Place> places = {{childrenOf(&document), 0}};
    bool hasTitle = false;
    while (!places.empty() && !deadline.passed()) {
        Place& place = places.back();
        if (place.next == place.children->length) {
            places.pop_back();
            continue;
        }
        const auto& node = *static_cast<const GumboNode*>(place.children->data[place.next++]);
        if (node.type != GUMBO_NODE_ELEMENT) continue;
        const GumboElement& element = node.v.element;
        const bool isHTML = element.tag_namespace == GUMBO_NAMESPACE_HTML;
        if (element.tag == GUMBO_TAG_STYLE) {
            takeStyle(node, sheet);
        } else if (element.tag == GUMBO_TAG_TITLE && isHTML) {
            if (!hasTitle) info.title = titleFrom(textOf(node));
            hasTitle = true;
        } else if (element.tag == GUMBO_TAG_META && isHTML) {
            takeMeta(trimmed(attributeOf(node, "name")), attributeOf(node, "content"), info);
        } else if (element.children.length > 0) {
            places.push_back({&element.children, 0});
        }
    }
}
