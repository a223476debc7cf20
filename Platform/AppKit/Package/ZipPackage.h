// SPDX-License-Identifier: Apache-2.0
//
// The zip container of Office Open XML and OpenDocument files, read from memory: stored and deflated entries,
// also of large (zip64) archives and of those with something in front of them.
//
// Names are compared without case (of ASCII), backslashes count as slashes and a leading slash is ignored, as
// writers differ; of several entries of one name the first counts. A package whose directory is missing or
// damaged is read by the headers in front of its entries, so that a truncated file still yields what stands
// before the cut. Checksums are not looked at: damaged text is still text.
//
// Whatever the directory claims, entries that overlap or that inflate without end included, all reading from
// one package together is bounded by kInflatedLimit and by kRatioLimit times the package's size. Not
// thread-safe.
#pragma once

#include "Platform/Foundation/Deadline.h"

#include <cstdint>
#include <functional>
#include <map>
#include <optional>
#include <string>
#include <string_view>

class ZipPackage {
public:
    static constexpr uint64_t kInflatedLimit = uint64_t(1) << 30; // bytes
    static constexpr uint64_t kRatioLimit = 1100;                 // deflate itself cannot pass 1032
    static constexpr size_t kPieceSize = 64 << 10;                // bytes that go to a sink at once, at most

    // Takes each piece of an entry's bytes in turn, as long as it answers true.
    using Sink = std::function<bool(std::string_view piece)>;

    // Null when the bytes hold no zip entry at all. `bytes` must outlive the package. A smaller limit than
    // the usual one is for packages that lie in others.
    static std::optional<ZipPackage> open(std::string_view bytes, uint64_t inflatedLimit = kInflatedLimit);

    // How many bytes may still be read.
    uint64_t budget() const { return budget_; }

    bool contains(std::string_view name) const { return find(name) != nullptr; }

    // The entry's name as it stands in the package, for the first entry (by folded name) whose name satisfies
    // `test`; else "".
    std::string findName(const std::function<bool(std::string_view name)>& test) const;

    // Inflates an entry piece by piece. Returns true when all of it went through the sink; false when there
    // is no such entry or the rest of it is damaged, encrypted, past the bounds on ratio and size, past the
    // deadline or refused by the sink. What stands before the damage goes to the sink. Memory does not depend
    // on the entry's size. What the sink throws comes out.
    bool read(std::string_view name, Deadline& deadline, const Sink& sink) const;

    // A whole small entry, at most `limit` bytes of it; of a damaged one what could be read.
    std::string contents(std::string_view name, Deadline& deadline, size_t limit = 1 << 20) const;

private:
    struct Entry {
        std::string name;
        uint64_t offset = 0; // of the compressed bytes
        uint64_t compressedSize =
            0; // within the package; of a deflated entry possibly more than belongs to it
        uint16_t method = 0;
        bool encrypted = false;
    };

    ZipPackage(std::string_view bytes, uint64_t inflatedLimit);

    bool readDirectory();
    bool readDirectoryEntry(size_t& at, uint64_t shift);
    void readLocalHeaders();
    const Entry* find(std::string_view name) const;
    bool copyStored(std::string_view stored, Deadline& deadline, const Sink& sink) const;
    bool inflate(std::string_view compressed, Deadline& deadline, const Sink& sink) const;
    bool deliver(std::string_view piece, Deadline& deadline, const Sink& sink) const;

    std::string_view bytes_;
    std::map<std::string, Entry, std::less<>> entries_; // by folded name
    mutable uint64_t budget_;
};
