// SPDX-License-Identifier: Apache-2.0
#include "Tests/Support/MediaWriter.h"

#include <algorithm>

std::string bigEndian(uint64_t number, unsigned width) {
    std::string bytes;
    for (unsigned i = width; i-- > 0;) bytes.push_back(char(number >> 8 * i));
    return bytes;
}

std::string littleEndian(uint64_t number, unsigned width) {
    std::string bytes;
    for (unsigned i = 0; i < width; ++i) bytes.push_back(char(number >> 8 * i));
    return bytes;
}

std::string utf16BigEndian(std::u16string_view text) {
    std::string bytes;
    for (char16_t unit : text) bytes += bigEndian(unit, 2);
    return bytes;
}

std::string atom(std::string_view type, std::string_view body) {
    std::string name(type);
    std::replace(name.begin(), name.end(), '@', '\xA9');
    return bigEndian(8 + body.size(), 4) + name + std::string(body);
}

std::string dataAtom(unsigned type, std::string_view value) {
    return atom("data", bigEndian(type, 4) + bigEndian(0, 4) + std::string(value));
}

namespace {

std::string handler(std::string_view type) {
    return atom("hdlr", bigEndian(0, 8) + std::string(type) + std::string(13, '\0'));
}

} // namespace

std::string itemList(std::string_view items, bool isFull) {
    return atom("meta", std::string(isFull ? 4 : 0, '\0') + handler("mdir") + atom("ilst", items));
}

std::string keyedItemList(const std::vector<std::pair<std::string, std::string>>& items) {
    std::string keys, values;
    unsigned index = 0;
    for (const auto& [key, data] : items) {
        keys += atom("mdta", key);
        const std::string value = bigEndian(8 + data.size(), 4) + bigEndian(++index, 4) + data;
        values += value;
    }
    return atom("meta", handler("mdta") + atom("keys", bigEndian(0, 4) + bigEndian(items.size(), 4) + keys) +
                            atom("ilst", values));
}

std::string languageText(unsigned language, std::string_view text) {
    return bigEndian(text.size(), 2) + bigEndian(language, 2) + std::string(text);
}

std::string isoText(std::string_view type, std::string_view text) {
    return atom(type, bigEndian(0, 4) + bigEndian(0x15C7, 2) + std::string(text) + '\0');
}

std::string movieFile(std::string_view atoms, std::string_view brand) {
    return atom("ftyp", std::string(brand) + bigEndian(0, 4)) + atom("mdat", "sound") + atom("moov", atoms);
}

std::string syncsafe(uint64_t number) {
    std::string bytes;
    for (int shift = 21; shift >= 0; shift -= 7) bytes.push_back(char(number >> shift & 0x7F));
    return bytes;
}

std::string id3Frame(std::string_view identifier, std::string_view body, unsigned flags, unsigned version) {
    const std::string name(identifier), content(body);
    if (version == 2) return name + bigEndian(body.size(), 3) + content;
    return name + (version == 4 ? syncsafe(body.size()) : bigEndian(body.size(), 4)) + bigEndian(flags, 2) +
           content;
}

std::string id3Tag(unsigned version, std::string_view frames, unsigned flags) {
    return "ID3" + bigEndian(version, 1) + bigEndian(0, 1) + bigEndian(flags, 1) + syncsafe(frames.size()) +
           std::string(frames);
}

std::string riffChunk(std::string_view name, std::string_view body) {
    return std::string(name) + littleEndian(body.size(), 4) + std::string(body) +
           std::string(body.size() & 1, '\0');
}

std::string aiffChunk(std::string_view name, std::string_view body) {
    return std::string(name) + bigEndian(body.size(), 4) + std::string(body) +
           std::string(body.size() & 1, '\0');
}

std::string vorbisComment(std::initializer_list<std::string_view> fields) {
    std::string comment = littleEndian(4, 4) + "test" + littleEndian(fields.size(), 4);
    for (std::string_view field : fields) comment += littleEndian(field.size(), 4) + std::string(field);
    return comment;
}

std::string oggPage(uint32_t stream, unsigned flags, std::initializer_list<std::string_view> packets) {
    std::string lengths, content;
    for (std::string_view packet : packets) {
        lengths += std::string(packet.size() / 255, '\xFF') + char(packet.size() % 255);
        content += packet;
    }
    return std::string("OggS\0", 5) + char(flags) + std::string(8, '\0') + littleEndian(stream, 4) +
           std::string(8, '\0') + char(lengths.size()) + lengths + content;
}

std::string element(uint32_t identifier, std::string_view body) {
    const unsigned width = identifier > 0xFFFFFF ? 4 : identifier > 0xFFFF ? 3 : identifier > 0xFF ? 2 : 1;
    const std::string length =
        body.size() < 0x7F ? bigEndian(0x80 | body.size(), 1) : bigEndian(1, 1) + bigEndian(body.size(), 7);
    return bigEndian(identifier, width) + length + std::string(body);
}
