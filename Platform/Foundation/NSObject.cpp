// SPDX-License-Identifier: Apache-2.0
#include "Platform/Foundation/NSObject.h"

#include "Platform/Foundation/NSString.h"

NSString NSObject::description() const { return body_ ? NSString(body_->description(0)) : NSString(); }

bool operator==(const NSObject& a, const NSObject& b) {
    if (a.body_ == b.body_) return true;
    if (!a.body_ || !b.body_ || a.body_->kind() != b.body_->kind()) return false;
    return a.body_->isEqual(*b.body_);
}

std::u16string printed(const NSObject& object) {
    return object ? object.body()->description(0) : std::u16string(u"(null)");
}
