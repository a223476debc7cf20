// SPDX-License-Identifier: Apache-2.0
#include "Source/Tools/texttool/Extractors.h"
#include "Source/Tools/texttool/Report.h"
#include "ZORFoundation/Source/NSString+ZORFilesBasics.h"

// Hosts read mail by their own means: the request has its slot, and every message gives the same empty
// answer.
void handleEML() {
    NSString path = markRequestedDocument(u"EMLPath");
    if (!zorPathExists(path)) {
        reportMissingFile(path);
        return;
    }
    NSDictionary fields = NSDictionary::dictionary();
    if (fields) {
        reportSuccess(path, fields.description(), NSString(u""), NSString(u""), 0, nullptr, nullptr);
    } else {
        reportError(nullptr);
    }
}
