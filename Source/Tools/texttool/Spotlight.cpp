// SPDX-License-Identifier: Apache-2.0
#include "Source/Tools/texttool/Spotlight.h"

#include "Platform/Foundation/NSNumber.h"
#include "Source/Tools/texttool/Extractors.h"
#include "Source/Tools/texttool/Report.h"
#include "Source/Tools/texttool/Settings.h"
#include "ZORFoundation/Source/NSString+ZORFilesBasics.h"

namespace {

constexpr int64_t kSpotlightError = 42;

} // namespace

void handleSpotlight() {
    NSString path = markRequestedDocument(u"SpotlightPath");
    if (!zorPathExists(path)) {
        reportMissingFile(path);
        return;
    }
    SKLoadDefaultExtractorPlugIns();
    SKIndexRef index = createIndex();
    SKDocumentRef document = createDocument(path);
    addDocument(document, index);
    const NSString text = extractDocument(document, index);
    CFRelease(document);
    CFRelease(index);
    reportSuccess(path, text, NSString(u""), NSString(u""), 0, nullptr, nullptr);
}

void reportSpotlightError(const NSString& message) {
    reportError(
        NSError(NSString(kHostDomain), kSpotlightError, {{NSString(NSLocalizedDescriptionKey), message}}));
}

SKIndexRef createIndex() {
    const NSDictionary properties = {
        {NSString(kSKProximityIndexing), NSNumber::withBool(true)},
        {NSString(kSKMaximumTerms), NSNumber::withInt(0)},
    };
    SKIndexRef index =
        SKIndexCreateWithMutableData(std::make_shared<std::string>(), nullptr, kSKIndexInverted, properties);
    if (!index) reportSpotlightError(u"Error creating index");
    return index;
}

SKDocumentRef createDocument(const NSString& path) {
    SKDocumentRef document = SKDocumentCreateWithURL(NSURL::fileURLWithPath(path));
    if (!document) reportSpotlightError(u"Error creating document");
    return document;
}

void addDocument(const SKDocumentRef& document, const SKIndexRef& index) {
    if (!SKIndexAddDocument(index, document, nullptr, true))
        reportSpotlightError(u"Error extracting document");
    if (!SKIndexFlush(index)) reportSpotlightError(u"Error flushing");
}

NSString extractDocument(const SKDocumentRef& document, const SKIndexRef& index) {
    const SKDocumentID identifier = SKIndexGetDocumentID(index, document);
    const NSArray termIDs = SKIndexCopyTermIDArrayForDocumentID(index, identifier);
    if (!termIDs) {
        reportSpotlightError(u"Error getting term IDs");
        return NSString(u"");
    }
    std::u16string text;
    for (const NSObject& number : termIDs) {
        const NSString term = SKIndexCopyTermStringForTermID(index, as<NSNumber>(number).integerValue());
        if (!term) {
            reportSpotlightError(u"Error getting term");
            return NSString(u"");
        }
        text += term.text() + u' ';
    }
    return NSString(std::move(text));
}
