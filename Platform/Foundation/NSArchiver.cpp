// SPDX-License-Identifier: Apache-2.0
#include "Platform/Foundation/NSArchiver.h"

#include "Platform/Foundation/NSArray.h"
#include "Platform/Foundation/NSClass.h"
#include "Platform/Foundation/NSDate.h"
#include "Platform/Foundation/NSException.h"
#include "Platform/Foundation/NSGeometry.h"
#include "Platform/Foundation/NSNumber.h"
#include "Platform/Foundation/NSURL.h"
#include "Platform/Foundation/StringFormat.h"
#include "Platform/Foundation/TypedStreamWriter.h"
#include "Platform/Foundation/UnicodeText.h"

#include <vector>

namespace {

[[noreturn]] void raise(const NSString& reason) {
    NSException exception(NSInvalidArgumentException, reason);
    exception.raise();
}

[[noreturn]] void raiseUnarchivable(const NSObject& object) {
    const bool isClass = is<NSClass>(object);
    raise(stringWithFormat("%s[%@ encodeWithCoder:]: unrecognized selector sent to %s %p",
                           isClass ? "+" : "-", NSString::fromUTF8(object.className()),
                           isClass ? "class" : "instance", static_cast<const void*>(object.body())));
}

// Null when objects of the kind have no archived form.
const TypedStream::Class* archivedClassOf(const NSObject& object) {
    if (!object || is<NSClass>(object)) return nullptr; // a class answers its own name, as its instances do
    const TypedStream::Class* found = TypedStream::classNamed(object.className());
    return found && found->kind == object.body()->kind() ? found : nullptr;
}

// Writes objects with a stack of its own, since errors can be nested as deeply as code cares to.
class Archiver {
public:
    std::string archive(const NSObject& root) {
        writer_.group("@");
        begin(root);
        while (!open_.empty()) step();
        return writer_.takeBytes();
    }

private:
    struct OpenObject {
        NSObject object;
        size_t partsWritten = 0;
    };

    // Writes the object up to its parts.
    void begin(const NSObject& object);
    // Writes the next part of the innermost open object, or its end.
    void step();
    void contents(const NSObject& object);
    void data(std::string_view bytes);
    void number(const NSNumber& number);
    void geometry(const NSValue::Geometry& geometry);
    void count(size_t value);

    TypedStreamWriter writer_;
    std::vector<OpenObject> open_;
};

size_t partCount(const NSObject& object) {
    switch (object.body()->kind()) {
    case NSKind::array: return as<NSArray>(object).count();
    case NSKind::dictionary: return as<NSDictionary>(object).count() * 2;
    case NSKind::url: return as<NSURL>(object).baseURL() ? 2 : 1;
    case NSKind::error: return 2;
    default: return 0;
    }
}

// One of the objects that the object is made of. They live as long as it does.
NSObject part(const NSObject& object, size_t index) {
    switch (object.body()->kind()) {
    case NSKind::array: return as<NSArray>(object).objects()[index];
    case NSKind::dictionary: {
        const auto& [key, value] = as<NSDictionary>(object).entries()[index / 2];
        return index % 2 == 0 ? key : value;
    }
    case NSKind::url: {
        const NSURL url = as<NSURL>(object), base = url.baseURL();
        return base && index == 0 ? NSObject(base) : url.relativeString();
    }
    case NSKind::error: {
        const NSError error = as<NSError>(object);
        if (index == 0) return error.domain();
        return error.userInfo().count() > 0 ? error.userInfo() : NSDictionary();
    }
    default: return {};
    }
}

void Archiver::begin(const NSObject& object) {
    if (!object) return writer_.nil();
    if (writer_.reference(object.body())) return;
    const TypedStream::Class* archivedClass = archivedClassOf(object);
    if (!archivedClass) raiseUnarchivable(object);
    writer_.beginObject(object.body(), *archivedClass);
    contents(object);
    open_.push_back({object});
}

void Archiver::step() {
    OpenObject& innermost = open_.back();
    if (innermost.partsWritten == partCount(innermost.object)) {
        writer_.endObject();
        open_.pop_back();
        return;
    }
    // The parts of an error are in the group that its code began.
    if (!is<NSError>(innermost.object)) writer_.group("@");
    begin(part(innermost.object, innermost.partsWritten++));
}

void Archiver::count(size_t value) {
    if (value > size_t(INT32_MAX))
        raise(u"*** -[NSArchiver encodeValueOfObjCType:at:]: count does not fit an int");
    writer_.group("i");
    writer_.integer(int64_t(value));
}

void Archiver::contents(const NSObject& object) {
    switch (object.body()->kind()) {
    case NSKind::string:
        writer_.group("+");
        return writer_.unsharedString(toUTF8(as<NSString>(object).text(), LoneSurrogates::threeBytes));
    case NSKind::number: return number(as<NSNumber>(object));
    case NSKind::geometry: return geometry(as<NSValue>(object).geometry());
    case NSKind::array: return count(as<NSArray>(object).count());
    case NSKind::dictionary: return count(as<NSDictionary>(object).count());
    case NSKind::data: return data(as<NSData>(object).bytes());
    case NSKind::date:
        writer_.group("d");
        return writer_.floating(as<NSDate>(object).timeIntervalSinceReferenceDate());
    case NSKind::url: writer_.group("c"); return writer_.byte(as<NSURL>(object).baseURL() ? 1 : 0);
    case NSKind::error:
        writer_.group("i@@");
        return writer_.integer(
            int32_t(as<NSError>(object).code())); // cut to its lower half when it is longer
    default: return;                              // the null object has no contents
    }
}

void Archiver::data(std::string_view bytes) {
    count(bytes.size());
    writer_.group(TypedStream::dataType(bytes.size()));
    writer_.bytes(bytes);
}

void Archiver::number(const NSNumber& number) {
    const char type = number.objCType();
    const std::string_view encoding(&type, 1);
    writer_.group("*");
    writer_.cString(encoding);
    writer_.group(encoding);
    if (type == 'c') {
        writer_.byte(uint8_t(number.integerValue()));
    } else if (type == 'f') {
        writer_.floating(float(number.doubleValue()));
    } else if (type == 'd') {
        writer_.floating(number.doubleValue());
    } else {
        writer_.integer(number.integerValue());
    }
}

struct GeometryWriter {
    TypedStreamWriter& writer;

    void begin(std::string_view encoding) {
        writer.group("*");
        writer.cString(encoding);
        writer.group(encoding);
    }
    void pair(double a, double b) {
        writer.floating(a);
        writer.floating(b);
    }

    void operator()(const NSPoint& point) {
        begin(TypedStream::kPointType);
        pair(point.x, point.y);
    }
    void operator()(const NSSize& size) {
        begin(TypedStream::kSizeType);
        pair(size.width, size.height);
    }
    void operator()(const NSRect& rect) {
        begin(TypedStream::kRectType);
        pair(rect.origin.x, rect.origin.y);
        pair(rect.size.width, rect.size.height);
    }
    void operator()(const NSRange& range) {
        begin(TypedStream::kRangeType);
        writer.integer(int64_t(range.location));
        writer.integer(int64_t(range.length));
    }
};

void Archiver::geometry(const NSValue::Geometry& geometry) { std::visit(GeometryWriter{writer_}, geometry); }

} // namespace

NSData NSArchiver::archivedDataWithRootObject(const NSObject& object) {
    return NSData(Archiver().archive(object));
}

bool NSArchiver::conformsToCoding(const NSObject& object) { return archivedClassOf(object) != nullptr; }
