// SPDX-License-Identifier: Apache-2.0
//
// The formatted disk pages: for each run of bytes of the text, the modifiers of its characters or paragraphs.
// A page has 512 bytes: the offsets of its runs from the front, the modifiers from behind, a table between.
#pragma once

#include "Platform/AppKit/Word/FileInformation.h"

#include <cstdint>
#include <string_view>
#include <vector>

namespace Word {

class FormattingPages {
public:
    enum class Kind { characters, paragraphs };

    // Offsets are those of the main stream.
    struct Run {
        uint32_t begin = 0, end = 0;
        uint16_t style = 0; // of paragraphs
        std::string_view modifiers;
    };

    // `tableStream` is the main stream in old documents. Both must outlive the pages.
    FormattingPages(Kind kind, const FileInformation& information, std::string_view mainStream,
                    std::string_view tableStream);

    // The run that holds the byte at `offset`, which always lies in the run. Where no page tells of the byte
    // the run has no modifiers. The last answer is remembered, so that reading on within a run costs nothing.
    const Run& find(uint32_t offset);

private:
    struct Page {
        uint32_t begin = 0; // the first offset it tells of
        uint32_t number = 0;
    };

    void listPages(const PositionTable& table);
    void listNeighbouringPages(uint32_t first, uint32_t count);
    Run runInPage(std::string_view page, uint32_t offset, uint32_t pageEnd) const;
    void readModifiers(std::string_view page, size_t place, Run& run) const;

    Kind kind_;
    bool isOld_;
    std::string_view mainStream_;
    std::vector<Page> pages_; // ascending
    Run run_;
};

} // namespace Word
