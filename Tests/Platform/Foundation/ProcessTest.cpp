// SPDX-License-Identifier: Apache-2.0
//
// What the process shows of itself: log lines, threads, standard output, modules.
#include "Platform/Foundation/Module.h"
#include "Platform/Foundation/NSAssertionHandler.h"
#include "Platform/Foundation/NSException.h"
#include "Platform/Foundation/NSFileHandle.h"
#include "Platform/Foundation/NSLog.h"
#include "Platform/Foundation/NSProcessInfo.h"
#include "Platform/Foundation/NSThread.h"
#include "Tests/Support/TemporaryFolder.h"

#include <fcntl.h>
#include <filesystem>
#include <gtest/gtest.h>
#include <regex>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

namespace {

TEST(Log, IsOneLineInThePlatformsForm) {
    testing::internal::CaptureStderr();
    NSLog(u"a message with 100% é");
    NSLog(u"ends its line itself\n");
    std::string lines = testing::internal::GetCapturedStderr();
    std::regex form("[0-9]{4}-[0-9]{2}-[0-9]{2} [0-9]{2}:[0-9]{2}:[0-9]{2}\\.[0-9]{6}[+-][0-9]{4} " +
                    std::string(program_invocation_short_name) +
                    "\\[[0-9]+:[0-9]+\\] a message with 100% é\n" + ".* ends its line itself\n");
    EXPECT_TRUE(std::regex_match(lines, form)) << lines;
}

TEST(AssertionHandler, LogsThenRaises) {
    testing::internal::CaptureStderr();
    try {
        NSAssertionHandler::currentHandler().handleFailureInMethod(u"-[Loader load]", u"Loader", 12,
                                                                   u"why 100%");
        ADD_FAILURE();
    } catch (const NSException& e) {
        EXPECT_EQ(e.name().utf8(), "NSInternalInconsistencyException");
        EXPECT_EQ(e.reason().utf8(), "why 100%");
    }
    std::string line = testing::internal::GetCapturedStderr();
    EXPECT_NE(line.find("] *** Assertion failure in -[Loader load], Loader:12\n"), std::string::npos) << line;
}

bool someThreadIsNamed(const std::string& name) {
    for (int i = 0; i < 200; ++i) {
        for (const auto& thread : std::filesystem::directory_iterator("/proc/self/task")) {
            if (readFile(thread.path() / "comm") == name + "\n") return true;
        }
        usleep(5000);
    }
    return false;
}

void carryName(const NSString& name) {
    NSThread::setName(name);
    NSThread::sleepForTimeInterval(60);
}

TEST(Threads, CarryTheFirstFifteenBytesOfTheirName) {
    NSThread::detachNewThread(carryName, u"report with a long name.pdf");
    EXPECT_TRUE(someThreadIsNamed("report with a l"));
    NSThread::detachNewThread(carryName, u"fourteen bytesé.pdf");
    EXPECT_TRUE(someThreadIsNamed("fourteen bytes"));
    NSThread::detachNewThread(carryName, u"short");
    EXPECT_TRUE(someThreadIsNamed("short"));
}

TEST(Threads, ThatCannotBeStartedAreLogged) {
    testing::internal::CaptureStderr();
    pid_t child = fork();
    if (child == 0) {
        // Root has no limit of processes, and nobody else may start one more here.
        rlimit one{1, 1};
        bool limited = (getuid() != 0 || setuid(65534) == 0) && setrlimit(RLIMIT_NPROC, &one) == 0;
        if (limited) NSThread::detachNewThread(carryName, u"one too many");
        _exit(limited ? 0 : 1);
    }
    int status = -1;
    waitpid(child, &status, 0);
    EXPECT_EQ(status, 0);
    std::string log = testing::internal::GetCapturedStderr();
    EXPECT_NE(log.find("] A thread cannot be started: Resource temporarily unavailable\n"), std::string::npos)
        << log;
}

// Runs in a child, whose standard output is the file, and answers what it raised.
std::string raisedWith(const std::string& outputFile, void (*body)(NSFileHandle&)) {
    int report[2];
    EXPECT_EQ(pipe(report), 0);
    pid_t child = fork();
    if (child == 0) {
        int fd = open(outputFile.c_str(), O_WRONLY | O_CREAT | O_TRUNC, 0600);
        dup2(fd, STDOUT_FILENO);
        std::string raised;
        try {
            body(NSFileHandle::fileHandleWithStandardOutput());
        } catch (const NSException& e) {
            raised = e.name().utf8() + ": " + e.reason().utf8();
        }
        [[maybe_unused]] ssize_t told = write(report[1], raised.data(), raised.size());
        _exit(0);
    }
    close(report[1]);
    char text[512];
    ssize_t length = read(report[0], text, sizeof text);
    close(report[0]);
    waitpid(child, nullptr, 0);
    return std::string(text, length > 0 ? size_t(length) : 0);
}

TEST(StandardOutput, IsWrittenWholeAndClosedOnce) {
    TemporaryFolder folder;
    std::string file = folder.path() + "/out";
    auto twice = [](NSFileHandle& output) {
        output.writeData(NSData(std::string(200'000, 'x')));
        output.closeFile();
        output.writeData(NSData("more"));
    };
    EXPECT_EQ(raisedWith(file, twice),
              "NSFileHandleOperationException: *** -[NSConcreteFileHandle writeData:]: Bad file descriptor");
    EXPECT_EQ(readFile(file).size(), 200'000u);
    auto closeTwice = [](NSFileHandle& output) {
        output.closeFile();
        output.closeFile();
    };
    EXPECT_EQ(raisedWith(file, closeTwice),
              "NSFileHandleOperationException: *** -[NSConcreteFileHandle closeFile]: Bad file descriptor");
}

TEST(StandardOutput, ThatDoesNotBlockIsWaitedFor) {
    int ends[2];
    ASSERT_EQ(pipe2(ends, O_NONBLOCK), 0);
    pid_t child = fork();
    if (child == 0) {
        dup2(ends[1], STDOUT_FILENO);
        NSFileHandle::fileHandleWithStandardOutput().writeData(NSData(std::string(1'000'000, 'x')));
        _exit(0);
    }
    close(ends[1]);
    fcntl(ends[0], F_SETFL, 0);
    usleep(20'000); // until the pipe is full
    size_t total = 0;
    char piece[4096];
    for (ssize_t count; (count = read(ends[0], piece, sizeof piece)) > 0;) total += size_t(count);
    close(ends[0]);
    int status = -1;
    waitpid(child, &status, 0);
    EXPECT_EQ(status, 0);
    EXPECT_EQ(total, 1'000'000u);
}

TEST(StandardOutput, ThatTakesNothingRaises) {
    auto write = [](NSFileHandle& output) { output.writeData(NSData("x")); };
    EXPECT_EQ(
        raisedWith("/dev/full", write),
        "NSFileHandleOperationException: *** -[NSConcreteFileHandle writeData:]: No space left on device");
}

TEST(ProcessInfo, KnowsArgumentsAndEnvironment) {
    EXPECT_NE(NSProcessInfo::processInfo().arguments().at(0).utf8().find("foundation_tests"),
              std::string::npos);
    setenv("TEXTTOOL_TEST", "v\xff", 1);
    EXPECT_EQ(NSProcessInfo::processInfo().environmentValue("TEXTTOOL_TEST").text(), u"v\xDCFF");
    setenv("TEXTTOOL_TEST", "", 1);
    EXPECT_TRUE(NSProcessInfo::processInfo().environmentValue("TEXTTOOL_TEST"));
    unsetenv("TEXTTOOL_TEST");
    EXPECT_FALSE(NSProcessInfo::processInfo().environmentValue("TEXTTOOL_TEST"));
    EXPECT_EQ(NSProcessInfo::processInfo().processName().utf8(), program_invocation_short_name);
}

TEST(Modules, ThatAreMissingAreNamed) {
    NSString why;
    EXPECT_FALSE(moduleEntry("NoSuchModule", &why));
    EXPECT_TRUE(why.utf8().starts_with("The module “NoSuchModule” can’t be loaded: ")) << why.utf8();
    EXPECT_FALSE(moduleEntry("NoSuchModule", nullptr));
}

} // namespace
