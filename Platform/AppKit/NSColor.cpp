// SPDX-License-Identifier: Apache-2.0
#include "Platform/AppKit/NSColor.h"

#include "Platform/Foundation/NumberText.h"

namespace {

class ColorBody final : public ObjectBody {
public:
    ColorBody(double red, double green, double blue)
        : ObjectBody(NSKind::other), red_(red), green_(green), blue_(blue) {}

    std::string_view className() const override { return "NSColor"; }
    std::u16string description(unsigned) const override {
        constexpr int kDigits = 6;
        std::u16string text = u"NSCalibratedRGBColorSpace";
        for (double part : {red_, green_, blue_, 1.0}) text += u" " + generalNumberText(part, kDigits);
        return text;
    }

private:
    const double red_, green_, blue_;
};

} // namespace

NSColor::NSColor(double red, double green, double blue) : NSObject(new ColorBody(red, green, blue)) {}
