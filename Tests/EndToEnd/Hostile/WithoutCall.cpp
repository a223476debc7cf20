// SPDX-License-Identifier: Apache-2.0
//
// WithoutCall landlock|seccomp PROGRAM ARGUMENT...: runs a program as on a kernel that lacks the call.
#include <cerrno>
#include <cstddef>
#include <cstdio>
#include <iterator>
#include <linux/filter.h>
#include <linux/landlock.h>
#include <linux/seccomp.h>
#include <string_view>
#include <sys/prctl.h>
#include <sys/syscall.h>
#include <unistd.h>

int main(int, char** arguments) {
    const bool isLandlock = std::string_view(arguments[1]) == "landlock";
    const unsigned call = isLandlock ? SYS_landlock_create_ruleset : SYS_seccomp;
    sock_filter filter[] = {
        BPF_STMT(BPF_LD | BPF_W | BPF_ABS, offsetof(seccomp_data, nr)),
        BPF_JUMP(BPF_JMP | BPF_JEQ | BPF_K, call, 0, 1),
        BPF_STMT(BPF_RET | BPF_K, SECCOMP_RET_ERRNO | ENOSYS),
        BPF_STMT(BPF_RET | BPF_K, SECCOMP_RET_ALLOW),
    };
    const sock_fprog program{std::size(filter), filter};
    prctl(PR_SET_NO_NEW_PRIVS, 1, 0, 0, 0);
    syscall(SYS_seccomp, SECCOMP_SET_MODE_FILTER, 0, &program);
    execv(arguments[2], arguments + 2);
    perror(arguments[2]);
    return 127;
}
