// SPDX-License-Identifier: Apache-2.0
#include "Platform/Foundation/NSUserDefaults.h"

#include "Platform/Foundation/ASCII.h"
#include "Platform/Foundation/NSNumber.h"
#include "Platform/Foundation/NSProcessInfo.h"
#include "Platform/Foundation/NSPropertyListSerialization.h"
#include "Platform/Foundation/Preferences.h"
#include "Platform/Foundation/UnicodeText.h"

namespace {

using View = std::u16string_view;

NSObject argumentValue(const NSString& word) {
    View text = trimmed(word.text(), isSpace);
    if (text.empty() || View(u"{[(<\"").find(text[0]) == View::npos) return word;
    NSObject list = propertyListWithData(toUTF8(text, LoneSurrogates::threeBytes), nullptr, nullptr);
    return list ? list : NSObject(word);
}

bool startsWithDash(const NSString& word) { return !word.isEmpty() && word.text()[0] == u'-'; }

} // namespace

NSUserDefaults& NSUserDefaults::standardUserDefaults() {
    static NSUserDefaults defaults(NSProcessInfo::processInfo().arguments(),
                                   NSProcessInfo::processInfo().processName());
    return defaults;
}

NSUserDefaults::NSUserDefaults(const std::vector<NSString>& arguments, const NSString& domain)
    : arguments_(argumentDomain(arguments)), domain_(domain) {}

NSDictionary NSUserDefaults::argumentDomain(const std::vector<NSString>& arguments) {
    NSMutableDictionary found;
    for (size_t i = 1; i + 1 < arguments.size();) {
        const NSString &word = arguments[i], &next = arguments[i + 1];
        if (!startsWithDash(word) || startsWithDash(next)) {
            ++i;
            continue;
        }
        if (word.length() > 1) found.setObject(argumentValue(next), NSString(View(word.text()).substr(1)));
        i += 2;
    }
    return std::move(found).copy();
}

void NSUserDefaults::registerDefaults(const NSDictionary& defaults) {
    NSMutableDictionary all(registered_);
    all.addEntriesFromDictionary(defaults);
    registered_ = std::move(all).copy();
}

NSObject NSUserDefaults::objectForKey(const NSString& key) const {
    if (NSObject value = arguments_.objectForKey(key)) return value;
    if (NSObject value = CFPreferencesCopyAppValue(key, domain_)) return value;
    return registered_.objectForKey(key);
}

NSString NSUserDefaults::stringForKey(const NSString& key) const {
    NSObject value = objectForKey(key);
    return is<NSNumber>(value) ? value.description() : as<NSString>(value);
}

bool NSUserDefaults::boolForKey(const NSString& key) const {
    NSObject value = objectForKey(key);
    if (is<NSNumber>(value)) return as<NSNumber>(value).boolValue();
    std::u16string word = lowered(as<NSString>(value).text());
    return word == u"yes" || word == u"true" || word == u"1";
}
