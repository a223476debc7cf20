// SPDX-License-Identifier: Apache-2.0
#include "Platform/Foundation/NSNumber.h"
#include "Platform/Foundation/StringFormat.h"
#include "ZORFoundation/Source/NSError+ZOR.h"
#include "ZORFoundation/Source/NSProcessInfo+ZOR.h"

namespace {

NSString orNil(const NSString& text) { return text ? text : u"<nil>"; }

NSString stringOrNil(const char* text) { return text ? NSString::fromUTF8(text) : NSString(u"<nil>"); }

} // namespace

NSError ZORError1(int64_t code, const NSDictionary& userInfo) {
    return NSError(ZORErrorDomain, code, userInfo);
}

NSError zorErrorWithDomain(const NSString& domain, int64_t code, const char* file, unsigned long line,
                           const char* function, const char* codeString, const NSDictionary& userInfo) {
    NSMutableDictionary info(userInfo);
    info.setObject(stringOrNil(file), NSString(ZORFile));
    info.setObject(NSNumber::withUnsignedInteger(line), NSString(ZORLine));
    info.setObject(stringOrNil(function), NSString(ZORFunction));
    info.setObject(stringOrNil(codeString), NSString(ZORCodeString));
    return NSError(domain, code, std::move(info).copy());
}

NSError zorRequirementFailedError(const NSString& requirement, const NSDictionary& userInfo) {
    NSMutableDictionary info(userInfo);
    info.setObject(stringWithFormat("The requirement “%@” was not satisfied.", requirement),
                   NSString(NSLocalizedDescriptionKey));
    info.setObject(requirement ? requirement : u"", NSString(ZORFailingObject));
    return ZORError1(ZORRequirementFailedError, std::move(info).copy());
}

NSError zorErrorWithUnsupportedKey(const NSString& key, const NSURL& url) {
    const NSError error = ZORError1(ZORUnsupportedKeyError, {{NSString(ZORFailingKey), orNil(key)}});
    return zorErrorBySettingFileURL(error, url);
}

NSError zorErrorWithFailingObject(const NSObject& object, const NSClass& expectedClass, const NSURL& url) {
    const NSError error(NSCocoaErrorDomain, NSFileReadCorruptFileError,
                        {{NSString(NSFilePathErrorKey), orNil(url.path())}});
    return zorErrorBySettingFailingObject(error, object, expectedClass);
}

NSError zorErrorFromException(const NSException& exception) {
    const NSString trace; // exceptions here carry none, long or short
    const NSString reason =
        stringWithFormat("%@ - %@\nStack Trace: %@", exception.name(), exception.reason(), trace);
    NSMutableDictionary info(exception.userInfo());
    info.setObject(orNil(exception.name()), NSString(NSLocalizedDescriptionKey));
    info.setObject(reason, NSString(NSLocalizedFailureReasonErrorKey));
    info.setObject(reason, NSString(ZORShortFailureReason));
    info.setObject(orNil(exception.reason()), NSString(NSLocalizedRecoverySuggestionErrorKey));
    if (NSProcessInfoZOR::zorIsInAppSandbox()) {
        info.setObject(NSNumber::withBool(true), NSString(ZORIsInAppSandbox));
    }
    return ZORError1(ZORExceptionError, std::move(info).copy());
}
