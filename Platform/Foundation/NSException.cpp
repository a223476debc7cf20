// SPDX-License-Identifier: Apache-2.0
#include "Platform/Foundation/NSException.h"

NSException::NSException(const NSString& name, const NSString& reason, const NSDictionary& userInfo)
    : name_(name), reason_(reason), userInfo_(userInfo) {}

NSException::~NSException() = default;

void NSException::raise() const { throw *this; }
