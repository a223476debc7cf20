// SPDX-License-Identifier: Apache-2.0
#include "Platform/Foundation/URLText.h"

#include "Platform/Foundation/ASCII.h"
#include "Platform/Foundation/PercentEscapes.h"
#include "Platform/Foundation/UnicodeText.h"

#include <vector>

namespace {

using View = std::u16string_view;

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

} // namespace

URLParts URLParts::of(View url) {
    URLParts parts;
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

std::u16string resolvedURL(View relative, View base) {
    if (!schemeOf(relative).empty()) return std::u16string(relative);
    const URLParts r = URLParts::of(relative), b = URLParts::of(base);
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

std::string percentEscapedPath(std::string_view bytes) { return percentEscaped(bytes, "!$&'()*+,-./:=@_~"); }

std::string percentDecodedPath(View path) {
    const std::string text = toUTF8(path, LoneSurrogates::byteUnescaped);
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
