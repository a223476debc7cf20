// SPDX-License-Identifier: Apache-2.0
//
// Property modifiers: a Word document describes formatting as lists of changes to a default, each a code and
// an operand. Old documents (Word 6 and 95) have codes of one byte; they are turned into those of Word 97
// here, so that nobody else needs to know.
#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

namespace Word {

struct Modifier {
    uint16_t code = 0;
    std::string_view operand; // without the length byte of operands of variable length

    uint8_t byte() const;
    uint16_t number() const;
};

// Walks a list of modifiers up to its end or to one whose length is not known or not there.
class ModifierReader {
public:
    ModifierReader(std::string_view list, bool isOld) : rest_(list), isOld_(isOld) {}
    bool next(Modifier& modifier);

private:
    bool nextOld(Modifier& modifier);

    std::string_view rest_;
    bool isOld_;
};

// A switch that a modifier sets outright or in relation to the style.
enum class Toggle : uint8_t { off = 0, on = 1, asStyle = 0x80, oppositeOfStyle = 0x81 };

constexpr bool isOn(Toggle toggle, bool style) {
    if (toggle == Toggle::asStyle) return style;
    return toggle == Toggle::oppositeOfStyle ? !style : toggle == Toggle::on;
}

// Of the properties of characters those that matter for the text.
struct CharacterModifiers {
    Toggle hidden = Toggle::asStyle;
    Toggle deleted = Toggle::asStyle; // by a tracked revision
    std::optional<uint16_t> style, font;
    uint16_t symbolFont = 0;
    char16_t symbol = 0; // stands in place of U+0028

    void apply(std::string_view list, bool isOld);
};

// The list that a paragraph is an item of.
struct ListMembership {
    std::optional<uint16_t> list;    // number of a list override, from 1; 0 for no list
    std::optional<uint8_t> level;    // from 0
    std::optional<uint8_t> oldLevel; // of old documents: 10 numbered, 11 bulleted
    std::string_view oldDescription; // of old documents: what the marker looks like

    // Takes over what `other` says.
    void add(const ListMembership& other);
};

// Of the properties of paragraphs those that matter for the text.
struct ParagraphModifiers {
    bool endsRow = false;      // the cell mark of this paragraph ends the row of a table
    bool endsInnerRow = false; // the paragraph mark ends the row of a nested table
    bool isInTable = false;
    std::optional<bool> beginsPage;
    std::optional<uint32_t> farOffset; // more modifiers lie in the stream "Data", there
    ListMembership membership;

    void apply(std::string_view list, bool isOld);
};

// The page of a section, in twips.
struct SectionModifiers {
    uint16_t pageWidth = 12240, pageHeight = 15840;
    uint16_t leftMargin = 1800, rightMargin = 1800;
    int16_t topMargin = 1440, bottomMargin = 1440; // negative when the text may not push them

    void apply(std::string_view list, bool isOld);
};

} // namespace Word
