// SPDX-License-Identifier: Apache-2.0
//
// The six kinds of text document as a host sees them.
#include "Tests/EndToEnd/EndToEnd.h"

#include "Platform/Foundation/NSNumber.h"
#include "Platform/Foundation/NSPathUtilities.h"

#include <csignal>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>
#include <thread>
#include <unistd.h>

namespace {

namespace fs = std::filesystem;
using TextDocument = EndToEnd;

NSError over(int64_t code, const std::string& path, const NSError& underlying) {
    return cocoaError(code, {{NSString(NSFilePathErrorKey), stringWithFileSystemRepresentation(path)},
                             {NSString(NSUnderlyingErrorKey), underlying}});
}

TEST_F(TextDocument, WithoutATitleHasEmptyOnes) {
    NSDictionary record = recordOf(request("RTFPath", write("a.rtf", "{\\rtf1 text}")).output);
    EXPECT_EQ(record.count(), 6u);
    EXPECT_EQ(stringIn(record, u"string"), "text");
    EXPECT_EQ(stringIn(record, u"title"), "");
    EXPECT_EQ(stringIn(record, u"author"), "");
    EXPECT_EQ(stringIn(record, u"url"), "");
    EXPECT_EQ(record.objectForKey(NSString(u"partsCount")), NSNumber::withInt(0));
    EXPECT_EQ(attributeIn(record, u"DocumentType"), "NSRTF");
    EXPECT_EQ(attributeIn(record, u"SpotlightKeywords"), "(\n)");
}

TEST_F(TextDocument, OfAnotherKindIsReadOnceMoreByItsContent) {
    std::string rtf = write("a", "{\\rtf1 text}"), plain = write("b", "plain text\n");
    for (const char* key : {"WordPath", "WordXPath", "ODTPath", "RTFDPath"}) {
        NSDictionary record = recordOf(request(key, rtf).output);
        EXPECT_EQ(stringIn(record, u"string"), "text") << key;
    }
    for (const char* key : {"WordPath", "WordXPath", "ODTPath", "RTFPath", "RTFDPath"}) {
        NSDictionary record = recordOf(request(key, plain).output);
        EXPECT_EQ(stringIn(record, u"string"), "plain text\n") << key;
        EXPECT_EQ(attributeIn(record, u"DocumentType"), "NSPlainText") << key;
    }
}

TEST_F(TextDocument, ThatIsEmptyIsAnEmptyText) {
    std::string empty = write("empty", "");
    for (const char* key : kTextKeys) {
        NSDictionary record = recordOf(request(key, empty).output);
        EXPECT_EQ(stringIn(record, u"string"), "") << key;
    }
}

TEST_F(TextDocument, InAPackageIsReadWhateverKeyWasGiven) {
    fs::create_directory(path("a.rtfd"));
    write("a.rtfd/TXT.rtf", "{\\rtf1 packed}");
    fs::create_directory_symlink("a.rtfd", path("link"));
    for (const char* key : kTextKeys) {
        for (const char* name : {"a.rtfd", "a.rtfd/", "a.rtfd//", "link"}) {
            NSDictionary record = recordOf(request(key, path(name)).output);
            EXPECT_EQ(stringIn(record, u"string"), "packed") << key << name;
            EXPECT_EQ(attributeIn(record, u"DocumentType"), "NSRTFD");
        }
    }
}

TEST_F(TextDocument, InAPackageWithoutItsTextIsAnError) {
    fs::create_directory(path("folder"));
    for (const char* key : kTextKeys) {
        EXPECT_EQ(errorOf(request(key, path("folder")).output),
                  over(NSFileReadUnknownError, path("folder"), NSError(NSPOSIXErrorDomain, 21)))
            << key;
    }
}

TEST_F(TextDocument, InAPackageIsNothingButRTFAndNoPipeIsWaitedFor) {
    fs::create_directory(path("plain.rtfd"));
    write("plain.rtfd/TXT.rtf", "plain text\n");
    EXPECT_EQ(errorOf(request("RTFDPath", path("plain.rtfd")).output).code(), NSFileReadCorruptFileError);
    fs::create_directory(path("pipe.rtfd"));
    ASSERT_EQ(mkfifo(path("pipe.rtfd/TXT.rtf").c_str(), 0600), 0);
    ToolResult result =
        runTool({.arguments = {"-RTFDPath", path("pipe.rtfd")}, .limit = std::chrono::seconds(20)});
    EXPECT_FALSE(result.timedOut);
    EXPECT_EQ(errorOf(result.output).code(), NSFileReadUnknownError);
}

TEST_F(TextDocument, InAPackageOfAnyNameIsFound) {
    for (const std::string name :
         {"100%.rtfd", "a%20b.rtfd", "#1?.rtfd", "a;b.rtfd", "caf\xE9.rtfd", "\xFF.rtfd"}) {
        fs::create_directory(path(name));
        write(name + "/TXT.rtf", "{\\rtf1 packed}");
        EXPECT_EQ(stringIn(recordOf(request("RTFDPath", path(name)).output), u"string"), "packed") << name;
    }
}

TEST_F(TextDocument, IsFoundThroughALink) {
    write("real.rtf", "{\\rtf1 linked}");
    fs::create_symlink("real.rtf", path("link"));
    fs::create_symlink("none", path("dangling"));
    EXPECT_EQ(stringIn(recordOf(request("RTFPath", path("link")).output), u"string"), "linked");
    EXPECT_EQ(errorOf(request("RTFPath", path("dangling")).output), missingFile(path("dangling")));
}

TEST_F(TextDocument, IsNoPipeSocketOrDevice) {
    ASSERT_EQ(mkfifo(path("pipe").c_str(), 0600), 0);
    int socketFd = socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0);
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    ASSERT_LT(path("socket").size(), sizeof address.sun_path);
    strcpy(address.sun_path, path("socket").c_str());
    ASSERT_EQ(bind(socketFd, reinterpret_cast<sockaddr*>(&address), sizeof address), 0);
    for (const std::string& file : {path("pipe"), path("socket"), std::string("/dev/zero")}) {
        for (const char* key : kTextKeys) {
            ToolResult result =
                runTool({.arguments = {std::string("-") + key, file}, .limit = std::chrono::seconds(20)});
            EXPECT_FALSE(result.timedOut) << file << " was opened";
            EXPECT_EQ(errorOf(result.output),
                      cocoaError(NSFileReadUnknownError,
                                 {{NSString(NSFilePathErrorKey), NSString::fromUTF8(file)}}))
                << key << " " << file;
        }
    }
    close(socketFd);
}

TEST_F(TextDocument, UnderAPathTooLongOrThroughAFileIsMissing) {
    std::string file = write("file", "{\\rtf1 x}");
    for (const std::string& name : {file + "/below", "/" + std::string(5000, 'x')}) {
        EXPECT_EQ(errorOf(request("RTFPath", name).output), missingFile(name));
    }
}

#ifndef TEXTTOOL_SANITIZED // which reserves more room than any limit leaves
TEST_F(TextDocument, UnderAnyLimitOfMemoryEndsWithoutASignal) {
    std::string file = write("a.rtf", "{\\rtf1\\uc0 " + std::string(2'000'000, 'x') + "\\u1234 }");
    size_t records = 0;
    // With less, the runtime has nothing left to throw.
    for (int kilobytes = 6'500; kilobytes < 40'000; kilobytes += 500) {
        std::string script = "ulimit -v " + std::to_string(kilobytes) + R"(; exec "$0" -RTFPath "$1")";
        ToolResult result = runTool({.arguments = {"-c", script, TEXTTOOL_PROGRAM, file}, .program = "bash"});
        EXPECT_EQ(result.status, 0) << kilobytes;
        EXPECT_NE(result.output + result.errors, "") << kilobytes;
        records += result.output.size() > 4'000'000;
    }
    EXPECT_GT(records, 0u);
}
#endif

bool hasOpen(pid_t process, const std::string& file) {
    std::error_code error;
    for (const auto& entry : fs::directory_iterator("/proc/" + std::to_string(process) + "/fd", error)) {
        if (fs::read_symlink(entry.path(), error) == file) return true;
    }
    return false;
}

// Processor time so far, in the clock's ticks.
long ticks(pid_t process) {
    std::string line;
    std::getline(std::ifstream("/proc/" + std::to_string(process) + "/stat"), line);
    long user = 0, system = 0;
    sscanf(line.c_str() + line.find(')') + 1, " %*c %*d %*d %*d %*d %*d %*u %*u %*u %*u %*u %ld %ld", &user,
           &system);
    return user + system;
}

// Stops the tool when it has read the file and is at its text, for longer than a read may take.
TEST_F(TextDocument, ThatTakesTooLongGivesWhatWasReadInTime) {
    const std::string paragraph = "Some words of a paragraph that is repeated many times over.\\par\n";
    std::string text = "{\\rtf1 ";
    while (text.size() < 150'000'000) text += paragraph;
    std::string file = fs::canonical(folder.path()).string() + "/long.rtf";
    writeFile(file, text + "the end}");
    text = std::string();

    RunningTool tool({.arguments = {"-RTFPath", file}});
    while (tool.isRunning() && !hasOpen(tool.pid(), file)) std::this_thread::yield();
    while (tool.isRunning() && hasOpen(tool.pid(), file)) std::this_thread::yield();
    const long start = ticks(tool.pid());
    while (tool.isRunning() && ticks(tool.pid()) < start + 3) std::this_thread::yield();
    tool.send(SIGSTOP);
    std::this_thread::sleep_for(std::chrono::milliseconds(10'200));
    tool.send(SIGCONT);
    ToolResult result = tool.wait();
    EXPECT_EQ(result.status, 0);
    std::string read = stringIn(recordOf(result.output), u"string");
    EXPECT_EQ(read.find("Some words of a paragraph"), 0u);
    EXPECT_EQ(read.find("the end"), std::string::npos);
}

} // namespace
