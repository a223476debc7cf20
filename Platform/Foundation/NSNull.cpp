// SPDX-License-Identifier: Apache-2.0
#include "Platform/Foundation/NSNull.h"

namespace {

class NullBody final : public ObjectBody {
public:
    NullBody() : ObjectBody(NSKind::null) {}

    std::string_view className() const override { return "NSNull"; }
    bool isEqual(const ObjectBody&) const override { return true; }
    std::u16string description(unsigned) const override { return u"<null>"; }
};

} // namespace

NSNull NSNull::null() {
    static const NSNull shared(new NullBody);
    return shared;
}
