// SPDX-License-Identifier: Apache-2.0
//
// The entry of the module for documents in zip packages.
#include "Platform/AppKit/DocumentKinds.h"
#include "Platform/Foundation/Module.h"

namespace {

ReadStatus officeOpenXML(std::string_view bytes, Deadline& deadline, DocumentContents& contents) {
    return readGuarded(readOfficeOpenXML, bytes, deadline, contents);
}

ReadStatus openDocument(std::string_view bytes, Deadline& deadline, DocumentContents& contents) {
    return readGuarded(readOpenDocument, bytes, deadline, contents);
}

} // namespace

extern "C" __attribute__((visibility("default"))) DocumentReader MODULE_ENTRY(std::string_view documentType) {
    return documentType == "NSOpenDocument" ? openDocument : officeOpenXML;
}
