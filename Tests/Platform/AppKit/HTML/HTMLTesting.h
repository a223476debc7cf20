// SPDX-License-Identifier: Apache-2.0
//
// Reads HTML that a test writes out, and compares its text.
#pragma once

#include "Platform/AppKit/DocumentReader.h"
#include "Platform/Foundation/UnicodeText.h"

#include <gtest/gtest.h>
#include <initializer_list>
#include <string>
#include <string_view>

namespace HTMLTesting {

inline DocumentContents read(std::string_view bytes) {
    Deadline deadline;
    DocumentContents contents;
    EXPECT_EQ(readHTML(bytes, deadline, contents), ReadStatus::read);
    return contents;
}

// Declares UTF-8, which the test's own source is in.
inline std::u16string textOf(std::string_view html) {
    return read("<meta charset=utf-8>" + std::string(html)).text;
}

struct TextCase {
    const char* what;
    std::string_view html;
    std::u16string_view text;
};

inline void expectTexts(std::initializer_list<TextCase> cases) {
    for (const TextCase& c : cases) {
        EXPECT_EQ(toUTF8(textOf(c.html)), toUTF8(c.text)) << c.what << ": " << c.html;
    }
}

inline std::string repeated(std::string_view part, size_t count) {
    std::string text;
    for (size_t i = 0; i < count; ++i) text.append(part);
    return text;
}

} // namespace HTMLTesting
