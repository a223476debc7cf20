// SPDX-License-Identifier: Apache-2.0
#include "ZORFoundation/Source/ZORFunctions.h"

#include "Platform/Foundation/NSLog.h"
#include "Platform/Foundation/NSPathUtilities.h"
#include "ZORFoundation/Source/ZORException.h"

#include <atomic>

namespace {

std::atomic<ZORLoggingDelegate*> loggingDelegate{nullptr};

} // namespace

NSString ZORFunctions::Location::text() const {
    NSString place =
        stringWithFormat("%@:%lu", lastPathComponent(stringWithFileSystemRepresentation(file)), line);
    NSString method = u"";
    if (object.kind != ZORReceiver::Kind::none && selector) {
        method =
            stringWithFormat("%c%s", object.kind == ZORReceiver::Kind::classObject ? '+' : '-', selector);
    }
    return stringWithFormat("%@ %@", place, method);
}

void ZORFunctions::raise(const Location& location, const NSString& name, const NSDictionary& userInfo,
                         const NSString& reason) {
    NSMutableDictionary info(userInfo);
    info.setObject(location.text(), NSString(ZORExceptionLocation));
    ZORException(name ? name : u"ZORException", reason, std::move(info).copy()).raise();
}

void ZORFunctions::assertionFailed(const Location& location, const NSString& message) {
    logString(stringWithFormat("%@: Assertion Failed: %@", location.text(), message));
    raise(location, ZORAssertionFailedException, nullptr, message);
}

void ZORFunctions::log(const Location& location, const NSString& message) {
    logString(stringWithFormat("%@] %@", location.text(), message));
}

void ZORFunctions::logFunction(const char* function, const NSString& message) {
    logString(stringWithFormat("%s %@", function, message));
}

void ZORFunctions::logString(const NSString& text) {
    if (ZORLoggingDelegate* delegate = loggingDelegate) {
        delegate->logString(text);
    } else {
        NSLog(text);
    }
}

void ZORFunctions::setLoggingDelegate(ZORLoggingDelegate* delegate) { loggingDelegate = delegate; }
