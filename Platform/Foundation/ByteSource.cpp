// SPDX-License-Identifier: Apache-2.0
#include "Platform/Foundation/ByteSource.h"

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <sys/stat.h>
#include <unistd.h>

namespace {

size_t readAt(int file, uint64_t offset, char* to, size_t length) {
    size_t done = 0;
    while (done < length) {
        const ssize_t count = pread(file, to + done, length - done, off_t(offset + done));
        if (count < 0 && errno == EINTR) continue;
        if (count <= 0) break;
        done += size_t(count);
    }
    return done;
}

} // namespace

std::string ByteSource::bytes(uint64_t offset, size_t length) {
    const uint64_t there = offset < size() ? size() - offset : 0;
    std::string out(size_t(std::min<uint64_t>(length, there)), '\0');
    out.resize(copy(offset, out.data(), out.size()));
    return out;
}

uint64_t ByteSource::bigEndian(uint64_t offset, unsigned width) {
    unsigned char raw[8];
    if (copy(offset, reinterpret_cast<char*>(raw), width) != width) return 0;
    uint64_t value = 0;
    for (unsigned i = 0; i < width; ++i) value = value << 8 | raw[i];
    return value;
}

uint64_t ByteSource::littleEndian(uint64_t offset, unsigned width) {
    unsigned char raw[8];
    if (copy(offset, reinterpret_cast<char*>(raw), width) != width) return 0;
    uint64_t value = 0;
    for (unsigned i = width; i-- > 0;) value = value << 8 | raw[i];
    return value;
}

ByteRange ByteRange::part(uint64_t offset, uint64_t length) const {
    if (offset >= this->length()) return {end, end};
    const uint64_t first = begin + offset;
    return {first, first + std::min(length, end - first)};
}

std::string ByteAllowance::take(ByteSource& source, ByteRange range) {
    std::string taken = source.bytes(range.begin, size_t(std::min(range.length(), left_)));
    spend(taken.size());
    return taken;
}

FileSource::FileSource(int file) : file_(file) {
    struct stat info {};
    if (fstat(file, &info) == 0 && S_ISREG(info.st_mode)) size_ = uint64_t(info.st_size);
}

size_t FileSource::copy(uint64_t offset, char* to, size_t length) {
    if (offset >= size_) return 0;
    length = size_t(std::min<uint64_t>(length, size_ - offset));
    if (length > sizeof window_) return readAt(file_, offset, to, length);
    if (offset < windowOffset_ || offset + length > windowOffset_ + windowLength_) {
        windowOffset_ = offset;
        windowLength_ = readAt(file_, offset, window_, sizeof window_);
    }
    const size_t start = size_t(offset - windowOffset_);
    length = std::min(length, windowLength_ - start);
    std::memcpy(to, window_ + start, length);
    return length;
}

size_t MemorySource::copy(uint64_t offset, char* to, size_t length) {
    if (offset >= bytes_.size()) return 0;
    length = std::min(length, bytes_.size() - size_t(offset));
    std::memcpy(to, bytes_.data() + offset, length);
    return length;
}
