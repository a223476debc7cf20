// SPDX-License-Identifier: Apache-2.0
//
// Single POSIX calls in the library's error convention, and the errors of failed calls. Paths and names are
// NUL-terminated file-system representations. Stateless but for setPermissionInformation; safe on any thread.
//
// A wrapper makes its call once and answers false or nil when it fails. With a null slot nothing is built;
// otherwise the error names the failed function (ZORCodeString) in the POSIX domain, with the platform's
// number and the wrapper's stack frame. A required argument that is null is ZORRequirementFailedError with
// the argument's name.
//
// An error about a file is to be enriched with the file's permissions by an operation of its URL that the
// library does not have. As long as the host supplies none, sending the URL that message raises the
// platform's exception for an unrecognized selector: a failure about a path then raises instead of being
// reported.
#pragma once

#include "Platform/Foundation/NSData.h"
#include "Platform/Foundation/NSError.h"
#include "Platform/Foundation/NSURL.h"

#include <cstddef>
#include <cstdint>
#include <sys/types.h>

struct stat;
struct statfs;

namespace ZORPOSIX {

// Wrappers. -------------------------------------------------------------------------------------------------

// Cocoa error 259 unless the mode is that of a regular file.
bool checkURL(const NSURL& url, mode_t mode, NSError* error);
// The failing object is the mode in octal digits.
bool chmodPath(const char* path, uint16_t mode, NSError* error);
bool closeDescriptor(int descriptor, NSError* error);
// The descriptor, or -1, is stored in `fd`. A file that the flags let come into being has no permissions.
bool openPath(const char* path, int oflag, int* fd, NSError* error);
bool fcntlDescriptor(int descriptor, int command, int value, NSError* error);
// Knows the platform's F_GETPATH too.
bool fcntlDescriptor(int descriptor, int command, void* buffer, NSError* error);
// The path of an open file. The failing object is the descriptor.
NSString fcntlPathFromDescriptor(int descriptor, NSError* error);
// The user's name. The failing object is the identifier; the code is 0 when there is just no such user.
NSString getpwuidNameFromUID(uid_t uid, NSError* error);
bool statfsPath(const char* path, struct statfs* statfsbuf, NSError* error);
// Follows links.
bool statPath(const char* path, struct stat* statbuf, NSError* error);

// Extended attributes; the options are AttributeOptions. ----------------------------------------------------

// The whole value. A missing attribute is POSIX 93 with nothing but the function's name: no path is looked at
// and no frame added, so that callers can tell it from a failure.
NSData getxattrPath(const char* path, const char* name, int options, NSError* error);
// The names, each with its NUL; empty, not nil, when there are none.
NSData listxattrPath(const char* path, int options, NSError* error);
bool removexattrPath(const char* path, const char* name, int options, NSError* error);
bool setxattrPath(const char* path, const char* name, const void* value, size_t size, int options,
                  NSError* error);

// Errors of failed calls, without a stack frame. Codes are the platform's numbers; a nil function is "",
// but for the last one, which makes it "<nil>". -------------------------------------------------------------

// nil becomes the null object.
NSError errorForFunctionCodeFailingObject(const NSString& function, int64_t code, const NSObject& failing);
// About the descriptor's file, if it has one.
NSError errorForFunctionCodeDescriptor(const NSString& function, int64_t code, int descriptor);
NSError errorForFunctionCodePath(const NSString& function, int64_t code, const char* path);
NSError errorForFunctionCodePathFailingObject(const NSString& function, int64_t code, const char* path,
                                              const NSObject& failing);
NSError errorForFunctionDomainCodePath(const NSString& function, const NSString& domain, int64_t code,
                                       const char* path);

// The operation that adds a file's permissions to an error about it; nullptr for none, as at the start. Set
// it before other threads run.
using PermissionInformation = NSError (*)(const NSURL& url, const NSError& error);
void setPermissionInformation(PermissionInformation operation);
PermissionInformation permissionInformation();

} // namespace ZORPOSIX
