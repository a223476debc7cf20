// SPDX-License-Identifier: Apache-2.0
//
// Launch Services: what kind of item a file URL names. Links are not followed.
#pragma once

#include "Platform/Foundation/NSURL.h"

#include <cstdint>

using OSStatus = int32_t;

enum : OSStatus {
    noErr = 0,
    fnfErr = -43,           // no such file
    paramErr = -50,         // not the URL of a file
    permErr = -54,          // not permitted to look
    kLSUnknownErr = -10810, // anything else
};

enum : uint32_t { kLSRequestBasicFlagsOnly = 4 };

enum : uint32_t {
    kLSItemInfoIsPlainFile = 0x1,
    kLSItemInfoIsPackage = 0x2,
    kLSItemInfoIsApplication = 0x4,
    kLSItemInfoIsContainer = 0x8,  // a directory
    kLSItemInfoIsAliasFile = 0x10, // any link
    kLSItemInfoIsSymlink = 0x20,
    kLSItemInfoIsVolume = 0x1000,
};

struct LSItemInfoRecord {
    uint32_t flags = 0;
};

// A package is a directory with the extension of one or with a folder "Contents" in it. An application is a
// desktop entry, an AppImage or an "app" package. A volume is a directory that something is mounted on, and
// the root. `info` is set on success only.
OSStatus LSCopyItemInfoForURL(const NSURL& url, uint32_t whichInfo, LSItemInfoRecord* info);
