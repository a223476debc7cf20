// SPDX-License-Identifier: Apache-2.0
#include "ZORFoundation/Source/NSError+ZOR.h"

#include "Platform/Foundation/NSArchiver.h"
#include "Platform/Foundation/NSUserDefaults.h"
#include "Platform/Foundation/StringFormat.h"
#include "ZORFoundation/Source/ZORFunctions.h"

namespace {

// What the error knows of itself goes in, what the user information says already stays.
void addIfMissing(NSMutableDictionary& info, const char16_t* key, const NSString& text) {
    if (text && !info.objectForKey(NSString(key))) info.setObject(text, NSString(key));
}

} // namespace

bool zorHasDomain(const NSError& error, const NSString& domain, int64_t code) {
    return error && error.domain().isEqualToString(domain) && error.code() == code;
}

bool zorIsFilePermissionsError(const NSError& error) {
    constexpr int64_t permissionDenied = 13; // the platform's EACCES
    return zorHasDomain(error, NSCocoaErrorDomain, NSFileWriteNoPermissionError) ||
           zorHasDomain(error, NSCocoaErrorDomain, NSFileWriteUnknownError) ||
           zorHasDomain(error, NSPOSIXErrorDomain, permissionDenied);
}

NSError zorArchivableError(const NSError& error) {
    if (!error) return nullptr;
    NSMutableDictionary info;
    for (const auto& [key, value] : error.userInfo()) {
        if (is<NSError>(value)) {
            info.setObject(zorArchivableError(as<NSError>(value)), key);
        } else {
            // Objects of scripting and events have no archived form either, whatever framework defines them.
            info.setObject(NSArchiver::conformsToCoding(value) ? value : value.description(), key);
        }
    }
    return NSError(error.domain(), error.code(), std::move(info).copy());
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
