// SPDX-License-Identifier: Apache-2.0
#include "Platform/Foundation/Unicode/UnicodeModule.h"

#include <algorithm>
#include <memory>
#include <unicode/ubrk.h>
#include <unicode/unorm2.h>

namespace {

struct CloseIterator {
    void operator()(UBreakIterator* iterator) const { ubrk_close(iterator); }
};

// The library counts in 32 bits, and keeps what it finds in a piece: pieces are cut at a blank where there is
// one.
constexpr size_t kPiece = size_t(1) << 20;

std::u16string_view firstPiece(std::u16string_view text) {
    if (text.size() <= kPiece) return text;
    const size_t blank = text.substr(0, kPiece).find_last_of(u" \t\r\n");
    return text.substr(0, blank == text.npos ? kPiece : blank + 1);
}

bool isBlank(char16_t c) { return c == u' ' || (c >= u'\t' && c <= u'\r'); }

// Characters that are parts of words among themselves, whatever stands around them: digits, and letters of
// scripts that put blanks between words.
bool isPlainLetter(char16_t c) {
    const char16_t lower = c | 0x20;
    if (c < 0x80) return (lower >= u'a' && lower <= u'z') || (c >= u'0' && c <= u'9');
    return (c >= 0xC0 && c <= 0x24F && c != 0xD7 && c != 0xF7) || (c >= 0x410 && c <= 0x44F);
}

bool isPunctuation(char16_t c) { return c < 0x80 && c != u'_' && !isPlainLetter(c); }

// The one word of what stands between two blanks, where that is beyond doubt; else nothing.
std::u16string_view plainWord(std::u16string_view token) {
    while (!token.empty() && isPunctuation(token.back())) token.remove_suffix(1);
    while (!token.empty() && isPunctuation(token.front())) token.remove_prefix(1);
    return std::all_of(token.begin(), token.end(), isPlainLetter) ? token : std::u16string_view();
}

// Takes what stands up to the next blank, and the blanks behind it.
std::u16string_view takeToken(std::u16string_view& text) {
    const auto blank = std::find_if(text.begin(), text.end(), isBlank);
    const auto next = std::find_if_not(blank, text.end(), isBlank);
    const std::u16string_view token = text.substr(0, size_t(blank - text.begin()));
    text.remove_prefix(size_t(next - text.begin()));
    return token;
}

class WordBreaker {
public:
    WordBreaker(WordSink sink, void* context) : sink_(sink), context_(context) {
        UErrorCode status = U_ZERO_ERROR;
        iterator_.reset(ubrk_open(UBRK_WORD, "", nullptr, 0, &status));
        normalizer_ = unorm2_getNFKCCasefoldInstance(&status);
        isUsable_ = U_SUCCESS(status);
    }

    // Most words of most texts are plain ones, which cost a twentieth of what the library takes; it gets what
    // stands between them.
    bool breakText(std::u16string_view text) {
        std::u16string_view rest = text;
        const char16_t* others = text.data();
        while (isUsable_ && !rest.empty()) {
            const std::u16string_view token = takeToken(rest), word = plainWord(token);
            if (word.empty()) continue;
            if (!breakPieces({others, size_t(token.data() - others)}) || !deliver(word)) return false;
            others = rest.data();
        }
        return isUsable_ && breakPieces({others, size_t(text.data() + text.size() - others)});
    }

private:
    bool breakPieces(std::u16string_view text) {
        while (!text.empty()) {
            const std::u16string_view piece = firstPiece(text);
            if (!breakPiece(piece)) return false;
            text.remove_prefix(piece.size());
        }
        return true;
    }

    bool breakPiece(std::u16string_view piece) {
        UErrorCode status = U_ZERO_ERROR;
        ubrk_setText(iterator_.get(), piece.data(), int32_t(piece.size()), &status);
        if (U_FAILURE(status)) return false;
        int32_t start = ubrk_first(iterator_.get());
        for (int32_t end; (end = ubrk_next(iterator_.get())) != UBRK_DONE; start = end) {
            const bool isWord = ubrk_getRuleStatus(iterator_.get()) >= UBRK_WORD_NUMBER;
            if (isWord && !deliver(piece.substr(size_t(start), size_t(end - start)))) return false;
        }
        return true;
    }

    bool deliver(std::u16string_view word) {
        if (!fold(word)) return false;
        return folded_.empty() || sink_(context_, folded_);
    }

    bool fold(std::u16string_view word) {
        folded_.assign(word);
        const bool isASCII = std::all_of(word.begin(), word.end(), [](char16_t c) { return c < 0x80; });
        if (isASCII) {
            for (char16_t& c : folded_) c = c >= u'A' && c <= u'Z' ? char16_t(c + (u'a' - u'A')) : c;
            return true;
        }
        for (int32_t length = int32_t(word.size() + 16);;) {
            folded_.resize(size_t(length));
            UErrorCode status = U_ZERO_ERROR;
            const int32_t needed = unorm2_normalize(normalizer_, word.data(), int32_t(word.size()),
                                                    folded_.data(), length, &status);
            if (U_SUCCESS(status)) folded_.resize(size_t(needed));
            if (status != U_BUFFER_OVERFLOW_ERROR) return U_SUCCESS(status);
            length = needed;
        }
    }

    const WordSink sink_;
    void* const context_;
    std::unique_ptr<UBreakIterator, CloseIterator> iterator_;
    const UNormalizer2* normalizer_ = nullptr;
    bool isUsable_ = false;
    std::u16string folded_;
};

} // namespace

bool breakWords(std::u16string_view text, WordSink sink, void* context) {
    return WordBreaker(sink, context).breakText(text);
}
