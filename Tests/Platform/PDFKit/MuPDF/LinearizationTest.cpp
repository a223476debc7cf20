// SPDX-License-Identifier: Apache-2.0
#include "Platform/PDFKit/MuPDF/Linearization.h"

#include <gtest/gtest.h>

#include <string>

namespace {

// A document of 2,000 bytes that begins so.
std::optional<size_t> pagesOf(const std::string& dictionary) {
    std::string bytes = "%PDF-1.7\n1 0 obj\n" + dictionary + "\nendobj\n";
    bytes.resize(2000, ' ');
    return linearizedPageCount(bytes);
}

TEST(Linearization, SaysTheNumberOfPages) {
    EXPECT_EQ(pagesOf("<</Linearized 1/L 2000/H[500 100]/O 9/E 900/N 17/T 1900>>"), 17u);
    EXPECT_EQ(pagesOf("<< /N\t3 /L\n2000 /NN 9 /Linearized 1.0 >>"), 3u);
}

TEST(Linearization, EndsWhereTheDocumentWasChanged) {
    EXPECT_FALSE(pagesOf("<</Linearized 1/L 1999/N 17>>"));
    EXPECT_FALSE(pagesOf("<</Linearized 1/N 17>>"));
}

TEST(Linearization, IsNotMadeOfOtherText) {
    for (const char* text :
         {"", "<</L 2000/N 17>>", "/Linearized 1/L 2000/N 17", "<</Linearized 1/L 2000/N 17",
          "<</Linearized 1/L 2000/N>>", "<</Linearized 1/L 2000/N x>>",
          "<</Linearized 1/L 2000/N 99999999999999999999999>>"})
        EXPECT_FALSE(pagesOf(text)) << text;
    EXPECT_FALSE(linearizedPageCount("<</Linearized 1/L 2000/N"));
}

} // namespace
