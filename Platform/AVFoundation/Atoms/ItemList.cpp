// SPDX-License-Identifier: Apache-2.0
#include "Platform/AVFoundation/Atoms/ItemList.h"

#include "Platform/AVFoundation/Atoms/AtomText.h"
#include "Platform/Foundation/NSStringEncoding.h"
#include "Platform/Foundation/UnicodeText.h"

#include <algorithm>

namespace {

// The body of a `meta` atom without version and flags, which QuickTime leaves out and others do not.
ByteRange childrenOfMeta(ByteSource& source, ByteRange meta) {
    const bool isPlain = source.bigEndian(meta.begin + 4, 4) == atomType("hdlr");
    return meta.part(isPlain ? 0 : 4);
}

// The names of the keys: version, count, then for each its length, its kind and its name.
std::vector<std::string> readKeys(ByteSource& source, ByteRange body, AtomAllowance& allowance) {
    const std::string bytes = allowance.values.take(source, body);
    MemorySource table(bytes);
    std::vector<std::string> keys;
    for (uint64_t at = 8; at + 8 <= table.size();) {
        const uint64_t length = table.bigEndian(at, 4);
        if (length < 8 || length > table.size() - at) break;
        keys.push_back(table.bytes(at + 8, size_t(length - 8)));
        at += length;
    }
    return keys;
}

bool isPlainText(std::string_view bytes) {
    return !bytes.empty() && isUTF8(bytes) && std::none_of(bytes.begin(), bytes.end(), [](unsigned char c) {
        return c < 0x20 && c != '\t' && c != '\n' && c != '\r';
    });
}

// Keys of the iTunes space that hold text begin with A9, but for one.
bool isTextKey(const std::string& key) { return key[0] == '@' || key == "aART" || key == "cprt"; }

} // namespace

MediaValue valueOfDataAtom(ByteSource& source, ByteRange body, bool isText, AtomAllowance& allowance) {
    constexpr unsigned utf8 = 1, utf16 = 2, shiftJIS = 3, sortingUTF8 = 4, sortingUTF16 = 5;
    const ByteRange content = body.part(8);
    const auto text = [&] { return allowance.values.take(source, content); };
    if (body.length() < 8) return OpaqueValue();
    switch (const uint64_t type = source.bigEndian(body.begin, 4)) {
    case 0: {
        const std::string bytes = isText ? text() : std::string();
        if (isPlainText(bytes)) return textOfUTF8(bytes);
        return OpaqueValue();
    }
    case utf8:
    case sortingUTF8: return textOfUTF8(text());
    case utf16:
    case sortingUTF16: return textOfUTF16(text());
    case shiftJIS: {
        std::u16string out;
        appendDecoded(out, text(), NSShiftJISStringEncoding);
        return out;
    }
    case 21:
    case 22: {
        const unsigned width = unsigned(std::min<uint64_t>(content.length(), 8)), unused = 64 - 8 * width;
        const uint64_t bits = width ? source.bigEndian(content.begin, width) << unused : 0;
        return type == 21 ? int64_t(bits) >> (unused & 63) : int64_t(bits >> (unused & 63));
    }
    default: return OpaqueValue();
    }
}

void readItemList(ByteSource& source, ByteRange meta, AtomAllowance& allowance,
                  std::vector<MediaItem>& items) {
    std::vector<std::string> keys;
    bool hasKeys = false;
    ByteRange list;
    AtomList children(source, childrenOfMeta(source, meta), allowance);
    for (Atom child; children.next(child);) {
        if (child.type == atomType("keys")) {
            keys = readKeys(source, child.body, allowance);
            hasKeys = true;
        } else if (child.type == atomType("ilst")) {
            list = child.body;
        }
    }
    AtomList values(source, list, allowance);
    for (Atom item; values.next(item);) {
        std::string key = keyOfAtomType(item.type);
        if (hasKeys) key = item.type - 1 < keys.size() ? keys[item.type - 1] : std::string();
        if (key.empty() || key == "----") continue;
        AtomList data(source, item.body, allowance);
        for (Atom value; data.next(value);) {
            if (value.type != atomType("data")) continue;
            items.push_back({hasKeys ? MediaKeySpace::quickTimeMetadata : MediaKeySpace::iTunes, key,
                             valueOfDataAtom(source, value.body, hasKeys || isTextKey(key), allowance)});
        }
    }
}
