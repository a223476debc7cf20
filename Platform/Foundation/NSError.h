// SPDX-License-Identifier: Apache-2.0
//
// An error as a value: a domain, a code in it and user information. Fallible operations take an optional
// `NSError*` last and set it when, and only when, they fail.
#pragma once

#include "Platform/Foundation/NSDictionary.h"
#include "Platform/Foundation/NSObject.h"
#include "Platform/Foundation/NSString.h"

inline constexpr const char16_t* NSCocoaErrorDomain = u"NSCocoaErrorDomain";
inline constexpr const char16_t* NSPOSIXErrorDomain = u"NSPOSIXErrorDomain";
inline constexpr const char16_t* NSURLErrorDomain = u"NSURLErrorDomain";
inline constexpr const char16_t* NSOSStatusErrorDomain = u"NSOSStatusErrorDomain";
inline constexpr const char16_t* NSMachErrorDomain = u"NSMachErrorDomain";

inline constexpr const char16_t* NSLocalizedDescriptionKey = u"NSLocalizedDescription";
inline constexpr const char16_t* NSLocalizedFailureErrorKey = u"NSLocalizedFailure";
inline constexpr const char16_t* NSLocalizedFailureReasonErrorKey = u"NSLocalizedFailureReason";
inline constexpr const char16_t* NSLocalizedRecoverySuggestionErrorKey = u"NSLocalizedRecoverySuggestion";
inline constexpr const char16_t* NSDebugDescriptionErrorKey = u"NSDebugDescription";
inline constexpr const char16_t* NSFilePathErrorKey = u"NSFilePath";
inline constexpr const char16_t* NSURLErrorKey = u"NSURL";
inline constexpr const char16_t* NSUnderlyingErrorKey = u"NSUnderlyingError";
inline constexpr const char16_t* NSURLErrorFailingURLStringErrorKey = u"NSErrorFailingURLStringKey";

// Codes of the Cocoa domain.
enum : int64_t {
    NSFileNoSuchFileError = 4,
    NSFileReadUnknownError = 256,
    NSFileReadNoPermissionError = 257,
    NSFileReadInvalidFileNameError = 258,
    NSFileReadCorruptFileError = 259,
    NSFileReadNoSuchFileError = 260,
    NSFileReadUnsupportedSchemeError = 262,
    NSFileReadTooLargeError = 263,
    NSFileWriteUnknownError = 512,
    NSFileWriteNoPermissionError = 513,
    NSFileWriteInvalidFileNameError = 514,
    NSFileWriteFileExistsError = 516,
    NSFileWriteUnsupportedSchemeError = 518,
    NSFileWriteOutOfSpaceError = 640,
    NSFileWriteVolumeReadOnlyError = 642,
    NSExecutableLoadError = 3587,
    NSPropertyListReadCorruptError = 3840,
    NSPropertyListWriteStreamError = 3851,
    NSPropertyListWriteInvalidError = 3852,
    NSTextReadInapplicableDocumentTypeError = 65806,
};

// Codes of the URL domain.
enum : int64_t {
    NSURLErrorCancelled = -999,
    NSURLErrorUnsupportedURL = -1002,
    NSURLErrorCannotConnectToHost = -1004,
    NSURLErrorHTTPTooManyRedirects = -1007,
    NSURLErrorResourceUnavailable = -1008,
    NSURLErrorUserAuthenticationRequired = -1013,
};

class NSError : public NSObject {
public:
    static constexpr NSKind kKind = NSKind::error;

    NSError() = default;
    NSError(std::nullptr_t) {}
    // nil user information counts as empty.
    NSError(const NSString& domain, int64_t code, const NSDictionary& userInfo = NSDictionary());
    explicit NSError(const ObjectBody* body) : NSObject(body) {}

    // The error of a failed system call, in the platform's numbers, which differ from this system's in
    // places.
    static NSError posix(int systemErrno);

    NSString domain() const;
    int64_t code() const;
    NSDictionary userInfo() const;

    // For people: the user information's text, else the domain's own sentence. nil for nil.
    NSString localizedDescription() const;
    // nil when nothing is known.
    NSString localizedFailureReason() const;
    NSString localizedRecoverySuggestion() const;
};

// The platform's number for an error number of this system.
int platformErrno(int systemErrno);

// The platform's sentence for one of its POSIX codes, "Unknown error: N" for others.
NSString platformErrnoSentence(int64_t code);

// Sets an error out-parameter that may be null; answers false, for `return fail(error, ...)`.
inline bool fail(NSError* out, const NSError& error) {
    if (out) *out = error;
    return false;
}
