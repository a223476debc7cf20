// SPDX-License-Identifier: Apache-2.0
#include "Platform/Foundation/NSArray.h"
#include "Platform/Foundation/NSNull.h"
#include "Platform/Foundation/NSPathUtilities.h"
#include "Platform/Foundation/StringFormat.h"
#include "ZORFoundation/Source/NSError+ZOR.h"

namespace {

NSObject orNull(const NSObject& object) { return object ? object : NSNull::null(); }

} // namespace

NSError zorErrorBySettingObject(const NSError& error, const NSObject& object, const NSString& key) {
    if (!error || !key) return error;
    NSMutableDictionary info(error.userInfo());
    info.setObject(object ? object : NSString(u"<nil>"), key);
    return NSError(error.domain(), error.code(), std::move(info).copy());
}

NSError zorErrorBySettingMode(const NSError& error, mode_t mode, const NSString& key) {
    return zorErrorBySettingObject(error, stringWithFormat("%o", mode), key);
}

NSError zorErrorBySettingFilePath(const NSError& error, const NSString& path) {
    return zorErrorBySettingObject(error, path, NSFilePathErrorKey);
}

// The path that a URL gives is that of the absolute URL.
NSError zorErrorBySettingFileURL(const NSError& error, const NSURL& url) {
    return zorErrorBySettingObject(error, url.path(), NSFilePathErrorKey);
}

NSError zorErrorBySettingCFilePath(const NSError& error, const char* path) {
    return zorErrorBySettingFilePath(error, path ? stringWithFileSystemRepresentation(path) : nullptr);
}

NSError zorErrorBySettingURL(const NSError& error, const NSURL& url) {
    return zorErrorBySettingObject(error, url, NSURLErrorKey);
}

NSError zorErrorBySettingDestinationFilePath(const NSError& error, const NSString& path) {
    return zorErrorBySettingObject(error, path, NSDestinationFilePathErrorKey);
}

NSError zorErrorBySettingDescription(const NSError& error, const NSString& text) {
    return zorErrorBySettingObject(error, text, NSLocalizedDescriptionKey);
}

NSError zorErrorBySettingRecoverySuggestion(const NSError& error, const NSString& text) {
    return zorErrorBySettingObject(error, text, NSLocalizedRecoverySuggestionErrorKey);
}

NSError zorErrorBySettingUnderlyingError(const NSError& error, const NSError& underlying) {
    return zorErrorBySettingObject(error, underlying, NSUnderlyingErrorKey);
}

NSError zorErrorBySettingUnderlyingReason(const NSError& error, const NSObject& reason) {
    return zorErrorBySettingObject(error, reason, ZORUnderlyingReason);
}

NSError zorErrorBySettingFailingObject(const NSError& error, const NSObject& object) {
    return zorErrorBySettingObject(error, orNull(object), ZORFailingObject);
}

NSError zorErrorBySettingFailingObject(const NSError& error, const NSObject& object,
                                       const NSClass& expectedClass) {
    const NSObject actualClass = object ? NSClass(object.className()) : NSObject();
    NSError amended = zorErrorBySettingFailingObject(error, object);
    amended = zorErrorBySettingObject(amended, expectedClass, ZORExpectedType);
    return zorErrorBySettingObject(amended, orNull(actualClass), ZORActualType);
}

NSError zorErrorBySettingArguments(const NSError& error, const NSObject& arguments) {
    return zorErrorBySettingObject(error, orNull(arguments), ZORArguments);
}

NSError zorErrorByAddingStackFrame(const NSError& error, const char* function, unsigned long line) {
    const NSString name = function ? NSString::fromUTF8(function) : nullptr;
    const NSArray inner = error.userInfo().get<NSArray>(NSString(ZORStackFrames));
    std::vector<NSObject> frames{stringWithFormat("%@ (%lu)", name, line)};
    frames.insert(frames.end(), inner.begin(), inner.end());
    return zorErrorBySettingObject(error, NSArray(std::move(frames)), ZORStackFrames);
}
