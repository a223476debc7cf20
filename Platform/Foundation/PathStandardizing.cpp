// SPDX-License-Identifier: Apache-2.0
#include "Platform/Foundation/NSPathUtilities.h"
#include "Platform/Foundation/UserDatabase.h"

#include <algorithm>
#include <cstdlib>
#include <sys/stat.h>
#include <unistd.h>

namespace {

using View = std::u16string_view;

bool isPathOfTheKernel(View path) { return path.find(u'\0') == View::npos; }

std::string homeOf(View user) {
    const char* home = user.empty() ? getenv("HOME") : nullptr;
    if (home && home[0] == '/') return home;
    if (!isPathOfTheKernel(user)) return {};
    const std::optional<UserEntry> entry =
        user.empty() ? userWithID(getuid()) : userWithName(fileSystemRepresentation(user));
    return entry ? entry->directory : std::string();
}

// A path of an unknown user stays as it is.
std::u16string withHome(View path) {
    std::u16string out(path);
    if (path.empty() || path[0] != u'~') return out;
    const size_t end = std::min(path.find(u'/'), path.size());
    const std::string home = homeOf(path.substr(1, end - 1));
    return home.empty() ? out : out.replace(0, end, stringWithFileSystemRepresentation(home).text());
}

// What a link leads to; another file, or none, as it is.
std::u16string withoutLink(std::u16string path) {
    if (!isPathOfTheKernel(path)) return path;
    const std::string file = fileSystemRepresentation(path);
    struct stat info {};
    if (lstat(file.c_str(), &info) != 0 || !S_ISLNK(info.st_mode)) return path;
    char* resolved = realpath(file.c_str(), nullptr);
    if (!resolved) return path;
    path = stringWithFileSystemRepresentation(resolved).text();
    free(resolved);
    return path;
}

// Of an absolute path without a slash at its end; "" is the root.
std::u16string parentOf(std::u16string path) {
    path = withoutLink(std::move(path));
    const size_t slash = path.rfind(u'/');
    return path.substr(0, slash == View::npos ? 0 : slash);
}

std::u16string standardized(View path) {
    const bool isAbsolute = path.substr(0, 1) == u"/";
    std::u16string out; // each component behind a slash
    for (size_t at = 0; at < path.size();) {
        const size_t end = std::min(path.find(u'/', at), path.size());
        const View component = path.substr(at, end - at);
        at = end + 1;
        if (component.empty() || component == u".") continue;
        if (isAbsolute && component == u"..") {
            out = parentOf(std::move(out));
        } else {
            out.append(u"/").append(component);
        }
    }
    if (isAbsolute) return out.empty() ? u"/" : out;
    if (out.empty()) return path.empty() ? u"" : u".";
    // A name that only looks like a home keeps what tells it apart.
    return out[1] == u'~' && path[0] != u'~' ? u"." + out : out.substr(1);
}

} // namespace

NSString stringByStandardizingPath(const NSString& path) {
    return path ? NSString(standardized(withHome(path.text()))) : NSString();
}
