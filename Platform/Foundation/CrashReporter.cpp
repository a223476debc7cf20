// SPDX-License-Identifier: Apache-2.0
#include "Platform/Foundation/CrashReporter.h"

#include <csignal>
#include <cstring>
#include <iterator>
#include <sys/uio.h>
#include <unistd.h>

extern "C" {
__attribute__((visibility("default"), used)) const char* __crashreporter_info__ = nullptr;
}

namespace {

constexpr int kFatalSignals[] = {SIGSEGV, SIGBUS, SIGILL, SIGFPE, SIGABRT, SIGSYS, SIGTRAP};

// For a stack that has overflowed, on which a handler could not run.
alignas(16) char handlerStack[16 * 1024];

iovec piece(const char* text) { return {const_cast<char*>(text), strlen(text)}; }

void report(int signal) {
    const char* document = __crashreporter_info__;
    const char* name = sigabbrev_np(signal);
    iovec line[] = {piece("texttool: fatal signal "), piece(name ? name : "?"),
                    piece(document ? " while reading " : ""), piece(document ? document : ""), piece("\n")};
    [[maybe_unused]] ssize_t written = writev(STDERR_FILENO, line, int(std::size(line)));
    raise(signal); // handled by default now: SA_RESETHAND
}

} // namespace

void installCrashReporter() {
    stack_t stack{};
    stack.ss_sp = handlerStack;
    stack.ss_size = sizeof handlerStack;
    sigaltstack(&stack, nullptr);
    struct sigaction action {};
    action.sa_handler = report;
    action.sa_flags = int(SA_RESETHAND | SA_ONSTACK);
    for (int signal : kFatalSignals) sigaction(signal, &action, nullptr);
}
