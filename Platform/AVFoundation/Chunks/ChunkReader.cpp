// SPDX-License-Identifier: Apache-2.0
#include "Platform/AVFoundation/Chunks/ChunkReader.h"

#include "Platform/AVFoundation/Atoms/AtomText.h"
#include "Platform/AVFoundation/ID3/ID3Reader.h"
#include "Platform/AVFoundation/LatinText.h"
#include "Platform/Foundation/ASCII.h"

#include <algorithm>
#include <optional>
#include <string_view>

namespace {

constexpr unsigned kChunkLimit = 10'000;

struct Layout {
    bool isLittleEndian;
    unsigned lengthWidth; // bytes
    bool isPadded;        // to an even length
};

constexpr Layout kRIFF = {true, 4, true}, kAIFF = {false, 4, true}, kDSDIFF = {false, 8, true},
                 kCAF = {false, 8, false};

struct Chunk {
    std::string name;
    ByteRange body;
};

class ChunkList {
public:
    ChunkList(ByteSource& source, ByteRange chunks, const Layout& layout)
        : source_(source), rest_(chunks), layout_(layout) {}

    bool next(Chunk& chunk) {
        const unsigned header = 4 + layout_.lengthWidth;
        if (rest_.length() < header || ++count_ > kChunkLimit) return false;
        chunk.name = source_.bytes(rest_.begin, 4);
        uint64_t length = layout_.isLittleEndian ? source_.littleEndian(rest_.begin + 4, layout_.lengthWidth)
                                                 : source_.bigEndian(rest_.begin + 4, layout_.lengthWidth);
        // The sound of a file beyond 4 GiB, whose length stands in a chunk of its own.
        if (chunk.name == "ds64") longLength_ = source_.littleEndian(rest_.begin + header + 8, 8);
        if (chunk.name == "data" && length == UINT32_MAX && layout_.lengthWidth == 4 && longLength_ > 0)
            length = longLength_;
        chunk.body = rest_.part(header, length);
        length = chunk.body.length();
        rest_ = rest_.part(header + length + (layout_.isPadded ? length & 1 : 0));
        return true;
    }

private:
    ByteSource& source_;
    ByteRange rest_;
    const Layout& layout_;
    uint64_t longLength_ = 0;
    unsigned count_ = 0;
};

struct TextChunk {
    std::string_view name, field;
};

constexpr TextChunk kRIFFTexts[] = {{"INAM", "TITLE"},    {"IART", "ARTIST"},  {"ICOP", "COPYRIGHT"},
                                    {"IPRD", "ALBUM"},    {"ISBJ", "SUBJECT"}, {"ISRC", "SOURCE"},
                                    {"IMUS", "COMPOSER"}, {"IWRI", "AUTHOR"}};
constexpr TextChunk kAIFFTexts[] = {{"NAME", "TITLE"}, {"AUTH", "AUTHOR"}, {"(c) ", "COPYRIGHT"}};
constexpr TextChunk kDSDIFFTexts[] = {{"DITI", "TITLE"}, {"DIAR", "ARTIST"}};

class ChunkFile {
public:
    ChunkFile(ByteSource& source, std::vector<MediaItem>& items) : source_(source), items_(items) {}

    void readRIFF(ByteRange chunks) {
        forEach(chunks, kRIFF, [&](const Chunk& chunk) {
            if (chunk.name == "LIST" && source_.bytes(chunk.body.begin, 4) == "INFO") {
                forEach(chunk.body.part(4), kRIFF,
                        [&](const Chunk& text) { addText(kRIFFTexts, text, latinText); });
            }
        });
    }

    void readAIFF(ByteRange chunks) {
        forEach(chunks, kAIFF, [&](const Chunk& chunk) { addText(kAIFFTexts, chunk, textOfUTF8); });
    }

    void readDSDIFF(ByteRange chunks) {
        forEach(chunks, kDSDIFF, [&](const Chunk& chunk) {
            if (chunk.name != "DIIN") return;
            forEach(chunk.body, kDSDIFF, [&](Chunk text) {
                text.body = text.body.part(4); // a length once more
                addText(kDSDIFFTexts, text, textOfUTF8);
            });
        });
    }

    // Pairs of null-terminated strings: "artist", its name.
    void readCAF(ByteRange chunks) {
        forEach(chunks, kCAF, [&](const Chunk& chunk) {
            if (chunk.name != "info") return;
            const std::string bytes = allowance_.take(source_, chunk.body.part(4));
            std::string_view rest = bytes;
            while (!rest.empty()) {
                const std::string name = uppered(takeString(rest));
                items_.push_back({MediaKeySpace::fieldName, name, textOfUTF8(takeString(rest))});
            }
        });
    }

    // The header points to the tag.
    void readDSF(ByteRange file) { id3_ = file.part(source_.littleEndian(file.begin + 20, 8)); }

    void readID3() {
        if (id3_) readID3Tag(source_, *id3_, items_);
    }

private:
    template <class Use>
    void forEach(ByteRange chunks, const Layout& layout, const Use& use) {
        ChunkList list(source_, chunks, layout);
        for (Chunk chunk; list.next(chunk);) {
            if (chunk.name == "ID3 " || chunk.name == "id3 ") id3_ = chunk.body;
            use(chunk);
        }
    }

    static std::string_view takeString(std::string_view& bytes) {
        const std::string_view string = bytes.substr(0, bytes.find('\0'));
        bytes.remove_prefix(std::min(string.size() + 1, bytes.size()));
        return string;
    }

    template <size_t count, class Decode>
    void addText(const TextChunk (&texts)[count], const Chunk& chunk, const Decode& decode) {
        for (const TextChunk& text : texts) {
            if (text.name != chunk.name) continue;
            const std::string bytes = allowance_.take(source_, chunk.body);
            items_.push_back({MediaKeySpace::fieldName, std::string(text.field),
                              decode(std::string_view(bytes).substr(0, bytes.find('\0')))});
        }
    }

    ByteSource& source_;
    std::vector<MediaItem>& items_;
    ByteAllowance allowance_;
    std::optional<ByteRange> id3_;
};

} // namespace

bool readChunkFile(ByteSource& source, ByteRange range, std::vector<MediaItem>& items) {
    const std::string start = source.bytes(range.begin, 16);
    const std::string_view kind = std::string_view(start).substr(0, 4);
    const auto isOneOf = [&](std::initializer_list<std::string_view> names) {
        return std::find(names.begin(), names.end(), kind) != names.end();
    };
    if (start.size() < 16) return false;
    ChunkFile file(source, items);
    if (isOneOf({"RIFF", "RF64", "BW64"})) {
        file.readRIFF(range.part(12));
    } else if (kind == "FORM" && start.substr(8, 3) == "AIF") {
        file.readAIFF(range.part(12));
    } else if (kind == "FRM8") {
        file.readDSDIFF(range.part(16));
    } else if (kind == "DSD ") {
        file.readDSF(range);
    } else if (kind == "caff") {
        file.readCAF(range.part(8));
    } else {
        return false;
    }
    file.readID3();
    return true;
}
