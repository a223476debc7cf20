// SPDX-License-Identifier: Apache-2.0
#include "Platform/Foundation/NSURL.h"

#include "Platform/Foundation/NSPathUtilities.h"
#include "Platform/Foundation/URLText.h"

#include <string>
#include <sys/stat.h>
#include <unistd.h>

namespace {

class URLBody final : public ObjectBody {
public:
    URLBody(const NSString& text, const NSURL& base) : ObjectBody(NSKind::url), text(text), base(base) {}

    std::string_view className() const override { return "NSURL"; }
    bool isEqual(const ObjectBody& object) const override {
        const auto& other = static_cast<const URLBody&>(object);
        return text == other.text && base == other.base;
    }
    size_t hash() const override { return text.hash(); }
    std::u16string description(unsigned) const override {
        return base ? text.text() + u" -- " + printed(base) : text.text();
    }

    const NSString text;
    const NSURL base;
};

} // namespace

NSURL NSURL::URLWithString(const NSString& text, const NSURL& base) {
    return text ? NSURL(new URLBody(text, base)) : NSURL();
}

NSURL NSURL::fileURLWithPath(const NSString& path) {
    const std::string bytes = fileSystemRepresentation(path);
    struct stat info {};
    const bool isDirectory =
        bytes.empty() || bytes.back() == '/' || (stat(bytes.c_str(), &info) == 0 && S_ISDIR(info.st_mode));
    return fileURLWithFileSystemRepresentation(bytes, isDirectory);
}

NSURL NSURL::fileURLWithFileSystemRepresentation(std::string_view bytes, bool isDirectory) {
    std::string path(bytes);
    if (path.empty() || path[0] != '/') {
        char directory[4096];
        if (!getcwd(directory, sizeof directory)) return NSURL();
        path = std::string(directory) + "/" + path;
    }
    while (path.size() > 1 && path.back() == '/') path.pop_back();
    if (isDirectory && path != "/") path.push_back('/');
    return URLWithString(NSString::fromUTF8("file://" + percentEscapedPath(path)));
}

NSString NSURL::relativeString() const {
    return body() ? static_cast<const URLBody*>(body())->text : nullptr;
}

NSURL NSURL::baseURL() const { return body() ? static_cast<const URLBody*>(body())->base : NSURL(); }

NSString NSURL::absoluteString() const {
    NSURL base = baseURL();
    return base ? NSString(resolvedURL(relativeString().text(), base.absoluteString().text()))
                : relativeString();
}

bool NSURL::isFileURL() const {
    NSString absolute = absoluteString();
    return URLParts::of(absolute.text()).scheme == u"file:";
}

NSString NSURL::path() const {
    if (!body()) return nullptr;
    NSString absolute = absoluteString();
    const URLParts parts = URLParts::of(absolute.text());
    if (parts.path.empty() ? parts.authority.empty() : parts.path[0] != u'/' && !parts.scheme.empty())
        return nullptr;
    std::string decoded = percentDecodedPath(parts.path);
    while (decoded.size() > 1 && decoded.back() == '/') decoded.pop_back();
    return stringWithFileSystemRepresentation(decoded);
}
