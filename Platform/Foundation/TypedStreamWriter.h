// SPDX-License-Identifier: Apache-2.0
//
// Writes the primitive layer of a typed stream, little-endian: values in their shortest form, strings and
// objects as references when they were written before.
#pragma once

#include "Platform/Foundation/TypedStream.h"

#include <string>
#include <string_view>
#include <unordered_map>

class TypedStreamWriter {
public:
    // Writes the header.
    TypedStreamWriter();

    // Begins a group; its values follow, by the functions below.
    void group(std::string_view encoding) { sharedString(encoding); }

    void integer(int64_t value);
    void byte(uint8_t value) { out_.push_back(char(value)); }
    void bytes(std::string_view value) { out_ += value; }
    void floating(float value);
    void floating(double value);
    // A length and bytes, never referred to.
    void unsharedString(std::string_view value);
    // As a value of its own, of the type "*".
    void cString(std::string_view value);
    void nil() { head(TypedStream::kNil); }

    // Writes a reference, for an object that was begun before.
    bool reference(const ObjectBody* object);
    // The object, which must outlive the writer, and its class; its groups follow.
    void beginObject(const ObjectBody* object, const TypedStream::Class& objectClass);
    void endObject() { head(TypedStream::kEndOfObject); }

    std::string takeBytes() { return std::move(out_); }

private:
    void head(TypedStream::Head value) { out_.push_back(char(value)); }
    void sharedString(std::string_view value);
    void classChain(const TypedStream::Class& first);
    void number(size_t index) { integer(int64_t(index) + TypedStream::kSmallest); }
    template <class Value>
    void littleEndian(Value value);
    template <class Value>
    void floatingValue(Value value);

    std::string out_;
    std::unordered_map<std::string, size_t> sharedStrings_;
    // Objects, classes and C strings are numbered together.
    size_t objectCount_ = 0;
    std::unordered_map<const void*, size_t> objects_; // and classes
    std::unordered_map<std::string, size_t> cStrings_;
};
