// SPDX-License-Identifier: Apache-2.0
#include "Platform/SearchKit/Compression/Codecs.h"

#include <algorithm>
#include <new>
#include <type_traits>

namespace {

constexpr int kWithGzipHeader = 16 + MAX_WBITS;
constexpr size_t kLargestStep = size_t(1) << 30;             // the streams count in 32 bits
constexpr uint64_t kLzmaMemory = uint64_t(256) << 20;        // bytes; the largest preset takes 65 MiB
constexpr int kSmallMemory = 0, kQuiet = 0, kWindowLog = 27; // 128 MiB, what zstd --long writes

// Gives the stream its input and its output, and takes off what `step` used of the one and wrote of the
// other.
template <class Stream, class Byte, class Step>
auto inStream(Stream& stream, std::string_view& input, char* output, size_t& size, const Step& step) {
    const size_t given = std::min(input.size(), kLargestStep);
    stream.next_in = reinterpret_cast<Byte*>(const_cast<char*>(input.data()));
    stream.avail_in = static_cast<decltype(stream.avail_in)>(given);
    stream.next_out = reinterpret_cast<std::remove_const_t<Byte>*>(output);
    stream.avail_out = static_cast<decltype(stream.avail_out)>(size);
    const auto status = step();
    input.remove_prefix(given - stream.avail_in);
    size -= stream.avail_out;
    return status;
}

} // namespace

GzipCodec::GzipCodec() {
    if (inflateInit2(&stream_, kWithGzipHeader) != Z_OK) throw std::bad_alloc();
}

bool GzipCodec::decode(std::string_view& input, char* output, size_t& size) {
    const int status = inStream<z_stream, Bytef>(stream_, input, output, size,
                                                 [&] { return inflate(&stream_, Z_NO_FLUSH); });
    if (status == Z_STREAM_END) return !input.empty() && inflateReset(&stream_) == Z_OK;
    return status == Z_OK;
}

void Bzip2Codec::begin() {
    if (BZ2_bzDecompressInit(&stream_, kQuiet, kSmallMemory) != BZ_OK) throw std::bad_alloc();
}

bool Bzip2Codec::decode(std::string_view& input, char* output, size_t& size) {
    const int status =
        inStream<bz_stream, char>(stream_, input, output, size, [&] { return BZ2_bzDecompress(&stream_); });
    if (status == BZ_STREAM_END && !input.empty()) {
        BZ2_bzDecompressEnd(&stream_);
        stream_ = {};
        begin();
        return true;
    }
    // The library does not say that it waits for input that will not come.
    return status == BZ_OK && (size > 0 || !input.empty());
}

LzmaCodec::LzmaCodec() {
    if (lzma_auto_decoder(&stream_, kLzmaMemory, LZMA_CONCATENATED) != LZMA_OK) throw std::bad_alloc();
}

bool LzmaCodec::decode(std::string_view& input, char* output, size_t& size) {
    const lzma_action action = input.size() > kLargestStep ? LZMA_RUN : LZMA_FINISH;
    return inStream<lzma_stream, const uint8_t>(stream_, input, output, size,
                                                [&] { return lzma_code(&stream_, action); }) == LZMA_OK;
}

ZstdCodec::ZstdCodec() : context_(ZSTD_createDCtx()) {
    if (!context_) throw std::bad_alloc();
    ZSTD_DCtx_setParameter(context_, ZSTD_d_windowLogMax, kWindowLog);
}

bool ZstdCodec::decode(std::string_view& input, char* output, size_t& size) {
    ZSTD_inBuffer in{input.data(), input.size(), 0};
    ZSTD_outBuffer out{output, size, 0};
    const size_t status = ZSTD_decompressStream(context_, &out, &in);
    input.remove_prefix(in.pos);
    size = out.pos;
    return !ZSTD_isError(status) && (in.pos > 0 || out.pos > 0);
}
