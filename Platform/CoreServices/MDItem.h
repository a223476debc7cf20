// SPDX-License-Identifier: Apache-2.0
//
// What the file system remembers of a file beside its bytes.
#pragma once

#include "Platform/Foundation/NSObject.h"
#include "Platform/Foundation/NSString.h"

inline constexpr const char16_t* kMDItemKeywords = u"kMDItemKeywords";

class MDItem {
public:
    // An item without attributes when there is no such file.
    static MDItem create(const NSString& path) { return MDItem(path); }

    // nil when the file has no such attribute. Keywords, an array of strings, come from the first source that
    // has any: the platform's own extended attribute as copies keep it (also in the form of a Samba share),
    // the tags of the desktop, the platform's user tags.
    NSObject copyAttribute(const NSString& name) const;

private:
    explicit MDItem(const NSString& path) : path_(path) {}

    NSString path_;
};
