// SPDX-License-Identifier: Apache-2.0
//
// Kinds of document that this build has no reader for: they are marked, a missing one is reported, and for
// one that is there the request fails with a reason, so that no host takes an empty text for the document's.
#include "Platform/Foundation/NSException.h"
#include "Platform/Foundation/StringFormat.h"
#include "Source/Tools/texttool/Extractors.h"
#include "Source/Tools/texttool/Report.h"
#include "ZORFoundation/Source/NSString+ZORFilesBasics.h"

namespace {

void refuse(const char16_t* requestKey, bool (*exists)(const NSString&), const char* kind) {
    NSString path = markRequestedDocument(requestKey);
    if (!exists(path)) {
        reportMissingFile(path);
        return;
    }
    NSException(NSGenericException, stringWithFormat("this build has no reader for %s", kind)).raise();
}

} // namespace

void handleSpotlight() { refuse(u"SpotlightPath", zorPathExists, "files of any kind through importers"); }
