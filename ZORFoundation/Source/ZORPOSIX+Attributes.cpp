// SPDX-License-Identifier: Apache-2.0
#include "Platform/Foundation/ExtendedAttributes.h"
#include "ZORFoundation/Source/ZORFailure.h"
#include "ZORFoundation/Source/ZORPOSIX.h"

#include <cerrno>
#include <string>

namespace {

constexpr size_t kFirstOffer = 1024; // nearly every value fits

} // namespace

NSData ZORPOSIX::getxattrPath(const char* path, const char* name, int options, NSError* error) {
    constexpr const char* method = "+[ZORPOSIX getxattrPath:name:options:error:]";
    auto failed = [&](unsigned long line, auto build) {
        reportFailure(error, {method, line}, build);
        return NSData();
    };
    if (!path) return failed(101, [] { return zorRequirementFailedError(u"path"); });
    if (!name) return failed(102, [] { return zorRequirementFailedError(u"name"); });

    char first[kFirstOffer];
    ssize_t length = getAttribute(path, name, first, sizeof first, options);
    if (length >= 0) return NSData(std::string(first, size_t(length)));
    int code = platformAttributeErrno(errno);
    if (code == kMissingAttributeCode) {
        fail(error, NSError(NSPOSIXErrorDomain, code, {{NSString(ZORCodeString), NSString(u"getxattr")}}));
        return nullptr;
    }

    auto systemError = [&] { return errorForFunctionCodePath(u"getxattr", code, path); };
    const ssize_t size = getAttribute(path, name, nullptr, 0, options);
    if (size < 0) {
        code = platformAttributeErrno(errno);
        return failed(122, systemError);
    }
    std::string value(size_t(size), '\0');
    length = getAttribute(path, name, value.data(), value.size(), options);
    if (length < 0) {
        code = platformAttributeErrno(errno);
        return failed(130, systemError);
    }
    if (length != size) {
        return failed(135, [&] {
            return errorForFunctionDomainCodePath(u"getxattr", ZORErrorDomain, ZORAttributeSizeChangedError,
                                                  path);
        });
    }
    return NSData(std::move(value));
}

NSData ZORPOSIX::listxattrPath(const char* path, int options, NSError* error) {
    constexpr const char* method = "+[ZORPOSIX listxattrPath:options:error:]";
    auto failed = [&](unsigned long line) {
        const int code = platformAttributeErrno(errno);
        reportFailure(error, {method, line},
                      [&] { return errorForFunctionCodePath(u"listxattr", code, path); });
        return NSData();
    };
    if (!path) {
        reportMissing(error, u"path", {method, 142});
        return nullptr;
    }
    const ssize_t size = listAttributes(path, nullptr, 0, options);
    if (size < 0) return failed(147);
    std::string names(size_t(size), '\0');
    if (size > 0 && listAttributes(path, names.data(), names.size(), options) < 0) return failed(151);
    // A list that has become shorter since keeps its size: readers skip the zeros at its end.
    return NSData(std::move(names));
}

bool ZORPOSIX::removexattrPath(const char* path, const char* name, int options, NSError* error) {
    constexpr const char* method = "+[ZORPOSIX removexattrPath:name:options:error:]";
    if (!path) return reportMissing(error, u"path", {method, 159});
    if (!name) return reportMissing(error, u"name", {method, 160});
    if (removeAttribute(path, name, options) == 0) return true;
    const int code = platformAttributeErrno(errno);
    return reportFailure(error, {method, 163},
                         [&] { return errorForFunctionCodePath(u"removexattr", code, path); });
}

bool ZORPOSIX::setxattrPath(const char* path, const char* name, const void* value, size_t size, int options,
                            NSError* error) {
    constexpr const char* method = "+[ZORPOSIX setxattrPath:name:value:size:options:error:]";
    if (!path) return reportMissing(error, u"path", {method, 172});
    if (!name) return reportMissing(error, u"name", {method, 173});
    if (!value) return reportMissing(error, u"value", {method, 174});
    if (setAttribute(path, name, value, size, options) == 0) return true;
    const int code = platformAttributeErrno(errno);
    return reportFailure(error, {method, 178},
                         [&] { return errorForFunctionCodePath(u"setxattr", code, path); });
}
