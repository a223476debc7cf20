// SPDX-License-Identifier: Apache-2.0
#include "Platform/Foundation/ExtendedAttributes.h"

#include "Platform/Foundation/NSError.h"

#include <algorithm>
#include <cerrno>
#include <iterator>
#include <string>
#include <string_view>
#include <sys/xattr.h>

namespace {

constexpr std::string_view kUserNamespace = "user.";
constexpr std::string_view kNamespaces[] = {kUserNamespace, "security.", "system.", "trusted."};
constexpr size_t kLongestName = 255;

int failWith(int systemErrno) {
    errno = systemErrno;
    return -1;
}

std::string systemName(std::string_view name) {
    const bool isInNamespace =
        std::any_of(std::begin(kNamespaces), std::end(kNamespaces),
                    [name](std::string_view prefix) { return name.substr(0, prefix.size()) == prefix; });
    return (isInNamespace ? std::string() : std::string(kUserNamespace)).append(name);
}

// "" for the name of another namespace.
std::string_view platformName(std::string_view name) {
    if (name.substr(0, kUserNamespace.size()) != kUserNamespace) return {};
    const std::string_view plain = name.substr(kUserNamespace.size());
    return systemName(plain) == name ? plain : name;
}

bool isKnown(int options, int known) { return (options & ~known) == 0; }

constexpr int kReadOptions = AttributeOptions::noFollow | AttributeOptions::showCompression;
constexpr int kWriteOptions =
    AttributeOptions::noFollow | AttributeOptions::create | AttributeOptions::replace;

// The system's whole list, or its error number.
int systemNames(const char* path, bool noFollow, std::string& names) {
    const auto list = noFollow ? llistxattr : listxattr;
    for (;;) {
        ssize_t size = list(path, nullptr, 0);
        if (size < 0) return errno == EOPNOTSUPP ? 0 : errno;
        names.resize(size_t(size));
        if (size == 0) return 0;
        size = list(path, names.data(), names.size());
        if (size < 0 && errno == ERANGE) continue; // it has grown since
        if (size < 0) return errno;
        names.resize(size_t(size));
        return 0;
    }
}

std::string renamed(std::string_view names) {
    std::string out;
    while (!names.empty()) {
        const std::string_view name = names.substr(0, names.find('\0'));
        names.remove_prefix(std::min(name.size() + 1, names.size()));
        const std::string_view plain = platformName(name);
        if (!plain.empty()) out.append(plain).push_back('\0');
    }
    return out;
}

int missingIfUnsupported(int systemErrno) { return systemErrno == EOPNOTSUPP ? ENODATA : systemErrno; }

} // namespace

ssize_t getAttribute(const char* path, const char* name, void* value, size_t size, int options) {
    if (!isKnown(options, kReadOptions)) return failWith(EINVAL);
    const std::string full = systemName(name);
    if (full.size() > kLongestName) return failWith(ENAMETOOLONG);
    const auto get = options & AttributeOptions::noFollow ? lgetxattr : getxattr;
    const ssize_t length = get(path, full.c_str(), value, size);
    return length >= 0 ? length : failWith(missingIfUnsupported(errno));
}

ssize_t listAttributes(const char* path, char* names, size_t size, int options) {
    if (!isKnown(options, kReadOptions)) return failWith(EINVAL);
    std::string all;
    if (const int failure = systemNames(path, options & AttributeOptions::noFollow, all))
        return failWith(failure);
    const std::string list = renamed(all);
    if (size == 0) return ssize_t(list.size());
    if (size < list.size()) return failWith(ERANGE);
    return ssize_t(list.copy(names, list.size()));
}

int setAttribute(const char* path, const char* name, const void* value, size_t size, int options) {
    if (!isKnown(options, kWriteOptions)) return failWith(EINVAL);
    const std::string full = systemName(name);
    if (full.size() > kLongestName) return failWith(ENAMETOOLONG);
    const int flags = (options & AttributeOptions::create ? XATTR_CREATE : 0) |
                      (options & AttributeOptions::replace ? XATTR_REPLACE : 0);
    const auto set = options & AttributeOptions::noFollow ? lsetxattr : setxattr;
    return set(path, full.c_str(), value, size, flags);
}

int removeAttribute(const char* path, const char* name, int options) {
    if (!isKnown(options, kReadOptions)) return failWith(EINVAL);
    const std::string full = systemName(name);
    if (full.size() > kLongestName) return failWith(ENAMETOOLONG);
    const auto remove = options & AttributeOptions::noFollow ? lremovexattr : removexattr;
    return remove(path, full.c_str()) == 0 ? 0 : failWith(missingIfUnsupported(errno));
}

int platformAttributeErrno(int systemErrno) {
    switch (systemErrno) {
    case ENODATA: return kMissingAttributeCode;
    case EOPNOTSUPP: return 45;
    default: return platformErrno(systemErrno);
    }
}
