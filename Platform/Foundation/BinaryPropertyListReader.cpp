// SPDX-License-Identifier: Apache-2.0
#include "Platform/Foundation/BinaryPropertyListFormat.h"
#include "Platform/Foundation/NSArray.h"
#include "Platform/Foundation/NSClass.h"
#include "Platform/Foundation/NSData.h"
#include "Platform/Foundation/NSDate.h"
#include "Platform/Foundation/NSDictionary.h"
#include "Platform/Foundation/NSNull.h"
#include "Platform/Foundation/NSNumber.h"
#include "Platform/Foundation/PropertyListFormats.h"
#include "Platform/Foundation/TreeMeasure.h"

#include <algorithm>
#include <bit>
#include <unordered_map>
#include <vector>

using namespace BinaryPropertyList;

namespace {

// Positions are offsets in the whole file. Every operation that fails leaves the list unread.
class BinaryReader {
public:
    explicit BinaryReader(std::string_view bytes) : bytes_(bytes) {}

    NSObject read();

private:
    struct KnownObject {
        NSObject object; // nil while its parts are being read
        TreeMeasure measure;
    };

    // What an object's first byte and count say.
    struct Head {
        unsigned kind = 0, low = 0;
        uint64_t count = 0;
        uint64_t start = 0, contents = 0; // positions
    };

    uint64_t number(uint64_t position, unsigned size) const;
    bool readTrailer();
    bool offsetsAreGood() const;
    bool readHead(uint64_t position, Head& head) const;
    bool readExtendedCount(Head& head) const;
    // Whether the object's `count` items of `size` bytes stand before the table, and the objects so far need
    // not overlap: otherwise a short file could hold any number of long objects.
    bool take(const Head& head, uint64_t count, uint64_t size);

    const KnownObject* object(uint64_t reference, unsigned depth);
    NSObject contents(uint64_t position, unsigned depth, TreeMeasure& measure);
    NSObject simple(const Head& head);
    NSObject integer(const Head& head);
    NSObject real(const Head& head);
    NSObject date(const Head& head);
    NSObject uid(const Head& head);
    NSObject data(const Head& head, TreeMeasure& measure);
    NSObject string(const Head& head, TreeMeasure& measure);
    NSObject array(const Head& head, unsigned depth, TreeMeasure& measure);
    NSObject dictionary(const Head& head, unsigned depth, TreeMeasure& measure);
    const KnownObject* part(const Head& head, uint64_t index, unsigned depth, TreeMeasure& measure);

    const std::string_view bytes_;
    unsigned offsetSize_ = 0, referenceSize_ = 0;
    uint64_t objectCount_ = 0, topObject_ = 0, tableOffset_ = 0;
    uint64_t taken_ = 0;                              // bytes of the objects read so far
    std::unordered_map<uint64_t, KnownObject> known_; // by position
};

uint64_t BinaryReader::number(uint64_t position, unsigned size) const {
    uint64_t value = 0;
    for (unsigned i = 0; i < size; ++i) value = value << 8 | (unsigned char)(bytes_[position + i]);
    return value;
}

// Whether a number of so many bytes can be greater than `value`.
bool exceeds(unsigned size, uint64_t value) { return size >= 8 || uint64_t(1) << (8 * size) > value; }

bool BinaryReader::readTrailer() {
    constexpr size_t magicRead = 7, smallestObject = 1, smallestTable = 1;
    if (bytes_.size() < kMagic.size() + smallestObject + smallestTable + kTrailerSize) return false;
    if (bytes_.substr(0, magicRead) != kMagic.substr(0, magicRead)) return false;
    const uint64_t trailer = bytes_.size() - kTrailerSize;
    offsetSize_ = unsigned(number(trailer + 6, 1));
    referenceSize_ = unsigned(number(trailer + 7, 1));
    objectCount_ = number(trailer + 8, 8);
    topObject_ = number(trailer + 16, 8);
    tableOffset_ = number(trailer + 24, 8);

    if (offsetSize_ < 1 || offsetSize_ > 8 || referenceSize_ < 1 || referenceSize_ > 8) return false;
    if (objectCount_ < 1 || objectCount_ > uint64_t(INT64_MAX) || topObject_ >= objectCount_) return false;
    if (tableOffset_ < kMagic.size() + smallestObject || tableOffset_ >= trailer) return false;
    if (objectCount_ > (trailer - tableOffset_) / offsetSize_) return false;
    if (tableOffset_ + objectCount_ * offsetSize_ != trailer) return false;
    return exceeds(referenceSize_, objectCount_) && exceeds(offsetSize_, tableOffset_) && offsetsAreGood();
}

bool BinaryReader::offsetsAreGood() const {
    for (uint64_t i = 0; i < objectCount_; ++i) {
        const uint64_t offset = number(tableOffset_ + i * offsetSize_, offsetSize_);
        if (offset < kMagic.size() || offset >= tableOffset_) return false;
    }
    return true;
}

bool BinaryReader::readHead(uint64_t position, Head& head) const {
    const unsigned byte = unsigned(number(position, 1));
    head = {byte >> 4, byte & 15, byte & 15, position, position + 1};
    switch (head.kind) {
    case kData:
    case kASCIIString:
    case kUTF16String:
    case kArray:
    case kDictionary: return head.low != kExtendedCount || readExtendedCount(head);
    default: return true;
    }
}

bool BinaryReader::readExtendedCount(Head& head) const {
    if (head.contents >= tableOffset_) return false;
    const unsigned byte = unsigned(number(head.contents, 1));
    const unsigned exponent = byte & 15, size = 1u << exponent;
    if (byte >> 4 != kInteger || exponent > 4 || size > tableOffset_ - head.contents - 1) return false;
    // Of sixteen bytes the upper eight do not count.
    const unsigned used = size < 8 ? size : 8;
    head.contents += 1 + size;
    head.count = number(head.contents - used, used);
    return head.count <= uint64_t(INT64_MAX);
}

bool BinaryReader::take(const Head& head, uint64_t count, uint64_t size) {
    if (count > (tableOffset_ - head.contents) / size) return false;
    taken_ += head.contents + count * size - head.start;
    return taken_ <= tableOffset_ - kMagic.size();
}

NSObject BinaryReader::read() {
    if (!readTrailer()) return {};
    known_.reserve(std::min(objectCount_, tableOffset_));
    const KnownObject* top = object(topObject_, 0);
    return top ? top->object : NSObject();
}

// The object, inside `depth` containers; null when it cannot be read, or holds itself.
const BinaryReader::KnownObject* BinaryReader::object(uint64_t reference, unsigned depth) {
    if (reference >= objectCount_) return nullptr;
    const uint64_t position = number(tableOffset_ + reference * offsetSize_, offsetSize_);
    auto [place, isNew] = known_.try_emplace(position);
    KnownObject& known = place->second; // stays where it is when others come
    if (isNew) known.object = contents(position, depth, known.measure);
    return known.object ? &known : nullptr;
}

NSObject BinaryReader::contents(uint64_t position, unsigned depth, TreeMeasure& measure) {
    Head head;
    if (!readHead(position, head)) return {};
    switch (head.kind) {
    case kSimple: return simple(head);
    case kInteger: return integer(head);
    case kReal: return real(head);
    case kDate: return date(head);
    case kData: return data(head, measure);
    case kASCIIString:
    case kUTF16String: return string(head, measure);
    case kUID: return uid(head);
    case kArray: return array(head, depth, measure);
    case kDictionary: return dictionary(head, depth, measure);
    default: return {}; // sets are no part of property lists
    }
}

NSObject BinaryReader::simple(const Head& head) {
    if (!take(head, 0, 1)) return {};
    if (head.low == kNull) return NSNull::null();
    return head.low == kFalse || head.low == kTrue ? NSNumber::withBool(head.low == kTrue) : NSNumber();
}

NSObject BinaryReader::integer(const Head& head) {
    const unsigned size = 1u << head.low;
    if (head.low > 4 || !take(head, size, 1)) return {};
    if (size <= 8) return NSNumber::withInteger(int64_t(number(head.contents, size)));
    return NSNumber::withUnsignedInteger(number(head.contents + 8, 8));
}

NSObject BinaryReader::real(const Head& head) {
    const unsigned size = 1u << head.low;
    if ((head.low != kReal32 && head.low != kReal64) || !take(head, size, 1)) return {};
    const uint64_t bits = number(head.contents, size);
    return head.low == kReal32 ? NSNumber::withFloat(std::bit_cast<float>(uint32_t(bits)))
                               : NSNumber::withDouble(std::bit_cast<double>(bits));
}

NSObject BinaryReader::date(const Head& head) {
    if (head.low != kReal64 || !take(head, 8, 1)) return {};
    return NSDate(std::bit_cast<double>(number(head.contents, 8)));
}

NSObject BinaryReader::uid(const Head& head) {
    const unsigned size = head.low + 1;
    if (!take(head, size, 1)) return {};
    uint64_t value = 0;
    for (unsigned i = 0; i < size; ++i) {
        value = value << 8 | number(head.contents + i, 1);
        if (value > UINT32_MAX) return {};
    }
    return CFKeyedArchiverUID(uint32_t(value));
}

NSObject BinaryReader::data(const Head& head, TreeMeasure& measure) {
    if (!take(head, head.count, 1)) return {};
    measure = TreeMeasure::leaf(head.count);
    return NSData(std::string(bytes_.substr(head.contents, head.count)));
}

// Bytes that are not ASCII in a string that should be are taken as Latin-1.
NSObject BinaryReader::string(const Head& head, TreeMeasure& measure) {
    const bool isASCII = head.kind == kASCIIString;
    if (!take(head, head.count, isASCII ? 1 : 2)) return {};
    measure = TreeMeasure::leaf(head.count);
    auto* bytes = reinterpret_cast<const unsigned char*>(bytes_.data()) + head.contents;
    if (isASCII) return NSString(std::u16string(bytes, bytes + head.count));
    std::u16string text(head.count, u'\0');
    for (size_t i = 0; i < text.size(); ++i) text[i] = char16_t(bytes[2 * i] << 8 | bytes[2 * i + 1]);
    return NSString(std::move(text));
}

// An object that a container refers to, counted in the container's measure.
const BinaryReader::KnownObject* BinaryReader::part(const Head& head, uint64_t index, unsigned depth,
                                                    TreeMeasure& measure) {
    const uint64_t reference = number(head.contents + index * referenceSize_, referenceSize_);
    const KnownObject* known = object(reference, depth + 1);
    if (!known) return nullptr;
    measure.add(known->measure);
    return measure.fits(bytes_.size(), kPropertyListDepthLimit - depth) ? known : nullptr;
}

NSObject BinaryReader::array(const Head& head, unsigned depth, TreeMeasure& measure) {
    if (depth >= kPropertyListDepthLimit || !take(head, head.count, referenceSize_)) return {};
    measure = TreeMeasure::container();
    std::vector<NSObject> objects;
    objects.reserve(head.count);
    for (uint64_t i = 0; i < head.count; ++i) {
        const KnownObject* element = part(head, i, depth, measure);
        if (!element) return {};
        objects.push_back(element->object);
    }
    return NSArray(std::move(objects));
}

NSObject BinaryReader::dictionary(const Head& head, unsigned depth, TreeMeasure& measure) {
    if (depth >= kPropertyListDepthLimit || !take(head, head.count, 2 * uint64_t(referenceSize_))) return {};
    measure = TreeMeasure::container();
    NSMutableDictionary entries;
    for (uint64_t i = 0; i < head.count; ++i) {
        const KnownObject* key = part(head, i, depth, measure);
        if (!key || !is<NSString>(key->object)) return {};
        const KnownObject* value = part(head, head.count + i, depth, measure);
        if (!value) return {};
        entries.setObject(value->object, key->object);
    }
    return std::move(entries).copy();
}

} // namespace

NSObject readBinaryPropertyList(std::string_view bytes) { return BinaryReader(bytes).read(); }
