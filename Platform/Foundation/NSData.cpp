// SPDX-License-Identifier: Apache-2.0
#include "Platform/Foundation/NSData.h"

#include "Platform/Foundation/StringFormat.h"

#include <functional>
#include <string>

namespace {

class DataBody final : public ObjectBody {
public:
    explicit DataBody(std::string bytes) : ObjectBody(NSKind::data), bytes(std::move(bytes)) {}

    std::string_view className() const override { return "NSData"; }
    bool isEqual(const ObjectBody& other) const override {
        return bytes == static_cast<const DataBody&>(other).bytes;
    }
    size_t hash() const override { return std::hash<std::string_view>()(bytes); }
    std::u16string description(unsigned) const override;

    const std::string bytes;
};

void appendHex(std::u16string& out, std::string_view bytes, bool grouped) {
    static constexpr char16_t digits[] = u"0123456789abcdef";
    for (size_t i = 0; i < bytes.size(); ++i) {
        if (grouped && i > 0 && i % 4 == 0) out.push_back(u' ');
        auto byte = static_cast<unsigned char>(bytes[i]);
        out.push_back(digits[byte >> 4]);
        out.push_back(digits[byte & 15]);
    }
}

std::u16string DataBody::description(unsigned) const {
    std::u16string out = stringWithFormat("{length = %lu, bytes = 0x", bytes.size()).text();
    std::string_view all = bytes;
    if (all.size() <= 24) {
        appendHex(out, all, false);
    } else {
        appendHex(out, all.substr(0, 16), true);
        out += u" ... ";
        appendHex(out, all.substr(all.size() - 8), true);
        out += u' ';
    }
    out += u'}';
    return out;
}

} // namespace

NSData::NSData(std::string bytes) : NSObject(new DataBody(std::move(bytes))) {}

std::string_view NSData::bytes() const {
    return body() ? std::string_view(static_cast<const DataBody*>(body())->bytes) : std::string_view();
}
