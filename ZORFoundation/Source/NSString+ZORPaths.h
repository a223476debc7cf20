// SPDX-License-Identifier: Apache-2.0
//
// Paths as text: composition, containment and names that files can have. Nothing here needs the path to
// exist; only containment and equality look at the disk, where ".." follows a link. Lengths are UTF-16 units.
#pragma once

#include "Platform/Foundation/NSString.h"

#include <cstddef>

namespace NSStringZORPaths {

// The longest name of a file.
constexpr size_t zorMaxFileNameCharacters() { return 255; }
// The longest path, in bytes with the final NUL.
constexpr size_t zorMaxPathLength() { return 1024; }

} // namespace NSStringZORPaths

// The path with the name appended as one component.
NSString zorChild(const NSString& path, const NSString& name);
NSString zorParent(const NSString& path);
// The last component, with and without its extension.
NSString zorName(const NSString& path);
NSString zorBasename(const NSString& path);
// nil where the path or the extension cannot have it, as stringByAppendingPathExtension.
NSString zorWithExtension(const NSString& path, const NSString& extension);

// Whether the other path lies at or below the path, component by component: "/a/b" contains "/a/b/c" but not
// "/a/bc". Both are standardized first. Nothing contains nil.
bool zorPathContainsPath(const NSString& path, const NSString& other);
// Whether the standardized paths are the same. nil is equal to nothing.
bool zorPathIsEqual(const NSString& path, const NSString& other);

// A name for a file: slashes become colons, object replacement characters go.
NSString zorMakeFileNameValid(const NSString& name);
// The same with an extension; an empty or nil one is none. The name is cut at a character so that the whole
// has at most `maxLength` units; the extension is never cut.
NSString zorMakeFileNameValidWithExtension(const NSString& name, const NSString& extension,
                                           size_t maxLength = NSStringZORPaths::zorMaxFileNameCharacters());
// Colons become slashes.
NSString zorMakeFileNameValidForCarbon(const NSString& name);
