// SPDX-License-Identifier: Apache-2.0
//
// Any bytes as a path. What is standardized has the form that it is to have, stays as it is when it is
// standardized again, and is the same file by its URL.
#include "Platform/Foundation/NSPathUtilities.h"
#include "Platform/Foundation/NSURL.h"
#include "Platform/Foundation/NSURLPathUtilities.h"

#include <cstdint>
#include <cstdlib>

namespace {

void require(bool holds) {
    if (!holds) abort();
}

void checkForm(const NSString& path) {
    const bool isAbsolute = path.text().substr(0, 1) == u"/";
    const NSArray components = pathComponents(path);
    std::u16string joined;
    for (size_t i = 0; i < components.count(); ++i) {
        const std::u16string& component = as<NSString>(components.objectAtIndex(i)).text();
        if (isAbsolute && i == 0) continue;
        require(component != u"/" && !(isAbsolute && component == u".."));
        // The only dot that stays is the one of nothing else, or before what would be a home.
        if (component == u".") require(i == 0 && (components.count() == 1 || path.text()[2] == u'~'));
        joined += u"/" + component;
    }
    if (!isAbsolute && !joined.empty()) joined.erase(0, 1);
    require(path.text() == (isAbsolute && joined.empty() ? u"/" : joined));
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    const std::string_view bytes(reinterpret_cast<const char*>(data), size);
    const NSString path = stringWithFileSystemRepresentation(bytes);
    const NSString standardized = stringByStandardizingPath(path);
    checkForm(standardized);
    require(stringByStandardizingPath(standardized).isEqualToString(standardized));
    if (bytes.find('\0') != std::string_view::npos || standardized.text().substr(0, 1) != u"/") return 0;
    const NSURL url = NSURL::fileURLWithPath(standardized);
    require(fileSystemRepresentation(url) == fileSystemRepresentation(standardized));
    require(URLByStandardizingPath(url) == url);
    return 0;
}
