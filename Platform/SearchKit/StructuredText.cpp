// SPDX-License-Identifier: Apache-2.0
#include "Platform/SearchKit/StructuredText.h"

#include "Platform/Foundation/ASCII.h"
#include "Platform/SearchKit/TextLines.h"

#include <optional>

namespace {

// The unit of "\uXXXX"; the digits stand behind the "u".
std::optional<char16_t> unitOfDigits(std::u16string_view digits) {
    if (digits.size() < 4) return std::nullopt;
    int value = 0;
    for (const char16_t c : digits.substr(0, 4)) {
        if (hexDigit(c) < 0) return std::nullopt;
        value = value * 16 + hexDigit(c);
    }
    return char16_t(value);
}

char16_t meaningOfEscape(char16_t letter) {
    constexpr std::u16string_view kLetters = u"bfnrt", kMeanings = u"\b\f\n\r\t";
    const size_t at = kLetters.find(letter);
    return at == kLetters.npos ? letter : kMeanings[at];
}

std::u16string_view takeLine(std::u16string_view& text) {
    std::u16string_view line = takePart(text, u'\n');
    if (line.ends_with(u'\r')) line.remove_suffix(1);
    return line;
}

// The line without "<...>" and "{...}", and with a blank for "\N", "\n" and "\h".
void appendWithoutMarks(std::u16string_view line, std::u16string& text) {
    // Where the last mark ends, so that no beginning without an end is looked for twice.
    const size_t angle = line.rfind(u'>') + 1, brace = line.rfind(u'}') + 1;
    for (size_t i = 0; i < line.size(); ++i) {
        size_t mark = line.npos;
        if (line[i] == u'<' && i < angle) mark = line.find(u'>', i);
        if (line[i] == u'{' && i < brace) mark = line.find(u'}', i);
        const bool isBreak = line[i] == u'\\' && i + 1 < line.size() &&
                             std::u16string_view(u"Nnh").find(line[i + 1]) != line.npos;
        if (mark != line.npos) {
            i = mark;
        } else if (isBreak) {
            text += u' ';
            ++i;
        } else {
            text += line[i];
        }
    }
    text += u'\n';
}

// SubStation Alpha: the text is the last of ten fields of a line.
std::u16string textOfDialogue(std::u16string_view script) {
    constexpr std::u16string_view kDialogue = u"Dialogue:";
    std::u16string text;
    while (!script.empty()) {
        std::u16string_view line = takeLine(script);
        if (!line.starts_with(kDialogue)) continue;
        for (int field = 0; field < 9; ++field) takePart(line, u',');
        appendWithoutMarks(line, text);
    }
    return text;
}

// Notes, styles and regions of WebVTT, and its first line.
bool beginsOtherBlock(std::u16string_view line) {
    for (const std::u16string_view name : {u"WEBVTT", u"NOTE", u"STYLE", u"REGION"}) {
        if (line.starts_with(name) && (line.size() == name.size() || isSpace(line[name.size()]))) return true;
    }
    return false;
}

} // namespace

std::u16string textOfJSON(std::u16string_view json) {
    std::u16string text;
    text.reserve(json.size());
    bool isInString = false;
    for (size_t i = 0; i < json.size(); ++i) {
        if (json[i] == u'"') isInString = !isInString;
        if (json[i] != u'\\' || !isInString || i + 1 == json.size()) {
            text += json[i];
            continue;
        }
        const char16_t letter = json[++i];
        const auto unit = letter == u'u' ? unitOfDigits(json.substr(i + 1)) : std::nullopt;
        text += unit ? *unit : meaningOfEscape(letter);
        if (unit) i += 4;
    }
    return text;
}

std::u16string textOfTable(std::u16string_view table) {
    std::u16string text(table);
    const char16_t separator = takeLine(table).find(u';') == table.npos ? u',' : u';';
    bool isQuoted = false;
    for (char16_t& c : text) {
        if (c == u'"') isQuoted = !isQuoted;
        if (c == separator && !isQuoted) c = u'\n';
    }
    return text;
}

std::u16string textOfSubtitles(std::u16string_view subtitles) {
    if (subtitles.find(u"\nDialogue:") != subtitles.npos) return textOfDialogue(subtitles);
    std::u16string text;
    bool isAtBlock = true, isOther = false;
    while (!subtitles.empty()) {
        const std::u16string_view line = takeLine(subtitles);
        std::u16string_view ahead = subtitles;
        const bool isTime = line.find(u"-->") != line.npos;
        const bool isName = isAtBlock && !isTime && takeLine(ahead).find(u"-->") != line.npos;
        if (isAtBlock) isOther = beginsOtherBlock(line);
        if (!isTime && !isName && !isOther) appendWithoutMarks(line, text);
        isAtBlock = line.empty();
    }
    return text;
}
