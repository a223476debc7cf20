// SPDX-License-Identifier: Apache-2.0
//
// Errors: the library's own domain and keys, errors that know where in the source they were made, copies with
// one entry more, tests, and texts. Errors are immutable: what sets an entry answers a new error of the same
// domain and code. Nothing here fails: a nil entry is stored as the text "<nil>", or as the null object where
// that is said. Every copy of nil is nil, and nil user information counts as empty. Source files, functions
// and texts of code are UTF-8.
#pragma once

#include "Platform/Foundation/NSClass.h"
#include "Platform/Foundation/NSError.h"
#include "Platform/Foundation/NSException.h"
#include "Platform/Foundation/NSURL.h"

#include <sys/types.h>

inline constexpr const char16_t* ZORErrorDomain = u"ZORErrorDomain";

// Codes of the library's domain.
enum : int64_t {
    ZORExceptionError = 5,
    ZORStringDecodingError = 500, // data are no text in the given encoding
    ZORStringEncodingError = 501, // a text cannot be encoded in the given encoding
    ZORRequirementFailedError = 901,
    ZORUnsupportedKeyError = 1001,
    ZORAttributeSizeChangedError = 1301, // an attribute's value changed while it was read
};

// Keys of the user information.
inline constexpr const char16_t* ZORFile = u"ZORFile"; // of the source
inline constexpr const char16_t* ZORLine = u"ZORLine";
inline constexpr const char16_t* ZORFunction = u"ZORFunction";
inline constexpr const char16_t* ZORCodeString =
    u"ZORCodeString"; // the failing call or test as it is written
inline constexpr const char16_t* ZORFailingObject = u"ZORFailingObject";
inline constexpr const char16_t* ZORExpectedType = u"ZORExpectedType"; // a class
inline constexpr const char16_t* ZORActualType = u"ZORActualType";     // a class, or the null object
inline constexpr const char16_t* ZORArguments = u"ZORArguments";
inline constexpr const char16_t* ZORStackFrames = u"ZORStackFrames"; // strings, the outermost caller first
inline constexpr const char16_t* ZORUnderlyingReason = u"ZORUnderlyingReason";
inline constexpr const char16_t* ZORFailingKey = u"ZORFailingKey"; // the resource key that is not supported
inline constexpr const char16_t* ZORShortFailureReason = u"ZORShortFailureReason";
inline constexpr const char16_t* ZORIsInAppSandbox = u"ZORIsInAppSandbox"; // true, or absent
inline constexpr const char16_t* NSDestinationFilePathErrorKey = u"NSDestinationFilePath";

// New errors. ----------------------------------------------------------------------------------------------

// An error of the library's domain.
NSError ZORError1(int64_t code, const NSDictionary& userInfo);

// An error that knows its place: file, line, function and code text replace what the user information has
// under their keys.
NSError zorErrorWithDomain(const NSString& domain, int64_t code, const char* file, unsigned long line,
                           const char* function, const char* codeString,
                           const NSDictionary& userInfo = nullptr);

// A requirement on arguments or state was not satisfied. The failing object is the requirement's text.
NSError zorRequirementFailedError(const NSString& requirement, const NSDictionary& userInfo = nullptr);

// A URL does not support a resource key.
NSError zorErrorWithUnsupportedKey(const NSString& key, const NSURL& url);

// A file was read but held an object of another class than expected: Cocoa error 259.
NSError zorErrorWithFailingObject(const NSObject& object, const NSClass& expectedClass, const NSURL& url);

// Name, reason and user information of an exception. No stack trace is known here; it prints as "(null)".
NSError zorErrorFromException(const NSException& exception);

// Copies with one entry more. ------------------------------------------------------------------------------

// The others are built on this one. With a nil key the copy is equal to the error.
NSError zorErrorBySettingObject(const NSError& error, const NSObject& object, const NSString& key);

// The mode in octal digits without a leading zero.
NSError zorErrorBySettingMode(const NSError& error, mode_t mode, const NSString& key);

NSError zorErrorBySettingFilePath(const NSError& error, const NSString& path);
// The path of the absolute URL.
NSError zorErrorBySettingFileURL(const NSError& error, const NSURL& url);
// The path in its file-system representation; may be null.
NSError zorErrorBySettingCFilePath(const NSError& error, const char* path);
NSError zorErrorBySettingURL(const NSError& error, const NSURL& url);
// Where a copy or a move was to go.
NSError zorErrorBySettingDestinationFilePath(const NSError& error, const NSString& path);
NSError zorErrorBySettingDescription(const NSError& error, const NSString& text);
NSError zorErrorBySettingRecoverySuggestion(const NSError& error, const NSString& text);
NSError zorErrorBySettingUnderlyingError(const NSError& error, const NSError& underlying);
NSError zorErrorBySettingUnderlyingReason(const NSError& error, const NSObject& reason);
// nil becomes the null object. The second form names the expected class and the object's own as well.
NSError zorErrorBySettingFailingObject(const NSError& error, const NSObject& object);
NSError zorErrorBySettingFailingObject(const NSError& error, const NSObject& object,
                                       const NSClass& expectedClass);
// nil becomes the null object.
NSError zorErrorBySettingArguments(const NSError& error, const NSObject& arguments);

// Puts "FUNCTION (LINE)" before the frames that are there: each level adds its own as the error goes outward.
NSError zorErrorByAddingStackFrame(const NSError& error, const char* function, unsigned long line);

// Tests and texts. -----------------------------------------------------------------------------------------

bool zorHasDomain(const NSError& error, const NSString& domain, int64_t code);

// Whether permissions are, or may be, what failed: Cocoa 513, Cocoa 512 (an unknown failure to write), or
// POSIX 13.
bool zorIsFilePermissionsError(const NSError& error);

// The error with every value that the archiver has no form for replaced by its description, in the errors
// inside it too. Containers stay as they are, whatever they hold.
NSError zorArchivableError(const NSError& error);

// The whole error for logs, underlying errors included: "<NSError Domain=... Code=... UserInfo={...}>".
// Asking for it logs the short form first when the setting "ErrorShortLogging" is on. nil for nil.
NSString zorFullDescription(const NSError& error);
