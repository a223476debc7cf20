// SPDX-License-Identifier: Apache-2.0
#include "Platform/AppKit/RTF/RTFFonts.h"

namespace {

constexpr int32_t kSymbolCharset = 2;
constexpr std::string_view kSymbolFont = "Symbol";

} // namespace

void RTFFonts::setDocumentCodePage(int32_t codePage) {
    NSStringEncoding encoding = codePage > 0 ? encodingForCodePage(unsigned(codePage)) : NSNoStringEncoding;
    if (encoding != NSNoStringEncoding) documentEncoding_ = encoding;
}

void RTFFonts::begin(int32_t number) {
    begun_ = font(number);
    setEncoding(NSNoStringEncoding);
}

void RTFFonts::setCharset(int32_t charset) {
    if (charset == kSymbolCharset) {
        setEncoding(kRTFPictorialEncoding);
    } else {
        unsigned codePage = codePageForFontCharset(charset);
        setEncoding(codePage != 0 ? encodingForCodePage(codePage) : NSNoStringEncoding);
    }
}

void RTFFonts::setCodePage(int32_t codePage) {
    NSStringEncoding encoding = codePage > 0 ? encodingForCodePage(unsigned(codePage)) : NSNoStringEncoding;
    if (encoding != NSNoStringEncoding) setEncoding(encoding);
}

void RTFFonts::setName(std::string_view name) {
    if (name.substr(0, name.find(';')) != kSymbolFont || begun_ >= encodings_.size()) return;
    NSStringEncoding& encoding = encodings_[begun_];
    if (encoding == NSNoStringEncoding || encoding == kRTFPictorialEncoding)
        encoding = NSSymbolStringEncoding;
}

void RTFFonts::setEncoding(NSStringEncoding encoding) {
    if (begun_ == kNoFont) return;
    if (begun_ >= encodings_.size()) encodings_.resize(size_t(begun_) + 1, NSNoStringEncoding);
    encodings_[begun_] = encoding;
}
