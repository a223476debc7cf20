// SPDX-License-Identifier: Apache-2.0
#include "Source/Tools/texttool/Report.h"

#include "Platform/Foundation/NSArchiver.h"
#include "Platform/Foundation/NSDate.h"
#include "Platform/Foundation/NSFileHandle.h"
#include "Platform/Foundation/NSLog.h"
#include "Platform/Foundation/NSNull.h"
#include "Platform/Foundation/NSNumber.h"
#include "Platform/Foundation/NSProcessInfo.h"
#include "Platform/Foundation/NSPropertyListSerialization.h"
#include "Platform/Foundation/StringFormat.h"
#include "Source/Tools/texttool/Limits.h"
#include "ZORFoundation/Source/NSError+ZOR.h"
#include "ZORFoundation/Source/NSString+ZORFilesBasics.h"
#include "ZORFoundation/Source/NSString+ZORTextMunging.h"

#include <csignal>

namespace {

NSObject orEmpty(const NSObject& object) { return object ? object : NSObject(NSString(u"")); }

// A title or an author as it may go out.
NSObject withoutNulls(const NSObject& text) {
    NSString string = as<NSString>(text);
    return string ? NSObject(zorStringByTrimmingNulls(string)) : NSObject();
}

NSDictionary withKeywords(const NSDictionary& attributes, const NSString& path) {
    if (!attributes) return nullptr;
    NSMutableDictionary all(attributes);
    all.setObject(zorSpotlightKeywords(path), NSString(u"SpotlightKeywords"));
    return std::move(all).copy();
}

NSDictionary errorDictionary(const NSError& error) {
    NSData archive = NSArchiver::archivedDataWithRootObject(error);
    return {
        {NSString(u"errorData"), archive ? archive : NSData(std::string())},
        {NSString(u"errorString"), orEmpty(error.localizedDescription())},
    };
}

NSData serialized(const NSObject& propertyList, NSString* errorDescription) {
    return ::dataFromPropertyList(propertyList, NSPropertyListBinaryFormat_v1_0, errorDescription);
}

// Seen by a signal handler.
volatile sig_atomic_t answerHasBegun = 0;

} // namespace

void reportSuccess(const NSString& path, const NSString& text, const NSObject& title, const NSObject& author,
                   int32_t partsCount, const NSObject& url, const NSDictionary& otherAttributes) {
    doOutput(NSDictionary{
        {NSString(u"string"), orEmpty(text)},
        {NSString(u"title"), orEmpty(withoutNulls(title))},
        {NSString(u"author"), orEmpty(withoutNulls(author))},
        {NSString(u"partsCount"), NSNumber::withInt(partsCount)},
        {NSString(u"url"), orEmpty(url)},
        {NSString(u"otherAttributes"), plistifyDictionary(withKeywords(otherAttributes, path))},
    });
}

void reportError(const NSError& error) { doOutput(errorDictionary(error)); }

NSData errorRecord(const NSError& error) { return serialized(errorDictionary(error), nullptr); }

void reportMissingFile(const NSString& path) {
    reportError(NSError(NSCocoaErrorDomain, NSFileNoSuchFileError, {{NSString(NSFilePathErrorKey), path}}));
}

void reportCorruptFile(const NSString& path) {
    reportError(
        NSError(NSCocoaErrorDomain, NSFileReadCorruptFileError, {{NSString(NSFilePathErrorKey), path}}));
}

NSDictionary plistifyDictionary(const NSDictionary& dictionary) {
    NSMutableDictionary fit(dictionary);
    for (const auto& [key, value] : dictionary) {
        if (is<NSString>(value) || is<NSData>(value) || is<NSDate>(value) || is<NSNumber>(value)) continue;
        fit.setObject(orEmpty(value.description()), key);
    }
    return std::move(fit).copy();
}

void doOutput(const NSObject& propertyList) {
    NSString errorDescription;
    NSData data = serialized(propertyList, &errorDescription);
    if (data) {
        finishWithData(limitedRecord(data));
    } else {
        doOutput(NSDictionary{{NSString(u"error"), errorDescription}});
    }
}

NSString outputPath() { return NSProcessInfo::processInfo().environmentValue("OutPath"); }

bool hasBegunAnswer() { return answerHasBegun != 0; }

void finishWithData(const NSData& data) {
    answerHasBegun = 1;
    NSString path = outputPath();
    if (!path) {
        NSFileHandle& output = NSFileHandle::fileHandleWithStandardOutput();
        output.writeData(data);
        output.closeFile();
        return;
    }
    NSError error;
    if (!data.writeToFile(path, NSDataWritingAtomic, &error)) {
        NSLog(stringWithFormat("Error writing output to %@: %@", path, zorFullDescription(error)));
    }
}

NSData archiveError(const NSError& error) {
    NSMutableDictionary kept;
    for (const char16_t* key :
         {NSURLErrorFailingURLStringErrorKey, NSLocalizedDescriptionKey, NSFilePathErrorKey, NSURLErrorKey,
          NSLocalizedFailureReasonErrorKey, NSLocalizedRecoverySuggestionErrorKey}) {
        if (NSObject value = error.userInfo().objectForKey(NSString(key)))
            kept.setObject(value, NSString(key));
    }
    return NSArchiver::archivedDataWithRootObject(
        NSError(error.domain(), error.code(), std::move(kept).copy()));
}

NSData dataFromPropertyList(const NSObject& propertyList) {
    return ::dataFromPropertyList(propertyList, NSPropertyListXMLFormat_v1_0, nullptr);
}
