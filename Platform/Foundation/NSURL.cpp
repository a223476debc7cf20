// SPDX-License-Identifier: Apache-2.0
#include "Platform/Foundation/NSURL.h"

#include "Platform/Foundation/ASCII.h"
#include "Platform/Foundation/NSPathUtilities.h"
#include "Platform/Foundation/UnicodeText.h"

#include <functional>
#include <string>
#include <sys/stat.h>
#include <unistd.h>
#include <vector>

namespace {

using View = std::u16string_view;

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

// The scheme with its colon, or "".
View schemeOf(View url) {
    if (url.empty() || !isLetter(url[0])) return {};
    for (size_t i = 1; i < url.size(); ++i) {
        if (url[i] == u':') return url.substr(0, i + 1);
        if (!isLetter(url[i]) && !isDigit(url[i]) && url[i] != u'+' && url[i] != u'-' && url[i] != u'.')
            break;
    }
    return {};
}

struct Parts {
    View scheme;    // with colon
    View authority; // with its two slashes
    View path;
    View query; // query and fragment with their marks
};

Parts split(View url) {
    Parts parts;
    parts.scheme = schemeOf(url);
    url.remove_prefix(parts.scheme.size());
    if (url.substr(0, 2) == u"//") {
        size_t end = std::min(url.find_first_of(u"/?#", 2), url.size());
        parts.authority = url.substr(0, end);
        url.remove_prefix(end);
    }
    size_t end = std::min(url.find_first_of(u"?#"), url.size());
    parts.path = url.substr(0, end);
    parts.query = url.substr(end);
    return parts;
}

// Takes "." and ".." out of an absolute path.
std::u16string withoutDots(View path) {
    std::vector<View> kept;
    bool trailing = false;
    for (size_t at = 0; at < path.size();) {
        size_t end = std::min(path.find(u'/', at + 1), path.size());
        View segment = path.substr(at, end - at);
        trailing = segment == u"/." || segment == u"/..";
        if (segment == u"/..") {
            if (!kept.empty()) kept.pop_back();
        } else if (segment != u"/.") {
            kept.push_back(segment);
        }
        at = end;
    }
    std::u16string out;
    for (View segment : kept) out += segment;
    if (trailing) out.push_back(u'/');
    return out;
}

std::u16string resolved(View relative, View base) {
    if (!schemeOf(relative).empty()) return std::u16string(relative);
    Parts r = split(relative), b = split(base);
    std::u16string out(b.scheme);
    if (!r.authority.empty()) return out.append(relative);
    out += b.authority;
    if (r.path.empty()) {
        out += b.path;
        View fragment = b.query.substr(std::min(b.query.find(u'#'), b.query.size()));
        View baseQuery = b.query.substr(0, b.query.size() - fragment.size());
        if (r.query.empty() || r.query[0] == u'#') out += baseQuery;
        return out.append(r.query);
    }
    if (r.path[0] == u'/') return out.append(withoutDots(r.path)).append(r.query);
    std::u16string path(b.path.substr(0, b.path.rfind(u'/') == View::npos ? 0 : b.path.rfind(u'/') + 1));
    if (path.empty() && !b.authority.empty()) path = u"/";
    return out.append(withoutDots(path.append(r.path))).append(r.query);
}

std::string percentEscapedPath(std::string_view bytes) {
    static constexpr std::string_view literal = "!$&'()*+,-./:=@_~";
    static constexpr char digits[] = "0123456789ABCDEF";
    std::string out;
    for (char c : bytes) {
        if (isLetter(c) || isDigit(c) || literal.find(c) != std::string_view::npos) {
            out.push_back(c);
        } else {
            const auto byte = static_cast<unsigned char>(c);
            out.append({'%', digits[byte >> 4], digits[byte & 15]});
        }
    }
    return out;
}

std::string percentDecoded(std::string_view text) {
    std::string out;
    for (size_t i = 0; i < text.size(); ++i) {
        int high = text[i] == '%' && i + 2 < text.size() ? hexDigit(text[i + 1]) : -1;
        int low = high >= 0 ? hexDigit(text[i + 2]) : -1;
        if (low < 0) {
            out.push_back(text[i]);
        } else {
            out.push_back(char(high << 4 | low));
            i += 2;
        }
    }
    return out;
}

} // namespace

NSURL NSURL::URLWithString(const NSString& text, const NSURL& base) {
    return text ? NSURL(new URLBody(text, base)) : NSURL();
}

NSURL NSURL::fileURLWithPath(const NSString& path) {
    std::string bytes = fileSystemRepresentation(path);
    if (bytes.empty() || bytes[0] != '/') {
        char directory[4096];
        bytes = std::string(getcwd(directory, sizeof directory) ? directory : "") + "/" + bytes;
    }
    struct stat info {};
    if (bytes.back() != '/' && stat(bytes.c_str(), &info) == 0 && S_ISDIR(info.st_mode)) bytes.push_back('/');
    return URLWithString(NSString::fromUTF8("file://" + percentEscapedPath(bytes)));
}

NSString NSURL::relativeString() const {
    return body() ? static_cast<const URLBody*>(body())->text : nullptr;
}

NSURL NSURL::baseURL() const { return body() ? static_cast<const URLBody*>(body())->base : NSURL(); }

NSString NSURL::absoluteString() const {
    NSURL base = baseURL();
    return base ? NSString(resolved(relativeString().text(), base.absoluteString().text()))
                : relativeString();
}

bool NSURL::isFileURL() const {
    NSString absolute = absoluteString();
    return schemeOf(absolute.text()) == u"file:";
}

NSString NSURL::path() const {
    if (!body()) return nullptr;
    NSString absolute = absoluteString();
    Parts parts = split(absolute.text());
    if (parts.path.empty() ? parts.authority.empty() : parts.path[0] != u'/' && !parts.scheme.empty())
        return nullptr;
    std::string decoded = percentDecoded(toUTF8(parts.path, LoneSurrogates::byteUnescaped));
    while (decoded.size() > 1 && decoded.back() == '/') decoded.pop_back();
    return stringWithFileSystemRepresentation(decoded);
}
