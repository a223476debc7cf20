// SPDX-License-Identifier: Apache-2.0
//
// The libraries' decoders behind one form: `decode` takes bytes off the input and writes no more than `size`
// of them, which it sets to what it wrote. It answers false when nothing more can come. Files may hold
// several pieces one behind the other.
#pragma once

#include <string_view>

#include <bzlib.h>
#include <lzma.h>
#include <zlib.h>
#include <zstd.h>

class GzipCodec {
public:
    GzipCodec();
    ~GzipCodec() { inflateEnd(&stream_); }
    GzipCodec(const GzipCodec&) = delete;
    GzipCodec& operator=(const GzipCodec&) = delete;
    bool decode(std::string_view& input, char* output, size_t& size);

private:
    z_stream stream_{};
};

class Bzip2Codec {
public:
    Bzip2Codec() { begin(); }
    ~Bzip2Codec() { BZ2_bzDecompressEnd(&stream_); }
    Bzip2Codec(const Bzip2Codec&) = delete;
    Bzip2Codec& operator=(const Bzip2Codec&) = delete;
    bool decode(std::string_view& input, char* output, size_t& size);

private:
    void begin();

    bz_stream stream_{};
};

class LzmaCodec {
public:
    LzmaCodec();
    ~LzmaCodec() { lzma_end(&stream_); }
    LzmaCodec(const LzmaCodec&) = delete;
    LzmaCodec& operator=(const LzmaCodec&) = delete;
    bool decode(std::string_view& input, char* output, size_t& size);

private:
    lzma_stream stream_ = LZMA_STREAM_INIT;
};

class ZstdCodec {
public:
    ZstdCodec();
    ~ZstdCodec() { ZSTD_freeDCtx(context_); }
    ZstdCodec(const ZstdCodec&) = delete;
    ZstdCodec& operator=(const ZstdCodec&) = delete;
    bool decode(std::string_view& input, char* output, size_t& size);

private:
    ZSTD_DCtx* context_;
};
