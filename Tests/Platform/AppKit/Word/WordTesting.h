// SPDX-License-Identifier: Apache-2.0
//
// Reads sample documents in one call, for the tests of the Word reader.
#pragma once

#include "Platform/AppKit/DocumentReader.h"
#include "Tests/Support/WordDocumentWriter.h"

#include <gtest/gtest.h>
#include <string>
#include <string_view>

inline DocumentContents contentsOf(std::string_view bytes) {
    DocumentContents contents;
    Deadline deadline;
    EXPECT_EQ(readDocFormat(bytes, deadline, contents), ReadStatus::read);
    return contents;
}

inline std::u16string textOf(WordDocumentWriter& document) {
    std::string bytes = document.finish();
    return contentsOf(bytes).text;
}

inline ReadStatus statusOf(std::string_view bytes) {
    DocumentContents contents;
    Deadline deadline;
    return readDocFormat(bytes, deadline, contents);
}

// Modifiers that the tests use often.
inline std::string hidden(unsigned value = 1) { return modifier(0x083C, {value}); }
inline std::string deleted(unsigned value = 1) { return modifier(0x0800, {value}); }
inline std::string characterStyle(unsigned style) { return modifier(0x4A30, {style, 0}); }
inline std::string fontOf(unsigned font) { return modifier(0x4A4F, {font, 0}); }
inline std::string inList(unsigned list, unsigned level = 0) {
    return modifier(0x460B, {list, 0}) + modifier(0x260A, {level});
}
inline std::string endsRow() { return modifier(0x2417, {1}); }
