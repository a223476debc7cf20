// SPDX-License-Identifier: Apache-2.0
#include "Platform/Foundation/ByteSource.h"

#include "Platform/Foundation/FileDescriptor.h"
#include "Tests/Support/TemporaryFolder.h"

#include <fcntl.h>
#include <gtest/gtest.h>

namespace {

std::string sample() {
    std::string bytes;
    for (int i = 0; i < 20'000; ++i) bytes.push_back(char(i * 7 % 251));
    return bytes;
}

TEST(ByteSource, OfAFileGivesTheBytesAtAnyOffset) {
    TemporaryFolder folder;
    const std::string bytes = sample(), path = folder.path() + "/file";
    writeFile(path, bytes);
    const FileDescriptor file(open(path.c_str(), O_RDONLY | O_CLOEXEC));
    FileSource source(file.get());
    EXPECT_EQ(source.size(), bytes.size());
    for (size_t offset : {0, 1, 4090, 4095, 4096, 100, 12'000, 19'990, 19'999, 20'000, 30'000}) {
        for (size_t length : {0, 1, 8, 4096, 4097, 15'000}) {
            const std::string expected = offset < bytes.size() ? bytes.substr(offset, length) : "";
            EXPECT_EQ(source.bytes(offset, length), expected) << offset << " " << length;
        }
    }
    EXPECT_EQ(source.bytes(UINT64_MAX, 10), "");
}

TEST(ByteSource, OfAFileThatShrinksEndsThere) {
    TemporaryFolder folder;
    const std::string path = folder.path() + "/file";
    writeFile(path, sample());
    const FileDescriptor file(open(path.c_str(), O_RDONLY | O_CLOEXEC));
    FileSource source(file.get());
    ASSERT_EQ(truncate(path.c_str(), 10), 0);
    EXPECT_EQ(source.bytes(0, 100).size(), 10u);
    EXPECT_EQ(source.bytes(5000, 8), "");
    EXPECT_EQ(source.bigEndian(8, 4), 0u);
}

TEST(ByteSource, OfWhatIsNoFileIsEmpty) {
    const FileDescriptor device(open("/dev/zero", O_RDONLY | O_CLOEXEC));
    FileSource source(device.get()), none(-1);
    EXPECT_EQ(source.size(), 0u);
    EXPECT_EQ(source.bytes(0, 10), "");
    EXPECT_EQ(none.size(), 0u);
}

TEST(ByteSource, GivesNumbersOfBothOrders) {
    MemorySource source("\x01\x02\x03\xFF\x05\x06\x07\x08");
    EXPECT_EQ(source.bigEndian(0, 3), 0x010203u);
    EXPECT_EQ(source.littleEndian(0, 3), 0x030201u);
    EXPECT_EQ(source.bigEndian(3, 1), 0xFFu);
    EXPECT_EQ(source.bigEndian(0, 8), 0x010203FF05060708u);
    EXPECT_EQ(source.littleEndian(0, 8), 0x08070605FF030201u);
    EXPECT_EQ(source.bigEndian(6, 4), 0u) << "past the end";
    EXPECT_EQ(source.bigEndian(0, 0), 0u);
}

TEST(ByteRange, GivesPartsThatStayInside) {
    const ByteRange range{10, 20};
    EXPECT_EQ(range.length(), 10u);
    EXPECT_EQ(range.part(4).begin, 14u);
    EXPECT_EQ(range.part(4).end, 20u);
    EXPECT_EQ(range.part(4, 3).end, 17u);
    EXPECT_EQ(range.part(4, UINT64_MAX).end, 20u);
    EXPECT_EQ(range.part(10).length(), 0u);
    EXPECT_EQ(range.part(UINT64_MAX).begin, 20u);
    EXPECT_EQ((ByteRange{20, 10}).length(), 0u);
}

} // namespace
