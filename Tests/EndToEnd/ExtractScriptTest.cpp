// SPDX-License-Identifier: Apache-2.0
//
// The script by which people see what a document holds.
#include "Tests/Support/RunTool.h"
#include "Tests/Support/TemporaryFolder.h"

#include <cstdlib>
#include <filesystem>
#include <gtest/gtest.h>

namespace {

class Extract : public testing::Test {
protected:
    ToolResult extract(const std::vector<std::string>& files) const {
        std::map<std::string, std::string> environment = {
            {"PATH", getenv("PATH")}, {"OutPath", "/nonexistent/out"}, {"XDG_CONFIG_HOME", folder.path()}};
        return runTool({.arguments = files,
                        .environment = environment,
                        .directory = folder.path(),
                        .program = EXTRACT_SCRIPT});
    }
    void write(const std::string& name, std::string_view bytes) const {
        writeFile(folder.path() + "/" + name, bytes);
    }

    void expectText(const std::string& file, const std::string& text) const {
        ToolResult result = extract({file});
        EXPECT_EQ(result.status, 0) << file << "\n" << result.errors;
        EXPECT_TRUE(result.output.ends_with("\n\n" + text + "\n")) << file << "\n" << result.output;
    }

    TemporaryFolder folder;
};

TEST_F(Extract, TakesAnyPath) {
    for (const char* name : {"plain.rtf", "two words.RTF", "-dash.rtf", "(bracket).rtf", "line\nfeed.rtf",
                             "end\n", "\xFF\xFE.rtf", "é*?[a].rtf", "$HOME`id`;.rtf", " blanks "}) {
        write(name, "{\\rtf1 read}");
        expectText(name, "read");
        expectText(folder.path() + "/" + name, "read");
    }
}

TEST_F(Extract, KnowsThePackage) {
    for (const char* name : {"a.rtfd", "-p.RTFD", "folder"}) {
        std::filesystem::create_directory(folder.path() + "/" + name);
        write(std::string(name) + "/TXT.rtf", "{\\rtf1 packed}");
        expectText(name, "packed");
        expectText(std::string(name) + "//", "packed");
    }
}

TEST_F(Extract, KnowsTheKindByTheContentWhereTheNameSaysNothing) {
    write("page", "<!DOCTYPE html><html><head><title>t</title></head><body>page</body></html>");
    write(
        "mail",
        "From: a@example.org\nTo: b@example.org\nSubject: s\nDate: Thu, 1 Jan 2024 00:00:00 +0000\n\nbody\n");
    expectText("page", "page");
    expectText("mail", "{\n}");
}

TEST_F(Extract, ShowsSeveralUnderHeadings) {
    write("a.rtf", "{\\rtf1 first}");
    write("b.rtf", "{\\rtf1 second}");
    ToolResult result = extract({"a.rtf", "none.rtf", "b.rtf"});
    EXPECT_EQ(result.status, 1) << "one is missing";
    size_t first = result.output.find("== a.rtf ==\nrecord"),
           missing = result.output.find("== none.rtf ==\nrecord"),
           second = result.output.find("== b.rtf ==\nrecord");
    EXPECT_TRUE(first < missing && missing < second && second < result.output.size()) << result.output;
    EXPECT_NE(result.output.find("The file “none.rtf” doesn’t exist."), std::string::npos);
    EXPECT_NE(result.output.find("\nfirst\n"), std::string::npos);
    EXPECT_NE(result.output.find("\nsecond\n"), std::string::npos);
}

TEST_F(Extract, OfAMissingFileOrAnEmptyPathFails) {
    for (const char* name : {"none.doc", "none", ""}) {
        ToolResult result = extract({name});
        EXPECT_EQ(result.status, 1) << name;
        EXPECT_NE(result.output.find("NSCocoaErrorDomain"), std::string::npos) << result.output;
    }
}

TEST_F(Extract, SaysWhenThereIsNoRecord) {
    // A stored request for what no file system can name.
    write(TEXTTOOL_HOST_DOMAIN ".texttool.plist", "{ WebArchivePath = \"/tmp\\U0000x\"; }");
    write("a.txt", "text");
    ToolResult result = extract({"a.txt"});
    EXPECT_EQ(result.status, 1);
    EXPECT_EQ(result.output.find("There is no record. The tool logged:\n"), 0u) << result.output;
    EXPECT_NE(result.output.find("NSCharacterConversionException: "), std::string::npos);
}

TEST_F(Extract, ReadsFilesOfAnyKind) {
    write("a.txt", "To be or not to be");
    ToolResult result = extract({"a.txt"});
    EXPECT_EQ(result.status, 0);
    EXPECT_NE(result.output.find("be not or to "), std::string::npos) << result.output;
}

TEST_F(Extract, WithoutAFileSaysHowItIsUsed) {
    ToolResult result = extract({});
    EXPECT_EQ(result.status, 64);
    EXPECT_EQ(result.errors, "usage: extract FILE...\n");
}

} // namespace
