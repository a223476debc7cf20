// SPDX-License-Identifier: Apache-2.0
//
// Mail that Outlook saved, as files of any kind.
#include "Tests/EndToEnd/EndToEnd.h"

#include "Tests/Support/CompoundFileWriter.h"
#include "Tests/Support/LittleEndianWriter.h"

namespace {

class OutlookImport : public EndToEnd {
protected:
    std::string termsOf(CompoundFileWriter& message, const std::string& name = "a.msg") const {
        const ToolResult result = request("SpotlightPath", write(name, message.finish()));
        EXPECT_EQ(result.errors, "");
        return stringIn(recordOf(result.output), u"string");
    }
    static std::string wide(std::u16string_view text) {
        std::string bytes;
        appendWide(bytes, text);
        return bytes;
    }
    // The list of the message's properties that are numbers: one.
    static std::string list(uint32_t property, uint32_t value) {
        std::string bytes(32, '\0');
        append32(bytes, property);
        append32(bytes, 0);
        append32(bytes, value);
        append32(bytes, 0);
        return bytes;
    }
};

TEST_F(OutlookImport, HasTheFieldsThatPeopleReadTheTextAndTheNamesOfAttachments) {
    CompoundFileWriter message;
    message.stream("__properties_version1.0", list(1, 1))
        .stream("__substg1.0_0037001F", wide(u"Größe"))
        .stream("__substg1.0_0C1A001F", wide(u"Ada"))
        .stream("__substg1.0_5D01001F", wide(u"ada@example.org"))
        .stream("__substg1.0_0E04001F", wide(u"Bob"))
        .stream("__substg1.0_1000001F", wide(u"the body"))
        .stream("__substg1.0_10130102", "<p>not twice</p>")
        .stream("__substg1.0_007D001F", wide(u"unseen"))
        .embedded("__attach_version1.0_#00000000", "__substg1.0_3707001F", wide(u"Grüße.pdf"))
        .embedded("__attach_version1.0_#00000001", "__substg1.0_3704001F", wide(u"SHORT.TXT"))
        .embedded("__recip_version1.0_#00000000", "__substg1.0_3704001F", wide(u"none"));
    EXPECT_EQ(termsOf(message), "ada ada@example.org bob body grösse grüsse.pdf short.txt the ");
}

TEST_F(OutlookImport, IsInTheCodePageThatItNames) {
    CompoundFileWriter message;
    message.stream("__properties_version1.0", list(0x3FFD0003, 1251))
        .stream("__substg1.0_1000001E", "\xEC\xE0\xE8");
    EXPECT_EQ(termsOf(message), "маи ");
}

TEST_F(OutlookImport, HasTheTextOfAPageWhereThereIsNoPlainOne) {
    CompoundFileWriter message;
    message.stream("__properties_version1.0", list(0x3FDE0003, 65001))
        .stream("__substg1.0_10130102", "<p>K\xC3\xB6ln<style>x</style>");
    EXPECT_EQ(termsOf(message), "köln ");
}

TEST_F(OutlookImport, HasTheTextOfRTFWhereThereIsNothingElse) {
    std::string rtf;
    append32(rtf, 24);
    append32(rtf, 12);
    append32(rtf, 0x414C454D);
    append32(rtf, 0);
    CompoundFileWriter message;
    message.stream("__properties_version1.0", list(1, 1))
        .stream("__substg1.0_10090102", rtf + "{\\rtf1 rich}");
    EXPECT_EQ(termsOf(message), "rich ");
}

TEST_F(OutlookImport, OfAnotherCompoundFileIsALineInTheLog) {
    CompoundFileWriter other;
    other.stream("Contents", "x");
    const std::string file = write("a.msg", other.finish());
    const ToolResult result = request("SpotlightPath", file);
    EXPECT_EQ(stringIn(recordOf(result.output), u"string"), "");
    EXPECT_EQ(logLines(result),
              std::vector<std::string>{"No text of " + file + ": it is damaged or of another kind"});
}

} // namespace
