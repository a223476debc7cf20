// SPDX-License-Identifier: Apache-2.0
#include "ZORFoundation/Source/NSURL+ZORXattr.h"

#include "Platform/Foundation/ExtendedAttributes.h"
#include "Platform/Foundation/UnicodeText.h"
#include "ZORFoundation/Source/NSError+ZOR.h"
#include "ZORFoundation/Source/NSPropertyListSerialization+ZOR.h"
#include "ZORFoundation/Source/NSString+ZORCreation.h"
#include "ZORFoundation/Source/NSString+ZORPaths.h"
#include "ZORFoundation/Source/NSURL+ZORFileBasics.h"
#include "ZORFoundation/Source/ZORFailure.h"
#include "ZORFoundation/Source/ZORPOSIX.h"

#include <algorithm>
#include <optional>

namespace {

constexpr int kOptions = AttributeOptions::noFollow;

// Bytes of a path or a name, which may be none.
using Bytes = std::optional<std::string>;

const char* pointer(const Bytes& bytes) { return bytes ? bytes->c_str() : nullptr; }

// None for nil and for text with a lone surrogate, which has no UTF-8.
Bytes utf8Of(const NSString& text) {
    std::string bytes = toUTF8(text.text(), LoneSurrogates::threeBytes);
    return text && isUTF8(bytes) ? Bytes(std::move(bytes)) : std::nullopt;
}

Bytes pathOf(const NSURL& url) {
    char path[NSStringZORPaths::zorMaxPathLength()];
    if (zorGetFileSystemRepresentation(url, path, sizeof path)) return path;
    return zorFileSystemRepresentation(url);
}

void setFailingKey(NSError* error, const NSString& key) {
    if (error) *error = zorErrorBySettingObject(*error, key, ZORFailingKey);
}

} // namespace

NSArray zorXattrKeysError(const NSURL& url, NSError* error) {
    const NSData list = ZORPOSIX::listxattrPath(pointer(pathOf(url)), kOptions, error);
    if (!list) return {};
    std::vector<NSObject> keys;
    for (std::string_view rest = list.bytes(); !rest.empty();) {
        const std::string_view name = rest.substr(0, rest.find('\0'));
        rest.remove_prefix(std::min(name.size() + 1, rest.size()));
        if (!name.empty() && isUTF8(name)) keys.push_back(NSString::fromUTF8(name));
    }
    return NSArray(std::move(keys));
}

NSData zorXattrDataForKey(const NSURL& url, const NSString& key, NSError* error) {
    constexpr const char* method = "-[NSURL(ZORXattr) zorXattrDataForKey:error:]";
    const Bytes path = pathOf(url), key8 = utf8Of(key);
    if (!path || !key8) {
        reportMissing(error, path ? u"key8" : u"path", {method, path ? 67u : 64u});
        return nullptr;
    }
    NSError failure;
    NSData value = ZORPOSIX::getxattrPath(pointer(path), pointer(key8), kOptions, error ? &failure : nullptr);
    if (value || !error) return value;
    *error = failure;
    if (!zorHasDomain(failure, NSPOSIXErrorDomain, kMissingAttributeCode)) setFailingKey(error, key);
    return nullptr;
}

NSString zorXattrStringForKey(const NSURL& url, const NSString& key, NSError* error) {
    const NSData value = zorXattrDataForKey(url, key, error);
    return value ? zorStringWithData(value, NSUTF8StringEncoding, error) : NSString();
}

NSObject zorXattrPropertyListForKey(const NSURL& url, const NSString& key, NSError* error) {
    const NSData value = zorXattrDataForKey(url, key, error);
    return value ? NSPropertyListSerializationZOR::zorReadData(value, error) : NSObject();
}

bool zorSetXattrData(const NSURL& url, const NSData& value, const NSString& key, NSError* error) {
    const std::string_view bytes = value.bytes();
    if (ZORPOSIX::setxattrPath(pointer(pathOf(url)), pointer(utf8Of(key)), bytes.data(), bytes.size(),
                               kOptions, error)) {
        return true;
    }
    setFailingKey(error, key);
    return false;
}

bool zorSetXattrString(const NSURL& url, const NSString& value, const NSString& key, NSError* error) {
    const Bytes bytes = utf8Of(value);
    return zorSetXattrData(url, bytes ? NSData(*bytes) : NSData(), key, error);
}

bool zorSetXattrPropertyList(const NSURL& url, const NSObject& value, const NSString& key, NSError* error) {
    const NSData bytes = NSPropertyListSerializationZOR::zorBinaryFrom(value, error);
    if (bytes) return zorSetXattrData(url, bytes, key, error);
    constexpr const char* method = "-[NSURL(ZORXattr) zorSetXattrPropertyList:forKey:error:]";
    return reportFailure(error, {method, 94}, [&] { return *error; });
}

bool zorRemoveXattrForKey(const NSURL& url, const NSString& key, NSError* error) {
    if (ZORPOSIX::removexattrPath(pointer(pathOf(url)), pointer(utf8Of(key)), kOptions, error)) return true;
    setFailingKey(error, key);
    return false;
}
