// SPDX-License-Identifier: Apache-2.0
//
// Extended attributes as the platform's calls have them, over this system's. Paths and names are bytes.
//
// This system keeps the attributes of users in a namespace: "user." is put before a name that is in none of
// its namespaces, and taken away again in lists, which leave out the other namespaces. A name that would come
// out as that of a namespace stays whole in lists, so that every listed name can be asked for.
//
// The calls answer -1 and set errno in this system's numbers. A file system without attributes has none: they
// are missing there, lists are empty, and only setting one fails.
#pragma once

#include <cstddef>
#include <string>
#include <sys/types.h>

// Bits of the options. Others are invalid.
struct AttributeOptions {
    static constexpr int noFollow = 1;         // a link itself, not what it leads to
    static constexpr int create = 2;           // set: fails with EEXIST when the attribute is there
    static constexpr int replace = 4;          // set: fails with ENODATA when it is not
    static constexpr int showCompression = 32; // there are no hidden attributes here: no effect
};

// The value's size; with a buffer the value is put there, ERANGE when it does not fit. ENODATA: there is no
// such attribute.
ssize_t getAttribute(const char* path, const char* name, void* value, size_t size, int options);

// The size of the names, each with its NUL; with a buffer they are put there.
ssize_t listAttributes(const char* path, char* names, size_t size, int options);

int setAttribute(const char* path, const char* name, const void* value, size_t size, int options);
int removeAttribute(const char* path, const char* name, int options);

// The platform's number of a missing attribute.
inline constexpr int kMissingAttributeCode = 93;

// The platform's number for what a call here left in errno: a missing attribute is 93, and what the file
// system does not support is 45, where the numbers of other calls differ.
int platformAttributeErrno(int systemErrno);
