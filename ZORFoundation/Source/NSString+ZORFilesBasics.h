// SPDX-License-Identifier: Apache-2.0
//
// Paths: whether something is there, its keywords, and the path of a child.
#pragma once

#include "Platform/Foundation/NSArray.h"
#include "Platform/Foundation/NSString.h"
#include "Platform/Foundation/NSURL.h"

// Whether anything is at the path. Links are followed: a dangling link does not exist. A path with U+0000
// raises a character-conversion exception, here and below.
bool zorPathExists(const NSString& path);
bool zorPathExists(const NSURL& url);

// Whether a regular file is there, links followed.
bool zorFileExists(const NSString& path);
bool zorFileExists(const NSURL& url);

// The file's keywords, strings; empty when there are none or no file. Never nil.
NSArray zorSpotlightKeywords(const NSString& path);

// The path with the name appended as one component.
NSString zorChild(const NSString& path, const NSString& name);
