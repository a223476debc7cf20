// SPDX-License-Identifier: Apache-2.0
#include "Platform/Foundation/NSGeometry.h"

#include "Platform/Foundation/ASCII.h"
#include "Platform/Foundation/NumberText.h"
#include "Platform/Foundation/StringFormat.h"

#include <charconv>

namespace {

std::u16string pairText(double a, double b) {
    return u"{" + generalNumberText(a, 17) + u", " + generalNumberText(b, 17) + u"}";
}

struct KindAndText {
    std::u16string operator()(NSPoint point) const { return u"NSPoint: " + NSStringFromPoint(point).text(); }
    std::u16string operator()(NSSize size) const { return u"NSSize: " + NSStringFromSize(size).text(); }
    std::u16string operator()(NSRect rect) const { return u"NSRect: " + NSStringFromRect(rect).text(); }
    std::u16string operator()(NSRange range) const { return u"NSRange: " + NSStringFromRange(range).text(); }
};

class GeometryBody final : public ObjectBody {
public:
    explicit GeometryBody(const NSValue::Geometry& geometry)
        : ObjectBody(NSKind::geometry), geometry(geometry) {}

    std::string_view className() const override { return "NSValue"; }
    bool isEqual(const ObjectBody& other) const override {
        return geometry == static_cast<const GeometryBody&>(other).geometry;
    }
    std::u16string description(unsigned) const override { return std::visit(KindAndText(), geometry); }

    const NSValue::Geometry geometry;
};

bool startsNumber(std::string_view text) {
    size_t i = text[0] == '-' ? 1 : 0;
    if (i < text.size() && text[i] == '.') ++i;
    return i < text.size() && isDigit(text[i]);
}

} // namespace

NSString NSStringFromPoint(NSPoint point) { return pairText(point.x, point.y); }
NSString NSStringFromSize(NSSize size) { return pairText(size.width, size.height); }

NSString NSStringFromRect(NSRect rect) {
    return u"{" + NSStringFromPoint(rect.origin).text() + u", " + NSStringFromSize(rect.size).text() + u"}";
}

NSString NSStringFromRange(NSRange range) {
    return stringWithFormat("{%lu, %lu}", range.location, range.length);
}

NSSize NSSizeFromString(const NSString& text) {
    std::string bytes = text.utf8();
    double numbers[2] = {0, 0};
    size_t found = 0;
    std::string_view rest = bytes;
    while (found < 2 && !rest.empty()) {
        if (!startsNumber(rest)) {
            rest.remove_prefix(1);
            continue;
        }
        auto [end, error] = std::from_chars(rest.data(), rest.data() + rest.size(), numbers[found]);
        ++found;
        rest.remove_prefix(size_t(end - rest.data()));
    }
    return {numbers[0], numbers[1]};
}

NSValue::NSValue(const Geometry& geometry) : NSObject(new GeometryBody(geometry)) {}

const NSValue::Geometry& NSValue::geometry() const {
    static const Geometry zero;
    return body() ? static_cast<const GeometryBody*>(body())->geometry : zero;
}
