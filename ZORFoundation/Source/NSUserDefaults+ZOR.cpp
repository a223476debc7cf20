// SPDX-License-Identifier: Apache-2.0
#include "ZORFoundation/Source/NSUserDefaults+ZOR.h"

#include "Platform/Foundation/NSNumber.h"
#include "Platform/Foundation/Preferences.h"
#include "ZORFoundation/Source/ZORPrecondition.h"

#include <string>

namespace {

void requireKey(const NSString& key, const char* selector, unsigned long line) {
    if (key) return;
    const std::string method = std::string("-[NSUserDefaults(ZOR) ") + selector + "]";
    zorStopAfterReport(
        {"ZORFoundation/Source/NSUserDefaults+ZOR", line, {ZORReceiver::Kind::instance}, selector},
        method.c_str(), "key");
}

} // namespace

bool zorBoolForKey(const NSUserDefaults&, const NSString& key, const NSString& domain, bool defaultValue) {
    requireKey(key, "zorBoolForKey:domain:defaultValue:", __LINE__);
    bool valid = true;
    bool value = CFPreferencesGetAppBooleanValue(key, domain, &valid);
    return valid ? value : defaultValue;
}

int64_t zorIntegerForKey(const NSUserDefaults&, const NSString& key, const NSString& domain,
                         int64_t defaultValue) {
    requireKey(key, "zorIntegerForKey:domain:defaultValue:", __LINE__);
    bool valid = true;
    int64_t value = CFPreferencesGetAppIntegerValue(key, domain, &valid);
    return valid ? value : defaultValue;
}

NSObject zorObjectForKey(const NSUserDefaults&, const NSString& key, const NSString& domain,
                         const NSObject& defaultValue) {
    requireKey(key, "zorObjectForKey:domain:defaultValue:", __LINE__);
    NSObject value = CFPreferencesCopyAppValue(key, domain);
    return value ? value : defaultValue;
}

NSObject zorObjectForKey(const NSUserDefaults& defaults, const NSString& key, const NSObject& defaultValue) {
    requireKey(key, "zorObjectForKey:defaultValue:", __LINE__);
    NSObject value = defaults.objectForKey(key);
    return value ? value : defaultValue;
}

NSString zorStringForKey(const NSUserDefaults& defaults, const NSString& key, const NSString& defaultValue) {
    requireKey(key, "zorStringForKey:defaultValue:", __LINE__);
    NSObject value = defaults.objectForKey(key);
    return is<NSString>(value) ? as<NSString>(value) : defaultValue;
}

bool zorBoolForKey(const NSUserDefaults& defaults, const NSString& key, bool defaultValue) {
    requireKey(key, "zorBoolForKey:defaultValue:", __LINE__);
    NSObject value = defaults.objectForKey(key);
    if (is<NSNumber>(value)) return as<NSNumber>(value).boolValue();
    return is<NSString>(value) ? as<NSString>(value).boolValue() : defaultValue;
}

int64_t zorIntegerForKey(const NSUserDefaults& defaults, const NSString& key, int64_t defaultValue) {
    requireKey(key, "zorIntegerForKey:defaultValue:", __LINE__);
    NSObject value = defaults.objectForKey(key);
    if (is<NSNumber>(value)) return as<NSNumber>(value).integerValue();
    return is<NSString>(value) ? as<NSString>(value).integerValue() : defaultValue;
}

double zorDoubleForKey(const NSUserDefaults& defaults, const NSString& key, double defaultValue) {
    requireKey(key, "zorDoubleForKey:defaultValue:", __LINE__);
    NSObject value = defaults.objectForKey(key);
    if (is<NSNumber>(value)) return as<NSNumber>(value).doubleValue();
    return is<NSString>(value) ? as<NSString>(value).doubleValue() : defaultValue;
}

NSSize zorSizeForKey(const NSUserDefaults& defaults, const NSString& key, NSSize defaultValue) {
    return NSSizeFromString(zorStringForKey(defaults, key, NSStringFromSize(defaultValue)));
}
