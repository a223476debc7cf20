// SPDX-License-Identifier: Apache-2.0
#include "Tests/EndToEnd/EndToEnd.h"

#include "Platform/Foundation/NSNumber.h"

#include <filesystem>

namespace {

using Mail = EndToEnd;

TEST_F(Mail, OfAnyContentGivesTheSameAnswer) {
    std::string message = write("a.eml", "From: a@example.org\r\nSubject: s\r\n\r\nbody\r\n");
    std::filesystem::create_directory(path("folder"));
    for (const std::string& file :
         {message, write("empty", ""), write("a.rtf", "{\\rtf1 x}"), path("folder")}) {
        NSDictionary record = recordOf(request("EMLPath", file).output);
        EXPECT_EQ(record.count(), 6u) << file;
        EXPECT_EQ(stringIn(record, u"string"), "{\n}");
        EXPECT_EQ(stringIn(record, u"title"), "");
        EXPECT_EQ(stringIn(record, u"author"), "");
        EXPECT_EQ(stringIn(record, u"url"), "");
        EXPECT_EQ(record.objectForKey(NSString(u"partsCount")), NSNumber::withInt(0));
        ASSERT_TRUE(record.get<NSDictionary>(NSString(u"otherAttributes")));
        EXPECT_EQ(record.get<NSDictionary>(NSString(u"otherAttributes")).count(), 0u) << "not even keywords";
    }
}

TEST_F(Mail, IsNotOpened) {
    for (const char* file : {"/proc/self/mem", "/dev/null"}) {
        EXPECT_EQ(stringIn(recordOf(request("EMLPath", file).output), u"string"), "{\n}") << file;
    }
}

} // namespace
