// SPDX-License-Identifier: Apache-2.0
#include "Platform/Foundation/ASCII.h"
#include "Platform/Foundation/BinaryPropertyListFormat.h"
#include "Platform/Foundation/NSArray.h"
#include "Platform/Foundation/NSClass.h"
#include "Platform/Foundation/NSData.h"
#include "Platform/Foundation/NSDate.h"
#include "Platform/Foundation/NSDictionary.h"
#include "Platform/Foundation/NSNumber.h"
#include "Platform/Foundation/PropertyListFormats.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cstring>
#include <functional>
#include <vector>

using namespace BinaryPropertyList;

namespace {

constexpr size_t kBlock = 2048; // units converted at a time, in the nearest cache

// The smallest of 1, 2, 4 and 8 bytes that holds the value.
unsigned bytesFor(uint64_t value) {
    return value <= UINT8_MAX ? 1 : value <= UINT16_MAX ? 2 : value <= UINT32_MAX ? 4 : 8;
}

void appendBigEndian(std::string& out, uint64_t value, unsigned size) {
    for (unsigned shift = size * 8; shift > 0; shift -= 8) out.push_back(char(value >> (shift - 8)));
}

void appendInteger(std::string& out, uint64_t value, unsigned size) {
    out.push_back(char(kInteger << 4 | std::countr_zero(size)));
    appendBigEndian(out, value, size);
}

void appendCount(std::string& out, Kind kind, uint64_t count) {
    out.push_back(char(kind << 4 | std::min<uint64_t>(count, kExtendedCount)));
    if (count >= kExtendedCount) appendInteger(out, count, bytesFor(count));
}

void appendASCII(std::string& out, std::u16string_view text) {
    std::array<char, kBlock> block;
    for (; !text.empty(); text.remove_prefix(std::min(kBlock, text.size()))) {
        const size_t count = std::min(kBlock, text.size());
        for (size_t i = 0; i < count; ++i) block[i] = char(text[i]);
        out.append(block.data(), count);
    }
}

void appendUTF16(std::string& out, std::u16string_view text) {
    std::array<char16_t, kBlock> block;
    for (; !text.empty(); text.remove_prefix(std::min(kBlock, text.size()))) {
        const size_t count = std::min(kBlock, text.size());
        for (size_t i = 0; i < count; ++i) {
            const char16_t unit = text[i];
            block[i] = std::endian::native == std::endian::big ? unit : char16_t(unit << 8 | unit >> 8);
        }
        out.append(reinterpret_cast<const char*>(block.data()), count * sizeof(char16_t));
    }
}

void appendNumber(std::string& out, const NSNumber& number) {
    const int64_t value = number.integerValue();
    switch (number.type()) {
    case NSNumber::Type::boolean: out.push_back(value ? kTrue : kFalse); return;
    case NSNumber::Type::float32:
        out.push_back(char(kReal << 4 | kReal32));
        return appendBigEndian(out, std::bit_cast<uint32_t>(float(number.doubleValue())), 4);
    case NSNumber::Type::float64:
        out.push_back(char(kReal << 4 | kReal64));
        return appendBigEndian(out, std::bit_cast<uint64_t>(number.doubleValue()), 8);
    case NSNumber::Type::uint64:
        out.push_back(char(kInteger << 4 | 4));
        appendBigEndian(out, 0, 8);
        return appendBigEndian(out, uint64_t(value), 8);
    default: return appendInteger(out, uint64_t(value), value < 0 ? 8 : bytesFor(uint64_t(value)));
    }
}

// The bytes of an object that has a fixed form and few of them.
std::string smallForm(const NSObject& object) {
    std::string form;
    if (is<NSNumber>(object)) {
        appendNumber(form, as<NSNumber>(object));
    } else if (is<NSDate>(object)) {
        form.push_back(char(kDate << 4 | kReal64));
        appendBigEndian(form, std::bit_cast<uint64_t>(as<NSDate>(object).timeIntervalSinceReferenceDate()),
                        8);
    } else {
        const uint32_t value = as<CFKeyedArchiverUID>(object).value();
        form.push_back(char(kUID << 4 | (bytesFor(value) - 1)));
        appendBigEndian(form, value, bytesFor(value));
    }
    return form;
}

constexpr size_t kSpread = 0x9E3779B97F4A7C15; // a product with it differs in its upper bits for near factors

// Equal objects have equal hashes. Of long contents only the ends are looked at.
template <class View>
size_t hashOfEnds(View contents) {
    constexpr size_t sample = 128;
    const std::hash<View> hash;
    size_t value = contents.size() * kSpread + hash(contents.substr(0, sample));
    if (contents.size() > sample) value ^= std::rotl(hash(contents.substr(contents.size() - sample)), 21);
    return value;
}

size_t hashOf(const NSObject& object) {
    switch (object.body()->kind()) {
    case NSKind::string: return hashOfEnds(std::u16string_view(as<NSString>(object).text()));
    case NSKind::data: return hashOfEnds(as<NSData>(object).bytes());
    case NSKind::array:
    case NSKind::dictionary: return std::rotl(reinterpret_cast<size_t>(object.body()) * kSpread, 32);
    default: return std::hash<std::string>()(smallForm(object));
    }
}

// Of so many different objects with one hash the table knows no more: long texts with the same ends would
// otherwise be compared each with each. What it does not know is written again.
constexpr unsigned kNamesakeLimit = 8;

// Whether one object in the file can stand for both.
bool isSame(const NSObject& a, const NSObject& b) {
    if (a.body() == b.body()) return true;
    if (a.body()->kind() != b.body()->kind()) return false;
    switch (a.body()->kind()) {
    case NSKind::string: return as<NSString>(a).text() == as<NSString>(b).text();
    case NSKind::data: return as<NSData>(a).bytes() == as<NSData>(b).bytes();
    case NSKind::array:
    case NSKind::dictionary: return false;
    default: return smallForm(a) == smallForm(b);
    }
}

struct WrittenObject {
    NSObject object;
    size_t hash;
    size_t firstReference = 0; // of a container, in the writer's list of all references
    bool isASCII = false;      // of a string
};

class BinaryWriter {
public:
    std::string write(const NSObject& list);

private:
    // Adds the object, all that it holds and their sizes, unless they are known; answers its number.
    size_t add(const NSObject& object);
    void addContents(size_t number, const NSObject& object);
    // The number of an object, which is the next free one when the object is new.
    size_t numberOf(const NSObject& object, size_t hash);
    void growTable();
    void countUp(uint64_t count, size_t bytesEach);

    void append(const WrittenObject& written);
    void appendReferences(const WrittenObject& written, size_t count);

    std::vector<WrittenObject> objects_;
    std::vector<size_t> references_;
    std::vector<size_t> table_ = std::vector<size_t>(64); // by hash: numbers plus one, 0 where free
    size_t size_ = 0;                                     // of all objects but the references
    unsigned referenceSize_ = 1;
    std::string out_;
};

void BinaryWriter::growTable() {
    table_.assign(table_.size() * 2, 0);
    for (size_t number = 0; number < objects_.size(); ++number) {
        const size_t hash = objects_[number].hash;
        unsigned namesakes = 0;
        size_t place = hash & (table_.size() - 1);
        for (; table_[place] && namesakes < kNamesakeLimit; place = (place + 1) & (table_.size() - 1)) {
            if (objects_[table_[place] - 1].hash == hash) ++namesakes;
        }
        if (!table_[place]) table_[place] = number + 1;
    }
}

size_t BinaryWriter::numberOf(const NSObject& object, size_t hash) {
    if (objects_.size() * 2 >= table_.size()) growTable();
    unsigned namesakes = 0;
    size_t place = hash & (table_.size() - 1);
    for (; table_[place] && namesakes < kNamesakeLimit; place = (place + 1) & (table_.size() - 1)) {
        const WrittenObject& known = objects_[table_[place] - 1];
        if (known.hash != hash) continue;
        if (isSame(known.object, object)) return table_[place] - 1;
        ++namesakes;
    }
    if (!table_[place]) table_[place] = objects_.size() + 1;
    return objects_.size();
}

size_t BinaryWriter::add(const NSObject& object) {
    const size_t hash = hashOf(object), number = numberOf(object, hash);
    if (number < objects_.size()) return number;
    objects_.push_back({object, hash});
    addContents(number, object);
    return number;
}

void BinaryWriter::countUp(uint64_t count, size_t bytesEach) {
    size_ += 1 + count * bytesEach + (count >= kExtendedCount ? 1 + bytesFor(count) : 0);
}

void BinaryWriter::addContents(size_t number, const NSObject& object) {
    switch (object.body()->kind()) {
    case NSKind::string: {
        const std::u16string& text = as<NSString>(object).text();
        objects_[number].isASCII = isASCII(text);
        return countUp(text.size(), objects_[number].isASCII ? 1 : 2);
    }
    case NSKind::data: return countUp(as<NSData>(object).length(), 1);
    case NSKind::array: {
        const NSArray array = as<NSArray>(object);
        const size_t first = objects_[number].firstReference = references_.size();
        references_.resize(first + array.count());
        for (size_t i = 0; i < array.count(); ++i) references_[first + i] = add(array.objects()[i]);
        return countUp(array.count(), 0);
    }
    case NSKind::dictionary: {
        const auto& entries = as<NSDictionary>(object).entries();
        const size_t keys = objects_[number].firstReference = references_.size(),
                     values = keys + entries.size();
        references_.resize(values + entries.size());
        for (size_t i = 0; i < entries.size(); ++i) references_[keys + i] = add(entries[i].first);
        for (size_t i = 0; i < entries.size(); ++i) references_[values + i] = add(entries[i].second);
        return countUp(entries.size(), 0);
    }
    default: size_ += smallForm(object).size();
    }
}

void BinaryWriter::appendReferences(const WrittenObject& written, size_t count) {
    for (size_t i = 0; i < count; ++i) {
        appendBigEndian(out_, references_[written.firstReference + i], referenceSize_);
    }
}

void BinaryWriter::append(const WrittenObject& written) {
    const NSObject& object = written.object;
    switch (object.body()->kind()) {
    case NSKind::string: {
        const std::u16string& text = as<NSString>(object).text();
        appendCount(out_, written.isASCII ? kASCIIString : kUTF16String, text.size());
        return written.isASCII ? appendASCII(out_, text) : appendUTF16(out_, text);
    }
    case NSKind::data: {
        const std::string_view bytes = as<NSData>(object).bytes();
        appendCount(out_, kData, bytes.size());
        out_ += bytes;
        return;
    }
    case NSKind::array: {
        const size_t count = as<NSArray>(object).count();
        appendCount(out_, kArray, count);
        return appendReferences(written, count);
    }
    case NSKind::dictionary: {
        const size_t count = as<NSDictionary>(object).count();
        appendCount(out_, kDictionary, count);
        return appendReferences(written, count * 2);
    }
    default: out_ += smallForm(object);
    }
}

std::string BinaryWriter::write(const NSObject& list) {
    add(list);
    referenceSize_ = bytesFor(objects_.size());
    const size_t tableOffset = kMagic.size() + size_ + references_.size() * referenceSize_;
    const unsigned offsetSize = bytesFor(tableOffset);
    out_.reserve(tableOffset + objects_.size() * offsetSize + kTrailerSize);

    std::vector<size_t> offsets;
    offsets.reserve(objects_.size());
    out_ += kMagic;
    for (const WrittenObject& written : objects_) {
        offsets.push_back(out_.size());
        append(written);
    }
    for (size_t offset : offsets) appendBigEndian(out_, offset, offsetSize);

    out_.append(6, '\0'); // five unused bytes and the sort version
    out_.push_back(char(offsetSize));
    out_.push_back(char(referenceSize_));
    appendBigEndian(out_, objects_.size(), 8);
    appendBigEndian(out_, 0, 8); // the top object
    appendBigEndian(out_, tableOffset, 8);
    return std::move(out_);
}

} // namespace

std::string binaryPropertyList(const NSObject& list) { return BinaryWriter().write(list); }
