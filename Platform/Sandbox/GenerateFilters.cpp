// SPDX-License-Identifier: Apache-2.0
//
// Runs when the system is built: prints the filters of system calls as C++ tables.
#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <initializer_list>
#include <linux/filter.h>
#include <linux/fs.h>
#include <sched.h>
#include <seccomp.h>
#include <sstream>
#include <string>
#include <sys/ioctl.h>
#include <sys/mman.h>
#include <sys/prctl.h>
#include <sys/socket.h>
#include <unistd.h>
#include <vector>

namespace {

using Names = const char*; // with white space between them

constexpr Names kFiles = R"(
    access close close_range dup dup2 dup3 faccessat faccessat2 fadvise64 fcntl fgetxattr flistxattr
    flock fstat fstatfs fsync ftruncate getcwd getdents64 getxattr lgetxattr listxattr llistxattr
    lseek lstat newfstatat open openat pipe pipe2 poll ppoll pread64 preadv pselect6 pwrite64 read readlink
    readlinkat readv rename renameat renameat2 select stat statfs statx umask unlink unlinkat write writev)";

constexpr Names kMemory = R"(
    brk madvise membarrier mincore mlock mprotect mremap msync munlock munmap)";

constexpr Names kTime = R"(
    clock_getres clock_gettime clock_nanosleep getitimer gettimeofday nanosleep setitimer time times
    getrusage)";

constexpr Names kProcess = R"(
    arch_prctl exit exit_group futex getegid geteuid getgid getgroups getpgrp getpid getppid getrandom
    getrlimit gettid getuid restart_syscall rseq rt_sigaction rt_sigpending rt_sigprocmask
    rt_sigreturn rt_sigsuspend rt_sigtimedwait sched_getaffinity sched_yield set_robust_list set_tid_address
    setrlimit sigaltstack sysinfo tgkill uname)";

constexpr Names kChildren = R"(
    fork vfork kill setpgid wait4 waitid)";

// A child goes into a narrower sandbox still.
constexpr Names kNarrowing = R"(
    landlock_add_rule landlock_create_ruleset landlock_restrict_self seccomp)";

// What changes files that are not open, or leaves the group in which a program is ended.
constexpr Names kAttributes = R"(
    chmod chown fchmodat fchownat fremovexattr fsetxattr futimesat lchown lremovexattr lsetxattr removexattr
    setpgid setsid setxattr truncate utime utimensat utimes)";

// What nobody needs for a document: other processes' memory, the kernel itself, its keys and its clocks.
constexpr Names kSystem = R"(
    acct add_key adjtimex bpf clock_adjtime clock_settime delete_module fanotify_init finit_module
    init_module ioperm iopl kcmp kexec_file_load kexec_load keyctl lookup_dcookie move_pages nfsservctl
    open_by_handle_at perf_event_open process_vm_readv process_vm_writev ptrace quotactl reboot request_key
    settimeofday stime swapoff swapon syslog userfaultfd vhangup)";

// What would build another world around a process. A web engine's own sandbox does just that.
constexpr Names kWorlds = R"(
    chroot fsconfig fsmount fsopen mount mount_setattr move_mount open_tree pivot_root setns umount umount2
    unshare)";

constexpr Names kNetwork = R"(
    accept accept4 bind connect listen socket)";

constexpr uint64_t kNewWorlds =
    CLONE_NEWNS | CLONE_NEWCGROUP | CLONE_NEWUTS | CLONE_NEWIPC | CLONE_NEWUSER | CLONE_NEWPID | CLONE_NEWNET;

constexpr uint64_t kSetMemoryName = 0x53564d41; // PR_SET_VMA

void check(int result, const char* what) {
    if (result >= 0) return;
    fprintf(stderr, "%s: %d\n", what, result);
    exit(1);
}

class Filter {
public:
    explicit Filter(uint32_t otherwise) : context_(seccomp_init(otherwise)), otherwise_(otherwise) {
        check(seccomp_attr_set(context_, SCMP_FLTATR_CTL_OPTIMIZE, 2), "optimize"); // a tree, not a list
    }
    ~Filter() { seccomp_release(context_); }
    Filter(const Filter&) = delete;
    Filter& operator=(const Filter&) = delete;

    void add(uint32_t action, Names names) {
        std::istringstream each(names);
        for (std::string name; each >> name;) add(action, name.c_str(), {});
    }
    // A name that this version of the library does not know yet is the default's.
    void add(uint32_t action, const char* name, const std::vector<scmp_arg_cmp>& conditions) {
        const int call = seccomp_syscall_resolve_name(name);
        if (call == __NR_SCMP_ERROR || action == otherwise_) return;
        check(seccomp_rule_add_array(context_, action, call, unsigned(conditions.size()), conditions.data()),
              name);
    }

    void print(const char* name) const {
        FILE* file = tmpfile();
        check(seccomp_export_bpf(context_, fileno(file)), "export");
        rewind(file);
        printf("constexpr sock_filter %s[] = {\n", name);
        sock_filter instruction{};
        while (fread(&instruction, sizeof instruction, 1, file) == 1)
            printf("    {0x%x, %u, %u, 0x%x},\n", instruction.code, instruction.jt, instruction.jf,
                   instruction.k);
        printf("};\n\n");
        fclose(file);
    }

private:
    scmp_filter_ctx context_;
    uint32_t otherwise_;
};

constexpr uint32_t kUnknown = SCMP_ACT_ERRNO(ENOSYS);
constexpr uint32_t kForbidden = SCMP_ACT_ERRNO(EPERM);

scmp_arg_cmp argument(unsigned index, uint64_t mask, uint64_t value) {
    return {index, SCMP_CMP_MASKED_EQ, mask, value};
}

// The flags of clone3 lie in memory, where a filter cannot look. The C library then takes clone.
void allowClone(Filter& filter, uint64_t mask, uint64_t value) {
    filter.add(SCMP_ACT_ALLOW, "clone", {argument(0, mask, value)});
    filter.add(kUnknown, "clone3", {});
}

void allowControl(Filter& filter, std::initializer_list<uint64_t> options) {
    for (uint64_t option : options) filter.add(SCMP_ACT_ALLOW, "prctl", {argument(0, ~uint64_t(0), option)});
}

// Memory that the limit counts: not what is shared without a file, nor a stack that grows by itself.
void allowMapping(Filter& filter) {
    constexpr uint64_t kinds = MAP_SHARED | MAP_ANONYMOUS | MAP_GROWSDOWN;
    for (uint64_t kind : {uint64_t(0), uint64_t(MAP_SHARED), uint64_t(MAP_ANONYMOUS)})
        filter.add(SCMP_ACT_ALLOW, "mmap", {argument(3, kinds, kind)});
}

void allowReading(Filter& filter) {
    for (Names names : {kFiles, kMemory, kTime, kProcess}) filter.add(SCMP_ACT_ALLOW, names);
    filter.add(SCMP_ACT_ALLOW, "prlimit64", {argument(0, ~uint64_t(0), 0)}); // of this process
    allowMapping(filter);
    // Neither typing into the terminal nor the attributes of files.
    for (int request : {TCGETS, TIOCGWINSZ, FIONREAD, FIOCLEX})
        filter.add(SCMP_ACT_ALLOW, "ioctl", {argument(1, 0xffffffff, uint64_t(request))});
    filter.add(SCMP_ACT_ALLOW, "sendto",
               {argument(4, ~uint64_t(0), 0)}); // where the log's socket leads, nowhere else
    allowControl(filter, {PR_SET_NAME, PR_GET_NAME, PR_SET_PDEATHSIG, PR_GET_DUMPABLE, kSetMemoryName});
}

void printReading() {
    Filter filter(kUnknown);
    allowReading(filter);
    allowClone(filter, CLONE_THREAD | kNewWorlds, CLONE_THREAD);
    filter.print("kReadingFilter");
}

void printContaining() {
    Filter filter(kUnknown);
    allowReading(filter);
    filter.add(SCMP_ACT_ALLOW, kChildren);
    filter.add(SCMP_ACT_ALLOW, kNarrowing);
    allowClone(filter, kNewWorlds, 0);
    filter.print("kContainingFilter");
}

// A program that somebody installed may do what programs do, but in this world and alone.
void printStartingOthers() {
    Filter filter(SCMP_ACT_ALLOW);
    for (Names names : {kSystem, kWorlds, kNetwork}) filter.add(kForbidden, names);
    filter.add(kUnknown, "clone3 io_uring_setup");
    for (uint64_t world : {CLONE_NEWNS, CLONE_NEWCGROUP, CLONE_NEWUTS, CLONE_NEWIPC, CLONE_NEWUSER,
                           CLONE_NEWPID, CLONE_NEWNET})
        filter.add(kForbidden, "clone", {argument(0, world, world)});
    filter.add(kForbidden, "prlimit64", {{0, SCMP_CMP_NE, 0, 0}});
    filter.print("kStartingOthersFilter");
}

// On top of the filter before.
void printOtherProgram() {
    Filter filter(SCMP_ACT_ALLOW);
    filter.add(kForbidden, kAttributes);
    for (uint64_t request : {uint64_t(TIOCSTI), uint64_t(TIOCLINUX), uint64_t(FS_IOC_SETFLAGS)})
        filter.add(kForbidden, "ioctl", {argument(1, 0xffffffff, uint64_t(request))});
    filter.print("kOtherProgramFilter");
}

// For a thread that sleeps.
void printSleeping() {
    Filter filter(kUnknown);
    filter.add(SCMP_ACT_ALLOW, "nanosleep clock_nanosleep restart_syscall rt_sigreturn exit exit_group");
    filter.print("kSleepingFilter");
}

void printShowing(const char* name, bool isOffline) {
    Filter filter(SCMP_ACT_ALLOW);
    filter.add(kForbidden, kSystem);
    filter.add(kUnknown, "io_uring_setup");
    if (isOffline) {
        for (uint64_t family = 0; family < 64; ++family) {
            if (family == AF_UNIX || family == AF_NETLINK) continue; // the display; the sandbox of the engine
            filter.add(SCMP_ACT_ERRNO(EAFNOSUPPORT), "socket", {argument(0, 0xffffffff, family)});
        }
    }
    filter.print(name);
}

} // namespace

int main() {
    printf("// Generated by GenerateFilters.\n\n");
    printReading();
    printContaining();
    printStartingOthers();
    printOtherProgram();
    printSleeping();
    printShowing("kShowingPagesFilter", false);
    printShowing("kShowingOfflineFilter", true);
}
