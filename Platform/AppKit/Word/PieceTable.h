// SPDX-License-Identifier: Apache-2.0
//
// The piece table: where the characters of a document lie in its main stream. A document that was saved fast
// has many pieces, in any order, with modifiers of their own.
#pragma once

#include "Platform/AppKit/Word/FileInformation.h"
#include "Platform/AppKit/Word/Modifiers.h"

#include <cstdint>
#include <string_view>
#include <vector>

namespace Word {

struct Piece {
    uint32_t begin = 0, end = 0; // character positions
    uint32_t offset = 0;         // of the first character in the main stream
    bool isWide = false;         // two bytes for each character
    uint16_t modifier = 0;       // see PieceTable::apply

    uint32_t width() const { return isWide ? 2 : 1; }
    uint32_t offsetOf(uint32_t position) const { return offset + (position - begin) * width(); }
};

class PieceTable {
public:
    // `tableStream` is the main stream in old documents. Both must outlive the table.
    PieceTable(const FileInformation& information, std::string_view mainStream, std::string_view tableStream);

    // Ascending and apart; every character lies in the main stream.
    const std::vector<Piece>& pieces() const { return pieces_; }

    // The first piece that ends behind a character position.
    size_t indexOf(uint32_t position) const;

    // The character at a position as its bytes say, 0 when there is none.
    uint16_t characterAt(uint32_t position) const;

    // Adds what a piece says of all its characters and paragraphs.
    void apply(const Piece& piece, CharacterModifiers& modifiers) const { applyTo(piece, modifiers); }
    void apply(const Piece& piece, ParagraphModifiers& modifiers) const { applyTo(piece, modifiers); }

private:
    void readPieces(const PositionTable& table, bool hasWideText);
    void addPlainPieces(const FileInformation& information);
    void add(Piece piece);

    template <typename Modifiers>
    void applyTo(const Piece& piece, Modifiers& modifiers) const;

    bool isOld_;
    std::string_view mainStream_;
    std::vector<Piece> pieces_;
    std::vector<std::string_view> modifierLists_;
};

} // namespace Word
