// SPDX-License-Identifier: Apache-2.0
#include "Platform/Foundation/NSURLProtocol.h"

#include <vector>

namespace {

constexpr size_t kMostClasses = 64;

std::vector<const NSURLProtocol::Class*>& classes() {
    static std::vector<const NSURLProtocol::Class*> registered;
    return registered;
}

} // namespace

bool NSURLProtocol::registerClass(const Class& protocolClass) {
    const bool isComplete = protocolClass.canInitWithRequest && protocolClass.canonicalRequestForRequest &&
                            protocolClass.initWithRequest;
    if (!isComplete || classes().size() >= kMostClasses) return false;
    classes().push_back(&protocolClass);
    return true;
}

void NSURLProtocol::unregisterClass(const Class& protocolClass) { std::erase(classes(), &protocolClass); }

const NSURLProtocol::Class* NSURLProtocol::classForRequest(const NSURLRequest& request) {
    for (auto candidate = classes().rbegin(); candidate != classes().rend(); ++candidate) {
        if ((*candidate)->canInitWithRequest(request)) return *candidate;
    }
    return nullptr;
}
