// SPDX-License-Identifier: Apache-2.0
//
// What a package says that its parts are.
#pragma once

#include "Platform/AppKit/OfficeOpenXML/Part.h"

#include <string>
#include <string_view>
#include <unordered_map>

namespace OfficeOpenXML {

class ContentTypesPart {
public:
    ContentTypesPart(const ZipPackage& package, Deadline& deadline);

    // The media type of a part, in small letters and without parameters, or "". Names are compared without
    // case.
    std::string typeOf(std::string_view part) const;

private:
    class Handler;
    using Types = std::unordered_map<std::string, std::string>;

    Types byPart_, byExtension_;
};

} // namespace OfficeOpenXML
