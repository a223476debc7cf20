// SPDX-License-Identifier: Apache-2.0
//
// The relationships of a package or of one of its parts: which other parts belong to it, by kind and by name.
#pragma once

#include "Platform/AppKit/OfficeOpenXML/Part.h"

#include <map>
#include <string>
#include <string_view>

namespace OfficeOpenXML {

class RelationshipsPart {
public:
    // Those of the part of this name; of the package itself with "".
    RelationshipsPart(const ZipPackage& package, std::string_view source, Deadline& deadline);

    // The name of a part of a kind, or "". A kind is the end of its long name ("footnotes"), without
    // regard to case; the rest of it differs between the forms of the format.
    std::string partOfKind(std::string_view kind) const;

    // The name of the part with an identifier, or "". External documents are no parts.
    std::string partWithID(std::string_view id) const;

private:
    struct Relationship {
        std::string type, part;
    };
    using ByID = std::multimap<std::string, Relationship, std::less<>>;
    class Handler;

    ByID relationships_;
};

} // namespace OfficeOpenXML
