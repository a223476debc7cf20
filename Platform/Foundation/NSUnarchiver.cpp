// SPDX-License-Identifier: Apache-2.0
#include "Platform/Foundation/NSArchiver.h"

#include "Platform/Foundation/NSArray.h"
#include "Platform/Foundation/NSDate.h"
#include "Platform/Foundation/NSGeometry.h"
#include "Platform/Foundation/NSNull.h"
#include "Platform/Foundation/NSNumber.h"
#include "Platform/Foundation/NSURL.h"
#include "Platform/Foundation/TypedStreamReader.h"
#include "Platform/Foundation/UnicodeText.h"

#include <vector>

namespace {

constexpr int64_t kCoderReadCorruptError = 4864;
constexpr unsigned kDepthLimit = 512;
constexpr size_t kSmallestPart = 2; // bytes of an element with its group: two references

// Keys by which something can be found again, whose comparison is quick whatever they hold.
bool canBeKey(const NSObject& object) {
    switch (object.body()->kind()) {
    case NSKind::string:
    case NSKind::data:
    case NSKind::null: return true;
    case NSKind::number:
    case NSKind::date: return object.body()->isEqual(*object.body()); // unlike not-a-number
    case NSKind::url: return !as<NSURL>(object).baseURL();
    default: return false;
    }
}

class Unarchiver {
public:
    explicit Unarchiver(std::string_view bytes) : reader_(bytes) {}

    // nil without a problem for the archive of nil. What follows the root is not looked at.
    NSObject root();
    const NSString& problem() const { return reader_.problem(); }

private:
    // The object that is here, or nil, counted in the measure of what holds it. `depth` objects are around
    // it. False when it cannot be read.
    bool object(NSObject& object, unsigned depth, TreeMeasure& whole);
    // The same with the group that an object has unless it is inside a longer one.
    bool groupedObject(NSObject& object, unsigned depth, TreeMeasure& whole);

    // What an object of the kind is made of. nil when it cannot be read.
    NSObject contents(NSKind kind, unsigned depth, TreeMeasure& measure);
    NSObject string(TreeMeasure& measure);
    NSObject data(TreeMeasure& measure);
    NSObject date();
    NSObject number();
    NSObject integer(char type);
    NSObject geometry();
    NSObject array(unsigned depth, TreeMeasure& measure);
    NSObject dictionary(unsigned depth, TreeMeasure& measure);
    NSObject url(unsigned depth, TreeMeasure& measure);
    NSObject error(unsigned depth, TreeMeasure& measure);

    NSObject fail(const NSString& what) {
        reader_.fail(what);
        return {};
    }

    TypedStreamReader reader_;
};

NSObject Unarchiver::root() {
    NSObject root;
    TreeMeasure whole = TreeMeasure::container();
    return reader_.header() && groupedObject(root, 0, whole) ? root : NSObject();
}

bool Unarchiver::groupedObject(NSObject& object, unsigned depth, TreeMeasure& whole) {
    return reader_.group("@") && this->object(object, depth, whole);
}

bool Unarchiver::object(NSObject& object, unsigned depth, TreeMeasure& whole) {
    using Next = TypedStreamReader::Next;
    TreeMeasure measure;
    size_t number = 0;
    const TypedStream::Class* objectClass = nullptr;
    const Next next = reader_.object(object, measure, number, objectClass);
    if (next == Next::failure || next == Next::nil) return next == Next::nil;
    if (next == Next::begun) {
        if (depth > kDepthLimit) return reader_.fail(u"Too many nested objects");
        object = contents(objectClass->kind, depth, measure);
        if (!object || !reader_.endObject(number, object, measure)) return false;
    }
    whole.add(measure);
    return whole.fits(reader_.length(), kDepthLimit + 1 - depth) || reader_.fail(u"Too many objects");
}

NSObject Unarchiver::contents(NSKind kind, unsigned depth, TreeMeasure& measure) {
    switch (kind) {
    case NSKind::string: return string(measure);
    case NSKind::number: return number();
    case NSKind::data: return data(measure);
    case NSKind::date: return date();
    case NSKind::array: return array(depth, measure);
    case NSKind::dictionary: return dictionary(depth, measure);
    case NSKind::null: return NSNull::null();
    case NSKind::url: return url(depth, measure);
    case NSKind::geometry: return geometry();
    case NSKind::error: return error(depth, measure);
    default: return fail(u"Object of the root class");
    }
}

NSObject Unarchiver::string(TreeMeasure& measure) {
    std::string_view bytes;
    std::u16string text;
    if (!reader_.group("+") || !reader_.unsharedString(bytes)) return {};
    if (!appendUTF8(text, bytes, Malformed::surrogatesKept)) return fail(u"String that is not UTF-8");
    measure = TreeMeasure::leaf(bytes.size());
    return NSString(std::move(text));
}

NSObject Unarchiver::data(TreeMeasure& measure) {
    size_t length = 0;
    std::string_view bytes;
    if (!reader_.group("i") || !reader_.count(length, 1)) return {};
    if (!reader_.group(TypedStream::dataType(length)) || !reader_.bytes(bytes, length)) return {};
    measure = TreeMeasure::leaf(length);
    return NSData(std::string(bytes));
}

NSObject Unarchiver::date() {
    double time = 0;
    return reader_.group("d") && reader_.floating(time) ? NSDate(time) : NSObject();
}

NSObject Unarchiver::number() {
    std::string_view encoding;
    if (!reader_.group("*") || !reader_.cString(encoding) || !reader_.group(encoding)) return {};
    const char type = encoding.size() == 1 ? encoding[0] : '\0';
    uint8_t byte = 0;
    float single = 0;
    double real = 0;
    switch (type) {
    case 'c':
        if (!reader_.byte(byte)) return {};
        // Booleans are archived as characters; a character of these values is far rarer.
        return byte <= 1 ? NSNumber::withBool(byte == 1) : NSNumber::withChar(int8_t(byte));
    case 'C': return reader_.byte(byte) ? NSNumber::withShort(byte) : NSObject();
    case 'f': return reader_.floating(single) ? NSNumber::withFloat(single) : NSObject();
    case 'd': return reader_.floating(real) ? NSNumber::withDouble(real) : NSObject();
    default: return integer(type);
    }
}

// Unsigned values may stand as the signed ones of the same bits.
NSObject Unarchiver::integer(char type) {
    int64_t value = 0;
    switch (type) {
    case 's':
        return reader_.integer(value, INT16_MIN, INT16_MAX) ? NSNumber::withShort(int16_t(value))
                                                            : NSObject();
    case 'S':
        return reader_.integer(value, INT16_MIN, UINT16_MAX) ? NSNumber::withInt(uint16_t(value))
                                                             : NSObject();
    case 'i':
        return reader_.integer(value, INT32_MIN, INT32_MAX) ? NSNumber::withInt(int32_t(value)) : NSObject();
    case 'I':
        return reader_.integer(value, INT32_MIN, UINT32_MAX) ? NSNumber::withInteger(uint32_t(value))
                                                             : NSObject();
    case 'l':
    case 'q': return reader_.integer(value, INT64_MIN, INT64_MAX) ? NSNumber::withInteger(value) : NSObject();
    case 'L':
    case 'Q':
        return reader_.integer(value, INT64_MIN, INT64_MAX) ? NSNumber::withUnsignedInteger(uint64_t(value))
                                                            : NSObject();
    default: return fail(u"Number of an unknown type");
    }
}

NSObject Unarchiver::geometry() {
    std::string_view encoding;
    if (!reader_.group("*") || !reader_.cString(encoding) || !reader_.group(encoding)) return {};
    if (encoding == TypedStream::kRangeType) {
        int64_t location = 0, length = 0;
        if (!reader_.integer(location, INT64_MIN, INT64_MAX) ||
            !reader_.integer(length, INT64_MIN, INT64_MAX)) {
            return {};
        }
        return NSValue(NSRange{uint64_t(location), uint64_t(length)});
    }
    const bool isRect = encoding == TypedStream::kRectType, isPoint = encoding == TypedStream::kPointType;
    if (!isRect && !isPoint && encoding != TypedStream::kSizeType) return fail(u"Value of an unknown type");
    double numbers[4] = {};
    for (size_t i = 0; i < (isRect ? 4 : 2); ++i) {
        if (!reader_.floating(numbers[i])) return {};
    }
    const NSPoint point{numbers[0], numbers[1]};
    if (isRect) return NSValue(NSRect{point, {numbers[2], numbers[3]}});
    return isPoint ? NSValue(point) : NSValue(NSSize{numbers[0], numbers[1]});
}

NSObject Unarchiver::array(unsigned depth, TreeMeasure& measure) {
    size_t count = 0;
    if (!reader_.group("i") || !reader_.count(count, kSmallestPart)) return {};
    measure = TreeMeasure::container();
    std::vector<NSObject>
        objects; // not sized up front: each of many nested arrays can claim all that is left
    for (size_t i = 0; i < count; ++i) {
        NSObject element;
        if (!groupedObject(element, depth + 1, measure)) return {};
        if (!element) return fail(u"Array that holds nil");
        objects.push_back(std::move(element));
    }
    return NSArray(std::move(objects));
}

NSObject Unarchiver::dictionary(unsigned depth, TreeMeasure& measure) {
    size_t count = 0;
    if (!reader_.group("i") || !reader_.count(count, 2 * kSmallestPart)) return {};
    measure = TreeMeasure::container();
    NSMutableDictionary entries;
    for (size_t i = 0; i < count; ++i) {
        NSObject key, value;
        if (!groupedObject(key, depth + 1, measure) || !groupedObject(value, depth + 1, measure)) return {};
        if (!key || !value) return fail(u"Dictionary that holds nil");
        if (!canBeKey(key)) return fail(u"Dictionary with an unusable key");
        entries.setObject(value, key);
    }
    return std::move(entries).copy();
}

NSObject Unarchiver::url(unsigned depth, TreeMeasure& measure) {
    uint8_t hasBase = 0;
    NSObject base, relative;
    if (!reader_.group("c") || !reader_.byte(hasBase)) return {};
    measure = TreeMeasure::container();
    if (hasBase && !groupedObject(base, depth + 1, measure)) return {};
    if (!groupedObject(relative, depth + 1, measure)) return {};
    if ((hasBase && !is<NSURL>(base)) || !is<NSString>(relative))
        return fail(u"URL of other objects than it needs");
    return NSURL::URLWithString(as<NSString>(relative), as<NSURL>(base));
}

NSObject Unarchiver::error(unsigned depth, TreeMeasure& measure) {
    int64_t code = 0;
    NSObject domain, userInfo;
    if (!reader_.group("i@@") || !reader_.integer(code, INT32_MIN, INT32_MAX)) return {};
    measure = TreeMeasure::container();
    if (!object(domain, depth + 1, measure) || !object(userInfo, depth + 1, measure)) return {};
    if ((domain && !is<NSString>(domain)) || (userInfo && !is<NSDictionary>(userInfo))) {
        return fail(u"Error of other objects than it needs");
    }
    return NSError(as<NSString>(domain), code, as<NSDictionary>(userInfo));
}

} // namespace

NSObject NSUnarchiver::unarchiveObjectWithData(std::string_view bytes, NSError* error) {
    Unarchiver unarchiver(bytes);
    NSObject root = unarchiver.root();
    if (unarchiver.problem()) {
        fail(error, NSError(NSCocoaErrorDomain, kCoderReadCorruptError,
                            {{NSString(NSDebugDescriptionErrorKey), unarchiver.problem()}}));
        return {};
    }
    return root;
}
