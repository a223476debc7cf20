// SPDX-License-Identifier: Apache-2.0
#include "Platform/AppKit/Package/XMLValues.h"

#include "Platform/Foundation/ASCII.h"
#include "Platform/Foundation/CalendarDate.h"

#include <algorithm>
#include <charconv>
#include <cmath>

namespace {

constexpr int kLargest = 999'999'999;

struct Unit {
    std::string_view name;
    double points;
};

constexpr Unit kUnits[] = {{"cm", 72 / 2.54}, {"mm", 72 / 25.4}, {"in", 72},   {"inch", 72},
                           {"pt", 1},         {"pc", 12},        {"pica", 12}, {"px", 0.75}};

// Takes a number of exactly `digits` digits from the front of the text.
bool takeDigits(std::string_view& text, size_t digits, int& value) {
    if (text.size() < digits) return false;
    value = 0;
    for (char c : text.substr(0, digits)) {
        if (!isDigit(c)) return false;
        value = value * 10 + (c - '0');
    }
    text.remove_prefix(digits);
    return true;
}

bool take(std::string_view& text, char c) {
    if (text.empty() || text.front() != c) return false;
    text.remove_prefix(1);
    return true;
}

double takeFraction(std::string_view& text) {
    double value = 0, place = 0.1;
    if (!take(text, '.') && !take(text, ',')) return 0;
    for (int digit; takeDigits(text, 1, digit); place /= 10) value += digit * place;
    return value;
}

struct ClockTime {
    int hour = 0, minute = 0, second = 0;
    double fraction = 0;
};

bool takeTime(std::string_view& text, ClockTime& time) {
    if (!takeDigits(text, 2, time.hour) || !take(text, ':') || !takeDigits(text, 2, time.minute))
        return false;
    if (take(text, ':')) {
        if (!takeDigits(text, 2, time.second)) return false;
        time.fraction = takeFraction(text);
    }
    return time.hour <= 24 && time.minute <= 59 && time.second <= 60;
}

// Seconds east of Greenwich, when the text goes on with a time zone.
std::optional<int> takeZone(std::string_view& text) {
    if (take(text, 'Z')) return 0;
    if (text.empty() || (text.front() != '+' && text.front() != '-')) return std::nullopt;
    int sign = text.front() == '-' ? -1 : 1, hour = 0, minute = 0;
    text.remove_prefix(1);
    if (!takeDigits(text, 2, hour)) return std::nullopt;
    take(text, ':');
    takeDigits(text, 2, minute);
    return sign * (hour * 60 + minute) * 60;
}

} // namespace

std::optional<int> integerValue(std::string_view text) {
    text = trimmed(text, isXMLSpace);
    long long value = 0;
    auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
    if (end != text.data() + text.size() || error == std::errc::invalid_argument) return std::nullopt;
    if (error == std::errc::result_out_of_range) value = text.starts_with('-') ? -kLargest : kLargest;
    return int(std::clamp<long long>(value, -kLargest, kLargest));
}

std::optional<double> lengthValue(std::string_view text) {
    text = trimmed(text, isXMLSpace);
    double number = 0;
    auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    if (error != std::errc() || !(std::abs(number) <= kLargest)) return std::nullopt;
    std::string_view unit = trimmed(text.substr(size_t(end - text.data())), isXMLSpace);
    auto found =
        std::find_if(std::begin(kUnits), std::end(kUnits), [&](const Unit& u) { return u.name == unit; });
    if (found == std::end(kUnits)) return std::nullopt;
    return number * found->points;
}

std::optional<DocumentTime> timeValue(std::string_view text) {
    text = trimmed(text, isXMLSpace);
    int year = 0, month = 1, day = 1;
    if (!takeDigits(text, 4, year)) return std::nullopt;
    for (int* part : {&month, &day}) {
        if (text.empty()) break;
        if (!take(text, '-') || !takeDigits(text, 2, *part)) return std::nullopt;
    }
    ClockTime time;
    if (take(text, 'T') && !takeTime(text, time)) return std::nullopt;
    const CalendarDate date{year, month, day, time.hour, time.minute, time.second};
    if (!isCalendarDay(date)) return std::nullopt;
    if (auto zone = takeZone(text)) return referenceTime(date) + time.fraction - *zone;
    return referenceTimeOfLocal(date) + time.fraction;
}
