// SPDX-License-Identifier: Apache-2.0
#include "Platform/Foundation/NSException.h"

#include "Platform/Foundation/StringFormat.h"

#include <string>

NSException::NSException(const NSString& name, const NSString& reason, const NSDictionary& userInfo)
    : name_(name), reason_(reason), userInfo_(userInfo) {}

NSException::~NSException() = default;

void NSException::raise() const { throw *this; }

void doesNotRecognizeSelector(const NSObject& receiver, const char* selector) {
    const std::string className(receiver.className());
    NSException(NSInvalidArgumentException,
                stringWithFormat("-[%s %s]: unrecognized selector sent to instance %p", className.c_str(),
                                 selector, static_cast<const void*>(receiver.body())))
        .raise();
}
