// SPDX-License-Identifier: Apache-2.0
//
// What reaches the system's log and its journal. The test's own socket stands in for them, in a file system
// of the program's own, for which the test needs the rights of the system's administrator.
#include "Tests/EndToEnd/EndToEnd.h"

#include <cstring>
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

namespace {

class SystemLog : public EndToEnd {
protected:
    void SetUp() override {
        if (runTool({.arguments = {"-m", "true"}, .program = "unshare"}).status != 0)
            GTEST_SKIP() << "file systems of its own are not for this user";
        socket_ = socket(AF_UNIX, SOCK_DGRAM | SOCK_CLOEXEC, 0);
        sockaddr_un address{};
        address.sun_family = AF_UNIX;
        ASSERT_LT(path("log").size(), sizeof address.sun_path);
        strcpy(address.sun_path, path("log").c_str());
        ASSERT_EQ(bind(socket_, reinterpret_cast<sockaddr*>(&address), sizeof address), 0);
    }
    void TearDown() override {
        if (socket_ >= 0) close(socket_);
    }

    static constexpr const char
        *kLog = "mount -t tmpfs none /dev && ln -s \"$1\" /dev/log",
        *kJournal = "mkdir -p /run/systemd/journal && ln -s \"$1\" /run/systemd/journal/socket";

    // Runs one request on a system that has neither log nor journal but what the command makes.
    ToolResult requestWith(const std::string& log, const std::string& key, const std::string& value,
                           const std::string& outPath) {
        const std::string script = "mount -t tmpfs none /run && " + log + " && exec \"$2\" \"$3\" \"$4\"";
        return runTool(
            {.arguments = {"-m", "sh", "-c", script, "sh", path("log"), TEXTTOOL_PROGRAM, "-" + key, value},
             .environment = {{"OutPath", outPath}},
             .program = "unshare"});
    }

    // How the journal is told a value that has line feeds.
    static std::string fieldOfLines(const std::string& name, const std::string& value) {
        std::string length(8, '\0');
        for (size_t i = 0; i < length.size(); ++i) length[i] = char(value.size() >> (8 * i));
        return name + "\n" + length + value + "\n";
    }

    // The next message; "" when there is none.
    std::string message() {
        char bytes[8192];
        ssize_t length = recv(socket_, bytes, sizeof bytes, MSG_DONTWAIT);
        return std::string(bytes, length > 0 ? size_t(length) : 0);
    }

private:
    int socket_ = -1;
};

TEST_F(SystemLog, HasTheTextsOfStandardError) {
    ToolResult result = requestWith(kLog, "RTFPath", write("a.rtf", "{\\rtf1 100% é}"), path("none/out"));
    const std::vector<std::string> lines = logLines(result);
    ASSERT_EQ(lines.size(), 1u) << result.errors;
    const std::string sent = message(), priority = "<13>", text = " texttool: " + lines[0];
    EXPECT_TRUE(sent.starts_with(priority)) << sent;
    EXPECT_TRUE(sent.ends_with(text)) << sent;
    EXPECT_EQ(message(), "");
}

TEST_F(SystemLog, IsEmptyWhenAllWentWell) {
    ToolResult result = requestWith(kLog, "RTFPath", write("a.rtf", "{\\rtf1 text}"), path("out"));
    EXPECT_EQ(result.errors, "");
    EXPECT_EQ(message(), "");
}

TEST_F(SystemLog, GivesTheJournalFields) {
    const std::string file = write("a.rtf", "{\\rtf1 text}");
    ToolResult result = requestWith(kJournal, "RTFPath", file, path("none/out"));
    const std::vector<std::string> lines = logLines(result);
    ASSERT_EQ(lines.size(), 1u) << result.errors;
    EXPECT_EQ(message(), fieldOfLines("MESSAGE", lines[0]) +
                             "PRIORITY=5\nSYSLOG_FACILITY=1\nSYSLOG_IDENTIFIER=texttool\nTEXTTOOL_DOCUMENT=" +
                             file + "\nTEXTTOOL_REQUEST=RTFPath\n");
    EXPECT_EQ(message(), "");
}

TEST_F(SystemLog, GivesTheJournalPathsOfSeveralLines) {
    const std::string file = write("a\nb", "{\\rtf1 text}");
    requestWith(kJournal, "RTFPath", file, path("none/out"));
    const std::string entry = message();
    EXPECT_NE(entry.find("\n" + fieldOfLines("TEXTTOOL_DOCUMENT", file) + "TEXTTOOL_REQUEST=RTFPath\n"),
              std::string::npos)
        << entry;
}

TEST_F(SystemLog, TakesWhatTheJournalDoesNot) {
    const std::string both =
        std::string("mkdir -p /run/systemd/journal && touch /run/systemd/journal/socket && ") + kLog;
    requestWith(both, "RTFPath", write("a.rtf", "{\\rtf1 text}"), path("none/out"));
    EXPECT_TRUE(message().starts_with("<13>"));
}

} // namespace
