// SPDX-License-Identifier: Apache-2.0
//
// What a file manager shows of a path.
#pragma once

#include "Platform/Foundation/NSArray.h"
#include "Platform/Foundation/NSString.h"

// The name of the volume that "/" is on, as people are shown it.
inline constexpr const char16_t* kRootVolumeName = u"File System";

// The item's name for people, whether it is there or not. The root has its volume's name; bytes that are no
// text show as U+FFFD.
NSString displayNameAtPath(const NSString& path);

// The components of an existing item's path for people, strings: the path's own. nil for what is not there.
NSArray componentsToDisplayForPath(const NSString& path);
