// SPDX-License-Identifier: Apache-2.0
#include "Platform/AppKit/CompoundFile/CompoundFile.h"

#include "Tests/Support/CompoundFileWriter.h"
#include "Tests/Support/LittleEndianWriter.h"

#include <algorithm>
#include <gtest/gtest.h>

namespace {

// Bytes of which no two sectors are alike.
std::string pattern(size_t size, char seed = 'a') {
    std::string bytes;
    for (uint32_t i = 0; bytes.size() < size; ++i) append32(bytes, i * 2654435761u + uint8_t(seed));
    bytes.resize(size);
    return bytes;
}

std::string streamOf(const std::string& file, std::string_view name) {
    std::optional<CompoundFile> opened = CompoundFile::open(file);
    if (!opened) return "not a compound file";
    return std::string(opened->stream(name));
}

TEST(CompoundFile, GivesStreamsOfAllSizes) {
    for (unsigned shift : {9u, 12u}) {
        for (bool isScattered : {false, true}) {
            for (size_t size : {0u, 1u, 64u, 65u, 4095u, 4096u, 4097u, 70000u}) {
                CompoundFileWriter writer(shift);
                if (isScattered) writer.scattered();
                writer.stream("First", pattern(100))
                    .stream("Wanted", pattern(size, 'w'))
                    .stream("Last", "last");
                std::string file = writer.finish();
                EXPECT_EQ(streamOf(file, "Wanted"), pattern(size, 'w'))
                    << shift << ' ' << isScattered << ' ' << size;
                EXPECT_EQ(streamOf(file, "Last"), "last") << shift << ' ' << isScattered << ' ' << size;
            }
        }
    }
}

TEST(CompoundFile, FollowsTheListOfTableSectors) {
    std::string large = pattern(8 << 20); // more table sectors than the header has room for
    std::string file = CompoundFileWriter().stream("Large", large).stream("Small", "small").finish();
    EXPECT_EQ(streamOf(file, "Large"), large);
    EXPECT_EQ(streamOf(file, "Small"), "small");
}

TEST(CompoundFile, FollowsScatteredSectorsPastTheHeadersTable) {
    std::string large = pattern(8 << 20);
    std::string file = CompoundFileWriter().scattered().stream("Large", large).finish();
    EXPECT_EQ(streamOf(file, "Large"), large);
}

TEST(CompoundFile, FindsStreamsByNamesInAnyCase) {
    std::string file = CompoundFileWriter().stream("WORDDOCUMENT", "text").finish();
    EXPECT_EQ(streamOf(file, "WordDocument"), "text");
    EXPECT_TRUE(CompoundFile::open(file)->contains("worddocument"));
    EXPECT_FALSE(CompoundFile::open(file)->contains("worddocumen"));
}

TEST(CompoundFile, FindsStreamsOfStoragesByTheirPathsOnly) {
    std::string file = CompoundFileWriter()
                           .embedded("ObjectPool", "WordDocument", "inner")
                           .stream("WordDocument", "outer")
                           .embedded("Other", "Hidden", "hidden")
                           .finish();
    std::optional<CompoundFile> opened = CompoundFile::open(file);
    ASSERT_TRUE(opened);
    EXPECT_EQ(opened->stream("WordDocument"), "outer");
    EXPECT_FALSE(opened->contains("Hidden"));
    EXPECT_FALSE(opened->contains("ObjectPool"));
    EXPECT_EQ(opened->stream("Hidden").data(), nullptr);
    EXPECT_EQ(opened->stream("Other/Hidden"), "hidden");
    EXPECT_EQ(opened->stream("ObjectPool/WordDocument"), "inner");
    std::vector<std::string> storages = opened->storages();
    std::sort(storages.begin(), storages.end());
    EXPECT_EQ(storages, (std::vector<std::string>{"ObjectPool", "Other"}));
}

TEST(CompoundFile, RefusesOtherBytes) {
    for (std::string_view bytes : {"", "\xD0\xCF\x11\xE0", "PK\x03\x04", "{\\rtf1 text}"}) {
        EXPECT_FALSE(CompoundFile::open(bytes)) << bytes;
    }
}

TEST(CompoundFile, GivesWhatIsThereOfATruncatedStream) {
    std::string bytes = pattern(20000);
    CompoundFileWriter writer;
    std::string file = writer.stream("Stream", bytes).finish();
    // The directory goes in front, as some writers have it, so that it survives.
    std::string directory = file.substr(writer.directoryOffset(), 512);
    file.insert(512, directory);
    put32(file, 48, 0);
    uint32_t entry = 512 + 128 + 116;
    put32(file, entry, 1);
    for (size_t kept : {1024u + 0u, 1024u + 1u, 1024u + 511u, 1024u + 5000u}) {
        EXPECT_EQ(streamOf(file.substr(0, kept), "Stream"), bytes.substr(0, kept - 1024)) << kept;
    }
}

TEST(CompoundFile, ALostDirectoryIsDamaged) {
    CompoundFileWriter writer;
    std::string file = writer.stream("Stream", pattern(5000)).finish();
    EXPECT_FALSE(CompoundFile::open(file)->directoryIsDamaged());
    EXPECT_TRUE(
        CompoundFile::open(std::string_view(file).substr(0, writer.directoryOffset()))->directoryIsDamaged());
    std::string cut = file.substr(0, writer.directoryOffset());
    EXPECT_EQ(CompoundFile::open(cut)->firstSectors().substr(0, 5000), pattern(5000));
}

TEST(CompoundFile, BoundsCyclicChains) {
    CompoundFileWriter writer;
    std::string file = writer.stream("Stream", pattern(20000)).finish();
    put32(file, writer.tableOffset() + 4 * 3, 1); // the fourth sector leads back to the second
    std::string stream = streamOf(file, "Stream");
    EXPECT_EQ(stream.substr(0, 2048), pattern(20000).substr(0, 2048));
    EXPECT_LE(stream.size(), file.size());
}

TEST(CompoundFile, BoundsACyclicDirectory) {
    CompoundFileWriter writer;
    std::string file = writer.stream("First", "1").stream("Second", "2").finish();
    put32(file, writer.directoryOffset() + 2 * 128 + 68, 1); // the second's left hand is the first
    put32(file, writer.directoryOffset() + 2 * 128 + 72, 2); // and its right hand itself
    EXPECT_EQ(streamOf(file, "First"), "1");
    EXPECT_EQ(streamOf(file, "Second"), "2");
}

TEST(CompoundFile, BoundsLyingNumbers) {
    struct Lie {
        const char* name;
        size_t offset; // in the header, or in the stream's directory entry past 0x1000
        uint32_t value;
    };
    constexpr Lie kLies[] = {
        {"number of table sectors", 44, 0xFFFFFFF0},
        {"directory", 48, 0x00FFFFFF},
        {"mini table", 60, 0x7FFFFFFF},
        {"size of mini table", 64, 0xFFFFFFFF},
        {"list of table sectors", 68, 0},
        {"size of the list", 72, 0xFFFFFFFF},
        {"first table sector", 76, 0x00FFFFFF},
        {"stream's start", 0x1000 + 116, 0xFFFFFFF0},
        {"stream's size", 0x1000 + 120, 0xFFFFFFFF},
        {"stream's left hand", 0x1000 + 68, 0x7FFFFFFF},
    };
    for (const Lie& lie : kLies) {
        CompoundFileWriter writer;
        std::string file = writer.stream("Stream", pattern(5000)).stream("Mini", "mini").finish();
        put32(file, lie.offset < 0x1000 ? lie.offset : writer.directoryOffset() + 128 + lie.offset - 0x1000,
              lie.value);
        EXPECT_LE(streamOf(file, "Stream").size(), file.size()) << lie.name;
        EXPECT_LE(streamOf(file, "Mini").size(), file.size()) << lie.name;
    }
}

} // namespace
