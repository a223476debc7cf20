// SPDX-License-Identifier: Apache-2.0
#include "Platform/ImageIO/ImageKind.h"

#include "Tests/Support/ImageWriter.h"
#include "Tests/Support/MediaWriter.h"

#include <gtest/gtest.h>

namespace {

using namespace std::string_literals;

bool mayBe(std::string_view bytes) {
    MemorySource source(bytes);
    return mayBeImage(source);
}

std::string xmp(std::string_view bytes) {
    MemorySource source(bytes);
    return xmpOfGIF(source);
}

TEST(ImageKind, IsTheBrandsOfPicturesAndNotOfFilms) {
    for (const char* brand : {"heic", "mif1", "avif", "crx ", "jxl "})
        EXPECT_TRUE(mayBe(atom("ftyp", brand))) << brand;
    for (const char* brand : {"isom", "qt  ", "mp42", "M4A "})
        EXPECT_FALSE(mayBe(atom("ftyp", brand))) << brand;
}

TEST(ImageKind, IsAPNGWhoseChunksFollowEachOther) {
    const std::string png = pngFile("x");
    EXPECT_TRUE(mayBe(png));
    EXPECT_TRUE(mayBe(png.substr(0, png.size() - 20))) << "cut off";
    EXPECT_FALSE(mayBe(png.substr(0, 8) + std::string(100, '\0')));
    EXPECT_FALSE(mayBe(png.substr(0, 33) + std::string(100, '\0')));
    std::string many = png.substr(0, 33);
    for (int i = 0; i < 100'001; ++i) many += "\0\0\0\0abcd\0\0\0\0"s;
    EXPECT_FALSE(mayBe(many));
}

TEST(ImageKind, IsAJPEGWhoseSegmentsFollowEachOther) {
    const std::string jpeg = jpegFile(iptcDataset(2, 90, "Bern")), zeros(100'000, '\0');
    EXPECT_TRUE(mayBe(jpeg));
    EXPECT_TRUE(mayBe(jpeg.substr(0, 30))) << "cut off";
    EXPECT_TRUE(mayBe(jpeg + zeros)) << "behind the end";
    EXPECT_TRUE(mayBe("\xFF\xD8" + zeros.substr(0, 1000) + jpeg.substr(2))) << "with rubbish in it";
    EXPECT_TRUE(mayBe("\xFF\xD8\xFF\xFF\xFF" + jpeg.substr(2))) << "with filling bytes";
    EXPECT_FALSE(mayBe("\xFF\xD8" + zeros));
    EXPECT_FALSE(mayBe(jpeg.substr(0, jpeg.size() - 2) + zeros));
    EXPECT_FALSE(mayBe("\xFF\xD8" + std::string(200'000, '\xFF') + zeros));
    EXPECT_FALSE(mayBe("\xFF\x01"
                       "Exiv2" +
                       zeros));
}

TEST(ImageKind, FindsThePacketOfAGIF) {
    EXPECT_EQ(xmp(gifFile("<x/>")), "<x/>");
    std::string behindThePicture = "GIF87a\1\0\1\0\0\0\0,\0\0\0\0\1\0\1\0\x80"s + std::string(6, 'c') +
                                   "\2\2D\1\0"s + "\x21\xFF\x0BXMP DataXMP<x/>\x01\xFF\xFE\xFD\xFC";
    EXPECT_EQ(xmp(behindThePicture), "<x/>");
}

TEST(ImageKind, FindsNoPacketWhereThereIsNone) {
    EXPECT_EQ(xmp(""), "");
    EXPECT_EQ(xmp("GIF89a"), "");
    EXPECT_EQ(xmp("GIF89a\1\0\1\0\0\0\0;"s), "");
    EXPECT_EQ(xmp("GIF89a\1\0\1\0\0\0\0"s + std::string(100, '\x21')), "");
    EXPECT_EQ(xmp("JPEG9a\1\0\1\0\0\0\0\x21\xFF\x0BXMP DataXMP<x/>"s), "");
}

} // namespace
