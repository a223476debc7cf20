// SPDX-License-Identifier: Apache-2.0
//
// The way to the Unicode library, which the module "Unicode" alone links. Whoever can answer for plain ASCII
// does so before asking here.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

struct UnicodeRange {
    size_t start, end;
};

// Takes one word, good until it returns. False when no more are wanted.
using WordSink = bool (*)(void* context, std::u16string_view word) noexcept;

// What the module's entry, a function without arguments, answers. No function throws: those that answer bool
// say false when memory is short.
struct UnicodeFunctions {
    // The extended grapheme cluster with the unit at `index`, which is inside the text.
    UnicodeRange (*cluster)(std::u16string_view text, size_t index) noexcept;

    // The form in which texts are equal when they differ in nothing but what the options (bits of
    // NSStringCompareOptions) leave out of account and in the composition of their characters.
    bool (*fold)(std::u16string_view text, unsigned options, std::u16string& folded) noexcept;

    // The first place, or with the anchored option only the start, where the text is equal to `wanted` in
    // that sense, whole characters only; the empty range when there is none.
    bool (*find)(std::u16string_view text, std::u16string_view wanted, unsigned options,
                 UnicodeRange& found) noexcept;

    // Hands the words of a text to the sink one by one, folded as terms of an index are: in the form NFKC and
    // without case. Numbers are words, and so are those of languages that put no blanks between them. False
    // also when the sink said so.
    bool (*words)(std::u16string_view text, WordSink sink, void* context) noexcept;
};

// Loads the module at the first call. Raises a generic exception when it is missing.
const UnicodeFunctions& unicodeFunctions();

using UnicodeModuleEntry = const UnicodeFunctions* (*)();
