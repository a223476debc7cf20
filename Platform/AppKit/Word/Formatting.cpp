// SPDX-License-Identifier: Apache-2.0
#include "Platform/AppKit/Word/Formatting.h"

#include "Platform/Foundation/LittleEndian.h"

namespace Word {

Formatting::Formatting(const FileInformation& information, Streams& streams, const PieceTable& pieces)
    : isOld_(information.isOld), streams_(streams), pieces_(pieces),
      styles_(information.table(Table::styleSheet, streams.table()), information.isOld),
      characterPages_(FormattingPages::Kind::characters, information, streams.main(), streams.table()),
      paragraphPages_(FormattingPages::Kind::paragraphs, information, streams.main(), streams.table()) {}

Formatting::Characters Formatting::charactersAt(const Piece& piece, uint32_t offset) {
    const FormattingPages::Run& run = characterPages_.find(offset);
    CharacterModifiers modifiers;
    modifiers.apply(run.modifiers, isOld_);
    pieces_.apply(piece, modifiers);

    Characters characters{
        run.end,         false, isOn(modifiers.deleted, false), modifiers.font, modifiers.symbolFont,
        modifiers.symbol};
    bool styleHides = false;
    if (styles_.canHide()) {
        const FormattingPages::Run& paragraph = paragraphPages_.find(offset);
        characters.end = std::min(characters.end, paragraph.end);
        styleHides = styles_.properties(paragraph.style).hidden;
    }
    if (modifiers.style) {
        StyleSheet::Properties style = styles_.properties(*modifiers.style);
        // A character style turns around what the paragraph's style says.
        styleHides = styleHides != style.hidden;
        if (!characters.font) characters.font = style.font;
    }
    characters.isHidden = isOn(modifiers.hidden, styleHides);
    return characters;
}

Formatting::Paragraph Formatting::paragraphAt(const Piece& piece, uint32_t offset) {
    const FormattingPages::Run& run = paragraphPages_.find(offset);
    ParagraphModifiers modifiers;
    modifiers.apply(run.modifiers, isOld_);
    if (modifiers.farOffset) {
        std::string_view far = slice(streams_.data(), *modifiers.farOffset);
        modifiers.apply(slice(far, 2, uint16At(far, 0)), isOld_);
    }
    pieces_.apply(piece, modifiers);
    const StyleSheet::Properties style = styles_.properties(run.style);
    const bool beginsPage = !modifiers.isInTable && modifiers.beginsPage.value_or(style.beginsPage);
    Paragraph paragraph{modifiers.endsRow, modifiers.endsInnerRow, beginsPage, style.list};
    paragraph.list.add(modifiers.membership);
    return paragraph;
}

std::optional<uint16_t> Formatting::paragraphFontAt(uint32_t offset) {
    return styles_.properties(paragraphPages_.find(offset).style).font;
}

} // namespace Word
