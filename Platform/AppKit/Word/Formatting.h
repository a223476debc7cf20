// SPDX-License-Identifier: Apache-2.0
//
// What the formatting of a place in the text means for reading it: modifiers of its own, of its piece and of
// its styles taken together.
#pragma once

#include "Platform/AppKit/Word/FormattingPages.h"
#include "Platform/AppKit/Word/PieceTable.h"
#include "Platform/AppKit/Word/Streams.h"
#include "Platform/AppKit/Word/StyleSheet.h"

#include <cstdint>
#include <optional>

namespace Word {

class Formatting {
public:
    struct Characters {
        uint32_t end = 0; // offset in the main stream up to which all this holds
        bool isHidden = false;
        bool isDeleted = false;       // by a tracked revision
        std::optional<uint16_t> font; // its own or its character style's
        uint16_t symbolFont = 0;
        char16_t symbol = 0; // stands in place of U+0028

        bool isVisible() const { return !isHidden && !isDeleted; }
    };
    struct Paragraph {
        bool endsRow = false, endsInnerRow = false;
        bool beginsPage = false;
        ListMembership list;
    };

    // All must outlive the formatting.
    Formatting(const FileInformation& information, Streams& streams, const PieceTable& pieces);

    // `offset` is that of a character of the piece in the main stream, for a paragraph that of its mark.
    Characters charactersAt(const Piece& piece, uint32_t offset);
    Paragraph paragraphAt(const Piece& piece, uint32_t offset);

    // The font of characters that name none themselves.
    std::optional<uint16_t> paragraphFontAt(uint32_t offset);

private:
    bool isOld_;
    Streams& streams_;
    const PieceTable& pieces_;
    StyleSheet styles_;
    FormattingPages characterPages_, paragraphPages_;
};

} // namespace Word
