// SPDX-License-Identifier: Apache-2.0
#include "Platform/PDFKit/MuPDF/DocumentStream.h"

#include <algorithm>
#include <cstdio>

namespace {

constexpr size_t kPiece = 4096; // bytes between two looks at the clock, which may stand for millions decoded

struct Source {
    std::string_view bytes;
    const WorkLimit* limit;
};

// Lets the engine read where the bytes are.
void show(fz_stream* stream, const Source& source, size_t position, size_t size) {
    auto* data = const_cast<unsigned char*>(reinterpret_cast<const unsigned char*>(source.bytes.data()));
    stream->rp = data + position;
    stream->wp = stream->rp + size;
    stream->pos = int64_t(position + size);
}

int nextPiece(fz_context*, fz_stream* stream, size_t) {
    const Source& source = *static_cast<Source*>(stream->state);
    auto position = size_t(stream->pos);
    size_t size = source.limit->isOver() ? 0 : std::min(source.bytes.size() - position, kPiece);
    show(stream, source, position, size);
    return size > 0 ? *stream->rp++ : EOF;
}

void seek(fz_context*, fz_stream* stream, int64_t offset, int whence) {
    const Source& source = *static_cast<Source*>(stream->state);
    auto size = int64_t(source.bytes.size());
    if (whence == SEEK_CUR) offset += stream->pos - (stream->wp - stream->rp);
    if (whence == SEEK_END) offset += size;
    show(stream, source, size_t(std::clamp<int64_t>(offset, 0, size)), 0);
    stream->eof = 0;
}

} // namespace

fz_stream* openDocumentStream(fz_context* context, std::string_view bytes, const WorkLimit& limit) {
    auto* source = static_cast<Source*>(fz_malloc(context, sizeof(Source)));
    *source = {bytes, &limit};
    fz_stream* stream = fz_new_stream(context, source, nextPiece, fz_free);
    stream->seek = seek;
    show(stream, *source, 0, 0);
    return stream;
}
