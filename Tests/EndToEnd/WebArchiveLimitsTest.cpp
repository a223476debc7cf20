// SPDX-License-Identifier: Apache-2.0
//
// Pages that never end, engines that are not there or die, and what is left behind: nothing.
#include "Tests/EndToEnd/WebArchiveTesting.h"

#include "Platform/Foundation/NSPathUtilities.h"
#include "Tests/Support/LoopbackServer.h"

#include <algorithm>
#include <csignal>
#include <filesystem>
#include <memory>

namespace {

namespace fs = std::filesystem;
using Clock = std::chrono::steady_clock;

// Seconds: what the tests give a page, and what starting the engine may take on a busy machine.
constexpr double kTimeout = 4, kBusyStart = 6;

double secondsSince(Clock::time_point start) {
    return std::chrono::duration<double>(Clock::now() - start).count();
}

// Every process of the test carries the folder's path in its environment.
class WebArchiveLimits : public WebArchives {
protected:
    std::map<std::string, std::string> environment(const std::string& list) const {
        auto variables = preferences(list);
        variables["MARK_OF_TEST"] = folder.path();
        return variables;
    }
    std::string mark() const { return "MARK_OF_TEST=" + folder.path(); }

    void TearDown() override {
        EXPECT_TRUE(comesTrue([&] { return processesWith(mark()).empty(); })) << "processes are left";
    }

    // A page with a frame that never comes.
    std::string endlessPage() const {
        return writePage("<title>t</title>main<iframe src='" + server.url("/never") + "'>");
    }

    NSError moduleError(const ToolResult& result, const std::string& file) const {
        const NSError error = errorOf(result.output);
        EXPECT_EQ(error.domain().utf8(), "NSCocoaErrorDomain");
        EXPECT_EQ(error.code(), NSExecutableLoadError);
        EXPECT_EQ(error.userInfo().get<NSString>(NSString(NSFilePathErrorKey)),
                  stringWithFileSystemRepresentation(file));
        return error;
    }

    LoopbackServer server{{}};
};

TEST_F(WebArchiveLimits, TheDeadlineEndsAPageThatNeverDoes) {
    const std::string file = endlessPage();
    const auto start = Clock::now();
    const ToolResult result =
        request("WebArchivePath", file, environment("{LkTextToolWebArchiveTimeout=4;}"));
    EXPECT_LT(secondsSince(start), kTimeout + 1 + kBusyStart);
    EXPECT_GT(secondsSince(start), kTimeout);
    EXPECT_EQ(textOf(result), "main\n----\n");
    EXPECT_EQ(stringIn(recordOf(result.output), u"title"), "t");
}

TEST_F(WebArchiveLimits, TheDeadlineEndsScriptsThatNeverDo) {
    const std::string file = writePage("<title>t</title>main<script>for(;;);</script>");
    auto variables = environment("{LkTextToolWebArchiveTimeout=4;}");
    variables["RetryWithJavaScript"] = "YES";
    const auto start = Clock::now();
    const ToolResult result = request("WebArchivePath", file, variables);
    EXPECT_LT(secondsSince(start), kTimeout + 1 + kBusyStart);
    EXPECT_EQ(textOf(result), "");
    EXPECT_EQ(logLines(result),
              (std::vector<std::string>{"The web page does not answer; its text is left out."}));
}

TEST_F(WebArchiveLimits, ARequestForTheTitleDoesNotWaitForTheRest) {
    const std::string file = endlessPage();
    ToolCommand command{.arguments = {"-WebArchivePath", file, "-SkipBody", "YES"},
                        .environment = environment("{}")};
    const auto start = Clock::now();
    const ToolResult result = runTool(command);
    EXPECT_LT(secondsSince(start), 10); // the deadline is twenty seconds away
    EXPECT_EQ(stringIn(recordOf(result.output), u"title"), "t");
    EXPECT_EQ(textOf(result), "main\n----\n");
}

TEST_F(WebArchiveLimits, ADeadPageIsLoggedAndEndsTheWait) {
    const std::string file = endlessPage();
    RunningTool tool({.arguments = {"-WebArchivePath", file}, .environment = environment("{}")});
    ASSERT_TRUE(comesTrue([&] { return !server.requests().empty(); }));
    for (pid_t page : processesWith(mark(), "WebKitWebProcess")) kill(page, SIGKILL);
    const auto start = Clock::now();
    const ToolResult result = tool.wait();
    EXPECT_LT(secondsSince(start), 5);
    EXPECT_EQ(result.status, 0);
    EXPECT_EQ(textOf(result), "");
    EXPECT_EQ(logLines(result),
              (std::vector<std::string>{"The web page’s process has ended before its time."}));
}

// The page's process may have ended over it first, and the tool before it has noticed.
TEST_F(WebArchiveLimits, ADeadDisplayServerEndsTheWaitAndLeavesNoSocket) {
    const std::string file = endlessPage();
    RunningTool tool({.arguments = {"-WebArchivePath", file}, .environment = environment("{}")});
    ASSERT_TRUE(comesTrue([&] { return !server.requests().empty(); }));
    for (pid_t display : processesWith(mark(), "Xvfb")) kill(display, SIGKILL);
    const auto start = Clock::now();
    const ToolResult result = tool.wait();
    EXPECT_LT(secondsSince(start), 5);
    EXPECT_EQ(result.status, 0);
    EXPECT_EQ(textOf(result), "");
    const auto lines = logLines(result);
    EXPECT_TRUE(std::count(lines.begin(), lines.end(), "The web page’s process has ended before its time."));
    const std::string socket = "/tmp/.X11-unix/X" + std::to_string(1000 + result.pid);
    EXPECT_TRUE(comesTrue([&] { return !fs::exists(socket); }));
}

TEST_F(WebArchiveLimits, ProcessesOfTheEngineThatHangDoNotHoldUpTheDeadline) {
    for (const char* name : {"WebKitNetworkProcess", "Xvfb"}) {
        const std::string file = endlessPage();
        RunningTool tool({.arguments = {"-WebArchivePath", file},
                          .environment = environment("{LkTextToolWebArchiveTimeout=4;}")});
        const size_t before = server.requests().size();
        const auto start = Clock::now();
        ASSERT_TRUE(comesTrue([&] { return server.requests().size() > before; }));
        for (pid_t process : processesWith(mark(), name)) kill(process, SIGSTOP);
        const ToolResult result = tool.wait();
        EXPECT_LT(secondsSince(start), kTimeout + 1 + kBusyStart) << name;
        EXPECT_EQ(textOf(result), "main\n----\n") << name;
        EXPECT_TRUE(comesTrue([&] { return processesWith(mark()).empty(); })) << name << " is left";
    }
}

TEST_F(WebArchiveLimits, APageThatTakesAllMemoryIsEnded) {
    const std::string file =
        writePage("page<script>for (var all = [];;) all.push(new Uint8Array(1 << 20).fill(7));</script>");
    auto variables = environment("{LkTextToolWebArchiveTimeout=100;}");
    variables["RetryWithJavaScript"] = "YES";
    const ToolResult result = request("WebArchivePath", file, variables);
    EXPECT_EQ(textOf(result), "");
    EXPECT_EQ(logLines(result),
              (std::vector<std::string>{"The web page’s process has ended before its time."}));
}

TEST_F(WebArchiveLimits, AToolThatIsKilledLeavesNothing) {
    fs::create_directories(path("tmp"));
    auto variables = environment("{}");
    variables["TMPDIR"] = path("tmp");
    RunningTool tool({.arguments = {"-WebArchivePath", endlessPage()}, .environment = variables});
    ASSERT_TRUE(comesTrue([&] { return !server.requests().empty(); }));
    const auto displays = processesWith(mark(), "Xvfb");
    ASSERT_EQ(displays.size(), 1u);
    tool.send(SIGKILL);
    tool.wait();
    ASSERT_TRUE(comesTrue([&] { return processesWith(mark()).empty(); }));
    EXPECT_TRUE(comesTrue([&] { return fs::is_empty(path("tmp")); }));
    // A display's lock file holds the number of its process.
    for (const auto& entry : fs::directory_iterator("/tmp")) {
        const std::string name = entry.path().filename();
        if (name.starts_with(".X") && name.ends_with("-lock")) {
            EXPECT_NE(atoi(readFile(entry.path()).c_str()), displays[0]) << name << " is left";
        }
    }
}

TEST_F(WebArchiveLimits, AFinishedPageLeavesNoFile) {
    fs::create_directories(path("home"));
    fs::create_directories(path("tmp"));
    auto variables = environment("{}");
    variables["HOME"] = path("home");
    variables["TMPDIR"] = path("tmp");
    const std::string file =
        writePage("<p>text<img src=a.png>", {webResource("http://site.test/a.png", "x")});
    EXPECT_EQ(textOf(file, variables), "text");
    EXPECT_TRUE(comesTrue([&] { return fs::is_empty(path("tmp")); }));
    EXPECT_TRUE(fs::is_empty(path("home")));
}

TEST_F(WebArchiveLimits, AUserWithoutAHomeIsServedToo) {
    auto variables = environment("{}");
    variables["HOME"] = "/nonexistent";
    const std::string file = writePage("text");
    EXPECT_EQ(textOf(file, variables), "text");
    variables["TMPDIR"] = "/nonexistent";
    EXPECT_EQ(textOf(file, variables), "text");
}

TEST_F(WebArchiveLimits, AMissingDisplayServerIsError3587WithThePath) {
    const std::string file = writePage("text");
    auto variables = environment("{}");
    variables["PATH"] = "/nonexistent";
    const NSError error =
        moduleError(runTool({.arguments = {"-WebArchivePath", file}, .environment = variables}), file);
    EXPECT_EQ(error.localizedDescription().utf8(), "The display server “Xvfb” can’t be started.");
}

TEST_F(WebArchiveLimits, AMissingEngineIsError3587WithThePath) {
    fs::create_directories(path("bin"));
    fs::create_directories(path("lib/texttool"));
    fs::copy_file(TEXTTOOL_PROGRAM, path("bin/texttool"));
    const std::string file = writePage("text");
    for (const char* library : {"", "not a library"}) {
        if (*library) write("lib/texttool/WebKit.so", library);
        const NSError error = moduleError(
            runTool({.arguments = {"-WebArchivePath", file}, .program = path("bin/texttool")}), file);
        EXPECT_EQ(error.localizedDescription().utf8().rfind("The module “WebKit” can’t be loaded: ", 0), 0u);
    }
}

TEST_F(WebArchiveLimits, ManyRequestsAtOnceDoNotDisturbEachOther) {
    const std::string file = writePage("<title>t</title>text<iframe src=f.html></iframe>",
                                       {webResource("http://site.test/f.html", "frame")});
    std::vector<std::unique_ptr<RunningTool>> tools;
    for (int i = 0; i < 10; ++i) {
        tools.push_back(std::make_unique<RunningTool>(
            ToolCommand{.arguments = {"-WebArchivePath", file}, .environment = environment("{}")}));
    }
    for (const auto& tool : tools) EXPECT_EQ(textOf(tool->wait()), "text\n----\nframe");
}

// The voices of the engine cost a third of each of its processes' start.
TEST_F(WebArchiveLimits, NoProcessLoadsTheSystemsVoices) {
    RunningTool tool({.arguments = {"-WebArchivePath", endlessPage()}, .environment = environment("{}")});
    ASSERT_TRUE(comesTrue([&] { return !server.requests().empty(); }));
    for (const char* name : {"texttool", "WebKitNetworkProcess", "WebKitWebProcess"}) {
        const auto processes = processesWith(mark(), name);
        ASSERT_FALSE(processes.empty()) << name;
        const std::string maps = readFile("/proc/" + std::to_string(processes.back()) + "/maps");
        for (size_t at = 0; (at = maps.find("/libflite", at)) != std::string::npos; ++at)
            EXPECT_EQ(maps.substr(at - 11, 11), "/Speechless") << name;
    }
}

} // namespace
