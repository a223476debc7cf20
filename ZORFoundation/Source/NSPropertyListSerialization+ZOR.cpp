// SPDX-License-Identifier: Apache-2.0
#include "ZORFoundation/Source/NSPropertyListSerialization+ZOR.h"

#include "ZORFoundation/Source/NSData+ZOR.h"
#include "ZORFoundation/Source/ZORFailure.h"

#include <string>

namespace {

constexpr size_t kShownBytes = 1024; // of data in an error, which may be logged

} // namespace

namespace NSPropertyListSerializationZOR {

NSData zorDataFromPropertyList(const NSObject& propertyList, NSPropertyListFormat format, NSError* error) {
    NSData data = dataWithPropertyList(propertyList, format, error);
    if (data || !error) return data;
    *error = zorErrorBySettingFailingObject(*error, propertyList);
    addFrame(error, {"+[NSPropertyListSerialization(ZOR) zorDataFromPropertyList:format:error:]", 21});
    return nullptr;
}

NSData zorBinaryFrom(const NSObject& propertyList, NSError* error) {
    return zorDataFromPropertyList(propertyList, NSPropertyListBinaryFormat_v1_0, error);
}

bool zorWritePropertyList(const NSObject& propertyList, const NSURL& url, NSPropertyListFormat format,
                          NSError* error) {
    constexpr const char* method =
        "+[NSPropertyListSerialization(ZOR) zorWritePropertyList:toURL:format:error:]";
    const NSData data = zorDataFromPropertyList(propertyList, format, error);
    if (!data) {
        if (error)
            *error = zorErrorBySettingFailingObject(zorErrorBySettingFileURL(*error, url), propertyList);
        addFrame(error, {method, 38});
        return false;
    }
    if (zorWriteToURL(data, url, error)) return true;
    addFrame(error, {method, 41});
    return false;
}

NSObject zorPropertyListFromData(const NSData& data, unsigned, NSPropertyListFormat* format, NSError* error) {
    NSObject list = propertyListWithData(data.bytes(), format, error);
    if (list || !error) return list;
    *error = zorErrorBySettingFailingObject(*error, NSData(std::string(data.bytes().substr(0, kShownBytes))));
    addFrame(error,
             {"+[NSPropertyListSerialization(ZOR) zorPropertyListFromData:options:format:error:]", 65});
    return {};
}

NSObject zorReadData(const NSData& data, NSError* error) {
    return zorPropertyListFromData(data, NSPropertyListImmutable, nullptr, error);
}

NSObject zorPropertyListWithContentsOfURL(const NSURL& url, unsigned options, NSPropertyListFormat* format,
                                          NSError* error) {
    constexpr const char* method =
        "+[NSPropertyListSerialization(ZOR) zorPropertyListWithContentsOfURL:options:format:error:]";
    const NSData data = NSData::dataWithContentsOfURL(url, 0, error);
    if (!data) {
        addFrame(error, {method, 74});
        return {};
    }
    NSObject list = zorPropertyListFromData(data, options, format, error);
    if (list || !error) return list;
    *error = zorErrorBySettingFileURL(*error, url);
    addFrame(error, {method, 82});
    return {};
}

NSObject zorReadURL(const NSURL& url, unsigned options, NSPropertyListFormat* format, NSError* error) {
    return zorPropertyListWithContentsOfURL(url, options, format, error);
}

NSObject zorReadURL(const NSURL& url, NSError* error) {
    return zorPropertyListWithContentsOfURL(url, NSPropertyListImmutable, nullptr, error);
}

} // namespace NSPropertyListSerializationZOR
