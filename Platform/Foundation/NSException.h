// SPDX-License-Identifier: Apache-2.0
//
// Exceptions of the platform: programming errors, and what the platform raises. Thrown and caught by this
// class or one derived from it; every other C++ exception is foreign.
#pragma once

#include "Platform/Foundation/NSDictionary.h"
#include "Platform/Foundation/NSString.h"

inline constexpr const char16_t* NSInternalInconsistencyException = u"NSInternalInconsistencyException";
inline constexpr const char16_t* NSInvalidArgumentException = u"NSInvalidArgumentException";
inline constexpr const char16_t* NSRangeException = u"NSRangeException";
inline constexpr const char16_t* NSGenericException = u"NSGenericException";
inline constexpr const char16_t* NSMallocException = u"NSMallocException";
inline constexpr const char16_t* NSFileHandleOperationException = u"NSFileHandleOperationException";
inline constexpr const char16_t* NSInconsistentArchiveException = u"NSArchiverArchiveInconsistency";

class NSException {
public:
    NSException(const NSString& name, const NSString& reason, const NSDictionary& userInfo = NSDictionary());
    virtual ~NSException();

    const NSString& name() const { return name_; }
    virtual NSString reason() const { return reason_; }
    const NSDictionary& userInfo() const { return userInfo_; }

    [[noreturn]] virtual void raise() const;

private:
    NSString name_, reason_;
    NSDictionary userInfo_;
};

// What the platform does with a message that the receiver's class has no method for: raises an
// invalid-argument exception that names both.
[[noreturn]] void doesNotRecognizeSelector(const NSObject& receiver, const char* selector);
