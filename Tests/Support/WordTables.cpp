// SPDX-License-Identifier: Apache-2.0
#include "Tests/Support/WordTables.h"

#include "Tests/Support/LittleEndianWriter.h"

#include <stdexcept>

namespace {

constexpr size_t kPageSize = 512;

void appendLevel(std::string& out, const WordListLevel& level) {
    append32(out, level.start);
    append8(out, level.format);
    append8(out, level.flags);
    out.append(9, '\0'); // where the numbers stand in the text
    append8(out, 0);     // a tab follows
    append32(out, 0);
    append32(out, 0);
    append8(out, unsigned(level.characters.size()));
    append8(out, 0); // no modifiers of the paragraph
    append8(out, level.restartLimit);
    append8(out, 0);
    out += level.characters;
    append16(out, unsigned(level.text.size()));
    appendWide(out, level.text);
}

} // namespace

std::string modifier(unsigned code, std::initializer_list<unsigned> operand) {
    std::string bytes;
    append16(bytes, code);
    for (unsigned byte : operand) append8(bytes, byte);
    return bytes;
}

std::string oldModifier(unsigned code, std::initializer_list<unsigned> operand) {
    std::string bytes;
    append8(bytes, code);
    for (unsigned byte : operand) append8(bytes, byte);
    return bytes;
}

std::string formattingPage(WordLayout layout, bool isOfParagraphs, uint32_t begin,
                           const std::vector<WordRun>& runs) {
    bool isOld = layout == WordLayout::word6;
    size_t entrySize = !isOfParagraphs ? 1 : isOld ? 7 : 13;
    std::string page;
    append32(page, begin);
    for (const WordRun& run : runs) append32(page, run.end);
    size_t entries = page.size();
    page.resize(kPageSize);
    size_t bottom = kPageSize - 1;
    for (size_t i = 0; i < runs.size(); ++i) {
        std::string stored;
        if (isOfParagraphs) {
            append16(stored, runs[i].style);
            stored += runs[i].modifiers;
            if (stored.size() % 2 == 1 && !isOld) {
                stored.insert(0, 1, char((stored.size() + 1) / 2));
            } else {
                if (stored.size() % 2 == 1) stored.push_back('\0');
                stored.insert(0, 1, char(stored.size() / 2));
                if (!isOld) stored.insert(0, 1, '\0');
            }
        } else if (!runs[i].modifiers.empty()) {
            append8(stored, unsigned(runs[i].modifiers.size()));
            stored += runs[i].modifiers;
        }
        if (stored.empty()) continue;
        bottom = (bottom - stored.size()) & ~size_t(1);
        if (bottom < entries + entrySize * runs.size()) throw std::length_error("too much for a page");
        page.replace(bottom, stored.size(), stored);
        page[entries + entrySize * i] = char(bottom / 2);
    }
    page.back() = char(runs.size());
    return page;
}

std::string WordStyles::description(const WordStyle& style) const {
    bool isOld = layout_ == WordLayout::word6;
    std::string bytes;
    append16(bytes, 0xFFE);
    append16(bytes, (style.isOfCharacters ? 2 : 1) | style.base << 4);
    append16(bytes, (style.isOfCharacters ? 1 : 2) | 0xFFF << 4);
    append16(bytes, 0);
    if (isOld) {
        append8(bytes, 4);
        bytes += std::string_view("Name\0", 5);
    } else {
        append16(bytes, 0);
        append16(bytes, 4);
        appendWide(bytes, std::u16string_view(u"Name\0", 5));
    }
    auto appendPart = [&](const std::string& part) {
        padTo(bytes, 2);
        append16(bytes, unsigned(part.size()));
        bytes += part;
    };
    if (!style.isOfCharacters) appendPart(std::string(2, '\0') + style.paragraph);
    appendPart(style.characters);
    return bytes;
}

std::string WordStyles::bytes() const {
    if (styles_.empty()) return {};
    bool isOld = layout_ == WordLayout::word6;
    std::string bytes;
    append16(bytes, 18);
    append16(bytes, unsigned(styles_.size()));
    append16(bytes, isOld ? 8 : 10);
    bytes.resize(2 + 18);
    for (const WordStyle& style : styles_) {
        std::string next = description(style);
        append16(bytes, unsigned(next.size()));
        bytes += next;
    }
    return bytes;
}

void WordFonts::add(std::u16string_view name, unsigned characterSet) {
    std::string font;
    append8(font, 0x16);
    append16(font, 400);
    append8(font, characterSet);
    append8(font, 0);
    if (layout_ == WordLayout::word6) {
        font.append(name.begin(), name.end());
        append8(font, 0);
    } else {
        font.resize(39);
        appendWide(font, name);
        append16(font, 0);
    }
    append8(fonts_, unsigned(font.size()));
    fonts_ += font;
    ++count_;
}

std::string WordFonts::bytes() const {
    std::string bytes;
    if (layout_ == WordLayout::word6) {
        append16(bytes, unsigned(fonts_.size() + 2));
    } else {
        append16(bytes, count_);
        append16(bytes, 0);
    }
    return bytes + fonts_;
}

std::string WordLists::lists() const {
    std::string bytes;
    append16(bytes, unsigned(lists_.size()));
    for (const WordList& list : lists_) {
        append32(bytes, list.identifier);
        append32(bytes, 0);
        bytes.append(18, '\xFF');
        append8(bytes, list.levels.size() == 1 ? 1 : 0);
        append8(bytes, 0);
    }
    return bytes;
}

std::string WordLists::levels() const {
    std::string bytes;
    for (const WordList& list : lists_) {
        size_t count = list.levels.size() == 1 ? 1 : 9;
        for (size_t i = 0; i < count; ++i)
            appendLevel(bytes, list.levels[std::min(i, list.levels.size() - 1)]);
    }
    return bytes;
}

std::string WordLists::overrides() const {
    std::string bytes, changes;
    append32(bytes, uint32_t(overrides_.size()));
    for (const WordListOverride& change : overrides_) {
        append32(bytes, change.list);
        append32(bytes, 0);
        append32(bytes, 0);
        append8(bytes, unsigned(change.levels.size()));
        bytes.append(3, '\0');
        append32(changes, 0xFFFFFFFF);
        for (const WordListOverride::Level& level : change.levels) {
            append32(changes, level.start.value_or(0));
            append32(changes, level.level | (level.start ? 0x10 : 0) | (level.format ? 0x20 : 0));
            if (level.format) appendLevel(changes, *level.format);
        }
    }
    return bytes + changes;
}
