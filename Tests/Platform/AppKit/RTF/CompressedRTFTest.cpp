// SPDX-License-Identifier: Apache-2.0
#include "Platform/AppKit/RTF/CompressedRTF.h"

#include "Tests/Support/LittleEndianWriter.h"

#include <gtest/gtest.h>

namespace {

constexpr uint32_t kCompressed = 0x75465A4C, kStored = 0x414C454D;

std::string packed(uint32_t form, size_t size, std::string_view contents) {
    std::string bytes;
    append32(bytes, uint32_t(contents.size() + 12));
    append32(bytes, uint32_t(size));
    append32(bytes, form);
    append32(bytes, 0);
    return bytes.append(contents);
}

// The example of the format's description.
TEST(CompressedRTF, GivesBackWhatWasCompressed) {
    const unsigned char hello[] = {0x03, 0x00, 0x0a, 0x00, 0x72, 0x63, 0x70, 0x67, 0x31, 0x32, 0x35,
                                   0x42, 0x32, 0x0a, 0xf3, 0x20, 0x68, 0x65, 0x6c, 0x09, 0x00, 0x20,
                                   0x62, 0x77, 0x05, 0xb0, 0x6c, 0x64, 0x7d, 0x0a, 0x80, 0x0f, 0xa0};
    EXPECT_EQ(decompressedRTF(packed(kCompressed, 43, {reinterpret_cast<const char*>(hello), sizeof hello})),
              "{\\rtf1\\ansi\\ansicpg1252\\pard hello world}\r\n");
}

TEST(CompressedRTF, MayBeStored) {
    EXPECT_EQ(decompressedRTF(packed(kStored, 8, "{\\rtf1 }behind")), "{\\rtf1 }");
}

TEST(CompressedRTF, IsNothingInOtherForms) {
    EXPECT_EQ(decompressedRTF(packed(1, 8, "{\\rtf1 }")), "");
    EXPECT_EQ(decompressedRTF(""), "");
}

TEST(CompressedRTF, OfDamagedBytesIsWhatStandsBeforeTheDamage) {
    EXPECT_EQ(decompressedRTF(packed(kCompressed, 100, std::string("\0abc", 4))), "abc");
    EXPECT_EQ(decompressedRTF(packed(kCompressed, 100, "\1\x0a")), "");
    // A place in the window that nothing was written to yet.
    EXPECT_EQ(decompressedRTF(packed(kCompressed, 100, "\1\xF0\x01")), "   ");
}

} // namespace
