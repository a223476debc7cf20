// SPDX-License-Identifier: Apache-2.0
//
// Where a record goes, and what becomes of a second one.
#include "Tests/EndToEnd/EndToEnd.h"

#include "Platform/Foundation/NSNumber.h"

#include <filesystem>
#include <sys/stat.h>
#include <thread>
#include <unistd.h>

namespace {

namespace fs = std::filesystem;
using Lines = std::vector<std::string>;

class Output : public EndToEnd {
protected:
    ToolResult requestInto(const std::string& outPath) const {
        return request("RTFPath", document, {{"OutPath", outPath}});
    }
    std::vector<std::string> namesIn(const std::string& directory) const {
        std::vector<std::string> names;
        for (const auto& entry : fs::directory_iterator(directory)) names.push_back(entry.path().filename());
        return names;
    }

    std::string document = write("document.rtf", "{\\rtf1 text}");
};

TEST_F(Output, IsOneBinaryListOnStandardOutput) {
    ToolResult result = request("RTFPath", document);
    EXPECT_EQ(result.output.substr(0, 8), "bplist00");
    EXPECT_EQ(result.output.find("bplist00", 8), std::string::npos);
    EXPECT_EQ(recordOf(result.output).count(), 6u);
    EXPECT_EQ(result.errors, "");
}

TEST_F(Output, OfTheSameDocumentIsTheSame) {
    EXPECT_EQ(request("RTFPath", document).output, request("RTFPath", document).output);
}

TEST_F(Output, GoesToTheFileNamedByOutPathInstead) {
    ToolResult result = requestInto(path("record"));
    EXPECT_EQ(result.output, "");
    EXPECT_EQ(result.errors, "");
    EXPECT_EQ(readFile(path("record")), request("RTFPath", document).output);
}

TEST_F(Output, LeavesNoOtherFileBehind) {
    fs::create_directory(path("out"));
    requestInto(path("out/record"));
    requestInto(path("out/record"));
    EXPECT_EQ(namesIn(path("out")), Lines{"record"});
}

TEST_F(Output, ReplacesAFileAndKeepsItsPermissions) {
    write("record", "old, and longer than the record is: " + std::string(10'000, '.'));
    ASSERT_EQ(chmod(path("record").c_str(), 0604), 0);
    requestInto(path("record"));
    EXPECT_EQ(readFile(path("record")), request("RTFPath", document).output);
    struct stat info {};
    ASSERT_EQ(stat(path("record").c_str(), &info), 0);
    EXPECT_EQ(info.st_mode & 07777, 0604u);
}

TEST_F(Output, OfANewFileHasThePermissionsThatTheMaskLeaves) {
    mode_t mask = umask(0027);
    requestInto(path("record"));
    umask(mask);
    struct stat info {};
    ASSERT_EQ(stat(path("record").c_str(), &info), 0);
    EXPECT_EQ(info.st_mode & 07777, 0640u);
}

TEST_F(Output, GoesThroughALink) {
    fs::create_directory(path("real"));
    write("real/record", "old");
    fs::create_symlink("real/record", path("link"));
    fs::create_symlink("real/new", path("dangling"));
    requestInto(path("link"));
    requestInto(path("dangling"));
    EXPECT_TRUE(fs::is_symlink(path("link")));
    EXPECT_TRUE(fs::is_symlink(path("dangling")));
    EXPECT_EQ(readFile(path("real/record")), request("RTFPath", document).output);
    EXPECT_EQ(readFile(path("real/new")), request("RTFPath", document).output);
}

TEST_F(Output, ThatCannotBeWrittenIsOneLogLine) {
    ToolResult result = requestInto(path("none/record"));
    EXPECT_EQ(result.output, "");
    std::string at = path("none/record");
    EXPECT_EQ(logLines(result),
              Lines{"Error writing output to " + at +
                    ": <NSError Domain=NSCocoaErrorDomain Code=4 UserInfo={\n"
                    "    NSFilePath = \"" +
                    at +
                    "\";\n"
                    "    NSLocalizedDescription = \"The folder \\U201cnone\\U201d doesn\\U2019t exist.\";\n"
                    "    NSLocalizedFailureReason = \"The folder doesn\\U2019t exist.\";\n"
                    "    NSUnderlyingError = \"<NSError Domain=NSPOSIXErrorDomain Code=2 UserInfo={\\n"
                    "    NSLocalizedDescription = \\\"The operation couldn\\\\U2019t be completed. "
                    "No such file or directory\\\";\\n"
                    "    NSLocalizedFailureReason = \\\"No such file or directory\\\";\\n}>\";\n"
                    "}>"});
}

TEST_F(Output, IntoAFolderOrAnEmptyPathIsLogged) {
    fs::create_directory(path("folder"));
    for (const auto& [target, code] : {std::pair(path("folder"), "512"), std::pair(std::string(), "4")}) {
        ToolResult result = requestInto(target);
        EXPECT_EQ(result.output, "");
        Lines lines = logLines(result);
        ASSERT_EQ(lines.size(), 1u) << target;
        EXPECT_EQ(lines[0].find("Error writing output to " + target +
                                ": <NSError Domain=NSCocoaErrorDomain Code=" + code + " UserInfo={"),
                  0u)
            << lines[0];
    }
    EXPECT_TRUE(fs::is_empty(path("folder")));
}

TEST_F(Output, ThroughLinksInACircleIsLogged) {
    fs::create_symlink("b", path("a"));
    fs::create_symlink("a", path("b"));
    ToolResult result = requestInto(path("a"));
    EXPECT_EQ(result.output, "");
    EXPECT_EQ(logLines(result).at(0).find("Error writing output to " + path("a") +
                                          ": <NSError Domain=NSCocoaErrorDomain Code=512 "),
              0u);
}

TEST_F(Output, GoesIntoAPipeThatOutPathNames) {
    ASSERT_EQ(mkfifo(path("pipe").c_str(), 0600), 0);
    std::string received;
    std::thread reader([&] { received = readFile(path("pipe")); });
    ToolResult result = requestInto(path("pipe"));
    reader.join();
    EXPECT_EQ(received, request("RTFPath", document).output);
    EXPECT_TRUE(fs::is_fifo(path("pipe")));
    EXPECT_EQ(result.errors, "");
}

// The program under a shell that sets something up; the document and one more path are the script's $1, $2.
ToolCommand underShell(const std::string& script, const std::string& document, const std::string& other) {
    return {.arguments = {"-c", "tool=$0; " + script, TEXTTOOL_PROGRAM, document, other}, .program = "bash"};
}

TEST_F(Output, GoesWhereverAnOpenFileThatOutPathNamesLeads) {
    const std::string record = request("RTFPath", document).output;
    for (const char* name : {"/dev/stdout", "/dev/fd/1", "/proc/self/fd/1"}) {
        const std::string run = std::string("OutPath=") + name + R"( "$tool" -RTFPath "$1")";
        const std::pair<const char*, std::string> ways[] = {
            {"a pipe", run + " | cat"},
            {"a file", run + R"( >"$2"; cat "$2")"},
            {"a file without a name", R"(exec 5<>"$2"; rm "$2"; )" + run + " >&5; cat <&5"},
        };
        for (const auto& [way, script] : ways) {
            ToolResult result = runTool(underShell(script, document, path("out")));
            EXPECT_EQ(result.output, record) << name << " to " << way;
            EXPECT_EQ(result.errors, "") << name << " to " << way;
        }
    }
    std::error_code ignored;
    fs::remove(path("out"), ignored);
    EXPECT_EQ(namesIn(folder.path()), std::vector<std::string>{"document.rtf"});
}

std::string longDocument() { return "{\\rtf1 " + std::string(1'000'000, 'x') + "}"; }

TEST_F(Output, ToAReaderThatHasGoneIsAnExceptionInTheLog) {
    std::string script = R"({ "$tool" -RTFPath "$1" 2>"$2"; echo $? >&2; } | true)";
    ToolResult result = runTool(underShell(script, write("long.rtf", longDocument()), path("log")));
    EXPECT_EQ(result.errors, "0\n");
    EXPECT_NE(readFile(path("log"))
                  .find("NSFileHandleOperationException: *** -[NSConcreteFileHandle "
                        "writeData:]: Broken pipe\n"),
              std::string::npos);
}

TEST_F(Output, BeyondTheLimitOfFileSizesIsLogged) {
    std::string file = write("long.rtf", longDocument()), limit = "ulimit -f 8; ";
    ToolResult result = runTool(underShell(limit + R"("$tool" -RTFPath "$1" >"$2")", file, path("output")));
    EXPECT_EQ(result.status, 0);
    EXPECT_NE(result.errors.find("NSFileHandleOperationException: *** -[NSConcreteFileHandle writeData:]: "
                                 "File too large\n"),
              std::string::npos);

    write("record", "former");
    result = runTool(underShell(limit + R"(OutPath=$2 "$tool" -RTFPath "$1")", file, path("record")));
    EXPECT_EQ(result.status, 0);
    EXPECT_NE(result.errors.find("Error writing output to " + path("record")), std::string::npos);
    EXPECT_EQ(readFile(path("record")), "former");
}

TEST_F(Output, ToAFullDeviceIsAnExceptionInTheLog) {
    ToolResult result = runTool({.arguments = {"-RTFPath", document}, .outputPath = "/dev/full"});
    EXPECT_EQ(result.status, 0);
    EXPECT_EQ(logLines(result),
              Lines{"NSFileHandleOperationException: *** -[NSConcreteFileHandle writeData:]: "
                    "No space left on device"});
}

TEST_F(Output, ToNoStandardOutputIsAnExceptionInTheLog) {
    ToolResult result = runTool({.arguments = {"-RTFPath", document}, .outputClosed = true});
    EXPECT_EQ(result.status, 0);
    EXPECT_EQ(
        logLines(result),
        Lines{"NSFileHandleOperationException: *** -[NSConcreteFileHandle writeData:]: Bad file descriptor"});
}

TEST_F(Output, OfAnErrorHasTwoKeys) {
    NSDictionary record = recordOf(request("RTFPath", path("none.rtf")).output);
    EXPECT_EQ(record.count(), 2u);
    EXPECT_EQ(stringIn(record, u"errorString"), "The file “none.rtf” doesn’t exist.");
}

// Opening the memory of the process that asks succeeds, reading it does not: it has nothing at its start.
constexpr const char* kUnreadable = "/proc/self/mem";

NSError readingFailed() {
    return cocoaError(NSFileReadUnknownError,
                      {{NSString(NSFilePathErrorKey), NSString::fromUTF8(kUnreadable)},
                       {NSString(NSUnderlyingErrorKey), NSError(NSPOSIXErrorDomain, 5)}});
}

using DoubleReport = Output;

TEST_F(DoubleReport, OnStandardOutputLeavesTheFirstAndMeetsTheClosedHandle) {
    for (const char* key : kTextKeys) {
        ToolResult result = request(key, kUnreadable);
        EXPECT_EQ(errorOf(result.output), readingFailed()) << key;
        EXPECT_EQ(logLines(result), Lines{"NSFileHandleOperationException: *** -[NSConcreteFileHandle "
                                          "writeData:]: Bad file descriptor"});
    }
}

TEST_F(DoubleReport, ToAFileLeavesTheSecond) {
    for (const char* key : kTextKeys) {
        ToolResult result = request(key, kUnreadable, {{"OutPath", path("record")}});
        EXPECT_EQ(errorOf(readFile(path("record"))), cocoaError(NSFileReadUnknownError)) << key;
        EXPECT_EQ(result.output, "");
        EXPECT_EQ(result.errors, "");
    }
}

// As a user without rights over other users' files, and as root without root's power over them.
ToolCommand withoutPowers(std::vector<std::string> arguments) {
    if (geteuid() != 0) return {.arguments = std::move(arguments)};
    std::vector<std::string> all = {"--bounding-set=-all", "--inh-caps=-all", TEXTTOOL_PROGRAM};
    all.insert(all.end(), arguments.begin(), arguments.end());
    return {.arguments = std::move(all), .program = "/usr/bin/setpriv"};
}

TEST_F(DoubleReport, OfAFileWithoutPermissionIsError257First) {
    ASSERT_EQ(chmod(document.c_str(), 0), 0);
    ToolCommand command = withoutPowers({"-RTFPath", document});
    ToolResult result = runTool(command);
    EXPECT_EQ(result.status, 0);
    EXPECT_EQ(errorOf(result.output),
              cocoaError(NSFileReadNoPermissionError,
                         {{NSString(NSFilePathErrorKey), NSString::fromUTF8(document)},
                          {NSString(NSUnderlyingErrorKey), NSError(NSPOSIXErrorDomain, 13)}}));
    EXPECT_EQ(
        logLines(result),
        Lines{"NSFileHandleOperationException: *** -[NSConcreteFileHandle writeData:]: Bad file descriptor"});
    command.environment["OutPath"] = path("record");
    EXPECT_EQ(runTool(command).status, 0);
    EXPECT_EQ(errorOf(readFile(path("record"))), cocoaError(NSFileReadUnknownError));
}

} // namespace
