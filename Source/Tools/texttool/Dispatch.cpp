// SPDX-License-Identifier: Apache-2.0
#include "Source/Tools/texttool/Dispatch.h"

#include "Platform/AppKit/NSDocumentAttributes.h"
#include "Platform/Foundation/NSAssertionHandler.h"
#include "Platform/Foundation/NSLog.h"
#include "Platform/Foundation/NSUserDefaults.h"
#include "Source/Tools/texttool/Confinement.h"
#include "Source/Tools/texttool/Extractors.h"
#include "Source/Tools/texttool/MarkDocument.h"
#include "Source/Tools/texttool/Settings.h"

namespace {

struct Request {
    const char16_t* key;
    const char16_t* documentType; // for handlePath, or null
    void (*extractor)();          // or null
    SystemCalls calls;            // that reading such a document takes
};

constexpr Request kRequests[] = {
    {u"WebArchivePath", nullptr, handleWebArchive, SystemCalls::showingPages},
    {u"HTMLPath", NSHTMLTextDocumentType, nullptr, SystemCalls::reading},
    {u"PDFPath", nullptr, handlePDF, SystemCalls::reading},
    {u"WordPath", NSDocFormatTextDocumentType, nullptr, SystemCalls::reading},
    {u"WordXPath", NSOfficeOpenXMLTextDocumentType, nullptr, SystemCalls::reading},
    {u"ODTPath", NSOpenDocumentTextDocumentType, nullptr, SystemCalls::reading},
    {u"RTFPath", NSRTFTextDocumentType, nullptr, SystemCalls::reading},
    {u"RTFDPath", NSRTFDTextDocumentType, nullptr, SystemCalls::reading},
    {u"QTPath", nullptr, handleQT, SystemCalls::containing},
    {u"ImagePath", nullptr, handleImage, SystemCalls::containing},
    {u"SpotlightPath", nullptr, handleSpotlight, SystemCalls::startingOthers},
    {u"EMLPath", nullptr, handleEML, SystemCalls::reading},
};

NSString requestValue(const char16_t* key) {
    return NSUserDefaults::standardUserDefaults().stringForKey(key);
}

SystemCalls callsFor(const Request& request) {
    const bool isOffline = request.calls == SystemCalls::showingPages && isForcedOffline();
    return isOffline ? SystemCalls::showingOffline : request.calls;
}

} // namespace

void dispatchRequest() {
    for (const Request& request : kRequests) {
        NSString path = requestValue(request.key);
        if (!path) continue;
        setLogField("TEXTTOOL_REQUEST", NSString(request.key));
        confine(callsFor(request), path);
        if (request.documentType) {
            handlePath(path, request.documentType);
        } else {
            request.extractor();
        }
        return;
    }
    NSAssertionHandler::currentHandler().handleFailureInFunction(
        u"int main(int, const char **)", u"Source/Tools/texttool", 919, u"bad arguments");
}

NSString markRequestedDocument(const char16_t* requestKey) {
    NSString path = requestValue(requestKey);
    markDocument(path);
    return path;
}
