// SPDX-License-Identifier: Apache-2.0
#include "Platform/Foundation/NSError.h"

#include "Platform/Foundation/CocoaSentences.h"
#include "Platform/Foundation/StringFormat.h"

#include <functional>

namespace {

NSString stringIn(const NSDictionary& userInfo, const char16_t* key) {
    return userInfo.get<NSString>(NSString(key));
}

class ErrorBody final : public ObjectBody {
public:
    ErrorBody(const NSString& domain, int64_t code, const NSDictionary& userInfo)
        : ObjectBody(NSKind::error), domain(domain), code(code), userInfo(userInfo) {}

    std::string_view className() const override { return "NSError"; }
    bool isEqual(const ObjectBody& object) const override {
        const auto& other = static_cast<const ErrorBody&>(object);
        return code == other.code && domain == other.domain && userInfo == other.userInfo;
    }
    size_t hash() const override { return std::hash<int64_t>()(code) ^ domain.hash(); }

    std::u16string description(unsigned) const override;

    NSString knownDescription() const;
    NSString failureReason() const;

    const NSString domain;
    const int64_t code;
    const NSDictionary userInfo; // never nil
};

// What the user information or the domain says outright, without the general sentence around a reason.
NSString ErrorBody::knownDescription() const {
    if (NSString text = stringIn(userInfo, NSLocalizedDescriptionKey)) return text;
    if (NSString failure = stringIn(userInfo, NSLocalizedFailureErrorKey)) {
        NSString reason = failureReason();
        return reason ? failure + u" " + reason : failure;
    }
    return domain == NSString(NSCocoaErrorDomain) ? cocoaDescription(code, userInfo) : nullptr;
}

NSString ErrorBody::failureReason() const {
    if (NSString reason = stringIn(userInfo, NSLocalizedFailureReasonErrorKey)) return reason;
    if (domain == NSString(NSCocoaErrorDomain)) return cocoaFailureReason(code);
    if (domain == NSString(NSPOSIXErrorDomain)) return platformErrnoSentence(code);
    return nullptr;
}

std::u16string ErrorBody::description(unsigned) const {
    NSString text = stringIn(userInfo, NSLocalizedDescriptionKey);
    if (!text) text = stringIn(userInfo, NSDebugDescriptionErrorKey);
    if (!text) text = knownDescription();
    if (!text && domain == NSString(NSPOSIXErrorDomain)) text = platformErrnoSentence(code);
    std::u16string out = stringWithFormat("Error Domain=%@ Code=%ld \"%@\"", domain, code, text).text();
    if (userInfo.count() == 0) return out;
    const char16_t* separator = u" UserInfo={";
    for (const auto& [key, value] : userInfo) {
        out += separator;
        separator = u", ";
        if (is<NSError>(value)) {
            out += stringWithFormat("%@=%p {%@}", key, static_cast<const void*>(value.body()), value).text();
        } else {
            out += stringWithFormat("%@=%@", key, value).text();
        }
    }
    out.push_back(u'}');
    return out;
}

const ErrorBody* bodyOf(const NSError& error) { return static_cast<const ErrorBody*>(error.body()); }

// The domain's name inside the general sentence.
NSString shortDomain(const NSString& domain) {
    if (domain == NSString(NSCocoaErrorDomain)) return u"Cocoa";
    if (domain == NSString(NSPOSIXErrorDomain)) return u"POSIX";
    if (domain == NSString(NSOSStatusErrorDomain)) return u"OSStatus";
    if (domain == NSString(NSMachErrorDomain)) return u"Mach";
    return domain;
}

} // namespace

NSError::NSError(const NSString& domain, int64_t code, const NSDictionary& userInfo)
    : NSObject(new ErrorBody(domain, code, userInfo ? userInfo : NSDictionary::dictionary())) {}

NSString NSError::domain() const { return body() ? bodyOf(*this)->domain : nullptr; }
int64_t NSError::code() const { return body() ? bodyOf(*this)->code : 0; }
NSDictionary NSError::userInfo() const { return body() ? bodyOf(*this)->userInfo : nullptr; }

NSString NSError::localizedDescription() const {
    if (!body()) return nullptr;
    if (NSString known = bodyOf(*this)->knownDescription()) return known;
    if (NSString reason = localizedFailureReason()) {
        return stringWithFormat("The operation couldn’t be completed. %@", reason);
    }
    NSString domainName = shortDomain(domain());
    if (NSString text = stringIn(userInfo(), u"NSDescription")) {
        return stringWithFormat("The operation couldn’t be completed. (%@ error %ld - %@)", domainName,
                                code(), text);
    }
    return stringWithFormat("The operation couldn’t be completed. (%@ error %ld.)", domainName, code());
}

NSString NSError::localizedFailureReason() const { return body() ? bodyOf(*this)->failureReason() : nullptr; }

NSString NSError::localizedRecoverySuggestion() const {
    return stringIn(userInfo(), NSLocalizedRecoverySuggestionErrorKey);
}
