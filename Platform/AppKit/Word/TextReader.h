// SPDX-License-Identifier: Apache-2.0
//
// Puts the text of a Word document together from its stories.
#pragma once

#include "Platform/AppKit/StoryBuilder.h"
#include "Platform/AppKit/Word/Attachments.h"
#include "Platform/AppKit/Word/FieldStack.h"
#include "Platform/AppKit/Word/FontTable.h"
#include "Platform/AppKit/Word/Formatting.h"
#include "Platform/AppKit/Word/ListNumbering.h"
#include "Platform/Foundation/Deadline.h"

#include <cstdint>
#include <string>
#include <vector>

namespace Word {

class TextReader {
public:
    // All must outlive the reader.
    TextReader(const FileInformation& information, Streams& streams, Deadline& deadline);

    // The whole text; may be asked once. When the deadline passes, what was read until then.
    std::u16string read();

private:
    using Span = FileInformation::Span;
    struct Place {
        const Piece& piece;
        uint32_t position; // character position
        uint32_t offset;   // in the main stream
    };

    void readSpan(Span span, bool isMainStory);
    void readPiece(const Piece& piece, Span span);
    uint32_t attach(uint32_t position, bool isVisible);
    void readTextBox(Attachment& box);
    void readNote(Attachment& note);
    void dropIfBlank();

    void readRun(Place place, uint32_t count, const Formatting::Characters& characters);
    uint32_t ordinaryCount(const Place& place, uint32_t count,
                           const Formatting::Characters& characters) const;
    void appendOrdinary(const Place& place, uint32_t count, const Formatting::Characters& characters);
    void appendNarrow(std::string_view bytes, const Place& place, const Formatting::Characters& characters);
    void readSpecial(uint16_t unit, const Place& place, const Formatting::Characters& characters);
    void readMark(uint16_t unit, const Place& place);

    void endParagraph(const Place& place);
    void endPageOrSection(const Place& place);
    bool isSectionEnd(uint32_t position); // of the main story, ascending
    void beginPage();
    void setListMarker(const ListMembership& list);
    SymbolFont symbolFontOf(const Place& place, const Formatting::Characters& characters);
    uint16_t unitAt(const Place& place) const;

    const FileInformation& information_;
    Streams& streams_;
    Deadline& deadline_;
    PieceTable pieces_;
    Formatting formatting_;
    std::vector<Attachment> attachments_;
    PositionTable sections_;
    FontTable fonts_;
    ListNumbering numbering_;
    StoryBuilder story_;

    FieldStack fields_;
    size_t paragraphStart_ = 0; // in the text that is being built
    size_t nextAttachment_ = 0, nextSection_ = 0;
    // Pieces may share bytes and every paragraph may have a marker, but not without bound.
    uint64_t charactersLeft_, markersLeft_;
    bool isInMainStory_ = false;
};

} // namespace Word
