// SPDX-License-Identifier: Apache-2.0
#include "Platform/AppKit/OfficeOpenXML/NumberFormatNames.h"

#include <algorithm>
#include <iterator>

namespace OfficeOpenXML {

namespace {

using Kind = NumberFormat::Kind;

struct Named {
    std::string_view name;
    NumberFormat format;
};

constexpr Named kFormats[] = {
    {"aiueo",
     {Kind::series,
      u"アイウエオカキクケコサシスセソタチツテトナニヌネノハヒフヘホマミムメモヤユヨラリルレロワヲン"}},
    {"aiueoFullWidth",
     {Kind::series,
      u"アイウエオカキクケコサシスセソタチツテトナニヌネノハヒフヘホマミムメモヤユヨラリルレロワヲン"}},
    {"arabicAbjad", {Kind::series, u"أبجدهوزحطيكلمنسعفصقرشتثخذضظغ"}},
    {"arabicAlpha", {Kind::series, u"أبتثجحخدذرزسشصضطظعغفقكلمنهوي"}},
    {"bullet", {Kind::none, {}}},
    {"cardinalText", {Kind::cardinalWords, {}}},
    {"chicago", {Kind::series, u"*†‡§"}},
    {"chineseCounting", {Kind::counting, u"○一二三四五六七八九"}},
    {"chineseCountingThousand", {Kind::counting, u"○一二三四五六七八九"}},
    {"chosung", {Kind::series, u"ㄱㄴㄷㄹㅁㅂㅅㅇㅈㅊㅋㅌㅍㅎ"}},
    {"decimalEnclosedCircle", {Kind::table, u"①②③④⑤⑥⑦⑧⑨⑩⑪⑫⑬⑭⑮⑯⑰⑱⑲⑳"}},
    {"decimalEnclosedCircleChinese", {Kind::table, u"①②③④⑤⑥⑦⑧⑨⑩⑪⑫⑬⑭⑮⑯⑰⑱⑲⑳"}},
    {"decimalEnclosedFullstop", {Kind::table, u"⒈⒉⒊⒋⒌⒍⒎⒏⒐⒑⒒⒓⒔⒕⒖⒗⒘⒙⒚⒛"}},
    {"decimalEnclosedParen", {Kind::table, u"⑴⑵⑶⑷⑸⑹⑺⑻⑼⑽⑾⑿⒀⒁⒂⒃⒄⒅⒆⒇"}},
    {"decimalFullWidth", {Kind::digits, u"０１２３４５６７８９"}},
    {"decimalFullWidth2", {Kind::digits, u"０１２３４５６７８９"}},
    {"decimalZero", {Kind::padded, {}}},
    {"ganada", {Kind::series, u"가나다라마바사아자차카타파하"}},
    {"hebrew2", {Kind::series, u"אבגדהוזחטיכלמנסעפצקרשת"}},
    {"hindiNumbers", {Kind::digits, u"०१२३४५६७८९"}},
    {"ideographDigital", {Kind::digits, u"〇一二三四五六七八九"}},
    {"ideographEnclosedCircle", {Kind::table, u"㊀㊁㊂㊃㊄㊅㊆㊇㊈㊉"}},
    {"ideographTraditional", {Kind::table, u"甲乙丙丁戊己庚辛壬癸"}},
    {"ideographZodiac", {Kind::table, u"子丑寅卯辰巳午未申酉戌亥"}},
    {"iroha",
     {Kind::series,
      u"イロハニホヘトチリヌルヲワカヨタレソツネナラムウヰノオクヤマケフコエテアサキユメミシヱヒモセスン"}},
    {"irohaFullWidth",
     {Kind::series,
      u"イロハニホヘトチリヌルヲワカヨタレソツネナラムウヰノオクヤマケフコエテアサキユメミシヱヒモセスン"}},
    {"japaneseCounting", {Kind::counting, u"〇一二三四五六七八九"}},
    {"japaneseDigitalTenThousand", {Kind::digits, u"〇一二三四五六七八九"}},
    {"koreanCounting", {Kind::counting, u"영일이삼사오육칠팔구"}},
    {"koreanDigital", {Kind::digits, u"영일이삼사오육칠팔구"}},
    {"koreanDigital2", {Kind::digits, u"零一二三四五六七八九"}},
    {"lowerLetter", {Kind::series, kLowerLatin}},
    {"lowerRoman", {Kind::lowerRoman, {}}},
    {"none", {Kind::none, {}}},
    {"ordinal", {Kind::ordinal, {}}},
    {"ordinalText", {Kind::ordinalWords, {}}},
    {"russianLower", {Kind::series, u"абвгдежзиклмнопрстуфхцчшщыэюя"}},
    {"russianUpper", {Kind::series, u"АБВГДЕЖЗИКЛМНОПРСТУФХЦЧШЩЫЭЮЯ"}},
    {"taiwaneseCounting", {Kind::counting, u"○一二三四五六七八九"}},
    {"taiwaneseCountingThousand", {Kind::counting, u"○一二三四五六七八九"}},
    {"taiwaneseDigital", {Kind::digits, u"○一二三四五六七八九"}},
    {"thaiLetters", {Kind::series, u"กขคงจฉชซฌญฎฏฐฑฒณดตถทธนบปผฝพฟภมยรลวศษสหฬอฮ"}},
    {"thaiNumbers", {Kind::digits, u"๐๑๒๓๔๕๖๗๘๙"}},
    {"upperLetter", {Kind::series, kUpperLatin}},
    {"upperRoman", {Kind::upperRoman, {}}},
};

static_assert(std::is_sorted(std::begin(kFormats), std::end(kFormats),
                             [](const Named& a, const Named& b) { return a.name < b.name; }));

} // namespace

NumberFormat numberFormatNamed(std::string_view name) {
    const Named* found =
        std::lower_bound(std::begin(kFormats), std::end(kFormats), name,
                         [](const Named& format, std::string_view wanted) { return format.name < wanted; });
    return found != std::end(kFormats) && found->name == name ? found->format : NumberFormat();
}

} // namespace OfficeOpenXML
