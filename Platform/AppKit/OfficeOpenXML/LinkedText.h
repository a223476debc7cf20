// SPDX-License-Identifier: Apache-2.0
//
// Text that stands in other parts of the package than the document's own: whole documents of other kinds that
// are to be shown in it, and the texts of diagrams.
#pragma once

#include "Platform/AppKit/OfficeOpenXML/RelationshipsPart.h"

#include <set>
#include <string>
#include <string_view>

namespace OfficeOpenXML {

class LinkedText {
public:
    // The package and the deadline must outlive it.
    LinkedText(const ZipPackage& package, const RelationshipsPart& relationships, Deadline& deadline)
        : package_(package), relationships_(relationships), deadline_(deadline) {}

    // The text of a web page, an RTF or a plain text document; "" of others. Each text is given once only, so
    // that a small document cannot repeat a large one.
    std::u16string takeChunk(std::string_view id);
    std::u16string takeDiagram(std::string_view id);

private:
    std::string takePart(std::string_view id);

    const ZipPackage& package_;
    const RelationshipsPart& relationships_;
    Deadline& deadline_;
    std::set<std::string> taken_;
};

} // namespace OfficeOpenXML
