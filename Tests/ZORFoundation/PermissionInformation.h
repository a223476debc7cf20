// SPDX-License-Identifier: Apache-2.0
//
// A host's operation that adds a file's permissions to an error, for as long as an object of this lives: it
// sets the URL under "Permissions".
#pragma once

#include "ZORFoundation/Source/NSError+ZOR.h"
#include "ZORFoundation/Source/ZORPOSIX.h"

class SuppliedPermissionInformation {
public:
    SuppliedPermissionInformation() { ZORPOSIX::setPermissionInformation(add); }
    ~SuppliedPermissionInformation() { ZORPOSIX::setPermissionInformation(nullptr); }
    SuppliedPermissionInformation(const SuppliedPermissionInformation&) = delete;
    SuppliedPermissionInformation& operator=(const SuppliedPermissionInformation&) = delete;

private:
    static NSError add(const NSURL& url, const NSError& error) {
        return zorErrorBySettingObject(error, url, u"Permissions");
    }
};
