// SPDX-License-Identifier: Apache-2.0
#include "Platform/AppKit/MIME/EncodedWords.h"

#include <cstring>
#include <gtest/gtest.h>

namespace {

TEST(EncodedWords, AreDecodedInTheirEncoding) {
    EXPECT_EQ(textOfHeaderValue("=?utf-8?Q?K=C3=B6ln_am?= Rhein"), u"Köln am Rhein");
    EXPECT_EQ(textOfHeaderValue("a =?ISO-8859-1?B?S/ZsbiA=?="), u"a Köln ");
    EXPECT_EQ(textOfHeaderValue("=?iso-2022-jp?B?GyRCRnxLXBsoQg==?="), u"日本");
    EXPECT_EQ(textOfHeaderValue("=?utf-8*de?q?=C3=BC?="), u"ü");
}

TEST(EncodedWords, BelongTogetherAcrossBlanks) {
    EXPECT_EQ(textOfHeaderValue("=?utf-8?Q?one?= =?utf-8?Q?_two?="), u"one two");
    EXPECT_EQ(textOfHeaderValue("=?utf-8?Q?K=C3?= \t=?utf-8?Q?=B6ln?="), u"Köln") << "a divided character";
    EXPECT_EQ(textOfHeaderValue("=?utf-8?Q?a?= b =?utf-8?Q?c?="), u"a b c");
}

TEST(EncodedWords, ThatAreNoneStandForThemselves) {
    for (const char* text :
         {"=?utf-8?Q?cut", "=?utf-8?X?x?=", "=?none-such?Q?x?=", "=?", "=?=?=?", "a =? b"}) {
        EXPECT_EQ(textOfHeaderValue(text), std::u16string(text, text + strlen(text)));
    }
    EXPECT_EQ(textOfHeaderValue("K\xC3\xB6ln"), u"Köln");
    EXPECT_EQ(textOfHeaderValue("K\xF6ln"), u"Köln");
    EXPECT_EQ(textOfHeaderValue(""), u"");
}

TEST(EncodedWords, OfParametersHaveAFormOfTheirOwn) {
    EXPECT_EQ(textOfExtendedParameter("utf-8'de'K%C3%B6ln%20a"), u"Köln a");
    EXPECT_EQ(textOfExtendedParameter("''100%"), u"100%");
    EXPECT_EQ(textOfExtendedParameter("plain"), u"plain");
}

} // namespace
