// SPDX-License-Identifier: Apache-2.0
#include "Platform/Foundation/NSPathUtilities.h"

#include "Platform/Foundation/NSException.h"
#include "Platform/Foundation/UnicodeText.h"

#include <algorithm>
#include <cstdlib>

namespace {

using View = std::u16string_view;

View withoutTrailingSlashes(View path) {
    while (path.size() > 1 && path.back() == u'/') path.remove_suffix(1);
    return path;
}

std::u16string withSingleSlashes(View path) {
    std::u16string out;
    out.reserve(path.size());
    for (char16_t c : path) {
        if (c != u'/' || out.empty() || out.back() != u'/') out.push_back(c);
    }
    return out;
}

} // namespace

std::string fileSystemRepresentation(const NSString& path) {
    std::string bytes = toUTF8(path.text(), LoneSurrogates::byteUnescaped);
    if (bytes.find('\0') != std::string::npos) {
        NSException(u"NSCharacterConversionException", u"*** -[NSString fileSystemRepresentation]: unable to "
                                                       u"convert string to filesystem representation")
            .raise();
    }
    return bytes;
}

NSString stringWithFileSystemRepresentation(std::string_view bytes) {
    return fromUTF8(bytes, Malformed::byteEscaped);
}

NSString lastPathComponent(const NSString& path) {
    View rest = withoutTrailingSlashes(path.text());
    size_t slash = rest.rfind(u'/');
    return slash == View::npos || rest.size() == 1 ? NSString(rest) : NSString(rest.substr(slash + 1));
}

NSString pathExtension(const NSString& path) {
    NSString name = lastPathComponent(path);
    size_t dot = name.text().rfind(u'.');
    if (dot == std::u16string::npos || dot == 0) return u"";
    return View(name.text()).substr(dot + 1);
}

NSString stringByDeletingLastPathComponent(const NSString& path) {
    View rest = withoutTrailingSlashes(path.text());
    size_t slash = rest.rfind(u'/');
    if (slash == View::npos) return u"";
    return withSingleSlashes(withoutTrailingSlashes(rest.substr(0, slash == 0 ? 1 : slash)));
}

NSString stringByAppendingPathComponent(const NSString& path, const NSString& component) {
    std::u16string joined = path.text();
    if (!joined.empty() && !component.isEmpty()) joined.push_back(u'/');
    joined = withSingleSlashes(joined + component.text());
    return withoutTrailingSlashes(joined);
}

NSString stringByDeletingPathExtension(const NSString& path) {
    const View rest = withoutTrailingSlashes(path.text());
    const size_t length = pathExtension(path).length();
    return withSingleSlashes(length == 0 ? rest : rest.substr(0, rest.size() - length - 1));
}

NSString stringByAppendingPathExtension(const NSString& path, const NSString& extension) {
    if (extension.isEmpty()) return path;
    const View rest = withoutTrailingSlashes(path.text());
    const bool isExtension =
        extension.text().find_first_of(u"/ ") == std::u16string::npos && extension.text().back() != u'.';
    if (rest.empty() || rest == u"/" || !isExtension) return nullptr;
    return withSingleSlashes(rest) + u"." + extension.text();
}

NSArray pathComponents(const NSString& path) {
    const View text = path.text();
    std::vector<NSObject> components;
    if (text.substr(0, 1) == u"/") components.push_back(NSString(u"/"));
    for (size_t at = 0; at < text.size();) {
        const size_t end = std::min(text.find(u'/', at), text.size());
        if (end > at) components.push_back(NSString(text.substr(at, end - at)));
        at = end + 1;
    }
    if (text.size() > 1 && text.back() == u'/') components.push_back(NSString(u"/"));
    return NSArray(std::move(components));
}

NSString NSTemporaryDirectory() {
    const char* folder = getenv("TMPDIR");
    return folder && *folder ? stringWithFileSystemRepresentation(folder) : NSString(u"/tmp");
}
