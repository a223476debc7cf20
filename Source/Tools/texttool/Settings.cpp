// SPDX-License-Identifier: Apache-2.0
#include "Source/Tools/texttool/Settings.h"

#include "Platform/Foundation/NSUserDefaults.h"
#include "ZORFoundation/Source/NSUserDefaults+ZOR.h"

namespace {

NSUserDefaults& defaults() { return NSUserDefaults::standardUserDefaults(); }

} // namespace

bool hostBool(const char16_t* key, bool defaultValue) {
    return zorBoolForKey(defaults(), NSString(key), NSString(kHostDomain), defaultValue);
}

int64_t hostInteger(const char16_t* key, int64_t defaultValue) {
    return zorIntegerForKey(defaults(), NSString(key), NSString(kHostDomain), defaultValue);
}

NSObject hostObject(const char16_t* key, const NSObject& defaultValue) {
    return zorObjectForKey(defaults(), NSString(key), NSString(kHostDomain), defaultValue);
}

bool isForcedOffline() { return hostBool(u"LkTextToolForceOffline", false); }
