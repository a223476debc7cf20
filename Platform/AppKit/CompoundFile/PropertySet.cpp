// SPDX-License-Identifier: Apache-2.0
#include "Platform/AppKit/CompoundFile/PropertySet.h"

#include "Platform/Foundation/LittleEndian.h"
#include "Platform/Foundation/NSStringEncoding.h"

namespace {

constexpr size_t kFirstSectionOffset = 44; // where the header says where the first section lies
constexpr uint32_t kCodePageProperty = 1;
constexpr unsigned kUTF16CodePage = 1200;

enum ValueType : uint16_t {
    kInteger16 = 2,
    kBasicString = 8,
    kByteString = 30,
    kWideString = 31,
    kFileTime = 64,
};

std::u16string wideText(std::string_view bytes) {
    std::u16string text;
    text.reserve(bytes.size() / 2);
    for (size_t i = 0; i + 1 < bytes.size(); i += 2) {
        char16_t unit = uint16At(bytes, i);
        if (unit == 0) break;
        text.push_back(unit);
    }
    return text;
}

} // namespace

PropertySet::PropertySet(std::string_view stream) : stream_(stream) {
    section_ = uint32At(stream, kFirstSectionOffset);
    if (!holds(stream, section_, 8)) return;
    count_ = uint32At(stream, section_ + 4);
    std::string_view codePage = property(kCodePageProperty);
    if (uint16At(codePage, 0) == kInteger16) codePage_ = uint16At(codePage, 4);
}

std::string_view PropertySet::property(uint32_t identifier) const {
    for (size_t i = 0; i < count_; ++i) {
        size_t entry = section_ + 8 + 8 * i;
        if (!holds(stream_, entry, 8)) break;
        if (uint32At(stream_, entry) == identifier) {
            return slice(stream_, section_ + uint32At(stream_, entry + 4));
        }
    }
    return {};
}

std::u16string PropertySet::text(uint32_t identifier) const {
    std::string_view value = property(identifier);
    uint16_t type = uint16At(value, 0);
    size_t length = uint32At(value, 4);
    if (type == kWideString) return wideText(slice(value, 8, 2 * length));
    if (type != kByteString && type != kBasicString) return {};
    std::string_view bytes = slice(value, 8, length);
    if (codePage_ == kUTF16CodePage) return wideText(bytes);
    std::u16string text;
    appendDecoded(text, bytes.substr(0, bytes.find('\0')), encodingForCodePage(codePage_));
    return text;
}

std::optional<double> PropertySet::time(uint32_t identifier) const {
    std::string_view value = property(identifier);
    if (uint16At(value, 0) != kFileTime || !holds(value, 4, 8)) return std::nullopt;
    uint64_t ticks = uint64At(value, 4); // of 100 nanoseconds since 1601
    constexpr uint64_t kTicksInSecond = 10'000'000;
    constexpr uint64_t kSecondsInYear = 365 * 86'400;
    // Writers that know no time leave zero, or a span of time, which falls into the first year.
    if (ticks < kSecondsInYear * kTicksInSecond) return std::nullopt;
    constexpr int64_t kSecondsFrom1601To2001 = 12'622'780'800;
    int64_t seconds = int64_t(ticks / kTicksInSecond) - kSecondsFrom1601To2001;
    return double(seconds) + double(ticks % kTicksInSecond) / double(kTicksInSecond);
}
