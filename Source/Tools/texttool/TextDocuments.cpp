// SPDX-License-Identifier: Apache-2.0
#include "Platform/AppKit/NSDocumentAttributes.h"
#include "Platform/Foundation/NSNumber.h"
#include "Platform/WebKit/WebPreferences.h"
#include "Source/Tools/texttool/Extractors.h"
#include "Source/Tools/texttool/MarkDocument.h"
#include "Source/Tools/texttool/Report.h"
#include "ZORFoundation/Source/NSError+ZOR.h"
#include "ZORFoundation/Source/NSString+ZORFilesBasics.h"

#include <cerrno>
#include <new>

namespace {

constexpr int kTimeout = 10; // seconds

WebPreferences quietWebPreferences() {
    WebPreferences preferences = WebPreferences::standardPreferences();
    preferences.setAutosaves(false);
    preferences.setLoadsImagesAutomatically(false);
    preferences.setPlugInsEnabled(false);
    preferences.setJavaScriptCanOpenWindowsAutomatically(false);
    preferences.setJavaEnabled(false);
    return preferences;
}

NSMutableDictionary readerOptions(const NSString& documentType, bool immediate) {
    NSMutableDictionary options;
    if (documentType) options.setObject(documentType, NSString(NSDocumentTypeDocumentOption));
    options.setObject(NSNumber::withInt(immediate ? 0 : kTimeout), NSString(NSTimeoutDocumentOption));
    options.setObject(quietWebPreferences(), NSString(NSWebPreferencesDocumentOption));
    return options;
}

// Reads, and once more without the declared type when the content does not fit it.
template <class Read>
NSAttributedString readWithRetry(NSMutableDictionary& options, NSError* error, const Read& read) {
    NSError failure;
    NSAttributedString text = read(options.copy(), &failure);
    if (!text && zorHasDomain(failure, NSCocoaErrorDomain, NSFileReadCorruptFileError)) {
        options.removeObjectForKey(NSString(NSDocumentTypeDocumentOption));
        text = read(options.copy(), &failure);
    }
    if (!text) fail(error, failure);
    return text;
}

// A read that failed for want of memory has met a limit, and ends the request.
void raiseForMemory(const NSError& error) {
    const NSError underlying = error.userInfo().get<NSError>(NSString(NSUnderlyingErrorKey));
    if (underlying && underlying == NSError::posix(ENOMEM)) throw std::bad_alloc();
}

} // namespace

void handlePath(const NSString& path, const NSString& documentType) {
    markDocument(path);
    if (!zorPathExists(path)) {
        reportMissingFile(path);
        return;
    }
    if (!documentType) {
        reportError(NSError(NSCocoaErrorDomain, NSTextReadInapplicableDocumentTypeError,
                            {{NSString(NSFilePathErrorKey), path}}));
        return;
    }
    NSDictionary attributes;
    NSError error;
    NSAttributedString text = readDocument(path, documentType, &attributes, &error, false);
    if (!text) {
        raiseForMemory(error);
        reportError(withPathOfDocument(error, path));
        return;
    }
    reportSuccess(path, text.string(), attributes.objectForKey(NSString(NSTitleDocumentAttribute)),
                  attributes.objectForKey(NSString(NSAuthorDocumentAttribute)), 0, nullptr, attributes);
}

NSAttributedString readDocument(const NSString& path, const NSString& documentType,
                                NSDictionary* documentAttributes, NSError* error, bool immediate) {
    NSMutableDictionary options = readerOptions(documentType, immediate);
    if (zorFileExists(path)) {
        NSData data = dataFromPath(path);
        return readWithRetry(options, error, [&](const NSDictionary& chosen, NSError* failure) {
            return NSAttributedString::initWithData(data, chosen, documentAttributes, failure);
        });
    }
    NSURL url = NSURL::fileURLWithPath(path);
    return readWithRetry(options, error, [&](const NSDictionary& chosen, NSError* failure) {
        return NSAttributedString::initWithURL(url, chosen, documentAttributes, failure);
    });
}

NSData dataFromPath(const NSString& path) {
    NSError error;
    NSData data = NSData::dataWithContentsOfFile(path, NSDataReadingUncached, &error);
    if (data) return data;
    raiseForMemory(error);
    reportError(error);
    return nullptr;
}

NSError withPathOfDocument(const NSError& error, const NSString& path) {
    if (!zorHasDomain(error, NSCocoaErrorDomain, NSExecutableLoadError)) return error;
    return zorErrorBySettingFilePath(error, path);
}
