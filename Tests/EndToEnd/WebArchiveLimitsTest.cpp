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
#include <optional>

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

// A network of its own: one wire to nowhere, on which the kernel counts what is sent.
constexpr const char* kOwnNetwork = R"(
set -e
for v in all default; do echo 1 >/proc/sys/net/ipv6/conf/$v/disable_ipv6; done
ip link set lo up
ip link add d0 type veth peer name d1
ip addr add 10.1.2.3/24 dev d0
ip link set d0 up
ip link set d1 up
ip neigh add 10.1.2.4 lladdr 02:00:00:00:00:01 dev d0
ip route add default via 10.1.2.4
sent() {
    while read -r name _ _ _ _ _ _ _ _ _ packets _; do
        if [ "$name" = d0: ]; then echo "$packets"; fi
    done </proc/net/dev
}
if [ $# -eq 0 ]; then exit; fi
before=$(sent)
"$@" >/dev/null
echo $(($(sent) - before))
)";

class OwnNetwork : public WebArchiveLimits {
protected:
    // The number of packets that the request sent; nothing when this system gives no network of one's own.
    std::optional<int> packetsOf(const std::vector<std::string>& words,
                                 std::map<std::string, std::string> variables) {
        std::vector<std::string> arguments = {"--net", "sh", "-c", kOwnNetwork, "sh"};
        if (geteuid() != 0) arguments.insert(arguments.begin(), "--map-root-user");
        arguments.insert(arguments.end(), words.begin(), words.end());
        variables["PATH"] = "/usr/sbin:/usr/bin:/sbin:/bin";
        const ToolResult result =
            runTool({.arguments = arguments, .environment = variables, .program = "unshare"});
        if (result.status != 0) return std::nullopt;
        return atoi(result.output.c_str());
    }

    // Everything that a page can do to reach another machine, by name and by number.
    static std::string eager() {
        std::string html;
        for (const char* at : {"http://9.8.7.6", "https://9.8.7.6", "http://there.test"}) {
            const std::string url = at;
            for (const char* relation : {"preconnect", "dns-prefetch", "prefetch", "preload", "stylesheet",
                                         "icon", "prerender", "modulepreload"}) {
                html.append("<link rel=").append(relation).append(" as=script href='" + url + "/l'>");
            }
            html +=
                "<meta http-equiv=refresh content='0;url=" + url + "/m'><img src='" + url +
                "/i'><iframe src='" + url + "/f'></iframe><object data='" + url +
                "/o'></object><embed src='" + url + "/e'><video src='" + url + "/v' poster='" + url +
                "/p'></video><audio src='" + url + "/a'></audio><style>@import '" + url +
                "/s'; @font-face{font-family:x;src:url(" + url + "/t)} p{font-family:x;background:url(" +
                url + "/b)}</style><p>text<form id=f action='" + url + "/g'></form><a id=a ping='" + url +
                "/h' href='" + url + "/j'>link</a><script>fetch('" + url + "/1');navigator.sendBeacon('" +
                url + "/2');new WebSocket('ws" + url.substr(4) + "/3');new EventSource('" + url +
                "/4');new Image().src='" + url + "/5';var x=new XMLHttpRequest();x.open('POST','" + url +
                "/6');x.send('y');document.getElementById('f').submit();document.getElementById('a').click();"
                "try{new RTCPeerConnection({iceServers:[{urls:'stun:9.8.7.6'}]})}catch(e){}"
                "location='" +
                url + "/7';</script>";
        }
        return html;
    }
};

TEST_F(OwnNetwork, SeesNotOnePacketOfAnOfflinePageWithScriptsOffOrOn) {
    const std::string offline = "{LkTextToolForceOffline=YES; LkTextToolWebArchiveTimeout=3;}";
    auto variables = environment(offline);
    if (!packetsOf({}, variables)) {
        GTEST_SKIP() << "NOT RUN: this system gives no network of one's own (unshare --net, ip, veth)";
    }
    const std::string file = writePage(eager());
    const std::vector<std::string> words = {TEXTTOOL_PROGRAM, "-WebArchivePath", file};
    variables["OutPath"] = path("record");
    EXPECT_EQ(packetsOf(words, variables), 0);
    EXPECT_NE(stringIn(recordOf(readFile(path("record"))), u"string").find("text"), std::string::npos);
    variables["RetryWithJavaScript"] = "YES";
    EXPECT_EQ(packetsOf(words, variables), 0);
    // The wire does count: online the same page is heard.
    auto online = environment("{LkTextToolWebArchiveTimeout=3;}");
    EXPECT_GT(packetsOf(words, online).value_or(0), 0);
}

} // namespace
