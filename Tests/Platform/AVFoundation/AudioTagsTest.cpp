// SPDX-License-Identifier: Apache-2.0
#include "Platform/AVFoundation/AudioTags/AudioTags.h"

#include "Platform/AVFoundation/AudioTags/BoundedStream.h"
#include "Platform/Foundation/FileDescriptor.h"
#include "Tests/Platform/AVFoundation/MediaItems.h"
#include "Tests/Support/MediaWriter.h"
#include "Tests/Support/TemporaryFolder.h"

#include <fcntl.h>
#include <gtest/gtest.h>

namespace {

using namespace std::string_literals;

class AudioTags : public testing::Test {
protected:
    int open(std::string_view bytes) {
        const std::string path = folder.path() + "/file";
        writeFile(path, bytes);
        file = FileDescriptor(::open(path.c_str(), O_RDONLY | O_CLOEXEC));
        return file.get();
    }

    // By the kind that its bytes have.
    Texts tags(std::string_view bytes) {
        const ReadResult front = readBytes(bytes);
        std::vector<MediaItem> items;
        readAudioTags(open(bytes), front.rest, items);
        return textsIn(items, MediaKeySpace::fieldName);
    }

    TemporaryFolder folder;
    FileDescriptor file;
};

std::string apeItem(std::string_view key, std::string_view value) {
    return littleEndian(value.size(), 4) + littleEndian(0, 4) + std::string(key) + '\0' + std::string(value);
}

std::string apeTag(std::string_view items, unsigned count) {
    return std::string(items) + "APETAGEX" + littleEndian(2000, 4) + littleEndian(items.size() + 32, 4) +
           littleEndian(count, 4) + littleEndian(0, 4) + std::string(8, '\0');
}

std::string field(std::string_view text, size_t length) {
    return std::string(text) + std::string(length - text.size(), '\0');
}

std::string id3Version1(std::string_view title) {
    return "TAG" + field(title, 30) + field("Artist", 30) + field("Album", 30) + "2001" + field("", 30) +
           "\x0C";
}

// An object of a Windows Media file.
std::string asfObject(std::string_view identifier, std::string_view body) {
    return std::string(identifier) + littleEndian(24 + body.size(), 8) + std::string(body);
}

// A Windows Media file with a content description behind the properties of the file and of its stream.
std::string asfFile(const std::string& title, const std::string& artist) {
    const auto wide = [](const std::string& ascii) {
        std::string units;
        for (char c : ascii) units += {c, '\0'};
        return units;
    };
    const std::string properties(80, '\0');
    const std::string description = littleEndian(2 * title.size(), 2) + littleEndian(2 * artist.size(), 2) +
                                    littleEndian(0, 6) + wide(title) + wide(artist);
    const std::string objects =
        asfObject("\xA1\xDC\xAB\x8C\x47\xA9\xCF\x11\x8E\xE4\0\xC0\x0C\x20\x53\x65"s, properties) +
        asfObject("\x91\x07\xDC\xB7\xB7\xA9\xCF\x11\x8E\xE6\0\xC0\x0C\x20\x53\x65"s, properties) +
        asfObject("\x33\x26\xB2\x75\x8E\x66\xCF\x11\xA6\xD9\0\xAA\0\x62\xCE\x6C"s, description);
    return "\x30\x26\xB2\x75\x8E\x66\xCF\x11\xA6\xD9\0\xAA\0\x62\xCE\x6C"s +
           littleEndian(30 + objects.size(), 8) + littleEndian(3, 4) + "\1\2" + objects;
}

TEST_F(AudioTags, AtTheEndAreReadWithoutAKnownContainer) {
    const std::string sound(2000, 's');
    EXPECT_EQ(tags(sound + apeTag(apeItem("Title", "Caf\xC3\xA9") + apeItem("Artist", "A"), 2)),
              (Texts{{"ARTIST", "A"}, {"TITLE", "Café"}}));
    for (const char* title : {"Caf\xE9 \x96 Bar", "Caf\xC3\xA9 \xE2\x80\x93 Bar   "})
        EXPECT_EQ(tags(sound + id3Version1(title)), (Texts{{"ALBUM", "Album"},
                                                           {"ARTIST", "Artist"},
                                                           {"DATE", "2001"},
                                                           {"GENRE", "Other"},
                                                           {"TITLE", "Café – Bar"}}))
            << title;
}

TEST_F(AudioTags, OfEachContainerAreWhereItHasThem) {
    const std::string sound(2000, 's');
    const std::string ape = apeTag(apeItem("Title", "T") + apeItem("Artist", "A"), 2);
    for (const char* start : {"MAC ", "MPCK", "MP+", "wvPk", "TTA1"})
        EXPECT_EQ(tags(start + sound + ape), (Texts{{"ARTIST", "A"}, {"TITLE", "T"}})) << start;
    EXPECT_EQ(tags(asfFile("T", "A")), (Texts{{"ARTIST", "A"}, {"TITLE", "T"}}));
}

TEST_F(AudioTags, OfADamagedFileAreNone) {
    EXPECT_EQ(tags("\x30\x26\xB2\x75\x8E\x66\xCF\x11" + std::string(100, '\xFF')), Texts());
    EXPECT_EQ(tags("sound" + apeTag(std::string(40, '\xFF'), 3)), Texts());
}

TEST_F(AudioTags, OfOldTagsPrecedeTheOthers) {
    const Texts found = tags("sound" + apeTag(apeItem("Title", "A long title"), 1) + id3Version1("A lo"));
    EXPECT_EQ(found.front(), (std::pair<std::string, std::string>("ALBUM", "Album")));
    EXPECT_EQ(found.back(), (std::pair<std::string, std::string>("TITLE", "A long title")));
}

TEST_F(AudioTags, DoNotCloseTheDescriptor) {
    std::vector<MediaItem> items;
    const int descriptor = open("sound" + id3Version1("Title"));
    readAudioTags(descriptor, AudioTagsKind::atTheEnd, items);
    EXPECT_FALSE(items.empty());
    EXPECT_GE(fcntl(descriptor, F_GETFD), 0);
}

TEST_F(AudioTags, AreReadWithinABound) {
    BoundedStream stream(open(std::string(1 << 20, 'x')));
    uint64_t total = 0;
    for (int i = 0; i < 100'000; ++i) {
        stream.seek(0);
        total += stream.readBlock(100).size();
    }
    EXPECT_EQ(total, 4096u * 100);
}

} // namespace
