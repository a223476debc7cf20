// SPDX-License-Identifier: Apache-2.0
//
// The entry of the module for documents in XML and in zip packages.
#include "Platform/AppKit/DocumentKinds.h"
#include "Platform/AppKit/XMLText/XMLTextReaders.h"
#include "Platform/Foundation/Module.h"

namespace {

template <DocumentReader reader>
ReadStatus guarded(std::string_view bytes, Deadline& deadline, DocumentContents& contents) {
    return readGuarded(reader, bytes, deadline, contents);
}

} // namespace

extern "C" __attribute__((visibility("default"))) DocumentReader MODULE_ENTRY(std::string_view documentType) {
    if (documentType == "NSOpenDocument") return guarded<readOpenDocument>;
    if (documentType == "XMLText") return guarded<readXMLText>;
    if (documentType == "PackageText") return guarded<readPackageText>;
    return guarded<readOfficeOpenXML>;
}
