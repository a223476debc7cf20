// SPDX-License-Identifier: Apache-2.0
//
// The file information block at the head of a binary Word document: which of the two layouts it has, how long
// its stories are and where its tables lie.
#pragma once

#include "Platform/AppKit/Word/PositionTable.h"

#include <array>
#include <cstdint>
#include <optional>
#include <string_view>

namespace Word {

// The parts of a document's text. They follow each other in this order in one sequence of characters, whose
// indexes are called character positions.
enum class Story { main, footnotes, headers, macros, comments, endnotes, textBoxes, headerTextBoxes, count };

enum class Table {
    styleSheet,
    footnoteReferences,
    footnoteTexts,
    sections,
    characterPages,
    paragraphPages,
    fonts,
    pieces,
    shapeAnchors,
    endnoteReferences,
    endnoteTexts,
    drawings,
    textBoxTexts,
    lists,
    listOverrides,
    count
};

struct FileInformation {
    struct Span {
        uint32_t begin = 0, end = 0; // character positions
    };

    bool isOld =
        false; // the layout of Word 6 and 95, with one-byte property codes, instead of that of Word 97
    bool isEncrypted = false;
    bool hasWideText = false; // an old document whose text is UTF-16
    bool isMacintosh = false; // the characters of an old document are those of a Macintosh
    bool usesTable1 = false;  // the tables are in the stream "1Table", otherwise in "0Table"
    uint16_t language = 0;
    uint32_t textOffset = 0, textEnd = 0; // of documents without a piece table

    // Of old documents, whose lists of formatting pages may be incomplete: the pages lie one after another.
    uint16_t firstCharacterPage = 0, characterPageCount = 0, firstParagraphPage = 0, paragraphPageCount = 0;

    // Empty when the bytes are not the main stream of a Word document of a known version.
    static std::optional<FileInformation> read(std::string_view mainStream);

    Span story(Story story) const;

    // The bytes of a table, cut to what is there. `tableStream` is the main stream in old documents.
    std::string_view table(Table table, std::string_view tableStream) const;
    PositionTable positionTable(Table table, size_t entrySize, std::string_view tableStream) const;

    // All bytes of the table stream from the table's begin.
    std::string_view fromTable(Table table, std::string_view tableStream) const;

private:
    void readPlaces(std::string_view mainStream);

    struct Place {
        uint32_t offset = 0, length = 0;
    };

    std::array<uint32_t, size_t(Story::count)> storyLengths_{};
    std::array<Place, size_t(Table::count)> places_{};
};

} // namespace Word
