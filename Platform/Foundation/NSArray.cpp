// SPDX-License-Identifier: Apache-2.0
#include "Platform/Foundation/NSArray.h"

#include "Platform/Foundation/ContainerText.h"
#include "Platform/Foundation/NSException.h"
#include "Platform/Foundation/StringFormat.h"

namespace {

class ArrayBody final : public ObjectBody {
public:
    explicit ArrayBody(std::vector<NSObject> objects)
        : ObjectBody(NSKind::array), objects(std::move(objects)) {}

    std::string_view className() const override { return "NSArray"; }
    bool isEqual(const ObjectBody& other) const override {
        return objects == static_cast<const ArrayBody&>(other).objects;
    }
    size_t hash() const override { return objects.size(); }

    std::u16string description(unsigned level) const override {
        std::u16string out = u"(\n";
        for (size_t i = 0; i < objects.size(); ++i) {
            appendIndent(out, level + 1);
            appendElementText(out, objects[i], level);
            out += i + 1 < objects.size() ? u",\n" : u"\n";
        }
        appendIndent(out, level);
        out.push_back(u')');
        return out;
    }

    const std::vector<NSObject> objects;
};

} // namespace

NSArray::NSArray(std::vector<NSObject> objects) {
    for (size_t i = 0; i < objects.size(); ++i) {
        if (objects[i]) continue;
        NSException(
            NSInvalidArgumentException,
            stringWithFormat("*** -[__NSPlaceholderArray initWithObjects:count:]: attempt to insert nil "
                             "object from objects[%lu]",
                             i))
            .raise();
    }
    NSObject::operator=(NSObject(new ArrayBody(std::move(objects))));
}

const std::vector<NSObject>& NSArray::objects() const {
    static const std::vector<NSObject> none;
    return body() ? static_cast<const ArrayBody*>(body())->objects : none;
}

NSObject NSArray::objectAtIndex(size_t index) const {
    if (index >= count()) {
        NSException(NSRangeException,
                    stringWithFormat("*** -[NSArray objectAtIndex:]: index %lu beyond bounds for count %lu",
                                     index, count()))
            .raise();
    }
    return objects()[index];
}
