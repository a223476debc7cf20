// SPDX-License-Identifier: Apache-2.0
//
// The texts of footnotes or endnotes, which stand in a part of their own and are read ahead of the main text.
#pragma once

#include "Platform/AppKit/OfficeOpenXML/NumberingPart.h"
#include "Platform/AppKit/OfficeOpenXML/Part.h"
#include "Platform/AppKit/OfficeOpenXML/StylesPart.h"

#include <string>
#include <string_view>
#include <unordered_map>

namespace OfficeOpenXML {

class NotesPart {
public:
    NotesPart(const ZipPackage& package, std::string_view name, const StylesPart& styles,
              const NumberingPart& lists, Deadline& deadline);

    // The text of a note, once: it stands where it is first referred to. Later, or if there is none, "".
    std::u16string take(std::string_view id);

private:
    class Handler;
    std::unordered_map<std::string, std::u16string> texts_;
};

} // namespace OfficeOpenXML
