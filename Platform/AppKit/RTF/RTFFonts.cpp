// SPDX-License-Identifier: Apache-2.0
#include "Platform/AppKit/RTF/RTFFonts.h"

namespace {

constexpr int32_t kSymbolCharset = 2;
constexpr std::string_view kSymbolFont = "Symbol";

// The code page of a charset number, or 0 where the charset is the document's own or not known.
unsigned codePageOfCharset(int32_t charset) {
    switch (charset) {
    case 0: return 1252;
    case 77: return 10000;
    case 78: return 10001;
    case 79: return 10003;
    case 80: return 10008;
    case 81: return 10002;
    case 83: return 10005;
    case 84: return 10004;
    case 85: return 10006;
    case 86: return 10081;
    case 87: return 10021;
    case 88: return 10029;
    case 89: return 10007;
    case 128: return 932;
    case 129: return 949;
    case 130: return 1361;
    case 134: return 936;
    case 136: return 950;
    case 161: return 1253;
    case 162: return 1254;
    case 163: return 1258;
    case 177:
    case 181: return 1255;
    case 178:
    case 179:
    case 180: return 1256;
    case 186: return 1257;
    case 204: return 1251;
    case 222: return 874;
    case 238: return 1250;
    case 254: return 437;
    case 255: return 850;
    default: return 0;
    }
}

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
        unsigned codePage = codePageOfCharset(charset);
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
