// SPDX-License-Identifier: Apache-2.0
#include "Platform/AppKit/Word/PieceTable.h"

#include "Platform/Foundation/LittleEndian.h"

namespace Word {

namespace {

constexpr uint8_t kModifierList = 1, kPieces = 2;
constexpr size_t kDescriptorSize = 8;
constexpr uint32_t kNarrowFlag = 0x40000000; // one byte a character, at half of the offset

} // namespace

PieceTable::PieceTable(const FileInformation& information, std::string_view mainStream,
                       std::string_view tableStream)
    : isOld_(information.isOld), mainStream_(mainStream) {
    std::string_view rest = information.table(Table::pieces, tableStream);
    while (uint8At(rest, 0) == kModifierList) {
        std::string_view list = slice(rest, 3, uint16At(rest, 1));
        modifierLists_.push_back(list);
        rest = slice(rest, 3 + list.size());
    }
    if (uint8At(rest, 0) == kPieces) {
        size_t length = uint32At(rest, 1);
        readPieces(PositionTable(slice(rest, 5, length), length, kDescriptorSize), information.hasWideText);
    }
    if (pieces_.empty()) addPlainPieces(information);
}

void PieceTable::readPieces(const PositionTable& table, bool hasWideText) {
    pieces_.reserve(table.count());
    for (size_t i = 0; i < table.count(); ++i) {
        std::string_view descriptor = table.entry(i);
        uint32_t offset = uint32At(descriptor, 2);
        Piece piece{table.position(i), table.position(i + 1), offset, hasWideText, uint16At(descriptor, 6)};
        if (!isOld_) {
            piece.isWide = (offset & kNarrowFlag) == 0;
            piece.offset = piece.isWide ? offset : (offset & ~kNarrowFlag) / 2;
        }
        add(piece);
    }
}

// A document without a piece table has its text in one run. Whether Word 97 wrote it with one or two bytes a
// character, its length tells.
void PieceTable::addPlainPieces(const FileInformation& information) {
    uint32_t end = information.story(Story::headerTextBoxes).end;
    if (end == 0 || information.textEnd <= information.textOffset) return;
    bool isWide = information.hasWideText;
    if (!information.isOld) isWide = (information.textEnd - information.textOffset) / 2 >= end;
    add({0, end, information.textOffset, isWide, 0});
}

void PieceTable::add(Piece piece) {
    if (!pieces_.empty() && piece.begin < pieces_.back().end) return;
    if (piece.end <= piece.begin || piece.offset >= mainStream_.size()) return;
    size_t there = (mainStream_.size() - piece.offset) / piece.width();
    piece.end = piece.begin + uint32_t(std::min<size_t>(piece.end - piece.begin, there));
    if (piece.end > piece.begin) pieces_.push_back(piece);
}

size_t PieceTable::indexOf(uint32_t position) const {
    auto piece =
        std::upper_bound(pieces_.begin(), pieces_.end(), position,
                         [](uint32_t value, const Piece& candidate) { return value < candidate.end; });
    return size_t(piece - pieces_.begin());
}

uint16_t PieceTable::characterAt(uint32_t position) const {
    size_t index = indexOf(position);
    if (index == pieces_.size() || position < pieces_[index].begin) return 0;
    const Piece& piece = pieces_[index];
    size_t offset = piece.offsetOf(position);
    return piece.isWide ? uint16At(mainStream_, offset) : uint8At(mainStream_, offset);
}

// Either one short modifier, a code of old documents and a byte, or the number of a list of modifiers.
template <typename Modifiers>
void PieceTable::applyTo(const Piece& piece, Modifiers& modifiers) const {
    if (piece.modifier == 0) return;
    if (piece.modifier & 1) {
        size_t index = piece.modifier >> 1;
        if (index < modifierLists_.size()) modifiers.apply(modifierLists_[index], isOld_);
    } else {
        const char oneModifier[] = {char(piece.modifier >> 1 & 0x7F), char(piece.modifier >> 8)};
        modifiers.apply(std::string_view(oneModifier, sizeof oneModifier), true);
    }
}

template void PieceTable::applyTo(const Piece&, CharacterModifiers&) const;
template void PieceTable::applyTo(const Piece&, ParagraphModifiers&) const;

} // namespace Word
