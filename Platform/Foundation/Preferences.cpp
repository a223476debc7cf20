// SPDX-License-Identifier: Apache-2.0
#include "Platform/Foundation/Preferences.h"

#include "Platform/Foundation/ASCII.h"
#include "Platform/Foundation/BaseFolders.h"
#include "Platform/Foundation/NSData.h"
#include "Platform/Foundation/NSLog.h"
#include "Platform/Foundation/NSNumber.h"
#include "Platform/Foundation/NSPathUtilities.h"
#include "Platform/Foundation/NSPropertyListSerialization.h"
#include "Platform/Foundation/StringFormat.h"
#include "Platform/Foundation/UnicodeText.h"

#include <cstdlib>
#include <limits>
#include <map>
#include <mutex>
#include <unistd.h>
#include <vector>

namespace {

NSDictionary readList(const std::string& file) {
    if (access(file.c_str(), F_OK) != 0) return nullptr;
    NSString path = stringWithFileSystemRepresentation(file);
    NSError error;
    NSData data = NSData::dataWithContentsOfFile(path, 0, &error);
    NSObject list = data ? propertyListWithData(data.bytes(), nullptr, &error) : NSObject();
    if (is<NSDictionary>(list)) return as<NSDictionary>(list);
    if (error) {
        NSLog(stringWithFormat("Preferences in %@ are not used: %@", path, error));
    } else {
        NSLog(stringWithFormat("Preferences in %@ are not used: the list is no dictionary", path));
    }
    return nullptr;
}

const std::vector<NSDictionary>& listsOfDomain(const NSString& domain) {
    static std::mutex lock;
    static std::map<std::u16string, std::vector<NSDictionary>> known;
    std::lock_guard guard(lock);
    auto [place, isNew] = known.try_emplace(domain.text());
    if (isNew) {
        for (const std::string& folder : configurationFolders()) {
            if (NSDictionary list = readList(folder + "/" + domain.utf8() + ".plist"))
                place->second.push_back(list);
        }
    }
    return place->second;
}

// White space, sign, white space, digits and nothing more.
bool parseInteger(std::u16string_view text, int64_t& value) {
    size_t i = 0;
    auto skipBlanks = [&] {
        while (i < text.size() && isSpace(text[i])) ++i;
    };
    skipBlanks();
    bool negative = i < text.size() && text[i] == u'-';
    if (i < text.size() && (text[i] == u'-' || text[i] == u'+')) ++i;
    skipBlanks();
    size_t digits = i;
    constexpr int64_t limit = std::numeric_limits<int32_t>::max();
    for (value = 0; i < text.size() && isDigit(text[i]); ++i) {
        value = std::min(value * 10 + (text[i] - u'0'), limit + 1);
    }
    value = negative ? -value : std::min(value, limit);
    return i == text.size() && i > digits;
}

} // namespace

NSObject storedPreference(const NSString& key, const NSString& domain) {
    for (const NSDictionary& list : listsOfDomain(domain)) {
        if (NSObject value = list.objectForKey(key)) return value;
    }
    return nullptr;
}

NSObject CFPreferencesCopyAppValue(const NSString& key, const NSString& applicationID) {
    NSObject value = storedPreference(key, applicationID);
    return value ? value : storedPreference(key, NSGlobalDomain);
}

bool CFPreferencesGetAppBooleanValue(const NSString& key, const NSString& applicationID, bool* valid) {
    NSObject value = CFPreferencesCopyAppValue(key, applicationID);
    const std::u16string& text = as<NSString>(value).text();
    NSNumber number = as<NSNumber>(value);
    bool isTrue = equalIgnoringCase(text, u"true") || equalIgnoringCase(text, u"yes");
    bool isFalse = equalIgnoringCase(text, u"false") || equalIgnoringCase(text, u"no");
    bool isInteger = number && !number.isFloating();
    if (valid) *valid = isTrue || isFalse || isInteger;
    return isTrue || (isInteger && int32_t(number.integerValue()) != 0);
}

int64_t CFPreferencesGetAppIntegerValue(const NSString& key, const NSString& applicationID, bool* valid) {
    NSObject value = CFPreferencesCopyAppValue(key, applicationID);
    int64_t integer = 0;
    bool isInteger = false;
    if (is<NSString>(value)) {
        isInteger = parseInteger(as<NSString>(value).text(), integer);
    } else if (NSNumber number = as<NSNumber>(value); number && !number.isFloating() && !number.isBoolean()) {
        integer = number.integerValue();
        isInteger = true;
    }
    if (valid) *valid = isInteger;
    return isInteger ? integer : 0;
}
