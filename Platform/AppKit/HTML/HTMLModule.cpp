// SPDX-License-Identifier: Apache-2.0
//
// The entry of the module for HTML.
#include "Platform/AppKit/DocumentKinds.h"
#include "Platform/Foundation/Module.h"

namespace {

ReadStatus html(std::string_view bytes, Deadline& deadline, DocumentContents& contents) {
    return readGuarded(readHTML, bytes, deadline, contents);
}

} // namespace

extern "C" __attribute__((visibility("default"))) DocumentReader MODULE_ENTRY(std::string_view) {
    return html;
}
