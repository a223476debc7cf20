// SPDX-License-Identifier: Apache-2.0
//
// What showrecord does for a person at a terminal, which script(1) gives it here.
#include "Tests/EndToEnd/EndToEnd.h"

#include "Platform/Foundation/NSPropertyListSerialization.h"

namespace {

constexpr const char *kName = "\x1B[36m", *kEnd = "\x1B[0m";

class ShowRecordTerminal : public EndToEnd {
protected:
    std::string recordFile(const NSDictionary& record) const {
        return write(
            "record",
            std::string(dataFromPropertyList(record, NSPropertyListBinaryFormat_v1_0, nullptr).bytes()));
    }
    std::string fallback() const {
        return recordFile({{NSString(u"error"), NSString(u"first\nsecond\nthird")}});
    }
    std::string success(const NSString& text) const { return recordFile({{NSString(u"string"), text}}); }

    // Runs showrecord on a terminal of 8 rows and 20 columns; line ends are the terminal's.
    static ToolResult onTerminal(const std::string& words, std::map<std::string, std::string> environment) {
        environment.try_emplace("TERM", "xterm");
        environment.try_emplace("SHELL", "/bin/sh");
        return runTool(
            {.arguments = {"-qec", "stty rows 8 cols 20 -onlcr; exec " SHOWRECORD_PROGRAM " " + words,
                           "/dev/null"},
             .environment = std::move(environment),
             .program = "script"});
    }
};

TEST_F(ShowRecordTerminal, ColoursNamesAndTheKind) {
    const std::string expected = std::string(kName) + "record" + kEnd + "  \x1B[1;33mfallback" + kEnd + "\n" +
                                 kName + "error" + kEnd + "   first\n        second\n        third\n";
    EXPECT_EQ(onTerminal(fallback(), {}).output, expected);
    EXPECT_EQ(runTool({.arguments = {"--color=always", fallback()}, .program = SHOWRECORD_PROGRAM}).output,
              expected);
}

TEST_F(ShowRecordTerminal, HasNoColoursWhereNobodyWantsThem) {
    const std::string plain = "record  fallback\nerror   first\n        second\n        third\n";
    EXPECT_EQ(onTerminal("--color=never " + fallback(), {}).output, plain);
    EXPECT_EQ(onTerminal(fallback(), {{"NO_COLOR", "1"}}).output, plain);
    EXPECT_EQ(onTerminal(fallback(), {{"TERM", "dumb"}}).output, plain);
    EXPECT_EQ(onTerminal("--json " + fallback(), {}).output.find('\x1B'), std::string::npos);
}

TEST_F(ShowRecordTerminal, ShowsWhatIsLongThroughThePager) {
    const std::map<std::string, std::string> environment = {{"PAGER", "sed s/^/./"}};
    const std::string seven = success(u"1\n2\n3\n4\n5\n6\n7\n");
    EXPECT_EQ(onTerminal("--text " + seven, environment).output, "1\n2\n3\n4\n5\n6\n7\n");
    const std::string eight = success(u"1\n2\n3\n4\n5\n6\n7\n8\n");
    EXPECT_EQ(onTerminal("--text " + eight, environment).output, ".1\n.2\n.3\n.4\n.5\n.6\n.7\n.8\n");
    EXPECT_EQ(onTerminal("--text --no-pager " + eight, environment).output, "1\n2\n3\n4\n5\n6\n7\n8\n");
}

TEST_F(ShowRecordTerminal, CountsLinesThatAreWiderThanTheTerminal) {
    const std::map<std::string, std::string> environment = {{"PAGER", "sed s/^/./"}};
    for (const size_t width : {160, 161}) {
        const std::u16string line(width, u'é');
        const std::string shown = onTerminal("--text " + success(line), environment).output;
        EXPECT_EQ(shown.starts_with("."), width > 160) << shown;
    }
}

TEST_F(ShowRecordTerminal, LeavesTheStatusToTheRecord) {
    const std::string long_ = recordFile({{NSString(u"error"), NSString(u"\n\n\n\n\n\n\n\n\n")}});
    for (const std::string pager : {"false", "true", "exit 3", "head -n 1"}) {
        EXPECT_EQ(onTerminal(long_, {{"PAGER", pager}}).status, 2) << pager;
    }
}

TEST_F(ShowRecordTerminal, GoesWithoutAPagerThatIsNotThere) {
    const std::string eight = success(u"1\n2\n3\n4\n5\n6\n7\n8\n");
    for (const std::string pager : {"", "cat"}) {
        EXPECT_EQ(onTerminal("--text " + eight, {{"PAGER", pager}}).output, "1\n2\n3\n4\n5\n6\n7\n8\n")
            << pager;
    }
    const ToolResult result = onTerminal("--text " + eight, {{"PAGER", "no-such-pager 2>&-"}});
    EXPECT_EQ(result.output, "1\n2\n3\n4\n5\n6\n7\n8\n");
    EXPECT_EQ(result.status, 0);
}

} // namespace
