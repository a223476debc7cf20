// SPDX-License-Identifier: Apache-2.0
//
// The file of the record at every instant: what it was, or a whole record.
#include "Tests/EndToEnd/EndToEnd.h"

#include <csignal>
#include <filesystem>
#include <random>
#include <unistd.h>

namespace {

namespace fs = std::filesystem;

class AtomicOutput : public EndToEnd {
protected:
    void SetUp() override {
        fs::create_directories(path("out"));
        record_ = path("out/record");
        document_ = write("a.rtf", "{\\rtf1 " + std::string(200'000, 'x') + "}");
    }

    ToolCommand command() const {
        return {.arguments = {"-RTFPath", document_}, .environment = {{"OutPath", record_}}};
    }

    // What the folder of the record holds after the tool has met a file system there that `prepare` makes of
    // it.
    ToolResult runOn(const std::string& fileSystem, const std::string& prepare) const {
        const std::string script = "mount -t tmpfs " + fileSystem + " none \"$OUT\" || exit 77\n" +
                                   "echo former > \"$OUT/record\"\n" + prepare + "\n" +
                                   R"("$0" -RTFPath "$1"; ls -A "$OUT"; cat "$OUT/record")";
        return runTool({.arguments = {"--user", "--map-root-user", "--mount", "sh", "-c", script,
                                      TEXTTOOL_PROGRAM, document_},
                        .environment = {{"OutPath", record_}, {"OUT", path("out")}},
                        .program = "unshare"});
    }

    void expectFormer(const ToolResult& result) const {
        if (result.status == 77 || result.errors.find("unshare: ") == 0) GTEST_SKIP() << result.errors;
        EXPECT_EQ(result.output, "record\nformer\n");
        EXPECT_NE(result.errors.find("Error writing output to " + record_), std::string::npos)
            << result.errors;
    }

    std::string record_, document_;
};

TEST_F(AtomicOutput, IsWholeOrWhatItWasWheneverTheToolIsKilled) {
    runTool(command());
    const std::string whole = readFile(record_);
    ASSERT_GT(whole.size(), 200'000u);
    const auto began = std::chrono::steady_clock::now();
    for (int i = 0; i < 5; ++i) runTool(command());
    const std::chrono::microseconds lifetime =
        std::chrono::duration_cast<std::chrono::microseconds>(std::chrono::steady_clock::now() - began) / 5;

    std::mt19937 random(1);
    std::uniform_int_distribution<long> instants(0, lifetime.count() * 3 / 2);
    int former = 0, complete = 0;
    for (int i = 0; i < 1000; ++i) {
        writeFile(record_, "former");
        RunningTool tool(command());
        usleep(useconds_t(instants(random)));
        tool.send(SIGKILL);
        tool.wait();
        const std::string left = readFile(record_);
        former += left == "former";
        complete += left == whole;
        ASSERT_TRUE(left == "former" || left == whole) << left.size() << " bytes after " << i;
    }
    EXPECT_GT(former, 0);
    EXPECT_GT(complete, 0);
}

TEST_F(AtomicOutput, IsWhatItWasOnAFullFileSystem) { expectFormer(runOn("-o size=64k", "")); }

TEST_F(AtomicOutput, IsWhatItWasInAFolderThatMayNotBeWritten) {
    expectFormer(runOn("", "mount -o remount,ro \"$OUT\""));
}

TEST_F(AtomicOutput, IsALineInTheLogWhenTheFolderVanishes) {
    fs::remove_all(path("out"));
    const ToolResult result = runTool(command());
    EXPECT_EQ(result.status, 0);
    EXPECT_EQ(result.output, "");
    ASSERT_EQ(logLines(result).size(), 1u);
    EXPECT_EQ(logLines(result)[0].find("Error writing output to " + record_), 0u);
    EXPECT_FALSE(fs::exists(path("out")));
}

// Removed while the document is being read, when the folder has been looked at already.
TEST_F(AtomicOutput, IsALineInTheLogWhenTheFolderVanishesMeanwhile) {
    writeFile(document_, "{\\rtf1 " + std::string(50'000'000, 'x') + "}");
    RunningTool tool(command());
    usleep(20'000);
    fs::remove_all(path("out"));
    const ToolResult result = tool.wait();
    EXPECT_EQ(result.status, 0);
    ASSERT_EQ(logLines(result).size(), 1u);
    EXPECT_EQ(logLines(result)[0].find("Error writing output to " + record_), 0u);
}

} // namespace
