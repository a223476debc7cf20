// SPDX-License-Identifier: Apache-2.0
//
// Makes zip archives for tests: good ones with the defaults, odd and damaged ones with the options.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

class ZipWriter {
public:
    struct Options {
        bool deflate = true;
        bool sizesBehind = false; // in a descriptor behind the bytes, zeros in front
        bool large = false;       // sizes and offset as 64-bit extra fields
        uint16_t flags = 0;       // besides the one for sizesBehind
    };

    void add(std::string_view name, std::string_view bytes) { add(name, bytes, Options()); }
    void add(std::string_view name, std::string_view bytes, const Options& options);

    // One more directory entry for the bytes of the entry that was added last.
    void repeatLast(std::string_view name);

    // The archive so far without a directory.
    const std::string& body() const { return body_; }

    // The whole archive. With `large`, the end of the directory is one of a zip64 archive.
    std::string finish(bool large = false) const;

private:
    struct Entry {
        std::string name;
        uint64_t offset, compressedSize, size;
        uint32_t checksum;
        uint16_t method, flags;
        bool large;
    };
    static std::string directoryEntry(const Entry& entry);

    std::string body_;
    std::vector<Entry> entries_;
};

// The raw deflate form of bytes.
std::string deflated(std::string_view bytes);
