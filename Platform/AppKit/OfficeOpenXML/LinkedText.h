// SPDX-License-Identifier: Apache-2.0
//
// Text that stands in other parts of the package than the document's own: whole documents of this and other
// kinds that are to be shown in it, and the texts of diagrams.
#pragma once

#include "Platform/AppKit/OfficeOpenXML/ContentTypesPart.h"
#include "Platform/AppKit/OfficeOpenXML/Package.h"
#include "Platform/AppKit/OfficeOpenXML/RelationshipsPart.h"

#include <optional>
#include <set>
#include <string>
#include <string_view>

struct DocumentKind;

namespace OfficeOpenXML {

class LinkedText {
public:
    // All that it is given must outlive it.
    LinkedText(const ZipPackage& package, const RelationshipsPart& relationships, Allowance& allowance,
               Deadline& deadline)
        : package_(package), relationships_(relationships), allowance_(allowance), deadline_(deadline) {}

    // The text of a document of any kind that can be read, also of a saved web page; "" of others. The
    // package says which kind a part is; where it does not, or is wrong, the bytes tell, and the name as the
    // last. Each text is given once only, so that a small document cannot repeat a large one.
    std::u16string takeChunk(std::string_view id);
    std::u16string takeDiagram(std::string_view id);

private:
    std::string takePart(std::string_view id);
    std::u16string readChunk(std::string_view bytes, const DocumentKind* kind);

    const ZipPackage& package_;
    const RelationshipsPart& relationships_;
    Allowance& allowance_;
    Deadline& deadline_;
    std::optional<ContentTypesPart> contentTypes_; // read with the first chunk: few documents have any
    std::set<std::string> taken_;
};

} // namespace OfficeOpenXML
