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

class WordBreaker {
public:
    WordBreaker(WordSink sink, void* context) : sink_(sink), context_(context) {
        UErrorCode status = U_ZERO_ERROR;
        iterator_.reset(ubrk_open(UBRK_WORD, "", nullptr, 0, &status));
        normalizer_ = unorm2_getNFKCCasefoldInstance(&status);
        isUsable_ = U_SUCCESS(status);
    }

    bool breakText(std::u16string_view text) {
        while (isUsable_ && !text.empty()) {
            const std::u16string_view piece = firstPiece(text);
            if (!breakPiece(piece)) return false;
            text.remove_prefix(piece.size());
        }
        return isUsable_;
    }

private:
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
