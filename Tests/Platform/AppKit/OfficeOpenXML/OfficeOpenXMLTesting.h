// SPDX-License-Identifier: Apache-2.0
//
// What the tests of this reader share.
#pragma once

#include "Platform/AppKit/DocumentReader.h"
#include "Platform/Foundation/UnicodeText.h"
#include "Tests/Support/DocxWriter.h"

#include <gtest/gtest.h>
#include <string>
#include <string_view>

inline DocumentContents contentsOf(const DocxWriter& docx) {
    const std::string bytes = docx.finish();
    DocumentContents contents;
    Deadline deadline;
    EXPECT_EQ(readOfficeOpenXML(bytes, deadline, contents), ReadStatus::read);
    return contents;
}

inline std::string textOf(const DocxWriter& docx) { return toUTF8(contentsOf(docx).text); }

// Of a document with nothing but this in its w:body.
inline std::string textOf(const std::string& body) {
    DocxWriter docx;
    docx.body = body;
    return textOf(docx);
}
