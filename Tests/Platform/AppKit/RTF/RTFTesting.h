// SPDX-License-Identifier: Apache-2.0
//
// Reads RTF in one call, for the tests of its readers.
#pragma once

#include "Platform/AppKit/DocumentReader.h"

#include <gtest/gtest.h>
#include <string>
#include <string_view>

inline DocumentContents contentsOf(std::string_view bytes, DocumentReader reader = readRTF) {
    DocumentContents contents;
    Deadline deadline;
    EXPECT_EQ(reader(bytes, deadline, contents), ReadStatus::read) << bytes.substr(0, 200);
    return contents;
}

inline std::u16string textOf(std::string_view rtf) { return contentsOf(rtf).text; }

// Of a document that has this body.
inline std::u16string textOfBody(std::string_view body) {
    return textOf("{\\rtf1\\ansi " + std::string(body) + "}");
}

inline DocumentInfo infoOf(std::string_view body) {
    return contentsOf("{\\rtf1\\ansi " + std::string(body) + "}").info;
}

struct RTFTextCase {
    const char* name;
    std::string_view body;
    std::u16string_view text;
};

template <size_t count>
void expectTexts(const RTFTextCase (&cases)[count]) {
    for (const RTFTextCase& c : cases) EXPECT_EQ(textOfBody(c.body), c.text) << c.name << ": " << c.body;
}
