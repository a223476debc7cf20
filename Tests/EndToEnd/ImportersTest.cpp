// SPDX-License-Identifier: Apache-2.0
//
// Importers that people add, through the program.
#include "Tests/EndToEnd/EndToEnd.h"

#include "Tests/Support/PDFWriter.h"

#include <filesystem>
#include <sys/stat.h>

namespace {

namespace fs = std::filesystem;

using Lines = std::vector<std::string>;

class Importers : public EndToEnd {
protected:
    void SetUp() override {
        fs::create_directories(path("data/texttool/importers"));
        fs::create_directories(path("data/mime"));
        write("data/mime/globs2", "50:application/x-example:*.example\n");
    }
    ToolResult read(const std::string& file) const {
        return request("SpotlightPath", file, {{"XDG_DATA_HOME", path("data")}});
    }
    std::string termsOf(const std::string& file) const {
        const ToolResult result = read(file);
        EXPECT_EQ(result.errors, "");
        return stringIn(recordOf(result.output), u"string");
    }
    void describe(const std::string& lines) const {
        write("data/texttool/importers/example.importer",
              "[Importer]\nName=Example\nMimeTypes=application/x-example;\n" + lines);
    }
    std::string script(const std::string& commands) const {
        const std::string file = write("script", "#!/bin/sh\n" + commands);
        chmod(file.c_str(), 0700);
        return file;
    }
    void expectFailure(const std::string& file, const std::string& reason) const {
        const ToolResult result = read(file);
        EXPECT_EQ(stringIn(recordOf(result.output), u"string"), "");
        EXPECT_EQ(logLines(result),
                  Lines{"No text of " + file + ": the importer “Example” failed: " + reason});
    }
};

TEST_F(Importers, ThatAreProgramsAreGivenThePath) {
    describe("Type=exec\nExec=" + script("echo the text of; cat \"$1\"") + " %f\n");
    EXPECT_EQ(termsOf(write("$(touch x) a.example", "Inner")), "inner of text the ");
    EXPECT_FALSE(fs::exists("x"));
}

TEST_F(Importers, WriteInTheCharsetAndFormThatTheySay) {
    const std::string file = write("a.example", "");
    describe("Type=exec\nCharset=windows-1252\nExec=" + script("printf 'K\\366ln'") + " %f\n");
    EXPECT_EQ(termsOf(file), "köln ");
    describe("Type=exec\nOutput=text/html\nExec=" + script("echo '<p>K&ouml;ln<script>x</script>'") +
             " %f\n");
    EXPECT_EQ(termsOf(file), "köln ");
}

TEST_F(Importers, ThatFailCostOnlyTheText) {
    const std::string file = write("a.example", "plain words");
    describe("Type=exec\nExec=" + script("echo partial; exit 4") + " %f\n");
    expectFailure(file, "it ended with status 4");
    describe("Type=exec\nExec=" + script("kill -ABRT $$") + " %f\n");
    expectFailure(file, "it ended with signal 6");
    describe("Type=exec\nTimeout=1\nExec=" + script("sleep 100") + " %f\n");
    expectFailure(file, "it took too long");
    describe("Type=exec\nTimeout=60\nExec=" + script("exec yes") + " %f\n");
    expectFailure(file, "it wrote too much");
    describe("Type=module\nModule=library.so\n");
    write("data/texttool/importers/library.so", "no library");
    const ToolResult result = read(file);
    EXPECT_EQ(logLines(result).size(), 1u);
}

TEST_F(Importers, ThatAreNotInstalledArePassedOver) {
    describe("Type=exec\nExec=no-such-program-anywhere %f\n");
    EXPECT_EQ(termsOf(write("a.example", "plain words")), "plain words ") << "as plain text";
    describe("Type=exec\nTryExec=no-such-program-anywhere\nExec=cat %f /etc/hosts\n");
    EXPECT_EQ(termsOf(path("a.example")), "plain words ");
    describe("Type=module\nModule=/none/such.so\n");
    EXPECT_EQ(termsOf(path("a.example")), "plain words ");
}

TEST_F(Importers, MayBeLibraries) {
    describe("Type=module\nModule=" EXAMPLE_IMPORTER "\n");
    EXPECT_EQ(termsOf(write("word.example", "")), "named word.example ");
    expectFailure(write("refuse.example", ""), "it could not read the document");
    expectFailure(write("crash.example", ""), "it crashed, or took more time or memory than it may");
}

// The book is read by a plug-in of the desktop's here, in the place of the tool's own reader.
TEST_F(Importers, ServeWhatThePlugInsOfKFileMetaDataRead) {
    const std::string bridge = MODULE_FOLDER "/KFileMetaData.so";
    if (!fs::exists(bridge)) GTEST_SKIP() << "built without libkf5filemetadata-dev: there is no " << bridge;
    const std::string descriptor =
        "[Importer]\nName=Example\nMimeTypes=application/epub+zip;application/x-example;\n"
        "Type=module\nModule=" +
        bridge + "\n";
    write("data/texttool/importers/bridge.importer", descriptor);
    fs::copy_file(SAMPLES_FOLDER "/Kinds/book.epub", path("book.epub"));
    const std::string terms = termsOf(path("book.epub"));
    EXPECT_NE(terms.find("seventeen "), terms.npos) << terms;
    expectFailure(write("a.example", std::string(9, '\0')), "it could not read the document");
}

TEST_F(Importers, MayBeBuiltinOnes) {
    describe("Type=builtin\nReader=html\n");
    EXPECT_EQ(termsOf(write("a.example", "<b>bold</b>")), "bold ");
}

TEST_F(Importers, ThatAreDamagedAreALineInTheLog) {
    describe("Type=exec\n");
    const ToolResult result = read(write("a.txt", "words"));
    EXPECT_EQ(stringIn(recordOf(result.output), u"string"), "words ");
    EXPECT_EQ(logLines(result), Lines{"The importer " + path("data/texttool/importers/example.importer") +
                                      " is not used: Exec needs a program and “%f”"});
}

TEST_F(Importers, AreChosenByBytesWhereTheNameIsWrong) {
    EXPECT_EQ(termsOf(write("a.doc", "{\\rtf1 rich}")), "rich ");
    EXPECT_EQ(termsOf(write("report", pdfOfPages({textAt(50, 700, "page")}))), "page ");
}

TEST_F(Importers, ServeWithoutADatabaseOfKinds) {
    const ToolResult result = request("SpotlightPath", write("a.html", "<html><p>words"),
                                      {{"XDG_DATA_HOME", path("none")}, {"XDG_DATA_DIRS", path("none")}});
    EXPECT_EQ(stringIn(recordOf(result.output), u"string"), "words ");
}

} // namespace
