// SPDX-License-Identifier: Apache-2.0
#include "Tests/Support/ZipWriter.h"

#include <zlib.h>

namespace {

constexpr uint32_t kSeeExtraField = 0xFFFFFFFF;

std::string little(uint64_t value, int size) {
    std::string bytes;
    for (int i = 0; i < size; ++i, value >>= 8) bytes.push_back(char(value & 0xFF));
    return bytes;
}

std::string size32(uint64_t value, bool large) { return little(large ? kSeeExtraField : value, 4); }

} // namespace

std::string deflated(std::string_view bytes) {
    z_stream stream{};
    if (deflateInit2(&stream, Z_DEFAULT_COMPRESSION, Z_DEFLATED, -MAX_WBITS, 8, Z_DEFAULT_STRATEGY) != Z_OK)
        return {};
    std::string out(deflateBound(&stream, bytes.size()), '\0');
    stream.next_in = reinterpret_cast<Bytef*>(const_cast<char*>(bytes.data()));
    stream.avail_in = uInt(bytes.size());
    stream.next_out = reinterpret_cast<Bytef*>(out.data());
    stream.avail_out = uInt(out.size());
    deflate(&stream, Z_FINISH);
    out.resize(stream.total_out);
    deflateEnd(&stream);
    return out;
}

void ZipWriter::add(std::string_view name, std::string_view bytes, const Options& options) {
    std::string compressed = options.deflate ? deflated(bytes) : std::string(bytes);
    Entry entry{std::string(name),
                body_.size(),
                compressed.size(),
                bytes.size(),
                uint32_t(crc32(0, reinterpret_cast<const Bytef*>(bytes.data()), uInt(bytes.size()))),
                uint16_t(options.deflate ? 8 : 0),
                uint16_t(options.flags | (options.sizesBehind ? 8 : 0)),
                options.large};
    std::string sizes = options.sizesBehind
                            ? little(0, 12)
                            : little(entry.checksum, 4) + size32(entry.compressedSize, entry.large) +
                                  size32(entry.size, entry.large);
    std::string extra;
    if (entry.large)
        extra = little(1, 2) + little(16, 2) + little(entry.size, 8) + little(entry.compressedSize, 8);
    body_ += "PK\3\4" + little(20, 2) + little(entry.flags, 2) + little(entry.method, 2) + little(0, 4) +
             sizes + little(name.size(), 2) + little(extra.size(), 2) + entry.name + extra + compressed;
    if (options.sizesBehind)
        body_ +=
            "PK\7\10" + little(entry.checksum, 4) + little(entry.compressedSize, 4) + little(entry.size, 4);
    entries_.push_back(entry);
}

void ZipWriter::repeatLast(std::string_view name) {
    entries_.push_back(entries_.back());
    entries_.back().name = name;
}

std::string ZipWriter::directoryEntry(const Entry& entry) {
    std::string extra;
    if (entry.large)
        extra = little(1, 2) + little(24, 2) + little(entry.size, 8) + little(entry.compressedSize, 8) +
                little(entry.offset, 8);
    return "PK\1\2" + little(20, 2) + little(20, 2) + little(entry.flags, 2) + little(entry.method, 2) +
           little(0, 4) + little(entry.checksum, 4) + size32(entry.compressedSize, entry.large) +
           size32(entry.size, entry.large) + little(entry.name.size(), 2) + little(extra.size(), 2) +
           little(0, 10) + size32(entry.offset, entry.large) + entry.name + extra;
}

std::string ZipWriter::finish(bool large) const {
    std::string directory;
    for (const Entry& entry : entries_) directory += directoryEntry(entry);
    std::string archive = body_ + directory;
    if (large) {
        uint64_t end = archive.size();
        archive += "PK\6\6" + little(44, 8) + little(45, 2) + little(45, 2) + little(0, 8) +
                   little(entries_.size(), 8) + little(entries_.size(), 8) + little(directory.size(), 8) +
                   little(body_.size(), 8);
        archive += "PK\6\7" + little(0, 4) + little(end, 8) + little(1, 4);
    }
    uint64_t count = large ? 0xFFFF : entries_.size();
    return archive + "PK\5\6" + little(0, 4) + little(count, 2) + little(count, 2) +
           size32(directory.size(), large) + size32(body_.size(), large) + little(0, 2);
}
