// SPDX-License-Identifier: Apache-2.0
#include "Platform/Foundation/NSPropertyListSerialization.h"

#include "Platform/Foundation/NSArray.h"
#include "Platform/Foundation/NSDictionary.h"
#include "Platform/Foundation/NSNumber.h"
#include "Platform/Foundation/PropertyListFormats.h"
#include "Platform/Foundation/StringFormat.h"

#include <algorithm>
#include <unordered_map>

namespace {

constexpr const char16_t* kOldStyleParsingErrorKey = u"kCFPropertyListOldStyleParsingError";

// The platform's name of the object's class, below the class that people see.
const char* typeName(const NSObject& object) {
    switch (object.body()->kind()) {
    case NSKind::string: return "CFString";
    case NSKind::number: return as<NSNumber>(object).isBoolean() ? "CFBoolean" : "CFNumber";
    case NSKind::data: return "CFData";
    case NSKind::date: return "CFDate";
    case NSKind::array: return "CFArray";
    case NSKind::dictionary: return "CFDictionary";
    case NSKind::null: return "CFNull";
    case NSKind::url: return "CFURL";
    case NSKind::error: return "CFError";
    case NSKind::uid: return "CFKeyedArchiverUID";
    case NSKind::geometry:
    case NSKind::classObject:
    case NSKind::other: break;
    }
    return "CFType";
}

// Looks for what a property list cannot hold. Shared containers are looked at once.
class Validator {
public:
    // nil when the list is valid.
    NSString reasonAgainst(const NSObject& list) {
        unsigned height = 0;
        check(list, 0, height);
        return reason_;
    }

private:
    bool fail(const NSString& reason) {
        reason_ = reason;
        return false;
    }

    // At `depth` containers down; sets how many containers are in one another from the object on.
    bool check(const NSObject& object, unsigned depth, unsigned& height);
    bool checkContainer(const NSObject& object, unsigned depth, unsigned& height);
    bool checkPart(const NSObject& part, unsigned depth, unsigned& height);

    std::unordered_map<const ObjectBody*, unsigned> heights_; // of containers
    NSString reason_;
};

bool Validator::check(const NSObject& object, unsigned depth, unsigned& height) {
    if (!object) return fail(u"property lists cannot contain NULL");
    switch (object.body()->kind()) {
    case NSKind::string:
    case NSKind::data:
    case NSKind::number:
    case NSKind::date:
    case NSKind::uid: return true;
    case NSKind::array:
    case NSKind::dictionary: return checkContainer(object, depth, height);
    default: break;
    }
    return fail(stringWithFormat("property lists cannot contain objects of type '%s'", typeName(object)));
}

bool Validator::checkContainer(const NSObject& object, unsigned depth, unsigned& height) {
    auto known = heights_.find(object.body());
    height = known == heights_.end() ? 1 : known->second;
    if (depth + height > kPropertyListDepthLimit) {
        return fail(stringWithFormat("property lists cannot contain more than %u nested containers",
                                     kPropertyListDepthLimit));
    }
    if (known != heights_.end()) return true;
    for (const NSObject& element : as<NSArray>(object)) {
        if (!checkPart(element, depth, height)) return false;
    }
    for (const auto& [key, value] : as<NSDictionary>(object)) {
        if (!is<NSString>(key)) {
            return fail(stringWithFormat(
                "property list dictionaries may only have keys which are CFStrings, not '%s'",
                typeName(key)));
        }
        if (!checkPart(value, depth, height)) return false;
    }
    heights_.emplace(object.body(), height);
    return true;
}

bool Validator::checkPart(const NSObject& part, unsigned depth, unsigned& height) {
    unsigned partHeight = 0;
    if (!check(part, depth + 1, partHeight)) return false;
    height = std::max(height, partHeight + 1);
    return true;
}

NSError corruptError(const NSString& problem) {
    return NSError(NSCocoaErrorDomain, NSPropertyListReadCorruptError,
                   {{NSString(NSDebugDescriptionErrorKey), problem}});
}

// The bytes, or nil and what hinders them with its code.
NSData written(const NSObject& list, NSPropertyListFormat format, NSString& problem, int64_t& code) {
    if (format != NSPropertyListXMLFormat_v1_0 && format != NSPropertyListBinaryFormat_v1_0) {
        problem = stringWithFormat("Property lists cannot be written in format %d", int(format));
        code = NSPropertyListWriteStreamError;
        return {};
    }
    if (NSString reason = Validator().reasonAgainst(list)) {
        problem = stringWithFormat("Property list invalid for format: %d (%@)", int(format), reason);
        code = NSPropertyListWriteInvalidError;
        return {};
    }
    return NSData(format == NSPropertyListXMLFormat_v1_0 ? XMLPropertyList(list) : binaryPropertyList(list));
}

} // namespace

NSData dataFromPropertyList(const NSObject& propertyList, NSPropertyListFormat format,
                            NSString* errorDescription) {
    NSString problem;
    int64_t code = 0;
    NSData data = written(propertyList, format, problem, code);
    if (!data && errorDescription) *errorDescription = problem;
    return data;
}

NSData dataWithPropertyList(const NSObject& propertyList, NSPropertyListFormat format, NSError* error) {
    NSString problem;
    int64_t code = 0;
    NSData data = written(propertyList, format, problem, code);
    if (!data)
        fail(error, NSError(NSCocoaErrorDomain, code, {{NSString(NSDebugDescriptionErrorKey), problem}}));
    return data;
}

NSObject propertyListWithData(std::string_view bytes, NSPropertyListFormat* format, NSError* error) {
    auto answer = [format](const NSObject& list, NSPropertyListFormat found) {
        if (format) *format = found;
        return list;
    };
    if (bytes.empty()) {
        fail(error, corruptError(u"Cannot parse a NULL or zero-length data"));
        return {};
    }
    if (NSObject list = readBinaryPropertyList(bytes)) return answer(list, NSPropertyListBinaryFormat_v1_0);

    std::u16string text;
    NSString problem, oldStyleProblem;
    if (!decodePropertyListText(text, bytes, problem)) {
        fail(error, corruptError(problem));
        return {};
    }
    if (NSObject list = readXMLPropertyList(text, problem)) return answer(list, NSPropertyListXMLFormat_v1_0);
    if (NSObject list = readOldStylePropertyList(text, oldStyleProblem)) {
        return answer(list, NSPropertyListOpenStepFormat);
    }
    fail(error, NSError(NSCocoaErrorDomain, NSPropertyListReadCorruptError,
                        {{NSString(NSDebugDescriptionErrorKey), problem},
                         {NSString(kOldStyleParsingErrorKey), corruptError(oldStyleProblem)}}));
    return {};
}
