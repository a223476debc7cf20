// SPDX-License-Identifier: Apache-2.0
#include "Platform/AppKit/MIME/TransferEncoding.h"

#include <gtest/gtest.h>

namespace {

struct Case {
    std::string_view text, bytes;
};

TEST(TransferEncoding, ReadsBase64AndPassesOverWhatIsNone) {
    constexpr Case kCases[] = {{"", ""},
                               {"YQ==", "a"},
                               {"YWI=", "ab"},
                               {"YWJj", "abc"},
                               {"YW\r\n Jj!ZA", "abcd"},
                               {"YWJj=ZGVm", "abc"},
                               {"/+8", "\xFF\xEF"},
                               {"Y", ""}};
    for (const Case& c : kCases) EXPECT_EQ(decodedBase64(c.text), c.bytes) << c.text;
}

TEST(TransferEncoding, ReadsQuotedPrintableAndKeepsWhatIsNone) {
    constexpr Case kCases[] = {{"caf=C3=A9", "caf\xC3\xA9"},
                               {"=c3=a9", "\xC3\xA9"},
                               {"one=\r\n two", "one two"},
                               {"one=\ntwo", "onetwo"},
                               {"one= \t\r\ntwo", "onetwo"},
                               {"one\r\ntwo", "one\r\ntwo"},
                               {"1+1=2", "1+1=2"},
                               {"=G0=0", "=G0=0"},
                               {"end=", "end"},
                               {"end=  ", "end"}};
    for (const Case& c : kCases) EXPECT_EQ(decodedQuotedPrintable(c.text), c.bytes) << c.text;
}

} // namespace
