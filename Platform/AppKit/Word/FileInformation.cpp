// SPDX-License-Identifier: Apache-2.0
#include "Platform/AppKit/Word/FileInformation.h"

#include "Platform/Foundation/LittleEndian.h"

namespace Word {

namespace {

constexpr uint16_t kOldVersionEnd = 0x6B; // versions below have the old layout
constexpr size_t kOldHeaderSize = 0x58;   // up to the places of the tables
constexpr size_t kHeaderSize = 0x9A;
constexpr uint32_t kLongestStory = 0x7FFFFFFF;
constexpr uint16_t kMacintoshCharacters = 256;

constexpr uint16_t kWord2Signature = 0xA5DB;

enum Flag : uint16_t { kEncrypted = 0x0100, kTable1 = 0x0200, kWideText = 0x1000 };

using TableOffsets = std::array<uint16_t, size_t(Table::count)>;

// Where the header holds each table's offset and length, 0 for those that a layout does not have. In the
// order of the enumeration.
constexpr TableOffsets kOldOffsets = {0x60,  0x68,  0x70,  0x88, 0xB8,  0xC0, 0xD0, 0x160,
                                      0x192, 0x1D2, 0x1DA, 0,    0x222, 0,    0};
constexpr TableOffsets kOffsets = {0xA2,  0xAA,  0xB2,  0xCA,  0xFA,  0x102, 0x112, 0x1A2,
                                   0x1DA, 0x20A, 0x212, 0x22A, 0x25A, 0x2E2, 0x2EA};

bool isWordSignature(uint16_t identifier) {
    switch (identifier) {
    case 0xA5EC: // Word 97 and later
    case 0xA5DC: // Word 6 and 95
    case kWord2Signature:
    case 0xA697: // East Asian Word 6 and 95
    case 0xA698:
    case 0xA699: return true;
    default: return false;
    }
}

} // namespace

std::optional<FileInformation> FileInformation::read(std::string_view mainStream) {
    if (!isWordSignature(uint16At(mainStream, 0))) return std::nullopt;
    FileInformation information;
    uint16_t flags = uint16At(mainStream, 10);
    information.isOld = uint16At(mainStream, 2) < kOldVersionEnd;
    if (mainStream.size() < (information.isOld ? kOldHeaderSize : kHeaderSize)) return std::nullopt;
    information.isEncrypted = flags & kEncrypted;
    information.usesTable1 = flags & kTable1;
    information.hasWideText = information.isOld && (flags & kWideText);
    information.isMacintosh = uint16At(mainStream, 20) == kMacintoshCharacters;
    information.language = uint16At(mainStream, 6);
    information.textOffset = uint32At(mainStream, 24);
    information.textEnd = uint32At(mainStream, 28);

    size_t lengths = information.isOld ? 0x34 : 0x4C;
    for (uint32_t& length : information.storyLengths_) {
        length = uint32At(mainStream, lengths);
        if (length > kLongestStory) length = 0;
        lengths += 4;
    }
    // The tables of Word 2 are unlike those of later versions, but its text is in one piece and needs none.
    if (uint16At(mainStream, 0) != kWord2Signature) information.readPlaces(mainStream);
    return information;
}

void FileInformation::readPlaces(std::string_view mainStream) {
    const TableOffsets& offsets = isOld ? kOldOffsets : kOffsets;
    for (size_t i = 0; i < offsets.size(); ++i) {
        if (offsets[i] == 0) continue;
        places_[i] = {uint32At(mainStream, offsets[i]), uint32At(mainStream, offsets[i] + 4u)};
    }
    if (isOld) {
        firstCharacterPage = uint16At(mainStream, 0x18A);
        firstParagraphPage = uint16At(mainStream, 0x18C);
        characterPageCount = uint16At(mainStream, 0x18E);
        paragraphPageCount = uint16At(mainStream, 0x190);
    }
}

FileInformation::Span FileInformation::story(Story story) const {
    uint64_t begin = 0;
    for (size_t i = 0; i < size_t(story); ++i) begin += storyLengths_[i];
    uint64_t end = begin + storyLengths_[size_t(story)];
    constexpr uint64_t kLimit = 0xFFFFFFFF;
    return {uint32_t(std::min(begin, kLimit)), uint32_t(std::min(end, kLimit))};
}

std::string_view FileInformation::table(Table table, std::string_view tableStream) const {
    const Place& place = places_[size_t(table)];
    return slice(tableStream, place.offset, place.length);
}

PositionTable FileInformation::positionTable(Table table, size_t entrySize,
                                             std::string_view tableStream) const {
    return {this->table(table, tableStream), places_[size_t(table)].length, entrySize};
}

std::string_view FileInformation::fromTable(Table table, std::string_view tableStream) const {
    return slice(tableStream, places_[size_t(table)].offset);
}

} // namespace Word
