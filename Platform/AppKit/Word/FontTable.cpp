// SPDX-License-Identifier: Apache-2.0
#include "Platform/AppKit/Word/FontTable.h"

#include "Platform/Foundation/LittleEndian.h"

#include <string>

namespace Word {

namespace {

constexpr unsigned kWindowsLatin = 1252, kMacintoshRoman = 10000;

enum CharacterSet : uint8_t { kWesternSet = 0, kSymbolSet = 2 };

// The Windows code page of a language identifier, whose low ten bits are the language proper.
unsigned codePageOfLanguage(uint16_t language) {
    constexpr uint16_t kSerbianCyrillic = 0x0C1A, kTraditionalChinese = 0x0404, kHongKongChinese = 0x0C04;
    if (language == kSerbianCyrillic) return 1251;
    if (language == kTraditionalChinese || language == kHongKongChinese) return 950;
    switch (language & 0x3FF) {
    case 0x01:
    case 0x20:
    case 0x29: return 1256; // Arabic, Urdu, Persian
    case 0x02:
    case 0x19:
    case 0x22:
    case 0x23:
    case 0x2F: return 1251; // Bulgarian, Russian, Ukrainian ...
    case 0x04: return 936;  // Chinese
    case 0x05:
    case 0x0E:
    case 0x15:
    case 0x18:
    case 0x1A:
    case 0x1B:
    case 0x1C:              // Czech, Hungarian, Polish,
    case 0x24: return 1250; // Romanian ... Slovenian
    case 0x08: return 1253; // Greek
    case 0x0D: return 1255; // Hebrew
    case 0x11: return 932;  // Japanese
    case 0x12: return 949;  // Korean
    case 0x1E: return 874;  // Thai
    case 0x1F: return 1254; // Turkish
    case 0x25:
    case 0x26:
    case 0x27: return 1257; // Estonian, Latvian, Lithuanian
    case 0x2A: return 1258; // Vietnamese
    default: return kWindowsLatin;
    }
}

std::u16string nameAt(std::string_view font, bool isOld) {
    std::u16string name;
    size_t width = isOld ? 1 : 2;
    for (size_t offset = isOld ? 6 : 40; holds(font, offset, width); offset += width) {
        char16_t unit = isOld ? uint8At(font, offset) : uint16At(font, offset);
        if (unit == 0) break;
        name.push_back(unit);
    }
    return name;
}

} // namespace

const FontTable::Font& FontTable::fontAt(uint16_t index) {
    if (!isRead_) readFonts();
    return index < fonts_.size() ? fonts_[index] : otherFont_;
}

void FontTable::readFonts() {
    isRead_ = true;
    unsigned codePage =
        information_.isMacintosh ? kMacintoshRoman : codePageOfLanguage(information_.language);
    otherFont_.encoding = encodingForCodePage(codePage);
    std::string_view table = information_.table(Table::fonts, tableStream_);
    // In front stands the size of the old table, or the count and the size of extra data of the new one.
    for (size_t offset = information_.isOld ? 2 : 4; offset < table.size();) {
        std::string_view bytes = slice(table, offset, size_t(uint8At(table, offset)) + 1);
        uint8_t characterSet = uint8At(bytes, 4);
        Font font = otherFont_;
        font.symbolFont = symbolFontNamed(nameAt(bytes, information_.isOld));
        if (characterSet == kSymbolSet && font.symbolFont == SymbolFont::none)
            font.symbolFont = SymbolFont::other;
        // Writers give the Western set to fonts of every language.
        const unsigned own = characterSet == kWesternSet ? 0 : codePageForFontCharset(characterSet);
        if (own != 0) font.encoding = encodingForCodePage(own);
        fonts_.push_back(font);
        offset += bytes.size();
    }
}

} // namespace Word
