// SPDX-License-Identifier: Apache-2.0
#include "Platform/WebKit/PDFText.h"

#include <gtest/gtest.h>

namespace {

TEST(PDFText, IsThatOfTwoTypes) {
    EXPECT_TRUE(isPDF(u"application/pdf"));
    EXPECT_TRUE(isPDF(u"text/pdf"));
    EXPECT_FALSE(isPDF(u"text/html"));
    EXPECT_FALSE(isPDF(nullptr));
}

TEST(PDFText, IsEmptyForWhatIsNone) {
    EXPECT_EQ(textOfPDF(NSData(std::string("text"))).length(), 0u);
    EXPECT_EQ(textOfPDF(NSData()).length(), 0u);
}

} // namespace
