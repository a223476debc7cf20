// SPDX-License-Identifier: Apache-2.0
#include "Platform/SearchKit/Compression/Decompress.h"

#include <bzlib.h>
#include <gtest/gtest.h>
#include <lzma.h>
#include <zlib.h>
#include <zstd.h>

namespace {

std::string gzipped(std::string bytes) {
    z_stream stream{};
    deflateInit2(&stream, 1, Z_DEFLATED, 16 + MAX_WBITS, 8, Z_DEFAULT_STRATEGY);
    std::string packed(deflateBound(&stream, bytes.size()), '\0');
    stream.next_in = reinterpret_cast<Bytef*>(bytes.data());
    stream.avail_in = uInt(bytes.size());
    stream.next_out = reinterpret_cast<Bytef*>(packed.data());
    stream.avail_out = uInt(packed.size());
    deflate(&stream, Z_FINISH);
    packed.resize(stream.total_out);
    deflateEnd(&stream);
    return packed;
}

std::string bzip2ed(std::string bytes) {
    std::string packed(bytes.size() + 1024, '\0');
    auto size = unsigned(packed.size());
    BZ2_bzBuffToBuffCompress(packed.data(), &size, bytes.data(), unsigned(bytes.size()), 1, 0, 0);
    packed.resize(size);
    return packed;
}

std::string xzed(std::string bytes) {
    std::string packed(lzma_stream_buffer_bound(bytes.size()), '\0');
    size_t size = 0;
    lzma_easy_buffer_encode(0, LZMA_CHECK_CRC32, nullptr, reinterpret_cast<const uint8_t*>(bytes.data()),
                            bytes.size(), reinterpret_cast<uint8_t*>(packed.data()), &size, packed.size());
    packed.resize(size);
    return packed;
}

std::string zstded(std::string bytes) {
    std::string packed(ZSTD_compressBound(bytes.size()), '\0');
    packed.resize(ZSTD_compress(packed.data(), packed.size(), bytes.data(), bytes.size(), 1));
    return packed;
}

struct Format {
    const char* name;
    std::string (*pack)(std::string bytes);
};

class Decompression : public testing::TestWithParam<Format> {
protected:
    static std::string pack(const std::string& bytes) { return GetParam().pack(bytes); }
    static std::string unpack(std::string_view bytes) {
        Deadline deadline;
        std::string all;
        EXPECT_EQ(decompress(bytes, deadline, all), DecompressionStatus::done);
        return all;
    }
};

TEST_P(Decompression, GivesBackWhatWasCompressed) {
    std::string text;
    for (int i = 0; i < 50'000; ++i) text += std::to_string(i);
    EXPECT_EQ(unpack(pack(text)), text);
    EXPECT_EQ(unpack(pack("")), "");
}

TEST_P(Decompression, ReadsPiecesOneBehindTheOther) {
    EXPECT_EQ(unpack(pack("one ") + pack("two")), "one two");
}

TEST_P(Decompression, EndsAtDamage) {
    const std::string whole = pack(std::string(1'000'000, 'x') + "end");
    for (const size_t kept : {whole.size() - 1, whole.size() / 2, size_t(6)})
        EXPECT_LE(unpack(std::string_view(whole).substr(0, kept)).size(), 1'000'003u) << kept;
    EXPECT_EQ(unpack(pack("one") + "junk"), "one");
}

TEST_P(Decompression, IsBoundedInLength) {
    const std::string megabytes = pack(std::string(16 << 20, 'x'));
    std::string bomb;
    for (int i = 0; i < 17; ++i) bomb += megabytes;
    const size_t size = unpack(bomb).size();
    EXPECT_GE(size, size_t(256) << 20);
    EXPECT_LE(size, size_t(257) << 20);
}

INSTANTIATE_TEST_SUITE_P(All, Decompression,
                         testing::Values(Format{"gzip", gzipped}, Format{"bzip2", bzip2ed},
                                         Format{"xz", xzed}, Format{"zstd", zstded}),
                         [](const auto& test) { return test.param.name; });

TEST(DecompressionOfOthers, IsRefused) {
    Deadline deadline;
    std::string all;
    for (const char* bytes : {"", "plain", "BZ", "\x1F"})
        EXPECT_EQ(decompress(bytes, deadline, all), DecompressionStatus::wrongKind) << bytes;
}

} // namespace
