// SPDX-License-Identifier: Apache-2.0
#include "Platform/Foundation/ASCII.h"
#include "Platform/Foundation/NSDate.h"
#include "Platform/PDFKit/PDFTextString.h"

namespace {

// Takes digits and signs off the front of a text.
class Scanner {
public:
    explicit Scanner(std::u16string_view text) : rest_(text) {}

    bool atEnd() const { return rest_.empty(); }
    char16_t next() const { return rest_.empty() ? u'\0' : rest_[0]; }

    bool take(std::u16string_view prefix) {
        if (rest_.substr(0, prefix.size()) != prefix) return false;
        rest_.remove_prefix(prefix.size());
        return true;
    }

    // A number of exactly so many digits between two limits.
    bool takeNumber(size_t digits, int least, int most, int& number) {
        if (rest_.size() < digits) return false;
        int value = 0;
        for (size_t i = 0; i < digits; ++i) {
            if (rest_[i] < u'0' || rest_[i] > u'9') return false;
            value = value * 10 + (rest_[i] - u'0');
        }
        if (value < least || value > most) return false;
        rest_.remove_prefix(digits);
        number = value;
        return true;
    }

private:
    std::u16string_view rest_;
};

std::u16string_view withoutBlanks(std::u16string_view text) {
    constexpr std::u16string_view blanks(u" \t\r\n\0", 5);
    size_t first = text.find_first_not_of(blanks);
    if (first == std::u16string_view::npos) return {};
    return text.substr(first, text.find_last_not_of(blanks) - first + 1);
}

// The zone after the time, in minutes east of UTC. False for what is no zone.
bool takeZone(Scanner& scanner, int& minutes) {
    minutes = 0;
    if (scanner.atEnd()) return true;
    bool east = scanner.take(u"+"), west = !east && scanner.take(u"-");
    if (!east && !west && !scanner.take(u"Z")) return false;
    int hour = 0, minute = 0;
    if (isDigit(scanner.next()) && !scanner.takeNumber(2, 0, 23, hour)) return false;
    scanner.take(u"'") || scanner.take(u":");
    if (isDigit(scanner.next()) && !scanner.takeNumber(2, 0, 59, minute)) return false;
    scanner.take(u"'");
    minutes = (west ? -1 : 1) * (hour * 60 + minute);
    return scanner.atEnd();
}

} // namespace

std::optional<double> timeOfPDFDate(std::u16string_view text) {
    Scanner scanner(withoutBlanks(text));
    scanner.take(u"D:");
    int year = 0, month = 1, day = 1, hour = 0, minute = 0, second = 0, zone = 0;
    if (!scanner.takeNumber(4, 1, 9999, year)) return {};
    struct {
        int least, most;
        int& value;
    } fields[] = {{1, 12, month}, {1, 31, day}, {0, 23, hour}, {0, 59, minute}, {0, 59, second}};
    for (auto& [least, most, value] : fields) {
        if (!isDigit(scanner.next())) break;
        if (!scanner.takeNumber(2, least, most, value)) return {};
    }
    if (!takeZone(scanner, zone)) return {};
    return referenceTime({year, month, day, hour, minute - zone, second});
}
