// SPDX-License-Identifier: Apache-2.0
#include "Platform/ImageIO/ImageKind.h"

#include "Platform/Foundation/ASCII.h"

#include <algorithm>
#include <iterator>

namespace {

constexpr std::string_view kPNGSignature = "\x89PNG\r\n\x1A\n";
constexpr unsigned kChunkLimit = 100'000;

// Whether the chunks lie one behind the other, to the end chunk or to where the file was cut off.
bool hasPNGChunks(ByteSource& source) {
    uint64_t at = kPNGSignature.size();
    for (unsigned count = 0; at + 8 <= source.size(); ++count) {
        const std::string type = source.bytes(at + 4, 4);
        if (count == kChunkLimit || !std::all_of(type.begin(), type.end(), [](char c) {
                return isLetter(static_cast<unsigned char>(c));
            }))
            return false;
        if (type == "IEND") break;
        at += 12 + source.bigEndian(at, 4);
    }
    return true;
}

// The place of the next marker; the end of the source when there is none so far that it is worth a search.
uint64_t nextMarker(ByteSource& source, uint64_t at) {
    constexpr size_t kSearchLimit = 64 << 10;
    if (source.bigEndian(at, 1) == 0xFF) return at;
    const size_t found = source.bytes(at, kSearchLimit).find('\xFF');
    return found == std::string::npos ? source.size() : at + found;
}

// Whether segments lie one behind the other, to the picture or to where the file was cut off.
bool hasJPEGSegments(ByteSource& source, uint64_t at) {
    for (unsigned count = 0; count < kChunkLimit; ++count) {
        const uint64_t place = nextMarker(source, at);
        if (place + 2 > source.size()) return at + (64 << 10) >= source.size();
        const uint64_t marker = source.bigEndian(place + 1, 1);
        if (marker == 0xDA || marker == 0xD9) return true;
        const bool isAlone = marker == 0x00 || marker == 0x01 || (marker >= 0xD0 && marker <= 0xD7);
        at = marker == 0xFF ? place + 1 : place + 2 + (isAlone ? 0 : source.bigEndian(place + 2, 2));
    }
    return false;
}

// Brands of the base media format that stand for still images; the others are films.
bool isImageBrand(const std::string& brand) {
    constexpr std::string_view brands[] = {"heic", "heix", "heim", "heis", "hevc", "mif1",
                                           "msf1", "avif", "avis", "crx ", "jxl "};
    return std::find(std::begin(brands), std::end(brands), brand) != std::end(brands);
}

} // namespace

bool mayBeImage(ByteSource& source) {
    const std::string start = source.bytes(0, 12);
    if (start.substr(0, 8) == kPNGSignature) return hasPNGChunks(source);
    if (start.substr(0, 2) == "\xFF\xD8") return hasJPEGSegments(source, 2);
    if (start.substr(0, 7) == "\xFF\x01"
                              "Exiv2")
        return hasJPEGSegments(source, 7);
    if (start.size() == 12 && start.substr(4, 4) == "ftyp") return isImageBrand(start.substr(8));
    return true;
}

std::string xmpOfGIF(ByteSource& source) {
    constexpr uint64_t kDataLimit = 1 << 20; // of other blocks in front
    constexpr size_t kPacketLimit = 16 << 20;
    const auto sizeOfColorTable = [](unsigned flags) { return flags & 0x80 ? 3u << ((flags & 7) + 1) : 0u; };
    const std::string header = source.bytes(0, 13);
    if (header.size() < 13 || header.substr(0, 4) != "GIF8") return {};
    uint64_t at = 13 + sizeOfColorTable(static_cast<unsigned char>(header[10]));
    while (at < std::min(source.size(), kDataLimit)) {
        const uint64_t introducer = source.bigEndian(at, 1);
        if (introducer == 0x21) {
            if (source.bytes(at + 1, 13) == "\xFF\x0BXMP DataXMP") {
                // The packet is no sequence of blocks; a ramp of 258 bytes lets readers of blocks skip it.
                std::string packet = source.bytes(at + 14, kPacketLimit);
                return packet.substr(0, packet.find("\x01\xFF\xFE\xFD"));
            }
            at += 2;
        } else if (introducer == 0x2C) {
            at += 11 + sizeOfColorTable(unsigned(source.bigEndian(at + 9, 1)));
        } else {
            return {};
        }
        while (const uint64_t length = source.bigEndian(at, 1)) at += 1 + length;
        ++at;
    }
    return {};
}
