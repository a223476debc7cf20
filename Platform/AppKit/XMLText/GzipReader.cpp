// SPDX-License-Identifier: Apache-2.0
#include "Platform/AppKit/DocumentKinds.h"
#include "Platform/AppKit/XMLText/XMLTextReaders.h"
#include "Platform/Foundation/NSStringEncoding.h"

#include <algorithm>
#include <memory>
#include <new>
#include <zlib.h>

namespace {

constexpr size_t kInflatedLimit = size_t(256) << 20; // bytes
constexpr int kWithGzipHeader = 16 + MAX_WBITS;

class Inflater {
public:
    Inflater() {
        if (inflateInit2(&stream_, kWithGzipHeader) != Z_OK) throw std::bad_alloc();
    }
    ~Inflater() { inflateEnd(&stream_); }
    Inflater(const Inflater&) = delete;
    Inflater& operator=(const Inflater&) = delete;

    // All members of a file, one behind the other; of a damaged one what stands before the damage.
    std::string inflateAll(std::string_view bytes, Deadline& deadline) {
        std::string all;
        char piece[64 << 10];
        while (!bytes.empty() && all.size() < kInflatedLimit && !deadline.passed()) {
            const size_t given = std::min<size_t>(bytes.size(), 1 << 20);
            stream_.next_in = reinterpret_cast<Bytef*>(const_cast<char*>(bytes.data()));
            stream_.avail_in = uInt(given);
            stream_.next_out = reinterpret_cast<Bytef*>(piece);
            stream_.avail_out = sizeof piece;
            const int status = ::inflate(&stream_, Z_NO_FLUSH);
            all.append(piece, sizeof piece - stream_.avail_out);
            bytes.remove_prefix(given - stream_.avail_in);
            if (status != Z_OK && (status != Z_STREAM_END || inflateReset(&stream_) != Z_OK)) break;
        }
        return all;
    }

private:
    z_stream stream_{};
};

bool isXML(std::string_view bytes) {
    bytes.remove_prefix(byteOrderMark(bytes).size);
    return bytes.starts_with("<?xml") || bytes.starts_with("<svg");
}

} // namespace

ReadStatus readGzipText(std::string_view bytes, Deadline& deadline, DocumentContents& contents) {
    contents = {};
    if (!bytes.starts_with("\x1F\x8B")) return ReadStatus::wrongKind;
    const std::string inner = Inflater().inflateAll(bytes, deadline);
    if (isXML(inner)) return readXMLText(inner, deadline, contents);
    const DocumentKind* kind = documentKindOfBytes(inner);
    const bool isBinary = inner.find('\0') != inner.npos && byteOrderMark(inner).size == 0;
    if (!kind || (kind->reader == readPlainText && isBinary)) return ReadStatus::read;
    NSString why;
    const DocumentReader reader = readerOfKind(*kind, &why);
    return reader ? reader(inner, deadline, contents) : ReadStatus::wrongKind;
}
