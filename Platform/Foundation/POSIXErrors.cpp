// SPDX-License-Identifier: Apache-2.0
//
// POSIX errors in the platform's numbers and words. Numbers 1 to 34 but 11 are the same on every Unix; beyond
// them this system and the platform part.
#include "Platform/Foundation/NSError.h"
#include "Platform/Foundation/StringFormat.h"

#include <cerrno>
#include <iterator>

namespace {

struct ErrnoPair {
    int system;
    int platform;
};

constexpr ErrnoPair kErrnoPairs[] = {
    {EAGAIN, 35},       {EDEADLK, 11},          {ENAMETOOLONG, 63},
    {ENOLCK, 77},       {ENOSYS, 78},           {ENOTEMPTY, 66},
    {ELOOP, 62},        {ENOMSG, 91},           {EIDRM, 90},
    {ENOSTR, 99},       {ENODATA, 96},          {ETIME, 101},
    {ENOSR, 98},        {ENOLINK, 97},          {EPROTO, 100},
    {EMULTIHOP, 95},    {EBADMSG, 94},          {EOVERFLOW, 84},
    {EILSEQ, 92},       {EUSERS, 68},           {ENOTSOCK, 38},
    {EDESTADDRREQ, 39}, {EMSGSIZE, 40},         {EPROTOTYPE, 41},
    {ENOPROTOOPT, 42},  {EPROTONOSUPPORT, 43},  {ESOCKTNOSUPPORT, 44},
    {EOPNOTSUPP, 102},  {EPFNOSUPPORT, 46},     {EAFNOSUPPORT, 47},
    {EADDRINUSE, 48},   {EADDRNOTAVAIL, 49},    {ENETDOWN, 50},
    {ENETUNREACH, 51},  {ENETRESET, 52},        {ECONNABORTED, 53},
    {ECONNRESET, 54},   {ENOBUFS, 55},          {EISCONN, 56},
    {ENOTCONN, 57},     {ESHUTDOWN, 58},        {ETOOMANYREFS, 59},
    {ETIMEDOUT, 60},    {ECONNREFUSED, 61},     {EHOSTDOWN, 64},
    {EHOSTUNREACH, 65}, {EALREADY, 37},         {EINPROGRESS, 36},
    {ESTALE, 70},       {EDQUOT, 69},           {ECANCELED, 89},
    {EOWNERDEAD, 105},  {ENOTRECOVERABLE, 104}, {EREMOTE, 71},
};

constexpr int kLastSharedErrno = 34;

constexpr const char16_t* kSentences[] = {
    u"Undefined error: 0",
    u"Operation not permitted",
    u"No such file or directory",
    u"No such process",
    u"Interrupted system call",
    u"Input/output error",
    u"Device not configured",
    u"Argument list too long",
    u"Exec format error",
    u"Bad file descriptor",
    u"No child processes",
    u"Resource deadlock avoided",
    u"Cannot allocate memory",
    u"Permission denied",
    u"Bad address",
    u"Block device required",
    u"Resource busy",
    u"File exists",
    u"Cross-device link",
    u"Operation not supported by device",
    u"Not a directory",
    u"Is a directory",
    u"Invalid argument",
    u"Too many open files in system",
    u"Too many open files",
    u"Inappropriate ioctl for device",
    u"Text file busy",
    u"File too large",
    u"No space left on device",
    u"Illegal seek",
    u"Read-only file system",
    u"Too many links",
    u"Broken pipe",
    u"Numerical argument out of domain",
    u"Result too large",
    u"Resource temporarily unavailable",
    u"Operation now in progress",
    u"Operation already in progress",
    u"Socket operation on non-socket",
    u"Destination address required",
    u"Message too long",
    u"Protocol wrong type for socket",
    u"Protocol not available",
    u"Protocol not supported",
    u"Socket type not supported",
    u"Operation not supported",
    u"Protocol family not supported",
    u"Address family not supported by protocol family",
    u"Address already in use",
    u"Can't assign requested address",
    u"Network is down",
    u"Network is unreachable",
    u"Network dropped connection on reset",
    u"Software caused connection abort",
    u"Connection reset by peer",
    u"No buffer space available",
    u"Socket is already connected",
    u"Socket is not connected",
    u"Can't send after socket shutdown",
    u"Too many references: can't splice",
    u"Operation timed out",
    u"Connection refused",
    u"Too many levels of symbolic links",
    u"File name too long",
    u"Host is down",
    u"No route to host",
    u"Directory not empty",
    u"Too many processes",
    u"Too many users",
    u"Disc quota exceeded",
    u"Stale NFS file handle",
    u"Too many levels of remote in path",
    u"RPC struct is bad",
    u"RPC version wrong",
    u"RPC prog. not avail",
    u"Program version wrong",
    u"Bad procedure for program",
    u"No locks available",
    u"Function not implemented",
    u"Inappropriate file type or format",
    u"Authentication error",
    u"Need authenticator",
    u"Device power is off",
    u"Device error",
    u"Value too large to be stored in data type",
    u"Bad executable (or shared library)",
    u"Bad CPU type in executable",
    u"Shared library version mismatch",
    u"Malformed Mach-o file",
    u"Operation canceled",
    u"Identifier removed",
    u"No message of desired type",
    u"Illegal byte sequence",
    u"Attribute not found",
    u"Bad message",
    u"EMULTIHOP (Reserved)",
    u"No message available on STREAM",
    u"ENOLINK (Reserved)",
    u"No STR resources",
    u"Not a STREAM",
    u"Protocol error",
    u"STREAM ioctl timeout",
    u"Operation not supported on socket",
    u"Policy not found",
    u"State not recoverable",
    u"Previous owner died",
    u"Interface output queue is full",
};

} // namespace

int platformErrno(int systemErrno) {
    for (const ErrnoPair& pair : kErrnoPairs) {
        if (pair.system == systemErrno) return pair.platform;
    }
    // What only this system knows is there as general as this.
    return systemErrno <= kLastSharedErrno ? systemErrno : platformErrno(EIO);
}

NSString platformErrnoSentence(int64_t code) {
    if (code < 0 || code >= int64_t(std::size(kSentences)))
        return stringWithFormat("Unknown error: %ld", code);
    return kSentences[code];
}

NSError NSError::posix(int systemErrno) { return NSError(NSPOSIXErrorDomain, platformErrno(systemErrno)); }
