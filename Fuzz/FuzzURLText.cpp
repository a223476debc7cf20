// SPDX-License-Identifier: Apache-2.0
//
// URLs: the input is UTF-8, the first line a URL and the second its base.
#include "Platform/Foundation/NSURLPathUtilities.h"
#include "Platform/Foundation/URLText.h"
#include "Platform/Foundation/UnicodeText.h"

#include <cstdlib>

namespace {

void require(bool condition) {
    if (!condition) std::abort();
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    const std::string_view bytes(reinterpret_cast<const char*>(data), size);
    const size_t end = bytes.find('\n');
    const std::u16string text = fromUTF8(bytes.substr(0, end), Malformed::byteEscaped);
    const std::u16string base =
        fromUTF8(bytes.substr(end == bytes.npos ? size : end + 1), Malformed::byteEscaped);

    const URLParts parts = URLParts::of(text);
    std::u16string joined;
    for (std::u16string_view part : {parts.scheme, parts.authority, parts.path, parts.query}) joined += part;
    require(joined == text);

    // What has a scheme stands alone; all else has its base's.
    const std::u16string resolved = resolvedURL(text, base);
    const bool hasScheme = !URLParts::of(base).scheme.empty();
    if (hasScheme)
        require(URLParts::of(resolved).scheme == URLParts::of(parts.scheme.empty() ? base : text).scheme);
    require(parts.scheme.empty() || resolved == text);
    require(percentDecodedPath(fromUTF8(percentEscapedPath(bytes))) == bytes);

    const NSURL url = NSURL::URLWithString(NSString(text), NSURL::URLWithString(NSString(base)));
    require(url.absoluteString().isEqualToString(NSString(resolved)));
    // Changes of the path leave what stands around it.
    for (const NSURL& changed : {URLByDeletingPathExtension(url), URLByAppendingPathExtension(url, u"txt"),
                                 URLByStandardizingPath(url)}) {
        const NSString whole = changed.absoluteString();
        require(parts.scheme.empty() || URLParts::of(whole.text()).scheme == parts.scheme);
    }
    if (!url.isFileURL() || !url.path()) return 0;
    require(lastPathComponent(URLByAppendingPathComponent(url, u"a ?#%")).isEqualToString(u"a ?#%"));
    if (const auto file = fileSystemRepresentation(url)) require(file->find('\0') == file->npos);
    return 0;
}
