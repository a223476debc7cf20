// SPDX-License-Identifier: Apache-2.0
#include "Platform/AVFoundation/Ogg/OggReader.h"

#include <algorithm>
#include <map>

namespace {

constexpr unsigned kPageLimit = 1024;         // pages of 64 KiB at most, and covers are part of comments
constexpr unsigned kDataPageLimit = 64;       // of streams whose comments are known
constexpr unsigned kHeaderPackets = 3;        // of the codecs with most of them
constexpr unsigned kHeaderLength = 27;        // of a page, before the lengths of its segments
constexpr unsigned kFirstPageOfStream = 0x02; // a flag

// The marks in front of the comments of each codec.
constexpr std::string_view kCommentMarks[] = {"\x03vorbis", "OpusTags", "\x81theora"};

class OggStream {
public:
    bool isDone() const { return isDone_; }

    void addSegment(const std::string& bytes, bool endsPacket, std::vector<MediaItem>& items) {
        if (isDone_) return;
        packet_ += bytes;
        if (!endsPacket) return;
        addPacket(items);
        packet_.clear();
    }

private:
    void addPacket(std::vector<MediaItem>& items) {
        const std::string_view packet = packet_;
        ++count_;
        if (count_ == 1) {
            isSpeex_ = packet.starts_with("Speex   ");
            isFLAC_ = packet.starts_with("\x7F"
                                         "FLAC") ||
                      packet.starts_with("fLaC");
            return;
        }
        std::string_view comment;
        if (isSpeex_) comment = packet;
        if (isFLAC_ && !packet.empty() && (packet[0] & 0x7F) == 4)
            comment = packet.substr(std::min<size_t>(4, packet.size()));
        for (std::string_view mark : kCommentMarks) {
            if (packet.starts_with(mark)) comment = packet.substr(mark.size());
        }
        addVorbisComment(comment, items);
        isDone_ = !comment.empty() || count_ >= kHeaderPackets;
    }

    std::string packet_;
    unsigned count_ = 0;
    bool isDone_ = false, isSpeex_ = false, isFLAC_ = false;
};

} // namespace

bool readOggFile(ByteSource& source, ByteRange range, std::vector<MediaItem>& items) {
    std::map<uint64_t, OggStream> streams; // by their serial numbers
    ByteRange page = range;
    unsigned dataPages = 0;
    for (unsigned count = 0; count < kPageLimit && source.bytes(page.begin, 4) == "OggS"; ++count) {
        const auto flags = unsigned(source.bigEndian(page.begin + 5, 1));
        const bool allDone = std::all_of(streams.begin(), streams.end(),
                                         [](const auto& entry) { return entry.second.isDone(); });
        if (!(flags & kFirstPageOfStream) && allDone) break;
        OggStream& stream = streams[source.littleEndian(page.begin + 14, 4)];
        if (stream.isDone() && ++dataPages > kDataPageLimit) break;
        const std::string lengths =
            source.bytes(page.begin + kHeaderLength, size_t(source.bigEndian(page.begin + 26, 1)));
        page = page.part(kHeaderLength + lengths.size());
        for (const char byte : lengths) {
            const auto length = static_cast<unsigned char>(byte);
            if (!stream.isDone()) stream.addSegment(source.bytes(page.begin, length), length < 255, items);
            page = page.part(length);
        }
    }
    return page.begin != range.begin;
}
