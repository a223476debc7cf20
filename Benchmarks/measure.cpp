// SPDX-License-Identifier: Apache-2.0
//
// measure RESULT SECONDS PROGRAM ARGUMENT...
//
// Runs a program to its end, or for so many seconds at most, and writes one line to the file RESULT: wall
// time and CPU time in microseconds, peak memory in KiB, and the status, negative for a signal. The memory is
// the program's own only if it uses more than the process that starts it, which is why this is a program by
// itself, and a small one.
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <spawn.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

extern char** environ;

static pid_t child;

static long long microseconds(const timeval& time) { return time.tv_sec * 1000000LL + time.tv_usec; }

static long long now() {
    timespec time{};
    clock_gettime(CLOCK_MONOTONIC, &time);
    return time.tv_sec * 1000000LL + time.tv_nsec / 1000;
}

int main(int count, char** arguments) {
    if (count < 4) return 64;
    long long start = now();
    if (posix_spawnp(&child, arguments[3], nullptr, nullptr, arguments + 3, environ) != 0) return 66;
    signal(SIGALRM, [](int) { kill(child, SIGKILL); });
    alarm(unsigned(atoi(arguments[2])));
    int status = 0;
    rusage usage{};
    while (wait4(child, &status, 0, &usage) != child) {
    }
    long long wall = now() - start;
    FILE* result = fopen(arguments[1], "we");
    if (!result) return 73;
    fprintf(result, "%lld %lld %ld %d\n", wall, microseconds(usage.ru_utime) + microseconds(usage.ru_stime),
            usage.ru_maxrss, WIFSIGNALED(status) ? -WTERMSIG(status) : WEXITSTATUS(status));
    return fclose(result) == 0 ? 0 : 73;
}
