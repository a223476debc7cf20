// SPDX-License-Identifier: Apache-2.0
#include "Platform/AppKit/OfficeOpenXML/SymbolFonts.h"

#include "Platform/Foundation/NSStringEncoding.h"
#include "Platform/Foundation/UnicodeText.h"

#include <algorithm>
#include <iterator>

namespace OfficeOpenXML {

namespace {

constexpr char16_t kPrivateStart = 0xF000, kPrivateEnd = 0xF0FF;

struct Symbol {
    unsigned char code;
    char16_t character;
};

// Those of Wingdings that stand in text: bullets, boxes, arrows, signs.
constexpr Symbol kWingdings[] = {
    {0x22, u'✂'}, {0x28, u'☎'}, {0x2A, u'✉'}, {0x36, u'⌛'}, {0x3F, u'✍'}, {0x41, u'✌'}, {0x45, u'☜'},
    {0x46, u'☞'}, {0x47, u'☝'}, {0x48, u'☟'}, {0x4A, u'☺'}, {0x4C, u'☹'}, {0x4E, u'☠'}, {0x51, u'✈'},
    {0x52, u'☼'}, {0x54, u'❄'}, {0x58, u'✠'}, {0x59, u'✡'}, {0x5B, u'☯'}, {0x5E, u'♈'}, {0x6C, u'●'},
    {0x6D, u'❍'}, {0x6E, u'■'}, {0x6F, u'□'}, {0x71, u'❑'}, {0x72, u'❒'}, {0x73, u'⬧'}, {0x74, u'⧫'},
    {0x75, u'◆'}, {0x76, u'❖'}, {0x77, u'⬥'}, {0x7B, u'❀'}, {0x7C, u'✿'}, {0x80, u'⓪'}, {0x81, u'①'},
    {0x82, u'②'}, {0x83, u'③'}, {0x84, u'④'}, {0x85, u'⑤'}, {0x86, u'⑥'}, {0x87, u'⑦'}, {0x88, u'⑧'},
    {0x89, u'⑨'}, {0x8A, u'⑩'}, {0x8C, u'❶'}, {0x8D, u'❷'}, {0x8E, u'❸'}, {0x8F, u'❹'}, {0x90, u'❺'},
    {0x91, u'❻'}, {0x92, u'❼'}, {0x93, u'❽'}, {0x94, u'❾'}, {0x95, u'❿'}, {0x9E, u'·'}, {0x9F, u'•'},
    {0xA1, u'○'}, {0xA4, u'◉'}, {0xA7, u'▪'}, {0xA8, u'◻'}, {0xAA, u'✦'}, {0xAB, u'★'}, {0xD8, u'➢'},
    {0xDC, u'➲'}, {0xDF, u'←'}, {0xE0, u'→'}, {0xE1, u'↑'}, {0xE2, u'↓'}, {0xE8, u'➔'}, {0xEF, u'⇦'},
    {0xF0, u'⇨'}, {0xF1, u'⇧'}, {0xF2, u'⇩'}, {0xFB, u'✗'}, {0xFC, u'✓'}, {0xFD, u'☒'}, {0xFE, u'☑'},
};

bool isNamed(std::string_view font, std::string_view lower) {
    return std::equal(font.begin(), font.end(), lower.begin(), lower.end(),
                      [](char c, char l) { return (c >= 'A' && c <= 'Z' ? c - 'A' + 'a' : c) == l; });
}

} // namespace

bool isSymbolFont(std::string_view font) { return isNamed(font, "symbol") || isNamed(font, "wingdings"); }

char16_t symbolCharacter(std::string_view font, char16_t code) {
    bool isPrivate = code >= kPrivateStart && code <= kPrivateEnd;
    if ((!isPrivate && code > 0xFF) || (code & 0xFF) < 0x20) return code;
    unsigned char byte = static_cast<unsigned char>(code & 0xFF);
    if (isNamed(font, "symbol")) {
        std::u16string decoded;
        const char bytes[] = {char(byte)};
        appendDecoded(decoded, {bytes, 1}, NSSymbolStringEncoding);
        return decoded.size() == 1 && decoded[0] != kReplacementCharacter ? decoded[0] : code;
    }
    if (isNamed(font, "wingdings")) {
        auto found = std::lower_bound(std::begin(kWingdings), std::end(kWingdings), byte,
                                      [](const Symbol& symbol, unsigned char b) { return symbol.code < b; });
        if (found != std::end(kWingdings) && found->code == byte) return found->character;
    }
    return code;
}

} // namespace OfficeOpenXML
