// SPDX-License-Identifier: Apache-2.0
#include "Platform/CoreServices/Volumes.h"

#include <fcntl.h>
#include <sys/stat.h>

bool isVolume(const std::string& path) {
    struct statx info {};
    if (statx(AT_FDCWD, path.c_str(), AT_SYMLINK_NOFOLLOW | AT_NO_AUTOMOUNT, STATX_TYPE, &info) != 0)
        return false;
    if (!S_ISDIR(info.stx_mode)) return false;
    if (info.stx_attributes_mask & STATX_ATTR_MOUNT_ROOT) return info.stx_attributes & STATX_ATTR_MOUNT_ROOT;
    // Kernels before 5.8 do not say it; there another device above does.
    struct stat own {
    }, above{};
    if (lstat(path.c_str(), &own) != 0 || lstat((path + "/..").c_str(), &above) != 0) return false;
    return own.st_dev != above.st_dev || own.st_ino == above.st_ino;
}
