// SPDX-License-Identifier: Apache-2.0
//
// What a reader or an importer can still do that its document has taken over: next to nothing, and the record
// comes.
#include "Tests/EndToEnd/EndToEnd.h"

#include <filesystem>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <unistd.h>

#ifndef TEXTTOOL_SANITIZED // under which nothing is shut in

namespace {

namespace fs = std::filesystem;

// Both calls answer with an error of their own, not with "no such call", where the kernel has them.
bool hasSandbox() {
    return syscall(SYS_landlock_create_ruleset, nullptr, 0, 1) > 0 &&
           syscall(SYS_seccomp, 99, 0, nullptr) < 0 && errno == EINVAL;
}

// A copy of the program whose reader of HTML is a traitor, and whose importers for .example are.
class Sandbox : public EndToEnd {
protected:
    void SetUp() override {
        if (!hasSandbox()) GTEST_SKIP() << "the kernel has no Landlock or no seccomp";
        fs::create_directories(path("bin"));
        fs::create_directories(path("lib"));
        fs::copy_file(TEXTTOOL_PROGRAM, path("bin/texttool"));
        fs::copy(fs::path(TEXTTOOL_PROGRAM).parent_path() / "../lib/texttool", path("lib/texttool"));
        fs::copy_file(HOSTILE_READER, path("lib/texttool/HTML.so"), fs::copy_options::overwrite_existing);
        fs::create_directories(path("data/texttool/importers"));
        fs::create_directories(path("data/mime"));
        write("data/mime/globs2", "50:application/x-example:*.example\n");
        secret_ = write("secret", "of the user");
    }

    void describe(const std::string& importer) const {
        write("data/texttool/importers/example.importer",
              "[Importer]\nName=Example\nMimeTypes=application/x-example;\n" + importer);
    }

    ToolResult run(const std::string& key, const std::string& file,
                   std::map<std::string, std::string> environment = {},
                   std::vector<std::string> more = {}) const {
        std::vector<std::string> arguments = {"-" + key, file};
        arguments.insert(arguments.end(), more.begin(), more.end());
        environment.insert({{"XDG_DATA_HOME", path("data")}, {"XDG_CONFIG_HOME", path("config")}});
        return runTool({.arguments = arguments, .environment = environment, .program = path("bin/texttool")});
    }

    // What a reader answers that tries these commands.
    std::string attempts(const std::string& commands) const {
        const ToolResult result = run("HTMLPath", write("commands.html", commands));
        EXPECT_EQ(result.status, 0);
        return stringIn(recordOf(result.output), u"string");
    }

    // The words of what an importer answers that tries them.
    std::string imported(const std::string& commands) const {
        const ToolResult result = run("SpotlightPath", write("commands.example", commands));
        EXPECT_EQ(result.status, 0);
        EXPECT_EQ(result.errors, "");
        return stringIn(recordOf(result.output), u"string");
    }

    void setLimit(const std::string& setting) const {
        fs::create_directories(path("config"));
        write("config/" TEXTTOOL_HOST_DOMAIN ".plist", "{" + setting + ";}");
    }

    void expectLimitError(const std::string& record, const std::string& file, const std::string& description,
                          int posixCode) const {
        const NSError error = errorOf(record);
        EXPECT_EQ(error.domain().utf8(), "NSCocoaErrorDomain");
        EXPECT_EQ(error.code(), 256);
        EXPECT_EQ(error.localizedDescription().utf8(), description);
        EXPECT_EQ(error.userInfo().get<NSString>(NSString(u"NSFilePath")).utf8(), file);
        const NSError underlying = error.userInfo().get<NSError>(NSString(u"NSUnderlyingError"));
        EXPECT_EQ(underlying.domain().utf8(), "NSPOSIXErrorDomain");
        EXPECT_EQ(underlying.code(), posixCode);
    }

    std::string secret_;
};

TEST_F(Sandbox, LeavesReadersNoNetwork) { EXPECT_EQ(attempts("connect\nresolve\n"), "ENOSYS\nunknown\n"); }

TEST_F(Sandbox, LeavesReadersNoFilesButTheirDocument) {
    EXPECT_EQ(attempts("read " + secret_ + "\nread /etc/passwd\nread " + path("commands.html") + "\n"),
              "EACCES\nEACCES\ndone\n");
    EXPECT_EQ(attempts("write " + secret_ + "\nmake " + path("new") + "\nremove " + secret_ + "\n"),
              "EACCES\nEACCES\nEACCES\n");
    EXPECT_EQ(readFile(secret_), "of the user");
    EXPECT_FALSE(fs::exists(path("new")));
}

TEST_F(Sandbox, LeavesReadersNoProgramsAndNoOtherProcesses) {
    EXPECT_EQ(attempts("execute /bin/true\nfork\ntrace\nsignal\nlimit\nleave\n"),
              "ENOSYS\nENOSYS\nENOSYS\nENOSYS\nENOSYS\nENOSYS\n");
}

TEST_F(Sandbox, KeepsStandardOutputForTheRecord) {
    const ToolResult result = run("HTMLPath", write("commands.html", "print\n"));
    EXPECT_EQ(stringIn(recordOf(result.output), u"string"), "done\n");
    EXPECT_EQ(result.errors, "rubbish");
}

TEST_F(Sandbox, KeepsStandardOutputForTheRecordAlsoWithoutStandardError) {
    const std::string script = "exec \"$0\" -HTMLPath \"$1\" 2>&-";
    const ToolResult result =
        runTool({.arguments = {"-c", script, path("bin/texttool"), write("commands.html", "print\n")},
                 .program = "sh"});
    EXPECT_EQ(stringIn(recordOf(result.output), u"string"), "done\n");
}

TEST_F(Sandbox, LeavesReadersNoCallsThatReachBeyondTheProcess) {
    EXPECT_EQ(attempts("type\nchmod " + path("commands.html") + "\nshare\n"), "ENOSYS\nENOSYS\nENOSYS\n");
}

TEST_F(Sandbox, LeavesReadersNothingThatTheHostHadOpen) {
    const std::string file = write("commands.html", "inherit\n");
    const std::string script = "exec 9<\"$1\"; exec \"$0\" -HTMLPath \"$2\"";
    const ToolResult result =
        runTool({.arguments = {"-c", script, path("bin/texttool"), secret_, file}, .program = "sh"});
    EXPECT_EQ(stringIn(recordOf(result.output), u"string"), "EBADF\n");
}

TEST_F(Sandbox, LeavesBuiltInImportersWhatReadersHave) {
    const std::string file =
        write("commands.html", "read " + secret_ + "\nread /etc/passwd\nmake /tmp/texttool-test-file\n");
    EXPECT_EQ(stringIn(recordOf(run("SpotlightPath", file).output), u"string"), "eacces ");
}

TEST_F(Sandbox, LeavesThePlaceOfTheRecordAlone) {
    fs::create_directories(path("out"));
    const std::string record = path("out/record");
    const ToolResult result =
        run("HTMLPath", write("commands.html", "read " + secret_ + "\nmake " + path("new") + "\n"),
            {{"OutPath", record}});
    EXPECT_EQ(stringIn(recordOf(readFile(record)), u"string"), "EACCES\nEACCES\n");
    EXPECT_EQ(std::distance(fs::directory_iterator(path("out")), fs::directory_iterator()), 1);
}

TEST_F(Sandbox, HasTheOtherWallWhereTheKernelLacksOne) {
    const std::string file = write("commands.html", "read " + secret_ + "\nconnect\n");
    const auto on = [&](const char* lacking) {
        return runTool({.arguments = {lacking, path("bin/texttool"), "-HTMLPath", file},
                        .environment = {{"NSDebugEnabled", "YES"}},
                        .program = WITHOUT_CALL_PROGRAM});
    };
    const ToolResult withoutLandlock = on("landlock");
    EXPECT_EQ(stringIn(recordOf(withoutLandlock.output), u"string"), "done\nENOSYS\n");
    EXPECT_EQ(logLines(withoutLandlock),
              std::vector<std::string>{"The system offers no Landlock: the sandbox is without it"});
    const ToolResult withoutFilter = on("seccomp");
    EXPECT_EQ(stringIn(recordOf(withoutFilter.output), u"string"), "EACCES\nEACCES\n");
    EXPECT_EQ(logLines(withoutFilter),
              std::vector<std::string>{"The system offers no seccomp: the sandbox is without it"});
}

TEST_F(Sandbox, CanBeSwitchedOffToLookForFaults) {
    const ToolResult result =
        run("HTMLPath", write("commands.html", "read " + secret_ + "\n"), {}, {"-DisableSandbox", "YES"});
    EXPECT_EQ(stringIn(recordOf(result.output), u"string"), "done\n");
}

TEST_F(Sandbox, HoldsImportersInLibraries) {
    describe("Type=module\nModule=" HOSTILE_IMPORTER "\n");
    EXPECT_EQ(imported("connect\n"), "enosys ");
    EXPECT_EQ(imported("read " + secret_ + "\n"), "eacces ");
    EXPECT_EQ(imported("make " + path("new") + "\n"), "eacces ");
    EXPECT_EQ(imported("make /tmp/texttool-test-file\n"), "eacces ");
    EXPECT_EQ(imported("read /etc/passwd\n"), "eacces ");
    for (const char* call : {"fork", "signal", "limit", "leave", "type", "share"})
        EXPECT_EQ(imported(std::string(call) + "\n"), "enosys ") << call;
    EXPECT_EQ(imported("execute /bin/true\n"), "enosys ");
}

TEST_F(Sandbox, HoldsImportersThatArePrograms) {
    describe("Type=exec\nExec=" HOSTILE_PROGRAM " %f\n");
    EXPECT_EQ(imported("connect\n"), "eperm ");
    EXPECT_EQ(imported("read " + secret_ + "\n"), "eacces ");
    EXPECT_EQ(imported("write " + secret_ + "\n"), "eacces ");
    EXPECT_EQ(imported("make " + path("new") + "\n"), "eacces ");
    EXPECT_EQ(imported("execute /bin/true\n"), "done ");
    EXPECT_EQ(imported("chmod " + secret_ + "\n"), "eperm ");
    for (const char* call : {"trace", "limit", "leave", "type"})
        EXPECT_EQ(imported(std::string(call) + "\n"), "eperm ") << call;
}

// Root is bound by no number of processes, so this is somebody else's request.
TEST_F(Sandbox, BoundsTheProcessesOfPrograms) {
    setLimit("LkTextToolProcessLimit = 16");
    fs::permissions(folder.path(), fs::perms(0755));
    fs::copy_file(HOSTILE_PROGRAM, path("bin/program"));
    describe("Type=exec\nTimeout=60\nExec=" + path("bin/program") + " %f\n");
    const std::string file = write("commands.example", "breed\n");
    std::vector<std::string> arguments = {path("bin/texttool"), "-SpotlightPath", file};
    if (geteuid() == 0) {
        for (const char* word : {"--clear-groups", "--regid=65534", "--reuid=65534"})
            arguments.insert(arguments.begin(), word);
    } else {
        arguments.insert(arguments.begin(), "--no-new-privs");
    }
    const ToolResult result =
        runTool({.arguments = arguments,
                 .environment = {{"XDG_DATA_HOME", path("data")}, {"XDG_CONFIG_HOME", path("config")}},
                 .program = "setpriv"});
    EXPECT_EQ(stringIn(recordOf(result.output), u"string"), "eagain ") << result.errors;
}

TEST_F(Sandbox, LeavesProgramsAFolderOfTheirOwnThatIsGoneAfterwards) {
    write("script",
          "#!/bin/sh\necho inside > \"$TMPDIR/file\" && cat \"$TMPDIR/file\" && echo \"$TMPDIR\"\n");
    chmod(path("script").c_str(), 0700);
    describe("Type=exec\nExec=" + path("script") + " %f\n");
    fs::create_directories(path("temporary"));
    const ToolResult result = run("SpotlightPath", write("a.example", ""), {{"TMPDIR", path("temporary")}});
    EXPECT_NE(stringIn(recordOf(result.output), u"string").find("inside "), std::string::npos)
        << result.errors;
    EXPECT_TRUE(fs::is_empty(path("temporary")));
}

TEST_F(Sandbox, ClosesProgramsToBuiltInImporters) {
    EXPECT_EQ(imported("execute /bin/true\n"), "bin execute true "); // as plain text: nothing is obeyed
    const ToolResult result =
        run("SpotlightPath", write("commands.html", "execute /bin/true\nread " + secret_ + "\n"));
    EXPECT_EQ(stringIn(recordOf(result.output), u"string"), "eacces enosys ");
}

TEST_F(Sandbox, ReadersThatAbortLeaveTheAnnotationAndTheFormerOutput) {
    const std::string record = write("record", "former");
    for (const char* command : {"abort", "recurse"}) {
        const std::string file = write("commands.html", command);
        const ToolResult result = run("HTMLPath", file, {{"OutPath", record}});
        EXPECT_NE(result.signal, 0) << command;
        EXPECT_NE(result.errors.find(" while reading " + file + "\n"), std::string::npos) << result.errors;
        EXPECT_EQ(readFile(record), "former");
    }
}

TEST_F(Sandbox, ReadersThatExhaustMemoryEndInAnErrorThatNamesTheLimit) {
    setLimit("LkTextToolMemoryLimit = 100");
    const std::string file = write("commands.html", "exhaust\n");
    const ToolResult result = run("HTMLPath", file);
    EXPECT_EQ(result.status, 0);
    expectLimitError(result.output, file, "The document needs more memory than the limit of 100 MiB.", 12);
}

TEST_F(Sandbox, ReadersThatLoopEndInAnErrorThatNamesTheLimit) {
    setLimit("LkTextToolProcessorTimeLimit = 1");
    const std::string file = write("commands.html", "loop\n");
    const ToolResult result = run("HTMLPath", file);
    EXPECT_EQ(result.status, 0);
    expectLimitError(result.output, file, "The document needs more processor time than the limit of 1 s.",
                     60);
    const std::string record = write("record", "former");
    EXPECT_EQ(run("HTMLPath", file, {{"OutPath", record}}).status, 0);
    expectLimitError(readFile(record), file, "The document needs more processor time than the limit of 1 s.",
                     60);
}

TEST_F(Sandbox, LargeRecordsEndInAnErrorThatNamesTheLimit) {
    setLimit("LkTextToolOutputLimit = 1");
    const std::string file = write("a.rtf", "{\\rtf1 " + std::string(1 << 21, 'x') + "}");
    expectLimitError(run("RTFPath", file).output, file, "The record is larger than the limit of 1 MiB.", 27);
    setLimit("LkTextToolOutputLimit = 0");
    EXPECT_EQ(stringIn(recordOf(run("RTFPath", file).output), u"string").size(), size_t(1) << 21);
}

TEST_F(Sandbox, ImportersThatMisbehaveCostOnlyTheirText) {
    for (const char* importer : {"Type=module\nTimeout=1\nModule=" HOSTILE_IMPORTER "\n",
                                 "Type=exec\nTimeout=1\nExec=" HOSTILE_PROGRAM " %f\n"}) {
        describe(importer);
        for (const char* command : {"abort", "recurse", "exhaust", "loop"}) {
            const ToolResult result = run("SpotlightPath", write("commands.example", command));
            EXPECT_EQ(result.status, 0);
            EXPECT_EQ(stringIn(recordOf(result.output), u"string"), "") << command;
            EXPECT_EQ(logLines(result).size(), 1u);
        }
    }
}

TEST_F(Sandbox, ProgramsThatCannotHaveAFolderAreNotStarted) {
    describe("Type=exec\nExec=" HOSTILE_PROGRAM " %f\n");
    const ToolResult result =
        run("SpotlightPath", write("commands.example", "print\n"), {{"TMPDIR", path("nowhere")}});
    EXPECT_EQ(stringIn(recordOf(result.output), u"string"), "");
    EXPECT_EQ(logLines(result).size(), 1u);
}

} // namespace

#endif
