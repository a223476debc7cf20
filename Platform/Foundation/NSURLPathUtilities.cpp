// SPDX-License-Identifier: Apache-2.0
#include "Platform/Foundation/NSURLPathUtilities.h"

#include "Platform/Foundation/NSPathUtilities.h"
#include "Platform/Foundation/URLText.h"
#include "Platform/Foundation/UnicodeText.h"

#include <cstring>
#include <sys/stat.h>

namespace {

using View = std::u16string_view;

std::u16string escaped(const NSString& component) {
    const std::string text = percentEscapedPath(toUTF8(component.text(), LoneSurrogates::byteUnescaped));
    return std::u16string(text.begin(), text.end());
}

// An absolute URL whose path is being changed.
class EditedURL {
public:
    explicit EditedURL(const NSURL& url) : text_(url.absoluteString()), parts_(URLParts::of(text_.text())) {
        View rest = parts_.path;
        endsInSlash_ = !rest.empty() && rest.back() == u'/';
        if (endsInSlash_) rest.remove_suffix(1);
        const size_t slash = rest.rfind(u'/');
        name_ = rest.substr(slash == View::npos ? 0 : slash + 1);
        parent_ = rest.substr(0, rest.size() - name_.size());
    }

    View path() const { return parts_.path; }
    View parent() const { return parent_; } // with its slash
    View name() const { return name_; }
    NSString decodedName() const { return stringWithFileSystemRepresentation(percentDecodedPath(name_)); }
    bool endsInSlash() const { return endsInSlash_; }

    NSURL withPath(View path) const {
        std::u16string out(parts_.scheme);
        return NSURL::URLWithString(out.append(parts_.authority).append(path).append(parts_.query));
    }
    NSURL withName(const std::u16string& name) const {
        return withPath(std::u16string(parent_) + name + (endsInSlash_ ? u"/" : u""));
    }

private:
    NSString text_;
    URLParts parts_;
    View parent_, name_;
    bool endsInSlash_ = false;
};

bool isDirectory(const NSURL& url) {
    struct stat info {};
    const std::optional<std::string> file = fileSystemRepresentation(url);
    return file && stat(file->c_str(), &info) == 0 && S_ISDIR(info.st_mode);
}

} // namespace

NSString lastPathComponent(const NSURL& url) {
    const NSString path = url.path();
    return path ? lastPathComponent(path) : NSString();
}

NSString pathExtension(const NSURL& url) {
    const NSString path = url.path();
    return path ? pathExtension(path) : NSString();
}

NSURL URLByAppendingPathComponent(const NSURL& url, const NSString& component) {
    if (!url || !component) return {};
    const EditedURL edited(url);
    const View name = component.text();
    std::u16string path(edited.path());
    if (!edited.endsInSlash()) path.push_back(u'/');
    path += escaped(name.substr(std::min(name.find_first_not_of(u'/'), name.size())));
    const NSURL child = edited.withPath(path);
    return path.back() != u'/' && isDirectory(child) ? edited.withPath(path + u"/") : child;
}

NSURL URLByDeletingLastPathComponent(const NSURL& url) {
    if (!url) return {};
    const EditedURL edited(url);
    if (!edited.name().empty() && edited.name() != u"..") return edited.withPath(edited.parent());
    return edited.withPath(std::u16string(edited.path()) + (edited.endsInSlash() ? u"../" : u"/../"));
}

NSURL URLByDeletingPathExtension(const NSURL& url) {
    if (!url) return {};
    const EditedURL edited(url);
    const NSString name = edited.decodedName();
    const size_t length = pathExtension(name).length();
    if (length == 0) return url;
    return edited.withName(escaped(View(name.text()).substr(0, name.length() - length - 1)));
}

NSURL URLByAppendingPathExtension(const NSURL& url, const NSString& extension) {
    if (!url || extension.text().find(u'/') != std::u16string::npos) return {};
    const EditedURL edited(url);
    if (extension.isEmpty() || edited.name().empty()) return url;
    return edited.withName(std::u16string(edited.name()) + u"." + escaped(extension));
}

NSURL URLByStandardizingPath(const NSURL& url) {
    const std::optional<std::string> file = fileSystemRepresentation(url);
    if (!file) return url;
    const NSString path = stringByStandardizingPath(stringWithFileSystemRepresentation(*file));
    return NSURL::fileURLWithFileSystemRepresentation(fileSystemRepresentation(path),
                                                      EditedURL(url).endsInSlash() || isDirectory(url));
}

std::optional<std::string> fileSystemRepresentation(const NSURL& url) {
    if (!url.isFileURL()) return std::nullopt;
    std::string bytes = toUTF8(url.path().text(), LoneSurrogates::byteUnescaped);
    if (bytes.empty() || bytes.find('\0') != std::string::npos) return std::nullopt;
    return bytes;
}

bool CFURLGetFileSystemRepresentation(const NSURL& url, char* buffer, size_t size) {
    const std::optional<std::string> bytes = fileSystemRepresentation(url);
    if (!bytes || bytes->size() >= size) return false;
    memcpy(buffer, bytes->c_str(), bytes->size() + 1);
    return true;
}
