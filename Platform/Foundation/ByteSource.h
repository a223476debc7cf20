// SPDX-License-Identifier: Apache-2.0
//
// Bytes at offsets, from a file or from memory. Readers of large files ask for the few bytes that they need;
// the file is never read whole.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

class ByteSource {
public:
    virtual ~ByteSource() = default;
    ByteSource() = default;
    ByteSource(const ByteSource&) = delete;
    ByteSource& operator=(const ByteSource&) = delete;

    virtual uint64_t size() const = 0;

    // Copies up to `length` bytes from `offset` on to `to` and answers how many there were.
    virtual size_t copy(uint64_t offset, char* to, size_t length) = 0;

    // The bytes, fewer at the end of the source.
    std::string bytes(uint64_t offset, size_t length);

    // A number with its most or its least significant byte first, of 1 to 8 bytes; 0 past the end.
    uint64_t bigEndian(uint64_t offset, unsigned width);
    uint64_t littleEndian(uint64_t offset, unsigned width);
};

// A range of a source: from `begin` to before `end`.
struct ByteRange {
    uint64_t begin = 0, end = 0;

    uint64_t length() const { return end > begin ? end - begin : 0; }
    // The part from `offset` in the range on, at most `length` long.
    ByteRange part(uint64_t offset, uint64_t length = UINT64_MAX) const;
};

// How many bytes of values a reader may still take: a hostile file must not buy memory.
class ByteAllowance {
public:
    explicit ByteAllowance(uint64_t bytes = 16 << 20) : left_(bytes) {}

    // The bytes of a range, as far as they are allowed.
    std::string take(ByteSource& source, ByteRange range);

    uint64_t left() const { return left_; }
    // For bytes that came from elsewhere.
    void spend(uint64_t bytes) { left_ -= bytes < left_ ? bytes : left_; }

private:
    uint64_t left_;
};

// An open file, read in small pieces that are kept for the next question. The descriptor stays the caller's.
// A file that does not answer reads as if it ended there.
class FileSource : public ByteSource {
public:
    explicit FileSource(int file);

    uint64_t size() const override { return size_; }
    size_t copy(uint64_t offset, char* to, size_t length) override;

private:
    int file_;
    uint64_t size_ = 0;
    char window_[4096];
    uint64_t windowOffset_ = 0;
    size_t windowLength_ = 0;
};

// The bytes must outlive the source.
class MemorySource : public ByteSource {
public:
    explicit MemorySource(std::string_view bytes) : bytes_(bytes) {}

    uint64_t size() const override { return bytes_.size(); }
    size_t copy(uint64_t offset, char* to, size_t length) override;

private:
    std::string_view bytes_;
};
