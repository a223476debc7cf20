// SPDX-License-Identifier: Apache-2.0
#include "Source/Tools/texttool/Dispatch.h"

#include "Platform/AppKit/NSDocumentAttributes.h"
#include "Platform/Foundation/NSAssertionHandler.h"
#include "Platform/Foundation/NSLog.h"
#include "Platform/Foundation/NSUserDefaults.h"
#include "Source/Tools/texttool/Extractors.h"
#include "Source/Tools/texttool/MarkDocument.h"

namespace {

struct Request {
    const char16_t* key;
    const char16_t* documentType; // for handlePath, or null
    void (*extractor)();          // or null
};

constexpr Request kRequests[] = {
    {u"WebArchivePath", nullptr, handleWebArchive},
    {u"HTMLPath", NSHTMLTextDocumentType, nullptr},
    {u"PDFPath", nullptr, handlePDF},
    {u"WordPath", NSDocFormatTextDocumentType, nullptr},
    {u"WordXPath", NSOfficeOpenXMLTextDocumentType, nullptr},
    {u"ODTPath", NSOpenDocumentTextDocumentType, nullptr},
    {u"RTFPath", NSRTFTextDocumentType, nullptr},
    {u"RTFDPath", NSRTFDTextDocumentType, nullptr},
    {u"QTPath", nullptr, handleQT},
    {u"ImagePath", nullptr, handleImage},
    {u"SpotlightPath", nullptr, handleSpotlight},
    {u"EMLPath", nullptr, handleEML},
};

NSString requestValue(const char16_t* key) {
    return NSUserDefaults::standardUserDefaults().stringForKey(key);
}

} // namespace

void dispatchRequest() {
    for (const Request& request : kRequests) {
        NSString path = requestValue(request.key);
        if (!path) continue;
        setLogField("TEXTTOOL_REQUEST", NSString(request.key));
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
