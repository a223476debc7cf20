// SPDX-License-Identifier: Apache-2.0
#include "Platform/AppKit/OfficeOpenXML/NumberFormat.h"

#include "Platform/AppKit/OpenDocument/NumberFormat.h"

#include <algorithm>
#include <iterator>

namespace OfficeOpenXML {

struct NumberFormat::Named {
    std::string_view name;
    Kind kind;
    std::u16string_view symbols;
    static const Named kAll[];
};

// Of `latin` the one symbol names the format, of `words` it tells ordinals from cardinals. `alphabet` begins
// anew with each letter doubled, `table` ends with its last symbol.
const NumberFormat::Named NumberFormat::Named::kAll[] = {
    {"aiueo", Kind::alphabet,
     u"アイウエオカキクケコサシスセソタチツテトナニヌネノハヒフヘホマミムメモヤユヨラリルレロワヲン"},
    {"aiueoFullWidth", Kind::alphabet,
     u"アイウエオカキクケコサシスセソタチツテトナニヌネノハヒフヘホマミムメモヤユヨラリルレロワヲン"},
    {"arabicAbjad", Kind::alphabet, u"أبجدهوزحطيكلمنسعفصقرشتثخذضظغ"},
    {"arabicAlpha", Kind::alphabet, u"أبتثجحخدذرزسشصضطظعغفقكلمنهوي"},
    {"bullet", Kind::bullet, u""},
    {"cardinalText", Kind::words, u""},
    {"chicago", Kind::alphabet, u"*†‡§"},
    {"chineseCounting", Kind::counting, u"○一二三四五六七八九"},
    {"chineseCountingThousand", Kind::counting, u"○一二三四五六七八九"},
    {"chosung", Kind::alphabet, u"ㄱㄴㄷㄹㅁㅂㅅㅇㅈㅊㅋㅌㅍㅎ"},
    {"decimalEnclosedCircle", Kind::table, u"①②③④⑤⑥⑦⑧⑨⑩⑪⑫⑬⑭⑮⑯⑰⑱⑲⑳"},
    {"decimalEnclosedCircleChinese", Kind::table, u"①②③④⑤⑥⑦⑧⑨⑩⑪⑫⑬⑭⑮⑯⑰⑱⑲⑳"},
    {"decimalEnclosedFullstop", Kind::table, u"⒈⒉⒊⒋⒌⒍⒎⒏⒐⒑⒒⒓⒔⒕⒖⒗⒘⒙⒚⒛"},
    {"decimalEnclosedParen", Kind::table, u"⑴⑵⑶⑷⑸⑹⑺⑻⑼⑽⑾⑿⒀⒁⒂⒃⒄⒅⒆⒇"},
    {"decimalFullWidth", Kind::digits, u"０１２３４５６７８９"},
    {"decimalFullWidth2", Kind::digits, u"０１２３４５６７８９"},
    {"decimalZero", Kind::padded, u""},
    {"ganada", Kind::alphabet, u"가나다라마바사아자차카타파하"},
    {"hebrew2", Kind::alphabet, u"אבגדהוזחטיכלמנסעפצקרשת"},
    {"hindiNumbers", Kind::digits, u"०१२३४५६७८९"},
    {"ideographDigital", Kind::digits, u"〇一二三四五六七八九"},
    {"ideographEnclosedCircle", Kind::table, u"㊀㊁㊂㊃㊄㊅㊆㊇㊈㊉"},
    {"ideographTraditional", Kind::table, u"甲乙丙丁戊己庚辛壬癸"},
    {"ideographZodiac", Kind::table, u"子丑寅卯辰巳午未申酉戌亥"},
    {"iroha", Kind::alphabet,
     u"イロハニホヘトチリヌルヲワカヨタレソツネナラムウヰノオクヤマケフコエテアサキユメミシヱヒモセスン"},
    {"irohaFullWidth", Kind::alphabet,
     u"イロハニホヘトチリヌルヲワカヨタレソツネナラムウヰノオクヤマケフコエテアサキユメミシヱヒモセスン"},
    {"japaneseCounting", Kind::counting, u"〇一二三四五六七八九"},
    {"japaneseDigitalTenThousand", Kind::digits, u"〇一二三四五六七八九"},
    {"koreanCounting", Kind::counting, u"영일이삼사오육칠팔구"},
    {"koreanDigital", Kind::digits, u"영일이삼사오육칠팔구"},
    {"koreanDigital2", Kind::digits, u"零一二三四五六七八九"},
    {"lowerLetter", Kind::latin, u"a"},
    {"lowerRoman", Kind::latin, u"i"},
    {"none", Kind::none, u""},
    {"ordinal", Kind::ordinal, u""},
    {"ordinalText", Kind::words, u"o"},
    {"russianLower", Kind::alphabet, u"абвгдежзиклмнопрстуфхцчшщыэюя"},
    {"russianUpper", Kind::alphabet, u"АБВГДЕЖЗИКЛМНОПРСТУФХЦЧШЩЫЭЮЯ"},
    {"taiwaneseCounting", Kind::counting, u"○一二三四五六七八九"},
    {"taiwaneseCountingThousand", Kind::counting, u"○一二三四五六七八九"},
    {"taiwaneseDigital", Kind::digits, u"○一二三四五六七八九"},
    {"thaiLetters", Kind::alphabet, u"กขคงจฉชซฌญฎฏฐฑฒณดตถทธนบปผฝพฟภมยรลวศษสหฬอฮ"},
    {"thaiNumbers", Kind::digits, u"๐๑๒๓๔๕๖๗๘๙"},
    {"upperLetter", Kind::latin, u"A"},
    {"upperRoman", Kind::latin, u"I"},
};

namespace {

constexpr std::u16string_view kOrdinalEnds[] = {u"th", u"st", u"nd", u"rd"};
constexpr std::u16string_view kSmall[] = {u"Zero",    u"One",     u"Two",       u"Three",    u"Four",
                                          u"Five",    u"Six",     u"Seven",     u"Eight",    u"Nine",
                                          u"Ten",     u"Eleven",  u"Twelve",    u"Thirteen", u"Fourteen",
                                          u"Fifteen", u"Sixteen", u"Seventeen", u"Eighteen", u"Nineteen"};
constexpr std::u16string_view kSmallOrdinals[] = {
    u"Zeroth",     u"First",     u"Second",    u"Third",       u"Fourth",     u"Fifth",     u"Sixth",
    u"Seventh",    u"Eighth",    u"Ninth",     u"Tenth",       u"Eleventh",   u"Twelfth",   u"Thirteenth",
    u"Fourteenth", u"Fifteenth", u"Sixteenth", u"Seventeenth", u"Eighteenth", u"Nineteenth"};
constexpr std::u16string_view kTens[] = {u"",      u"",      u"Twenty",  u"Thirty", u"Forty",
                                         u"Fifty", u"Sixty", u"Seventy", u"Eighty", u"Ninety"};
constexpr int kLeastTens = 20, kMostWords = 99, kMostCounting = 9999;

void appendDecimal(std::u16string& out, int number) { OpenDocument::appendNumber(out, number, u'1', false); }

std::u16string_view ordinalEnd(int number) {
    int last = number % 10;
    bool isTeen = number / 10 % 10 == 1;
    return kOrdinalEnds[isTeen || last > 3 ? 0 : last];
}

// Only the first word has a capital.
void appendWords(std::u16string& out, int number, bool isOrdinal) {
    const std::u16string_view* small = isOrdinal ? kSmallOrdinals : kSmall;
    if (number < kLeastTens) {
        out += small[number];
        return;
    }
    std::u16string_view tens = kTens[number / 10];
    if (number % 10 != 0) {
        out.append(tens).push_back(u'-');
        std::u16string_view unit = small[number % 10];
        out.push_back(char16_t(unit[0] - u'A' + u'a'));
        out += unit.substr(1);
    } else if (isOrdinal) {
        out.append(tens.substr(0, tens.size() - 1)).append(u"ieth");
    } else {
        out += tens;
    }
}

// Chinese numerals: 十一, 二十, 一百○五.
void appendCounting(std::u16string& out, int number, std::u16string_view digits) {
    constexpr std::u16string_view kHan = u"千百十", kHangul = u"천백십";
    std::u16string_view units = digits[0] == u'영' ? kHangul : kHan;
    bool zeroWaits = false, hasBegun = false;
    for (int unit = 1000, place = 0; unit > 0; unit /= 10, ++place) {
        int digit = number / unit % 10;
        if (digit == 0) {
            zeroWaits = hasBegun;
            continue;
        }
        if (zeroWaits && units == kHan) out.push_back(digits[0]);
        bool isBareTen = digit == 1 && unit == 10 && !hasBegun;
        if (!isBareTen) out.push_back(digits[size_t(digit)]);
        if (unit > 1) out.push_back(units[size_t(place)]);
        hasBegun = true;
        zeroWaits = false;
    }
}

} // namespace

NumberFormat::NumberFormat(std::string_view name) {
    auto found =
        std::lower_bound(std::begin(Named::kAll), std::end(Named::kAll), name,
                         [](const Named& format, std::string_view wanted) { return format.name < wanted; });
    if (found == std::end(Named::kAll) || found->name != name) return;
    kind_ = found->kind;
    symbols_ = found->symbols;
}

// Returns false when the number is not one that the format can write.
bool NumberFormat::appendSpecial(std::u16string& out, int number) const {
    constexpr size_t kMostRepeats = 10;
    size_t index = size_t(number) - 1;
    switch (kind_) {
    case Kind::alphabet:
        if (index / symbols_.size() >= kMostRepeats) return false;
        out.append(index / symbols_.size() + 1, symbols_[index % symbols_.size()]);
        return true;
    case Kind::table:
        if (index >= symbols_.size()) return false;
        out.push_back(symbols_[index]);
        return true;
    case Kind::words:
        if (number > kMostWords) return false;
        appendWords(out, number, !symbols_.empty());
        return true;
    case Kind::counting:
        if (number > kMostCounting) return false;
        appendCounting(out, number, symbols_);
        return true;
    case Kind::digits: {
        size_t first = out.size();
        appendDecimal(out, number);
        for (size_t i = first; i < out.size(); ++i) out[i] = symbols_[size_t(out[i] - u'0')];
        return true;
    }
    default: return false;
    }
}

void NumberFormat::append(std::u16string& out, int number) const {
    if (kind_ == Kind::bullet || kind_ == Kind::none) return;
    if (kind_ == Kind::latin) return OpenDocument::appendNumber(out, number, symbols_[0], true);
    if (number > 0 && appendSpecial(out, number)) return;
    if (kind_ == Kind::padded && number < 10) out.push_back(u'0');
    appendDecimal(out, number);
    if (kind_ == Kind::ordinal) out += ordinalEnd(number);
}

} // namespace OfficeOpenXML
