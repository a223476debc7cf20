// SPDX-License-Identifier: Apache-2.0
//
// The library's exception, which knows where in the source it was raised.
#pragma once

#include "Platform/Foundation/NSException.h"

inline constexpr const char16_t* ZORExceptionLocation = u"ZORExceptionLocation";
inline constexpr const char16_t* ZORAssertionFailedException = u"ZORAssertionFailedException";

class ZORException : public NSException {
public:
    using NSException::NSException;

    // The bare reason, " at ", and the location that the user information holds under ZORExceptionLocation.
    NSString reason() const override;

    // The bare reason.
    NSString zorReason() const { return NSException::reason(); }

    [[noreturn]] void raise() const override;
};
