// SPDX-License-Identifier: Apache-2.0
#include "ZORFoundation/Source/NSError+ZOR.h"

#include "Platform/Foundation/NSUserDefaults.h"
#include "Platform/Foundation/StringFormat.h"
#include "ZORFoundation/Source/ZORFunctions.h"

namespace {

// What the error knows of itself goes in, what the user information says already stays.
void addIfMissing(NSMutableDictionary& info, const char16_t* key, const NSString& text) {
    if (text && !info.objectForKey(NSString(key))) info.setObject(text, NSString(key));
}

} // namespace

NSError ZORError1(int64_t code, const NSDictionary& userInfo) {
    return NSError(ZORErrorDomain, code, userInfo);
}

bool zorHasDomain(const NSError& error, const NSString& domain, int64_t code) {
    return error && error.domain().isEqualToString(domain) && error.code() == code;
}

NSString zorFullDescription(const NSError& error) {
    if (!error) return nullptr;
    if (NSUserDefaults::standardUserDefaults().boolForKey(u"ErrorShortLogging")) {
        ZORFunctions::logString(stringWithFormat("Error: %@", error));
    }
    NSMutableDictionary info(error.userInfo());
    addIfMissing(info, NSLocalizedDescriptionKey, error.localizedDescription());
    addIfMissing(info, NSLocalizedFailureReasonErrorKey, error.localizedFailureReason());
    addIfMissing(info, NSLocalizedRecoverySuggestionErrorKey, error.localizedRecoverySuggestion());
    if (NSError underlying = error.userInfo().get<NSError>(NSString(NSUnderlyingErrorKey))) {
        info.setObject(zorFullDescription(underlying), NSString(NSUnderlyingErrorKey));
    }
    return stringWithFormat("<NSError Domain=%@ Code=%ld UserInfo=%@>", error.domain(), error.code(),
                            std::move(info).copy());
}
