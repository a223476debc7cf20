// SPDX-License-Identifier: Apache-2.0
//
// File URLs: what is there, composition, containment, names and paths for people, names not yet taken.
#pragma once

#include "Platform/Foundation/NSError.h"
#include "Platform/Foundation/NSProcessInfo.h"
#include "Platform/Foundation/NSURL.h"

#include <cstddef>
#include <optional>
#include <string>

// Existence: these never fail. ------------------------------------------------------------------------------

// Links are followed, as for paths.
bool zorPathExists(const NSURL& url);
bool zorFileExists(const NSURL& url);
bool zorDirectoryExists(const NSURL& url);
bool zorSymbolicLinkExists(const NSURL& url);
// What Launch Services take the item for.
bool zorPackageExists(const NSURL& url);
bool zorApplicationExists(const NSURL& url);
// Also true for any direct child of "/Volumes", whether or not it is there.
bool zorVolumeExists(const NSURL& url);

// Composition and names. ------------------------------------------------------------------------------------

// A nil name is a programming error: it is reported, and the process stops.
NSURL zorChild(const NSURL& url, const NSString& name);
NSURL zorParent(const NSURL& url);
NSString zorName(const NSURL& url);
NSString zorBasename(const NSURL& url);
NSURL zorBasenameURL(const NSURL& url);
NSString zorPathExtension(const NSURL& url);
NSURL zorWithExtension(const NSURL& url, const NSString& extension);
NSURL zorChangeToExtension(const NSURL& url, const NSString& extension);
// Without regard to case.
bool zorHasExtension(const NSURL& url, const NSString& extension);

// Containment and equality of what the URLs name; nil contains and equals nothing. --------------------------

bool zorContainsFileURL(const NSURL& url, const NSURL& other);
bool zorIsEqualToFileURL(const NSURL& url, const NSURL& other);

// Bytes for the file system. --------------------------------------------------------------------------------

// None for a URL without a path that a file could have. Foundations before 10.9 took the path of any URL.
std::optional<std::string> zorFileSystemRepresentation(const NSURL& url,
                                                       double foundationVersion = NSFoundationVersionNumber);
// NUL-terminated into the buffer; false when it does not fit or there is none.
bool zorGetFileSystemRepresentation(const NSURL& url, char* buffer, size_t maxLength);

namespace NSURLZORFileBasics {

// The URL of a NUL-terminated path, not marked as a directory whatever is there. Null is a programming error.
NSURL zorURLWithFileSystemRepresentation(const char* path);

// The home that the user database has for the real user, whatever the environment says; nil without an entry.
NSURL zorRealHomeDirectoryURL();

} // namespace NSURLZORFileBasics

// For people. -----------------------------------------------------------------------------------------------

// The standardized path, and the URL of it.
NSString zorAbsolutePath(const NSURL& url);
NSURL zorStandardizedFileURL(const NSURL& url);
// The components as a file manager shows them, joined with " ‣ ".
NSString zorDisplayPath(const NSURL& url);
// As a file manager shows the item; the last component for a missing one.
NSString zorDisplayName(const NSURL& url);
// The last component with every ":" shown as "/".
NSString zorDisplayNameWithExtension(const NSURL& url);
// Colon-separated, the volume first.
NSString zorHFSPath(const NSURL& url);

// What the file system says of the item under a resource key. nil and the platform's error when it cannot be
// asked, nil and ZORUnsupportedKeyError when it has no such value.
NSObject zorResourceValueForKey(const NSURL& url, const NSString& key, NSError* error);

// Names not yet taken. --------------------------------------------------------------------------------------

// The URL itself when nothing is there, else the first that is free of "name-1.extension", "name-2.extension"
// and so on, the name cut so that the whole has at most 255 UTF-16 units. Extensions after ".tar" and ".app"
// stay with them; one with a blank is none.
//
// One caller in the process is served at a time. A name is kept for the thread that it was given to until
// that thread asks for another one or ends: other threads get the next number though nothing is there yet, so
// that threads that each create what they are given never meet. Other processes may still take the name.
NSURL zorSimilarNonExistentURL(const NSURL& url);
// The same for the name in another directory, which must exist: if it does not, that is reported, and the
// process stops.
NSURL zorSimilarNonExistentURLInDirectory(const NSURL& url, const NSURL& directory);
