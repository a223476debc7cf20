// SPDX-License-Identifier: Apache-2.0
#include "Source/Tools/showrecord/Terminal.h"

#include "Platform/Foundation/FileDescriptor.h"

#include <cerrno>
#include <csignal>
#include <cstdlib>
#include <string_view>
#include <sys/ioctl.h>
#include <sys/wait.h>
#include <unistd.h>

namespace {

constexpr int kCommandNotFound = 127; // the shell's status

std::string_view environmentValue(const char* name) {
    const char* value = getenv(name);
    return value ? value : "";
}

// Whether a text takes more rows than the terminal has, one of which the next prompt needs.
bool isTooLong(std::string_view text, const winsize& size) {
    size_t rows = 1, column = 0;
    bool isEscape = false;
    for (char c : text) {
        if (rows > size.ws_row) return true;
        isEscape = c == '\x1B' || (isEscape && c != 'm');
        const bool continues = (c & 0xC0) == 0x80;
        if (c == '\n' || (!isEscape && !continues && column == size.ws_col)) {
            ++rows;
            column = 0;
        }
        if (c != '\n' && !isEscape && !continues) ++column;
    }
    return rows > size.ws_row;
}

// Of a pager that a signal ended, which its user sent, 0.
int statusOf(pid_t process) {
    int status = 0;
    while (waitpid(process, &status, 0) < 0) {
        if (errno != EINTR) return kCommandNotFound;
    }
    return WIFEXITED(status) ? WEXITSTATUS(status) : 0;
}

[[noreturn]] void becomePager(const char* command, int input) {
    dup2(input, STDIN_FILENO);
    setenv("LESS", "FRX", 0); // leaves at the end of a text that fits, takes colours, keeps the screen
    execl("/bin/sh", "sh", "-c", command, nullptr);
    _exit(kCommandNotFound);
}

} // namespace

bool terminalTakesColours() {
    return isatty(STDOUT_FILENO) == 1 && environmentValue("NO_COLOR").empty() &&
           environmentValue("TERM") != "dumb";
}

bool showThroughPager(const std::string& text) {
    winsize size{};
    if (isatty(STDOUT_FILENO) != 1 || ioctl(STDOUT_FILENO, TIOCGWINSZ, &size) != 0 || size.ws_row == 0 ||
        size.ws_col == 0 || !isTooLong(text, size)) {
        return false;
    }
    const char* chosen = getenv("PAGER");
    const std::string pager = chosen ? chosen : "less";
    if (pager.empty() || pager == "cat") return false;

    int ends[2];
    if (pipe(ends) != 0) return false;
    signal(SIGPIPE, SIG_IGN); // a pager may be left before the end
    const pid_t process = fork();
    if (process == 0) {
        close(ends[1]);
        becomePager(pager.c_str(), ends[0]);
    }
    close(ends[0]);
    if (process > 0) writeAll(ends[1], text); // whoever leaves the pager early has seen enough
    close(ends[1]);
    return process > 0 && statusOf(process) != kCommandNotFound;
}
