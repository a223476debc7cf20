// SPDX-License-Identifier: Apache-2.0
//
// What the outside sees of a process while it reads: its threads' names, its annotation, and its last words.
#include "Tests/EndToEnd/ElfFile.h"
#include "Tests/EndToEnd/EndToEnd.h"

#include <csignal>
#include <fcntl.h>
#include <filesystem>
#include <fstream>
#include <sys/ptrace.h>
#include <sys/resource.h>
#include <sys/syscall.h>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>

namespace {

namespace fs = std::filesystem;

std::vector<std::string> threadNames(pid_t process) {
    std::vector<std::string> names;
    std::error_code error;
    for (const auto& task : fs::directory_iterator("/proc/" + std::to_string(process) + "/task", error)) {
        std::string name;
        std::getline(std::ifstream(task.path() / "comm"), name);
        names.push_back(name);
    }
    return names;
}

// A document that takes long enough to be watched: nothing but a start, and then room that costs no disk.
class MarkDocument : public EndToEnd {
protected:
    void SetUp() override {
        rlimit none{};
        setrlimit(RLIMIT_CORE, &none); // crashes are made on purpose here
    }

    std::string slowDocument(const std::string& name) const {
        std::string file = write(name, "{\\rtf1 slow ");
        fs::resize_file(file, 300'000'000);
        return file;
    }

    // Lets the tool run until the thread that is named after the document is there, and stops it.
    static bool stopAtNamedThread(RunningTool& tool, const std::string& name) {
        while (tool.isRunning()) {
            std::vector<std::string> names = threadNames(tool.pid());
            if (std::find(names.begin(), names.end(), name) == names.end()) continue;
            tool.send(SIGSTOP);
            return true;
        }
        return false;
    }
};

// Runs the tool to the system call that would end it, and holds it there, marked as it then is.
class HeldAtItsEnd {
public:
    explicit HeldAtItsEnd(const std::vector<std::string>& arguments) {
        pid_ = fork();
        if (pid_ == 0) start(arguments);
        int status = 0;
        for (waitpid(pid_, &status, 0); WIFSTOPPED(status); waitpid(pid_, &status, 0)) {
            ptrace(PTRACE_SETOPTIONS, pid_, nullptr, PTRACE_O_EXITKILL | PTRACE_O_TRACESYSGOOD);
            __ptrace_syscall_info call{};
            ptrace(PTRACE_GET_SYSCALL_INFO, pid_, sizeof call, &call);
            if (call.op == PTRACE_SYSCALL_INFO_ENTRY && call.entry.nr == SYS_exit_group) return;
            ptrace(PTRACE_SYSCALL, pid_, nullptr, nullptr);
        }
        ADD_FAILURE() << "the tool ended before it was held";
    }
    ~HeldAtItsEnd() {
        kill(pid_, SIGKILL);
        waitpid(pid_, nullptr, 0);
    }
    pid_t pid() const { return pid_; }

private:
    [[noreturn]] static void start(const std::vector<std::string>& arguments) {
        std::vector<char*> words = {const_cast<char*>(TEXTTOOL_PROGRAM)};
        for (const std::string& argument : arguments) words.push_back(const_cast<char*>(argument.c_str()));
        words.push_back(nullptr);
        dup2(open("/dev/null", O_WRONLY), STDOUT_FILENO);
        ptrace(PTRACE_TRACEME, 0, nullptr, nullptr);
        execv(TEXTTOOL_PROGRAM, words.data());
        _exit(1);
    }
    pid_t pid_;
};

bool someThreadIsNamed(pid_t process, const std::string& name) {
    for (int attempts = 0; attempts < 1000; ++attempts) {
        std::vector<std::string> names = threadNames(process);
        if (std::find(names.begin(), names.end(), name) != names.end()) return true;
        usleep(1000); // the thread may not have come to run yet
    }
    return false;
}

TEST_F(MarkDocument, MarksAMissingDocumentOfEachKind) {
    for (const char* key : kRequestKeys) {
        std::string file = path(std::string("no ") + key);
        HeldAtItsEnd tool({std::string("-") + key, file});
        EXPECT_EQ(ElfFile(TEXTTOOL_PROGRAM).textOfPointer("__crashreporter_info__", tool.pid()), file);
        EXPECT_TRUE(someThreadIsNamed(tool.pid(), ("no " + std::string(key)).substr(0, 15))) << key;
    }
}

TEST_F(MarkDocument, NamesAThreadAfterTheFile) {
    const std::pair<std::string, std::string> names[] = {{"short.rtf", "short.rtf"},
                                                         {"0123456789abcdef.rtf", "0123456789abcde"},
                                                         {"0123456789abcé.rtf", "0123456789abcé"},
                                                         {"0123456789abcdé.rtf", "0123456789abcd"}};
    for (const auto& [file, thread] : names) {
        RunningTool tool({.arguments = {"-RTFPath", slowDocument(file)}});
        EXPECT_TRUE(stopAtNamedThread(tool, thread)) << "no thread was named " << thread;
        std::vector<std::string> threads = threadNames(tool.pid());
        EXPECT_EQ(threads.size(), 2u);
        EXPECT_EQ(std::count(threads.begin(), threads.end(), "texttool"), 1);
    }
}

TEST_F(MarkDocument, PublishesThePath) {
    for (const std::string name : {"slow é.rtf", "slow \xFF.rtf"}) {
        std::string file = slowDocument(name);
        RunningTool tool({.arguments = {"-RTFPath", file}});
        ASSERT_TRUE(stopAtNamedThread(tool, name));
        EXPECT_EQ(ElfFile(TEXTTOOL_PROGRAM).textOfPointer("__crashreporter_info__", tool.pid()), file);
    }
}

TEST_F(MarkDocument, DoesNotKeepTheProcessAfterTheRecord) {
    std::string file = slowDocument("slow.rtf");
    RunningTool tool({.arguments = {"-RTFPath", file}});
    ASSERT_TRUE(stopAtNamedThread(tool, "slow.rtf"));
    tool.send(SIGCONT);
    ToolResult result = tool.wait();
    EXPECT_EQ(result.status, 0);
    EXPECT_EQ(stringIn(recordOf(result.output), u"string").substr(0, 5), "slow ");
}

TEST_F(MarkDocument, SaysInACrashWhichDocumentItWas) {
    const std::pair<int, std::string> signals[] = {
        {SIGSEGV, "SEGV"}, {SIGABRT, "ABRT"}, {SIGBUS, "BUS"}, {SIGFPE, "FPE"}, {SIGILL, "ILL"}};
    std::string file = slowDocument("slow \xFF.rtf");
    for (const auto& [signal, name] : signals) {
        RunningTool tool({.arguments = {"-RTFPath", file}});
        ASSERT_TRUE(stopAtNamedThread(tool, "slow \xFF.rtf"));
        tool.send(signal);
        tool.send(SIGCONT);
        ToolResult result = tool.wait();
        EXPECT_EQ(result.signal, signal) << "the signal takes its course";
        EXPECT_EQ(result.errors, "texttool: fatal signal " + name + " while reading " + file + "\n");
        EXPECT_EQ(result.output, "");
    }
}

TEST_F(MarkDocument, LeavesOtherSignalsAlone) {
    std::string file = slowDocument("slow.rtf");
    RunningTool tool({.arguments = {"-RTFPath", file}});
    ASSERT_TRUE(stopAtNamedThread(tool, "slow.rtf"));
    tool.send(SIGTERM);
    tool.send(SIGCONT);
    ToolResult result = tool.wait();
    EXPECT_EQ(result.signal, SIGTERM);
    EXPECT_EQ(result.errors, "");
}

} // namespace
