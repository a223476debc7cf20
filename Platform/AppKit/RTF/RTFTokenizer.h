// SPDX-License-Identifier: Apache-2.0
//
// Cuts RTF into its pieces: braces, control words and symbols, bytes in hexadecimal, and runs of plain bytes.
// It knows nothing of what the words mean, but for \bin, whose binary data it steps over. Line ends and NUL
// bytes between the pieces are no text and never show. The bytes must outlive the tokenizer and its tokens.
#pragma once

#include "Platform/Foundation/Deadline.h"

#include <cstddef>
#include <cstdint>
#include <string_view>

struct RTFToken {
    enum class Kind : uint8_t {
        end,        // of the input
        groupBegin, // {
        groupEnd,   // }
        word,       // \name or \name123: `text` is the name, letters only
        symbol,     // \ and a byte that is no letter: `text` is that byte
        byte,       // \'hh: `text` is hh, `parameter` the byte
        text,       // bytes that stand for themselves
    };

    Kind kind;
    bool hasParameter = false;
    int32_t parameter = 0; // held within the type's range
    std::string_view text = {};
};

class RTFTokenizer {
public:
    explicit RTFTokenizer(std::string_view bytes) : next_(bytes.data()), end_(bytes.data() + bytes.size()) {}

    RTFToken next();

    // Steps over the rest of the group that is open, so that its closing brace comes next.
    void skipGroup(Deadline& deadline);

private:
    RTFToken control();
    RTFToken word();
    void parameter(RTFToken& token);
    void skipBytes(int32_t count);

    const char* next_;
    const char* end_;
};
