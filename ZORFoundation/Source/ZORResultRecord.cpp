// SPDX-License-Identifier: Apache-2.0
#include "ZORFoundation/Source/ZORResultRecord.h"

#include "Platform/Foundation/NSArchiver.h"
#include "Platform/Foundation/NSData.h"
#include "Platform/Foundation/NSNumber.h"
#include "Platform/Foundation/NSPropertyListSerialization.h"

#include <algorithm>

namespace {

NSString stringFor(const NSDictionary& list, const char16_t* key) {
    NSString string = list.get<NSString>(NSString(key));
    return string ? string : NSString(u"");
}

bool has(const NSDictionary& list, const char16_t* key) { return bool(list.objectForKey(NSString(key))); }

ZORResultRecord successRecord(const NSDictionary& list) {
    ZORResultRecord record;
    record.kind = ZORResultRecord::Kind::success;
    record.string = stringFor(list, u"string");
    record.title = stringFor(list, u"title");
    record.author = stringFor(list, u"author");
    record.url = stringFor(list, u"url");
    const int64_t parts = list.get<NSNumber>(NSString(u"partsCount")).integerValue();
    record.partsCount =
        int32_t(parts); // written from so many bits; an unsigned reading of -1 comes back as -1
    record.otherAttributes = list.get<NSDictionary>(NSString(u"otherAttributes"));
    if (!record.otherAttributes) record.otherAttributes = NSDictionary::dictionary();
    return record;
}

ZORResultRecord errorRecord(const NSDictionary& list) {
    ZORResultRecord record;
    record.kind = ZORResultRecord::Kind::error;
    record.errorString = stringFor(list, u"errorString");
    const NSData archive = list.get<NSData>(NSString(u"errorData"));
    if (archive.length() > 0) {
        record.error =
            as<NSError>(NSUnarchiver::unarchiveObjectWithData(archive.bytes(), &record.errorProblem));
    }
    return record;
}

NSError noRecord(const NSString& description) {
    return NSError(NSCocoaErrorDomain, NSFileReadCorruptFileError,
                   {{NSString(NSDebugDescriptionErrorKey), description}});
}

} // namespace

NSString ZORResultRecord::text() const {
    switch (kind) {
    case Kind::success: return u"";
    case Kind::error: return errorString;
    case Kind::fallback: return fallbackText;
    }
    return u"";
}

std::optional<ZORResultRecord> ZORResultRecord::recordWithData(std::string_view bytes, NSError* error) {
    const NSObject object = propertyListWithData(bytes, nullptr, error);
    if (!object) return std::nullopt;
    const NSDictionary list = as<NSDictionary>(object);
    if (list.get<NSString>(NSString(u"string"))) return successRecord(list);
    if (has(list, u"errorData") || has(list, u"errorString")) return errorRecord(list);
    if (const NSString text = list.get<NSString>(NSString(u"error"))) {
        ZORResultRecord record;
        record.fallbackText = text;
        return record;
    }
    fail(error, noRecord(list ? u"A dictionary without the keys of a record"
                              : u"A property list that is no dictionary"));
    return std::nullopt;
}
