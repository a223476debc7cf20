// SPDX-License-Identifier: Apache-2.0
#include "Platform/AppKit/Word/StyleSheet.h"

#include "Platform/Foundation/LittleEndian.h"

#include <array>

namespace Word {

namespace {

constexpr uint16_t kStyleLimit = 0xFFF; // "no style", in twelve bits
constexpr size_t kDepthLimit = 32;      // of styles that build on each other

enum Kind : unsigned { kParagraphStyle = 1, kCharacterStyle = 2, kTableStyle = 3, kListStyle = 4 };

} // namespace

StyleSheet::StyleSheet(std::string_view table, bool isOld) {
    size_t headerSize = uint16At(table, 0);
    size_t count = std::min(uint16At(table, 2), kStyleLimit);
    size_t baseSize = uint16At(table, 4);
    size_t offset = 2 + headerSize;
    for (size_t i = 0; i < count && holds(table, offset, 2); ++i) {
        size_t size = uint16At(table, offset);
        styles_.push_back(readStyle(slice(table, offset + 2, size), baseSize, isOld));
        Toggle hidden = styles_.back().hidden;
        canHide_ |= hidden == Toggle::on || hidden == Toggle::oppositeOfStyle;
        offset += 2 + size;
    }
}

StyleSheet::Style StyleSheet::readStyle(std::string_view description, size_t baseSize, bool isOld) {
    Style style;
    style.base = kStyleLimit;
    if (description.empty()) return style;
    unsigned kind = uint16At(description, 2) & 0xF;
    style.base = uint16At(description, 2) >> 4;
    unsigned partCount = uint16At(description, 4) & 0xF;

    size_t nameLength = isOld ? uint8At(description, baseSize) : uint16At(description, baseSize);
    size_t offset = baseSize + (isOld ? 2 + nameLength : 4 + 2 * nameLength); // the length, the name, a zero
    CharacterModifiers characters;
    ParagraphModifiers paragraphs;
    for (unsigned part = 0; part < partCount && offset < description.size(); ++part) {
        offset += offset & 1;
        size_t size = uint16At(description, offset);
        std::string_view bytes = slice(description, offset + 2, size);
        // Table styles have a part for the table in front, list styles none for characters.
        unsigned role = kind == kTableStyle ? part : part + 1;
        if (kind == kCharacterStyle) role = 2;
        if (role == 1) paragraphs.apply(slice(bytes, 2), isOld); // behind the style's own index
        if (role == 2) characters.apply(bytes, isOld);
        offset += 2 + size;
    }
    style.hidden = characters.hidden;
    style.font = characters.font;
    style.list = paragraphs.membership;
    style.beginsPage = paragraphs.beginsPage;
    return style;
}

StyleSheet::Properties StyleSheet::properties(uint16_t style) const {
    std::array<uint16_t, kDepthLimit> chain;
    size_t depth = 0;
    while (style < styles_.size() && depth < kDepthLimit) {
        chain[depth++] = style;
        style = styles_[style].base;
    }
    Properties properties;
    while (depth > 0) {
        const Style& next = styles_[chain[--depth]];
        properties.hidden = isOn(next.hidden, properties.hidden);
        if (next.font) properties.font = next.font;
        if (next.beginsPage) properties.beginsPage = *next.beginsPage;
        properties.list.add(next.list);
    }
    return properties;
}

} // namespace Word
