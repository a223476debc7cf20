// SPDX-License-Identifier: Apache-2.0
//
// What reaches the system's log. The test's own socket stands in for it, in a file system of the program's
// own, for which the test needs the rights of the system's administrator.
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

    ToolResult requestWithLog(const std::string& key, const std::string& value, const std::string& outPath) {
        return runTool(
            {.arguments = {"-m", "sh", "-c",
                           "mount -t tmpfs none /dev && ln -s \"$1\" /dev/log && exec \"$2\" \"$3\" \"$4\"",
                           "sh", path("log"), TEXTTOOL_PROGRAM, "-" + key, value},
             .environment = {{"OutPath", outPath}},
             .program = "unshare"});
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
    ToolResult result = requestWithLog("RTFPath", write("a.rtf", "{\\rtf1 100% é}"), path("none/out"));
    const std::vector<std::string> lines = logLines(result);
    ASSERT_EQ(lines.size(), 1u) << result.errors;
    const std::string sent = message(), priority = "<13>", text = " texttool: " + lines[0];
    EXPECT_TRUE(sent.starts_with(priority)) << sent;
    EXPECT_TRUE(sent.ends_with(text)) << sent;
    EXPECT_EQ(message(), "");
}

TEST_F(SystemLog, IsEmptyWhenAllWentWell) {
    ToolResult result = requestWithLog("RTFPath", write("a.rtf", "{\\rtf1 text}"), path("out"));
    EXPECT_EQ(result.errors, "");
    EXPECT_EQ(message(), "");
}

} // namespace
