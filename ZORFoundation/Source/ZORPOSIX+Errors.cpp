// SPDX-License-Identifier: Apache-2.0
#include "Platform/Foundation/NSException.h"
#include "ZORFoundation/Source/NSError+ZOR.h"
#include "ZORFoundation/Source/NSURL+ZORFileBasics.h"
#include "ZORFoundation/Source/ZORPOSIX.h"

#include <atomic>

namespace {

std::atomic<ZORPOSIX::PermissionInformation> suppliedPermissionInformation{nullptr};

NSError basicError(const NSString& function, int64_t code) {
    return NSError(NSPOSIXErrorDomain, code, {{NSString(ZORCodeString), function ? function : u""}});
}

NSError withPermissionInformation(const NSURL& url, const NSError& error) {
    const ZORPOSIX::PermissionInformation operation = ZORPOSIX::permissionInformation();
    if (!operation) doesNotRecognizeSelector(url, "zorErrorByAddingPermissionInfoToError:");
    return operation(url, error);
}

NSURL urlOf(const char* path) { return NSURLZORFileBasics::zorURLWithFileSystemRepresentation(path); }

} // namespace

void ZORPOSIX::setPermissionInformation(PermissionInformation operation) {
    suppliedPermissionInformation = operation;
}

ZORPOSIX::PermissionInformation ZORPOSIX::permissionInformation() { return suppliedPermissionInformation; }

NSError ZORPOSIX::errorForFunctionCodeFailingObject(const NSString& function, int64_t code,
                                                    const NSObject& failing) {
    return zorErrorBySettingFailingObject(basicError(function, code), failing);
}

NSError ZORPOSIX::errorForFunctionCodeDescriptor(const NSString& function, int64_t code, int descriptor) {
    const NSError error = basicError(function, code);
    const NSString path = fcntlPathFromDescriptor(descriptor, nullptr);
    return path ? withPermissionInformation(NSURL::fileURLWithPath(path), error) : error;
}

NSError ZORPOSIX::errorForFunctionCodePath(const NSString& function, int64_t code, const char* path) {
    return errorForFunctionCodePathFailingObject(function, code, path, nullptr);
}

NSError ZORPOSIX::errorForFunctionCodePathFailingObject(const NSString& function, int64_t code,
                                                        const char* path, const NSObject& failing) {
    const NSError error = withPermissionInformation(urlOf(path), basicError(function, code));
    return failing ? zorErrorBySettingFailingObject(error, failing) : error;
}

NSError ZORPOSIX::errorForFunctionDomainCodePath(const NSString& function, const NSString& domain,
                                                 int64_t code, const char* path) {
    const NSError error = zorErrorBySettingObject(NSError(domain, code), function, ZORCodeString);
    return withPermissionInformation(urlOf(path), error);
}
