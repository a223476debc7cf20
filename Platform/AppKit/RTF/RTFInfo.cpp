// SPDX-License-Identifier: Apache-2.0
#include "Platform/AppKit/RTF/RTFInfo.h"

#include "Platform/AppKit/Keywords.h"
#include "Platform/Foundation/CalendarDate.h"
#include "Platform/Foundation/UnicodeText.h"

#include <algorithm>
#include <charconv>
#include <string>
#include <string_view>
#include <utility>

namespace {

constexpr double kTwipsPerPoint = 20;
constexpr DocumentSize kDefaultPaper{612, 792};
constexpr double kDefaultSideMargin = 90, kDefaultEndMargin = 72;
constexpr double kDefaultTabInterval = 36;
constexpr double kDefaultCocoaVersion = 80;
constexpr int32_t kPageLayoutView = 1;

bool isWithin(int32_t value, int32_t low, int32_t high) { return value >= low && value <= high; }

std::optional<DocumentTime> localTime(const RTFTimeFields& fields) {
    const CalendarDate date{fields[kRTFYear], fields[kRTFMonth],  fields[kRTFDay],
                            fields[kRTFHour], fields[kRTFMinute], fields[kRTFSecond]};
    if (!isWithin(fields[kRTFYear], 1, 9999) || !isCalendarDay(date) || !isWithin(date.hour, 0, 23) ||
        !isWithin(date.minute, 0, 59) || !isWithin(date.second, 0, 59))
        return std::nullopt;
    return referenceTimeOfLocal(date);
}

// A color is a number with red in its lowest byte, green and blue above it. One with more is an index of some
// table.
std::optional<DocumentColor> colorValue(std::u16string_view text) {
    uint32_t number = 0;
    const std::string digits = toUTF8(text);
    const auto [end, error] = std::from_chars(digits.data(), digits.data() + digits.size(), number);
    if (error != std::errc() || end != digits.data() + digits.size() || number > 0xFFFFFF)
        return std::nullopt;
    return DocumentColor{uint8_t(number), uint8_t(number >> 8), uint8_t(number >> 16)};
}

} // namespace

void RTFInfo::setNumber(RTFNumber number, std::optional<int32_t> value) {
    bool isSwitch = number == kRTFHyphenation || number == kRTFReadOnly;
    bool isPaper = number == kRTFPaperWidth || number == kRTFPaperHeight;
    if (!value && isSwitch) value = 1;
    if (value && !(isPaper && *value <= 0)) numbers_[number] = value;
}

void RTFInfo::setString(RTFInfoString string, std::u16string text) {
    switch (string) {
    case kRTFTitle: info_.title = std::move(text); break;
    case kRTFAuthor: info_.author = std::move(text); break;
    case kRTFSubject: info_.subject = std::move(text); break;
    case kRTFComment: makersComment_ = std::move(text); break;
    case kRTFDocumentComment: info_.comment = std::move(text); break;
    case kRTFKeywords: info_.keywords = splitKeywords(text, u","); break;
    case kRTFCompany: info_.company = std::move(text); break;
    case kRTFManager: info_.manager = std::move(text); break;
    case kRTFCategory: info_.category = std::move(text); break;
    case kRTFCopyright: info_.copyright = std::move(text); break;
    case kRTFOperator: info_.editor = std::move(text); break;
    }
}

void RTFInfo::setBackground(RTFShapePropertyPart part, std::u16string text) {
    if (part == kRTFPropertyName) {
        backgroundProperty_ = std::move(text);
    } else if (backgroundProperty_ == u"fillColor") {
        info_.backgroundColor = colorValue(text);
    } else if (backgroundProperty_ == u"fFilled") {
        backgroundIsFilled_ = text != u"0";
    }
}

double RTFInfo::points(RTFNumber number, double otherwise) const {
    return numbers_[number] ? *numbers_[number] / kTwipsPerPoint : otherwise;
}

void RTFInfo::finishView() {
    if (numbers_[kRTFViewWidth] && numbers_[kRTFViewHeight])
        info_.viewSize = DocumentSize{points(kRTFViewWidth, 0), points(kRTFViewHeight, 0)};
    if (numbers_[kRTFViewScale]) info_.viewZoom = *numbers_[kRTFViewScale];
    if (numbers_[kRTFViewKind]) info_.viewMode = *numbers_[kRTFViewKind] == kPageLayoutView ? 1 : 0;
    if (numbers_[kRTFReadOnly]) info_.readOnly = *numbers_[kRTFReadOnly] != 0 ? 1 : 0;
}

DocumentInfo RTFInfo::finish() && {
    bool fromCocoa = numbers_[kRTFCocoaVersion].has_value();
    info_.cocoaVersion = fromCocoa ? *numbers_[kRTFCocoaVersion] : kDefaultCocoaVersion;
    info_.paperSize = {points(kRTFPaperWidth, kDefaultPaper.width),
                       points(kRTFPaperHeight, kDefaultPaper.height)};
    info_.leftMargin = points(kRTFLeftMargin, kDefaultSideMargin);
    info_.rightMargin = points(kRTFRightMargin, kDefaultSideMargin);
    info_.topMargin = points(kRTFTopMargin, kDefaultEndMargin);
    info_.bottomMargin = points(kRTFBottomMargin, kDefaultEndMargin);
    info_.defaultTabInterval = points(kRTFDefaultTab, fromCocoa ? 0 : kDefaultTabInterval);

    bool hyphenates = numbers_[kRTFHyphenation].value_or(0) != 0;
    double percent = numbers_[kRTFHyphenationFactor].value_or(100);
    info_.hyphenationFactor = hyphenates ? std::clamp(percent / 100, 0.0, 1.0) : 0;

    info_.creationTime = localTime(creationTime_);
    info_.modificationTime = localTime(modificationTime_);

    finishView();
    if (!backgroundIsFilled_) info_.backgroundColor.reset();
    if (info_.comment.empty()) info_.comment = std::move(makersComment_);
    return std::move(info_);
}
