// SPDX-License-Identifier: Apache-2.0
//
// What hangs on places of the main story and is kept in stories of its own: footnotes, endnotes and text
// boxes.
#pragma once

#include "Platform/AppKit/Word/FileInformation.h"
#include "Platform/AppKit/Word/PieceTable.h"

#include <cstdint>
#include <string_view>
#include <vector>

namespace Word {

struct Attachment {
    enum class Kind { footnote, endnote, textBox };
    static constexpr uint32_t kNowhere = 0xFFFFFFFF;

    Kind kind = Kind::footnote;
    uint32_t position = kNowhere; // in the main story
    uint32_t markLength = 0;      // of a reference mark that the author chose, at that place
    uint32_t begin = 0, end = 0;  // of its own text
    bool isDropped = false;       // its place is not part of the text
};

// Ascending by position; what stands at the same one, or nowhere, in the order of its own text. No two share
// text.
std::vector<Attachment> readAttachments(const FileInformation& information, std::string_view tableStream,
                                        const PieceTable& pieces);

} // namespace Word
