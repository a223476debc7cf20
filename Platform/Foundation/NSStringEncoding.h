// SPDX-License-Identifier: Apache-2.0
//
// Character encodings: their platform numbers, the names and code-page numbers that documents use for them,
// the one decoder that all readers share, and its counterpart.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

// Platform numbers. Others are 0x80000000 plus the encoding's Core Foundation number.
using NSStringEncoding = uint32_t;

enum : NSStringEncoding {
    NSNoStringEncoding = 0, // "not known"; never the encoding of a text
    NSASCIIStringEncoding = 1,
    NSNEXTSTEPStringEncoding = 2,
    NSJapaneseEUCStringEncoding = 3,
    NSUTF8StringEncoding = 4,
    NSISOLatin1StringEncoding = 5,
    NSSymbolStringEncoding = 6,
    NSShiftJISStringEncoding = 8, // the Windows code page 932
    NSISOLatin2StringEncoding = 9,
    NSUnicodeStringEncoding = 10, // UTF-16: byte order mark, else big-endian
    NSWindowsCP1251StringEncoding = 11,
    NSWindowsCP1252StringEncoding = 12,
    NSWindowsCP1253StringEncoding = 13,
    NSWindowsCP1254StringEncoding = 14,
    NSWindowsCP1250StringEncoding = 15,
    NSISO2022JPStringEncoding = 21,
    NSMacOSRomanStringEncoding = 30,
    NSUTF16BigEndianStringEncoding = 0x90000100,
    NSUTF16LittleEndianStringEncoding = 0x94000100,
    NSUTF32StringEncoding = 0x8C000100,
    NSUTF32BigEndianStringEncoding = 0x98000100,
    NSUTF32LittleEndianStringEncoding = 0x9C000100,
};

// The encoding of a Windows, DOS or Macintosh code page (437, 850, 874, 932, 936, 949, 950, 1250 to 1258,
// 1361, 10000 and its kin, 65001, 1200 ...), or NSNoStringEncoding.
NSStringEncoding encodingForCodePage(unsigned codePage);

// The code page of text in a font, by the number of its character set in documents of Windows and of the
// Macintosh; 0 where the set is the document's own (1), of pictures (2) or not known.
unsigned codePageForFontCharset(int charset);

// The mark that bytes begin with, of the encodings that have one.
struct ByteOrderMark {
    NSStringEncoding encoding = NSNoStringEncoding; // none
    size_t size = 0;                                // bytes
};

// A mark of UTF-8 or UTF-16. That of little-endian UTF-32 begins with one of them: who takes UTF-32 asks for
// it first.
ByteOrderMark byteOrderMark(std::string_view bytes);
ByteOrderMark byteOrderMarkOfUTF32(std::string_view bytes);
// Whether there is one of UTF-16, which says that it is that and in which order.
bool isMarkedUTF16(std::string_view bytes);

// The encoding of a charset name as the Web and mail use it (case and surrounding blanks do not matter:
// "latin1", "x-sjis", "windows-1252", "ISO-8859-1" ...), or NSNoStringEncoding. Names follow the registry;
// what a browser makes of "iso-8859-1" is the HTML reader's business.
NSStringEncoding encodingForIANAName(std::string_view name);

// Whether text in the encoding can be read.
bool isStringEncodingAvailable(NSStringEncoding encoding);

// Appends the text of `bytes` to `out`. Bytes that the encoding does not define become U+FFFD (in Windows
// code pages 1250 to 1258 the C1 control of the same number, as Windows and the Web have it). Returns true
// when there were none. ASCII is read as ISO Latin 1 and an unknown encoding as Windows code page 1252. No
// byte order mark is dropped here but with NSUnicodeStringEncoding and NSUTF32StringEncoding, whose mark
// tells the order.
bool appendDecoded(std::u16string& out, std::string_view bytes, NSStringEncoding encoding);

// Appends the bytes of `text`. False, with `out` in any state, when a character is not in the encoding, a
// surrogate stands alone where the encoding holds characters, or the encoding is not known or cannot be
// written (HZ). The encodings whose byte order a mark tells are written little-endian with their mark; no
// other mark is written.
bool appendEncoded(std::string& out, std::u16string_view text, NSStringEncoding encoding);

// The units of bytes 0x80 to 0xFF (128 of them) when the encoding has one byte a character and agrees with
// ASCII below 0x80, else null: for readers that decode byte by byte.
const char16_t* upperHalf(NSStringEncoding encoding);
