// SPDX-License-Identifier: Apache-2.0
#include "Platform/AppKit/RTF/RTFFonts.h"

#include "Platform/Foundation/ASCII.h"
#include "Platform/Foundation/UnicodeText.h"

namespace {

constexpr int32_t kSymbolCharset = 2;
constexpr int32_t kSymbolCodePage = 42;

// The encoding of a code page, if bytes that stand one by one can be in it: units of two or four cannot.
NSStringEncoding encodingOfBytes(int32_t codePage) {
    NSStringEncoding encoding = codePage > 0 ? encodingForCodePage(unsigned(codePage)) : NSNoStringEncoding;
    switch (encoding) {
    case NSUTF16LittleEndianStringEncoding:
    case NSUTF16BigEndianStringEncoding:
    case NSUTF32LittleEndianStringEncoding:
    case NSUTF32BigEndianStringEncoding: return NSNoStringEncoding;
    default: return encoding;
    }
}

} // namespace

void RTFFonts::setDocumentCodePage(int32_t codePage) {
    NSStringEncoding encoding = encodingOfBytes(codePage);
    if (encoding != NSNoStringEncoding) documentEncoding_ = encoding;
}

void RTFFonts::begin(int32_t number) {
    begun_ = font(number);
    set({});
}

void RTFFonts::setCharset(int32_t charset) {
    if (charset == kSymbolCharset) {
        set({.symbols = SymbolFont::other});
    } else {
        unsigned codePage = codePageForFontCharset(charset);
        set({.encoding = codePage != 0 ? encodingForCodePage(codePage) : NSNoStringEncoding});
    }
}

void RTFFonts::setCodePage(int32_t codePage) {
    if (codePage == kSymbolCodePage) return setCharset(kSymbolCharset);
    NSStringEncoding encoding = encodingOfBytes(codePage);
    if (encoding != NSNoStringEncoding) set({.encoding = encoding});
}

// A font that has been told to hold letters does, whatever its name.
void RTFFonts::setName(std::string_view name) {
    if (begun_ >= fonts_.size() || fonts_[begun_].encoding != NSNoStringEncoding) return;
    name = trimmed(name.substr(0, name.find(';')), isSpace);
    SymbolFont symbols = symbolFontNamed(fromUTF8(name));
    if (symbols != SymbolFont::none) fonts_[begun_].symbols = symbols;
}

void RTFFonts::set(const Font& font) {
    if (begun_ == kNoFont) return;
    if (begun_ >= fonts_.size()) fonts_.resize(size_t(begun_) + 1);
    fonts_[begun_] = font;
}
