// SPDX-License-Identifier: Apache-2.0
#include "Platform/CoreServices/MDItem.h"

#include "Platform/Foundation/ExtendedAttributes.h"
#include "Platform/Foundation/NSArray.h"
#include "Platform/Foundation/NSPathUtilities.h"
#include "Platform/Foundation/NSPropertyListSerialization.h"

#include <string>
#include <vector>

namespace {

constexpr std::string_view kKeywordsName = "com.apple.metadata:kMDItemKeywords";
constexpr std::string_view kUserTagsName = "com.apple.metadata:_kMDItemUserTags";
constexpr std::string_view kDesktopTagsName = "xdg.tags";
constexpr size_t kLargestAttribute = 65536; // the kernel's own bound

std::string attributeNames(const std::string& file) {
    if (listAttributes(file.c_str(), nullptr, 0, 0) <= 0) return {}; // as nearly every file
    std::string names(kLargestAttribute, '\0');
    ssize_t length = listAttributes(file.c_str(), names.data(), names.size(), 0);
    names.resize(length > 0 ? size_t(length) : 0);
    return names;
}

std::string attributeValue(const std::string& file, const std::string& name) {
    std::string value(kLargestAttribute, '\0');
    ssize_t length = getAttribute(file.c_str(), name.c_str(), value.data(), value.size(), 0);
    value.resize(length > 0 ? size_t(length) : 0);
    return value;
}

// The platform's name of an attribute: without what a Samba share makes of it.
std::string platformName(std::string_view name) {
    constexpr std::string_view stream = "DosStream.", type = ":$DATA", privateColon = "\xEF\x80\xA2";
    if (name.substr(0, stream.size()) == stream) name.remove_prefix(stream.size());
    if (name.size() > type.size() && name.substr(name.size() - type.size()) == type)
        name.remove_suffix(type.size());
    std::string plain(name);
    for (size_t at; (at = plain.find(privateColon)) != std::string::npos;)
        plain.replace(at, privateColon.size(), ":");
    return plain;
}

NSObject propertyListOf(std::string_view value) {
    NSObject list = propertyListWithData(value, nullptr, nullptr);
    if (!list && !value.empty() && value.back() == '\0') {
        list = propertyListWithData(value.substr(0, value.size() - 1), nullptr, nullptr); // a share's padding
    }
    return list;
}

std::vector<NSObject> stringsOf(const NSObject& list, bool cutAtLineEnd) {
    std::vector<NSObject> strings;
    auto add = [&](const NSObject& element) {
        if (!is<NSString>(element)) return;
        std::u16string text = as<NSString>(element).text();
        if (cutAtLineEnd) text = text.substr(0, text.find(u'\n'));
        strings.push_back(NSString(std::move(text)));
    };
    add(list);
    for (const NSObject& element : as<NSArray>(list)) add(element);
    return strings;
}

std::vector<NSObject> commaSeparated(std::string_view value) {
    std::vector<NSObject> strings;
    while (!value.empty()) {
        size_t comma = std::min(value.find(','), value.size());
        if (comma > 0) strings.push_back(NSString::fromUTF8(value.substr(0, comma)));
        value.remove_prefix(std::min(comma + 1, value.size()));
    }
    return strings;
}

NSObject keywordsOf(const std::string& file) {
    std::string names = attributeNames(file);
    std::vector<NSObject> keywords, desktopTags, userTags;
    for (size_t at = 0; at < names.size();) {
        std::string name = names.c_str() + at;
        at += name.size() + 1;
        std::string known = platformName(name);
        // A share may hold the same attribute under two names, one of them damaged.
        if (known == kKeywordsName && keywords.empty())
            keywords = stringsOf(propertyListOf(attributeValue(file, name)), false);
        if (known == kDesktopTagsName) desktopTags = commaSeparated(attributeValue(file, name));
        if (known == kUserTagsName && userTags.empty())
            userTags = stringsOf(propertyListOf(attributeValue(file, name)), true);
    }
    for (auto* source : {&keywords, &desktopTags, &userTags}) {
        if (!source->empty()) return NSArray(std::move(*source));
    }
    return nullptr;
}

} // namespace

NSObject MDItem::copyAttribute(const NSString& name) const {
    return name == NSString(kMDItemKeywords) ? keywordsOf(fileSystemRepresentation(path_)) : NSObject();
}
