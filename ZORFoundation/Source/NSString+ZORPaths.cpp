// SPDX-License-Identifier: Apache-2.0
#include "ZORFoundation/Source/NSString+ZORPaths.h"

#include "Platform/Foundation/NSPathUtilities.h"
#include "ZORFoundation/Source/NSString+ZORTextMunging.h"

#include <algorithm>

namespace {

constexpr char16_t kObjectReplacementCharacter = u'\uFFFC';

NSString replaced(const NSString& name, char16_t from, char16_t to) {
    std::u16string text = name.text();
    std::replace(text.begin(), text.end(), from, to);
    return text;
}

} // namespace

NSString zorChild(const NSString& path, const NSString& name) {
    return stringByAppendingPathComponent(path, name);
}

NSString zorParent(const NSString& path) { return stringByDeletingLastPathComponent(path); }

NSString zorName(const NSString& path) { return lastPathComponent(path); }

NSString zorBasename(const NSString& path) { return stringByDeletingPathExtension(lastPathComponent(path)); }

NSString zorWithExtension(const NSString& path, const NSString& extension) {
    return stringByAppendingPathExtension(path, extension);
}

bool zorPathContainsPath(const NSString& path, const NSString& other) {
    if (!path || !other) return false;
    const NSString container = stringByStandardizingPath(path), candidate = stringByStandardizingPath(other);
    if (container.length() > candidate.length()) return false;
    if (container.isEqualToString(candidate)) return true;
    const NSArray above = pathComponents(container), below = pathComponents(candidate);
    return above.count() < below.count() && std::equal(above.begin(), above.end(), below.begin());
}

bool zorPathIsEqual(const NSString& path, const NSString& other) {
    return stringByStandardizingPath(path).isEqualToString(stringByStandardizingPath(other));
}

NSString zorMakeFileNameValid(const NSString& name) {
    if (!name) return nullptr;
    std::u16string text = replaced(name, u'/', u':').text();
    std::erase(text, kObjectReplacementCharacter);
    return text;
}

NSString zorMakeFileNameValidWithExtension(const NSString& name, const NSString& extension,
                                           size_t maxLength) {
    const NSString suffix = extension.isEmpty() ? NSString(u"") : u"." + extension;
    return zorMakeFileNameValid(zorStringByAddingSuffix(name, suffix, maxLength));
}

NSString zorMakeFileNameValidForCarbon(const NSString& name) {
    return name ? replaced(name, u':', u'/') : NSString();
}
