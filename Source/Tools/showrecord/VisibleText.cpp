// SPDX-License-Identifier: Apache-2.0
#include "Source/Tools/showrecord/VisibleText.h"

#include "Platform/Foundation/UnicodeText.h"

#include <cstdio>

namespace {

constexpr char16_t kLineBreak = 0x2028, kPageBreak = 0x0C;

bool isControl(char16_t c) { return c < 0x20 || (c >= 0x7F && c < 0xA0) || c == 0x2028 || c == 0x2029; }

bool isLoneSurrogate(std::u16string_view text, size_t at) {
    if (isHighSurrogate(text[at])) return at + 1 == text.size() || !isLowSurrogate(text[at + 1]);
    return isLowSurrogate(text[at]) && (at == 0 || !isHighSurrogate(text[at - 1]));
}

std::string escape(char16_t unit) {
    char text[8];
    snprintf(text, sizeof text, "\\u%04x", unsigned(unit));
    return text;
}

// Appends UTF-8, with what `replacement` gives for a unit in the unit's place where that is not empty.
template <class Replacement>
void appendReplacing(std::string& out, std::u16string_view text, const Replacement& replacement) {
    size_t start = 0;
    for (size_t at = 0; at < text.size(); ++at) {
        std::string instead = isLoneSurrogate(text, at) ? escape(text[at]) : replacement(text[at]);
        if (instead.empty()) continue;
        out += toUTF8(text.substr(start, at - start));
        out += instead;
        start = at + 1;
    }
    out += toUTF8(text.substr(start));
}

std::string visible(char16_t unit) {
    return isControl(unit) && unit != u'\n' && unit != u'\t' ? escape(unit) : std::string();
}

std::string visibleInDocument(char16_t unit) {
    switch (unit) {
    case kLineBreak: return "↵\n";
    case kPageBreak: return "␌\n";
    default: return visible(unit);
    }
}

std::string insideJSONString(char16_t unit) {
    switch (unit) {
    case u'"': return "\\\"";
    case u'\\': return "\\\\";
    case u'\b': return "\\b";
    case u'\f': return "\\f";
    case u'\n': return "\\n";
    case u'\r': return "\\r";
    case u'\t': return "\\t";
    default: return isControl(unit) ? escape(unit) : std::string();
    }
}

} // namespace

void appendVisible(std::string& out, std::u16string_view text) { appendReplacing(out, text, visible); }

void appendVisibleDocument(std::string& out, std::u16string_view text) {
    appendReplacing(out, text, visibleInDocument);
}

void appendJSONString(std::string& out, std::u16string_view text) {
    out.push_back('"');
    appendReplacing(out, text, insideJSONString);
    out.push_back('"');
}
