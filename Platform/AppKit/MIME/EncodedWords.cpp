// SPDX-License-Identifier: Apache-2.0
#include "Platform/AppKit/MIME/EncodedWords.h"

#include "Platform/AppKit/MIME/TransferEncoding.h"
#include "Platform/Foundation/ASCII.h"
#include "Platform/Foundation/NSStringEncoding.h"
#include "Platform/Foundation/UnicodeText.h"

#include <algorithm>
#include <optional>

namespace {

void appendPlain(std::u16string& text, std::string_view bytes) {
    appendDecoded(text, bytes, isUTF8(bytes) ? NSUTF8StringEncoding : NSWindowsCP1252StringEncoding);
}

struct EncodedWord {
    NSStringEncoding encoding = NSNoStringEncoding;
    std::string bytes;
    size_t length = 0; // of the whole word in the header
};

std::string decodedQ(std::string_view text) {
    std::string quoted(text);
    std::replace(quoted.begin(), quoted.end(), '_', ' ');
    return decodedQuotedPrintable(quoted + "=\n"); // a soft end of line, so that a blank before it stays
}

// At the start of the text, or none.
std::optional<EncodedWord> encodedWord(std::string_view text) {
    if (!text.starts_with("=?")) return std::nullopt;
    const size_t charsetEnd = text.find('?', 2);
    if (charsetEnd == text.npos || charsetEnd + 2 >= text.size() || text[charsetEnd + 2] != '?')
        return std::nullopt;
    const size_t begin = charsetEnd + 3, end = text.find("?=", begin);
    if (end == text.npos) return std::nullopt;
    std::string_view charset = text.substr(2, charsetEnd - 2);
    charset = charset.substr(0, charset.find('*')); // a language may stand behind
    const std::string_view encoded = text.substr(begin, end - begin);
    if (encoded.find_first_of(" \t") != encoded.npos) return std::nullopt;
    const char form = lowered(text[charsetEnd + 1]);
    EncodedWord word{encodingForIANAName(charset), "", end + 2};
    if (word.encoding == NSNoStringEncoding || (form != 'b' && form != 'q')) return std::nullopt;
    word.bytes = form == 'b' ? decodedBase64(encoded) : decodedQ(encoded);
    return word;
}

} // namespace

std::u16string textOfHeaderValue(std::string_view value) {
    std::u16string text;
    EncodedWord pending; // a character may be divided between words of one encoding
    const auto finish = [&] {
        if (!pending.bytes.empty()) appendDecoded(text, pending.bytes, pending.encoding);
        pending = {};
    };
    while (!value.empty()) {
        // Blanks between two such words are no part of the text.
        const size_t blanks = std::min(value.find_first_not_of(" \t"), value.size());
        const size_t at = pending.length > 0 ? blanks : 0;
        if (auto word = encodedWord(value.substr(at))) {
            if (word->encoding != pending.encoding) finish();
            value.remove_prefix(at + word->length);
            word->bytes.insert(0, pending.bytes);
            pending = std::move(*word);
            continue;
        }
        finish();
        const size_t next = std::min(value.find("=?", 1), value.size());
        appendPlain(text, value.substr(0, next));
        value.remove_prefix(next);
    }
    finish();
    return text;
}

std::u16string textOfExtendedParameter(std::string_view value) {
    const size_t charsetEnd = value.find('\'');
    const size_t languageEnd = charsetEnd == value.npos ? value.npos : value.find('\'', charsetEnd + 1);
    if (languageEnd == value.npos) return textOfHeaderValue(value);
    std::string bytes;
    for (size_t i = languageEnd + 1; i < value.size(); ++i) {
        const bool isEscape = value[i] == '%' && i + 2 < value.size() && hexDigit(value[i + 1]) >= 0 &&
                              hexDigit(value[i + 2]) >= 0;
        bytes += isEscape ? char(hexDigit(value[i + 1]) * 16 + hexDigit(value[i + 2])) : value[i];
        if (isEscape) i += 2;
    }
    const NSStringEncoding encoding = encodingForIANAName(value.substr(0, charsetEnd));
    std::u16string text;
    if (encoding == NSNoStringEncoding) {
        appendPlain(text, bytes);
    } else {
        appendDecoded(text, bytes, encoding);
    }
    return text;
}
