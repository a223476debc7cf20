// SPDX-License-Identifier: Apache-2.0
#include "Platform/Sandbox/Landlock.h"

#include <algorithm>
#include <cstdint>
#include <fcntl.h>
#include <linux/landlock.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <unistd.h>

namespace {

// Newer than the kernel's headers of older systems.
constexpr uint64_t kTruncate = 1 << 14;                                    // from version 3
constexpr uint64_t kDeviceControl = 1 << 15;                               // from version 5
constexpr uint64_t kBindTCP = 1 << 0, kConnectTCP = 1 << 1;                // from version 4
constexpr uint64_t kScopeAbstractSockets = 1 << 0, kScopeSignals = 1 << 1; // from version 6

struct RulesetAttributes {
    uint64_t files, network, scoped;
};

constexpr uint64_t kReadFile = LANDLOCK_ACCESS_FS_READ_FILE;
constexpr uint64_t kRead = kReadFile | LANDLOCK_ACCESS_FS_READ_DIR;
constexpr uint64_t kExecute = kRead | LANDLOCK_ACCESS_FS_EXECUTE;
constexpr uint64_t kWriteFile = LANDLOCK_ACCESS_FS_WRITE_FILE | kTruncate;
constexpr uint64_t kExchange =
    LANDLOCK_ACCESS_FS_WRITE_FILE | LANDLOCK_ACCESS_FS_MAKE_REG | LANDLOCK_ACCESS_FS_REMOVE_FILE;
constexpr uint64_t kWork = kRead | kWriteFile | kExchange | LANDLOCK_ACCESS_FS_MAKE_DIR |
                           LANDLOCK_ACCESS_FS_REMOVE_DIR | LANDLOCK_ACCESS_FS_MAKE_SYM |
                           LANDLOCK_ACCESS_FS_MAKE_FIFO | LANDLOCK_ACCESS_FS_REFER;
// Those that a rule for a file, not a folder, may hold.
constexpr uint64_t kOfFiles = kReadFile | kWriteFile | LANDLOCK_ACCESS_FS_EXECUTE | kDeviceControl;

// 0 when it has no Landlock.
long versionOfKernel() {
    return std::max(syscall(SYS_landlock_create_ruleset, nullptr, 0, LANDLOCK_CREATE_RULESET_VERSION), 0L);
}

// All rights over files that a version of Landlock can take away.
uint64_t allRights(long version) {
    const int count = version >= 5 ? 16 : version >= 3 ? 15 : version == 2 ? 14 : 13;
    return (uint64_t(1) << count) - 1;
}

RulesetAttributes allAttributes(long version) {
    return {allRights(version), version >= 4 ? kBindTCP | kConnectTCP : 0,
            version >= 6 ? kScopeAbstractSockets | kScopeSignals : 0};
}

// The attributes that a kernel of this version knows: it refuses others, even zeros.
size_t sizeFor(long version) {
    return version >= 6 ? sizeof(RulesetAttributes) : version >= 4 ? 2 * sizeof(uint64_t) : sizeof(uint64_t);
}

class Ruleset {
public:
    Ruleset(long version, const RulesetAttributes& attributes) : handled_(attributes.files) {
        fd_ = int(syscall(SYS_landlock_create_ruleset, &attributes, sizeFor(version), 0));
    }
    ~Ruleset() {
        if (fd_ >= 0) close(fd_);
    }
    Ruleset(const Ruleset&) = delete;
    Ruleset& operator=(const Ruleset&) = delete;

    void allow(const std::vector<std::string>& paths, uint64_t rights) {
        for (const std::string& path : paths) allow(path, rights);
    }

    Wall enforce() const {
        const bool stands = fd_ >= 0 && syscall(SYS_landlock_restrict_self, fd_, 0) == 0;
        return stands ? Wall::stands : Wall::failed;
    }

private:
    void allow(const std::string& path, uint64_t rights) {
        const int file = open(path.c_str(), O_PATH | O_CLOEXEC);
        if (file < 0) return;
        struct stat info {};
        fstat(file, &info);
        rights &= S_ISDIR(info.st_mode) ? handled_ : handled_ & kOfFiles;
        const landlock_path_beneath_attr rule{rights, file};
        syscall(SYS_landlock_add_rule, fd_, LANDLOCK_RULE_PATH_BENEATH, &rule, 0);
        close(file);
    }

    uint64_t handled_;
    int fd_;
};

} // namespace

Wall closeFilesBut(const SandboxProfile& profile) {
    const long version = versionOfKernel();
    if (version < 1) return Wall::unknown;
    Ruleset rules(version, allAttributes(version));
    rules.allow(profile.readable, kRead);
    rules.allow(profile.executable, kExecute);
    rules.allow(profile.writable, kWriteFile | kExchange);
    rules.allow(profile.workspaces, kWork);
    return rules.enforce();
}

Wall closeAllToWriting() {
    const long version = versionOfKernel();
    if (version < 1) return Wall::unknown;
    return Ruleset(version, {allRights(version) & ~kExecute, 0, 0}).enforce();
}
