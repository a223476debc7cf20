// SPDX-License-Identifier: Apache-2.0
//
// Reads the primitive layer of a typed stream of either byte order. Nothing in the stream is believed:
// lengths are held against the bytes that are left, references against what was written before. The first
// failure stays: every operation afterwards fails too.
#pragma once

#include "Platform/Foundation/NSObject.h"
#include "Platform/Foundation/NSString.h"
#include "Platform/Foundation/TreeMeasure.h"
#include "Platform/Foundation/TypedStream.h"

#include <string>
#include <string_view>
#include <vector>

class TypedStreamReader {
public:
    // The bytes must outlive the reader and the views that it answers.
    explicit TypedStreamReader(std::string_view bytes) : bytes_(bytes) {}

    bool header();
    // The group of exactly these types.
    bool group(std::string_view encoding);

    // Within the range; unsigned values of 64 bits are read by their bits.
    bool integer(int64_t& value, int64_t smallest, int64_t greatest);
    // A count of things that take at least so many bytes each.
    bool count(size_t& value, size_t bytesEach);
    bool byte(uint8_t& value);
    bool bytes(std::string_view& value, size_t length);
    bool floating(float& value);
    bool floating(double& value);
    bool unsharedString(std::string_view& value);
    // A value of the type "*", which is not nil.
    bool cString(std::string_view& value);

    enum class Next { failure, nil, known, begun };

    // What an object's place holds: nothing; an object that was read before, which is answered with its
    // measure; or one that begins here, of which the number and the class are answered.
    Next object(NSObject& known, TreeMeasure& measure, size_t& number,
                const TypedStream::Class*& objectClass);
    // The end of an object that began; it can be referred to from here on.
    bool endObject(size_t number, const NSObject& object, const TreeMeasure& measure);

    size_t length() const { return bytes_.size(); }
    bool fail(const NSString& what);
    // "<what> at byte <n>", nil when nothing failed.
    const NSString& problem() const { return problem_; }

private:
    // What a number refers to: one of the three. An object that has begun and not ended is none yet.
    struct Entry {
        NSObject object;
        TreeMeasure measure;
        const TypedStream::Class* objectClass = nullptr;
        std::string_view cString;
    };

    bool head(int& value);
    template <class Bits>
    bool plain(Bits& value);
    template <class Value, class Bits>
    bool floatingValue(Value& value);
    bool integerBehind(int head, int64_t& value);
    bool referenceBehind(int head, size_t limit, size_t& number);
    bool sharedString(std::string_view& value);
    bool sharedStringBehind(int head, std::string_view& value);
    bool classChain(const TypedStream::Class*& objectClass);
    const TypedStream::Class* newClass();
    const TypedStream::Class* knownClass(int head);

    const std::string_view bytes_;
    size_t at_ = 0;
    bool isLittleEndian_ = true;
    std::vector<std::string_view> sharedStrings_;
    std::vector<Entry> entries_;
    NSString problem_;
};
