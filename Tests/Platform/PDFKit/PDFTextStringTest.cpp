// SPDX-License-Identifier: Apache-2.0
#include "Platform/PDFKit/PDFTextString.h"

#include <gtest/gtest.h>

using namespace std::literals;

namespace {

TEST(PDFTextString, IsInPDFDocEncodingWithoutAMark) {
    EXPECT_EQ(textOfPDFString("Plain"), u"Plain");
    EXPECT_EQ(textOfPDFString("\x80\x84\x92\x93\xA0\xE9"), u"•—™\uFB01€é");
    EXPECT_EQ(textOfPDFString("\x18\x1F"), u"\u02D8\u02DC");
    EXPECT_EQ(textOfPDFString("\x9F\xAD"), u"\uFFFD\u00AD");
    EXPECT_EQ(textOfPDFString("a\tb\r\n"), u"a\tb\r\n");
}

TEST(PDFTextString, IsInUTF16OfEitherOrder) {
    EXPECT_EQ(textOfPDFString("\xFE\xFF\0A\x20\xAC"sv), u"A€");
    EXPECT_EQ(textOfPDFString("\xFF\xFE"
                              "A\0\xAC\x20"sv),
              u"A€");
    EXPECT_EQ(textOfPDFString("\xFE\xFF\xD8\x3D\xDE\x00"sv), u"😀");
}

TEST(PDFTextString, KeepsWhatIsWholeOfCutOffText) {
    EXPECT_EQ(textOfPDFString("\xFE\xFF\0A\0"sv), u"A");
    EXPECT_EQ(textOfPDFString("\xFE\xFF"), u"");
    EXPECT_EQ(textOfPDFString("\xFE"), u"þ");
}

TEST(PDFTextString, IsInUTF8WithAMark) {
    EXPECT_EQ(textOfPDFString("\xEF\xBB\xBFGr\xC3\xBC\xC3\x9F"), u"Grüß");
}

TEST(PDFTextString, DropsLanguages) {
    EXPECT_EQ(textOfPDFString("\xFE\xFF\0\x1B\0e\0n\0\x1B\0A"sv), u"A");
    EXPECT_EQ(textOfPDFString("\xFE\xFF\0\x1B\0d\0e\0D\0E\0\x1B\0B"sv), u"B");
    EXPECT_EQ(textOfPDFString("\xEF\xBB\xBF\x1Bja\x1B"
                              "C"),
              u"C");
}

TEST(PDFTextString, KeepsAnEscapeThatEndsNowhere) {
    EXPECT_EQ(textOfPDFString("\xFE\xFF\0\x1B\0e\0n"sv), u"\x1B"
                                                         u"en");
}

TEST(PDFTextString, KeepsNULs) { EXPECT_EQ(textOfPDFString("A\0B"sv), u"A\0B"sv); }

TEST(PDFName, IsUTF8OrLatin1) {
    EXPECT_EQ(textOfPDFName("Gr\xC3\xBC\xC3\x9F"), u"Grüß");
    EXPECT_EQ(textOfPDFName("Gr\xFC\xDF"), u"Grüß");
}

TEST(PDFURI, IsPercentEncodedWhereItIsNotASCII) {
    EXPECT_EQ(textOfPDFURI("http://example.org/a?b=%20#c"), u"http://example.org/a?b=%20#c");
    EXPECT_EQ(textOfPDFURI("http://example.org/a b"), u"http://example.org/a%20b");
    EXPECT_EQ(textOfPDFURI("http://example.org/\xC3\xBC"), u"http://example.org/%C3%BC");
    EXPECT_EQ(textOfPDFURI("http://example.org/\xFC"), u"http://example.org/%C3%BC");
}

} // namespace
