// SPDX-License-Identifier: Apache-2.0
//
// Raising, asserting and logging with the place in the source. All library logging ends in logString.
#pragma once

#include "Platform/Foundation/NSDictionary.h"
#include "Platform/Foundation/NSString.h"
#include "Platform/Foundation/StringFormat.h"

#include <string_view>

// The receiver of the method that reports, as far as its text goes.
struct ZORReceiver {
    enum class Kind { none, instance, classObject };
    Kind kind = Kind::none;
};

// Takes the library's log lines instead of the system log. Whoever sets one keeps it alive.
class ZORLoggingDelegate {
public:
    virtual ~ZORLoggingDelegate() = default;
    virtual void logString(const NSString& text) = 0;
};

// A method's name as a value, for stringFromPointer.
struct ZORSelector {
    const char* name;
};

namespace ZORFunctions {

// Where something happened: file, line, and the method when both receiver and selector are known. Paths and
// selectors are UTF-8; a null selector is none.
struct Location {
    const char* file;
    unsigned long line;
    ZORReceiver object;
    const char* selector = nullptr;

    // "File.cpp:21 -selector", "File.cpp:21 +selector" or "File.cpp:21 ".
    NSString text() const;
};

// Raises a ZORException of the name, or of "ZORException" when it is nil. The location joins the user
// information.
[[noreturn]] void raise(const Location& location, const NSString& name, const NSDictionary& userInfo,
                        const NSString& reason);

// Logs "LOCATION: Assertion Failed: MESSAGE", then raises "ZORAssertionFailedException".
[[noreturn]] void assertionFailed(const Location& location, const NSString& message);

void log(const Location& location, const NSString& message);
void logFunction(const char* function, const NSString& message);

// To the delegate, or else to the system log.
void logString(const NSString& text);

// nullptr returns to the system log. Set it before other threads run.
void setLoggingDelegate(ZORLoggingDelegate* delegate);

template <class... Arguments>
[[noreturn]] void raiseFile(const char* file, unsigned long line, ZORReceiver object, const char* selector,
                            const NSString& name, const NSDictionary& userInfo, std::string_view format,
                            const Arguments&... arguments) {
    raise({file, line, object, selector}, name, userInfo, stringWithFormat(format, arguments...));
}

template <class... Arguments>
[[noreturn]] void assertionFailedForFile(const char* file, unsigned long line, ZORReceiver object,
                                         const char* selector, std::string_view format,
                                         const Arguments&... arguments) {
    assertionFailed({file, line, object, selector}, stringWithFormat(format, arguments...));
}

template <class... Arguments>
void logFile(const char* file, unsigned long line, ZORReceiver object, const char* selector,
             std::string_view format, const Arguments&... arguments) {
    log({file, line, object, selector}, stringWithFormat(format, arguments...));
}

template <class... Arguments>
void logFunction(const char* function, std::string_view format, const Arguments&... arguments) {
    logFunction(function, stringWithFormat(format, arguments...));
}

// The value that `pointer` points to as text. Raises an assertion failure for an encoding that is not known.
NSString stringFromPointer(const void* pointer, const char* typeEncoding);

} // namespace ZORFunctions
