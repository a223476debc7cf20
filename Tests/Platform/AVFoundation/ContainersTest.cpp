// SPDX-License-Identifier: Apache-2.0
//
// The containers of sound and film that are neither of the QuickTime family nor MP3.
#include "Tests/Platform/AVFoundation/MediaItems.h"
#include "Tests/Support/MediaWriter.h"

#include <gtest/gtest.h>

namespace {

using namespace std::string_literals;

Texts fields(std::string_view file) { return textsOf(file, MediaKeySpace::fieldName); }

const std::string kTag = id3Tag(3, id3Frame("TIT2", "\0Title"s));
const Texts kTagFound = {{"TIT2", "Title"}};

std::string wave(std::string_view chunks) {
    return "RIFF" + littleEndian(4 + chunks.size(), 4) + "WAVE" + std::string(chunks);
}
std::string info(std::string_view texts) { return riffChunk("LIST", "INFO" + std::string(texts)); }

TEST(Wave, GivesTheTextsOfItsInformation) {
    EXPECT_EQ(fields(wave(riffChunk("fmt ", std::string(16, '\0')) +
                          info(riffChunk("INAM", "Title\0"s) + riffChunk("IART", "Bj\xF6rk") +
                               riffChunk("ICMT", "comment") + riffChunk("ICOP", "\xC2\xA9 2001")))),
              (Texts{{"TITLE", "Title"}, {"ARTIST", "Björk"}, {"COPYRIGHT", "© 2001"}}));
}

TEST(Wave, ReadsAnID3TagAmongItsChunksLast) {
    const std::string file = wave(riffChunk("id3 ", kTag) + info(riffChunk("INAM", "short")));
    EXPECT_EQ(textsOf(file, MediaKeySpace::id3), kTagFound);
    EXPECT_EQ(readBytes(file).items.back().key, "TIT2");
}

TEST(Wave, OfMoreThan4GiBHasItsLengthInAChunk) {
    const std::string file =
        "RF64" + bigEndian(0xFFFFFFFF, 4) + "WAVE" +
        riffChunk("ds64", std::string(8, '\0') + littleEndian(6, 8) + std::string(12, '\0')) + "data" +
        bigEndian(0xFFFFFFFF, 4) + "sound!" + info(riffChunk("INAM", "Title"));
    EXPECT_EQ(fields(file), (Texts{{"TITLE", "Title"}}));
}

TEST(Wave, SurvivesLengthsThatLie) {
    std::string file = wave(info(riffChunk("INAM", "Title")));
    file.replace(file.find("INAM") + 4, 4, littleEndian(0xFFFFFFF0, 4));
    EXPECT_EQ(fields(file), (Texts{{"TITLE", "Title"}}));
    file.replace(file.find("LIST") + 4, 4, littleEndian(0, 4));
    EXPECT_LE(fields(file).size(), 1u);
}

TEST(AIFF, GivesItsTextsAndItsTag) {
    const std::string chunks = aiffChunk("NAME", "caf\x8E") + aiffChunk("AUTH", "Author") +
                               aiffChunk("(c) ", "2001") + aiffChunk("ID3 ", kTag);
    const std::string file = "FORM" + bigEndian(4 + chunks.size(), 4) + "AIFF" + chunks;
    EXPECT_EQ(fields(file), (Texts{{"TITLE", "café"}, {"AUTHOR", "Author"}, {"COPYRIGHT", "2001"}}));
    EXPECT_EQ(textsOf(file, MediaKeySpace::id3), kTagFound);
}

TEST(CAF, GivesItsInformation) {
    const std::string strings = bigEndian(2, 4) + "title\0Title\0artist\0Artist\0"s;
    const std::string file = "caff" + bigEndian(0x10000, 4) + "info" + bigEndian(strings.size(), 8) + strings;
    EXPECT_EQ(fields(file), (Texts{{"TITLE", "Title"}, {"ARTIST", "Artist"}}));
}

TEST(OneBitAudio, HasItsTagWhereItsHeaderSays) {
    const std::string file =
        "DSD " + littleEndian(28, 8) + littleEndian(0, 8) + littleEndian(32, 8) + "dataxxxx"s;
    EXPECT_EQ(textsOf(file.substr(0, 28) + "data" + kTag, MediaKeySpace::id3), kTagFound);
}

TEST(OneBitAudio, InChunksGivesTitleArtistAndTag) {
    const auto chunk = [](std::string_view name, std::string_view body) {
        return std::string(name) + bigEndian(body.size(), 8) + std::string(body) +
               std::string(body.size() & 1, '\0');
    };
    const std::string text =
        chunk("DIIN", chunk("DITI", bigEndian(5, 4) + "Title") + chunk("DIAR", bigEndian(4, 4) + "Arti"));
    const std::string file = "FRM8" + bigEndian(0, 8) + "DSD " + text + chunk("ID3 ", kTag);
    EXPECT_EQ(fields(file), (Texts{{"TITLE", "Title"}, {"ARTIST", "Arti"}}));
    EXPECT_EQ(textsOf(file, MediaKeySpace::id3), kTagFound);
}

const std::string kComment = vorbisComment({"title=Title", "ARTIST=One", "Artist=Two", "no sign"});
const Texts kCommentFound = {{"TITLE", "Title"}, {"ARTIST", "One"}, {"ARTIST", "Two"}};

TEST(Ogg, GivesTheCommentsOfEachCodec) {
    const std::pair<std::string, std::string> codecs[] = {
        {"\1vorbis", "\3vorbis" + kComment},
        {"OpusHead", "OpusTags" + kComment},
        {"\x80theora", "\x81theora" + kComment},
        {"Speex   1.2", kComment},
        {"\x7F"
         "FLAC",
         "\4\0\0\0"s + kComment},
    };
    for (const auto& [first, second] : codecs) {
        EXPECT_EQ(fields(oggPage(1, 2, {first}) + oggPage(1, 0, {second})), kCommentFound) << first;
    }
}

TEST(Ogg, GivesTheCommentsOfEachStream) {
    const std::string file = oggPage(1, 2, {"fishead"}) + oggPage(2, 2, {"\x80theora"}) +
                             oggPage(3, 2, {"\1vorbis"}) + oggPage(1, 0, {"fisbone", "fisbone"}) +
                             oggPage(2, 0, {"\x81theora" + vorbisComment({"TITLE=film"})}) +
                             oggPage(3, 0, {"\3vorbis" + vorbisComment({"TITLE=sound"})});
    EXPECT_EQ(fields(file), (Texts{{"TITLE", "film"}, {"TITLE", "sound"}}));
}

TEST(Ogg, PutsPacketsTogetherOverPages) {
    const std::string packet = "\3vorbis" + vorbisComment({"TITLE=" + std::string(600, 't')});
    const std::string first = packet.substr(0, 510), rest = packet.substr(510);
    std::string page = oggPage(1, 0, {first});
    // Without the segment of length 0, which ended the packet.
    page[26] = 2;
    page.erase(29, 1);
    EXPECT_EQ(fields(oggPage(1, 2, {"\1vorbis"}) + page + oggPage(1, 1, {rest})),
              (Texts{{"TITLE", std::string(600, 't')}}));
}

TEST(Ogg, DoesNotLookThroughTheSoundForOtherComments) {
    std::string file =
        oggPage(1, 2, {"fishead"}) + oggPage(2, 2, {"OpusHead"}) + oggPage(2, 0, {"OpusTags" + kComment});
    for (int i = 0; i < 100; ++i) file += oggPage(2, 0, {"sound"});
    EXPECT_EQ(fields(file + oggPage(1, 0, {"\3vorbis" + vorbisComment({"TITLE=late"})})), kCommentFound);
}

std::string flacBlock(unsigned type, std::string_view body) {
    return bigEndian(type, 1) + bigEndian(body.size(), 3) + std::string(body);
}

TEST(FLAC, GivesItsCommentsInTheirOrder) {
    const std::string start = "fLaC" + flacBlock(0, std::string(34, '\0'));
    EXPECT_EQ(fields(start + flacBlock(1, "padding") + flacBlock(0x84, kComment) + "\xFF\xF8"),
              kCommentFound);
    EXPECT_EQ(fields(start + flacBlock(0x81, "padding") + flacBlock(4, kComment)), Texts()) << "sound";
    EXPECT_EQ(fields(kTag + start + flacBlock(0x84, kComment)), kCommentFound) << "behind a tag";
}

TEST(FLAC, ThatIsDamagedGivesWhatIsThere) {
    const std::string file = "fLaC" + flacBlock(0x84, kComment);
    EXPECT_EQ(fields(file.substr(0, file.size() - 10)),
              (Texts{{"TITLE", "Title"}, {"ARTIST", "One"}, {"ARTIST", "Two"}}));
    EXPECT_EQ(fields("fLaC"), Texts());
    EXPECT_EQ(fields("fLaC" + std::string(100'000, '\0') + flacBlock(4, kComment)), Texts())
        << "too many blocks";
}

TEST(Ogg, KeepsTheFieldsInFrontOfDamage) {
    std::string comment = vorbisComment({"TITLE=Title", "ARTIST=Artist"});
    comment.replace(comment.find("ARTIST") - 4, 4, littleEndian(0xFFFFFFFF, 4));
    EXPECT_EQ(fields(oggPage(1, 2, {"OpusHead"}) + oggPage(1, 0, {"OpusTags" + comment})),
              (Texts{{"TITLE", "Title"}, {"ARTIST", "Artist"}}));
    EXPECT_EQ(fields(oggPage(1, 2, {"OpusHead"}) + oggPage(1, 0, {"OpusTags\1\0"s})), Texts());
}

constexpr uint32_t kHeader = 0x1A45DFA3, kSegment = 0x18538067, kInfo = 0x1549A966, kTitle = 0x7BA9,
                   kTags = 0x1254C367, kTagElement = 0x7373, kTargets = 0x63C0, kLevel = 0x68CA,
                   kTrack = 0x63C5, kSimpleTag = 0x67C8, kName = 0x45A3, kString = 0x4487,
                   kSeekHead = 0x114D9B74, kSeek = 0x4DBB, kSeekId = 0x53AB, kSeekPosition = 0x53AC,
                   kCluster = 0x1F43B675;

std::string simpleTag(std::string_view name, std::string_view text) {
    return element(kSimpleTag, element(kName, name) + element(kString, text));
}

std::string tag(unsigned level, std::string_view tags) {
    return element(kTagElement, element(kTargets, element(kLevel, bigEndian(level, 1))) + std::string(tags));
}

std::string matroska(std::string_view segment) { return element(kHeader, "") + element(kSegment, segment); }

TEST(Matroska, GivesTitleAndTags) {
    EXPECT_EQ(fields(matroska(element(kInfo, element(kTitle, "Film")) +
                              element(kTags, tag(30, simpleTag("Artist", "Somebody"))))),
              (Texts{{"ARTIST", "Somebody"}, {"TITLE", "Film"}}));
}

TEST(Matroska, PutsTheAlbumBeforeThePieceAndNamesIt) {
    EXPECT_EQ(fields(matroska(
                  element(kTags, tag(30, simpleTag("TITLE", "Piece") + simpleTag("ARTIST", "Singer")) +
                                     tag(50, simpleTag("TITLE", "Album") + simpleTag("ARTIST", "Band"))))),
              (Texts{{"ALBUM", "Album"}, {"ARTIST", "Band"}, {"TITLE", "Piece"}, {"ARTIST", "Singer"}}));
    EXPECT_EQ(fields(matroska(element(kTags, tag(50, simpleTag("TITLE", "Film"))))),
              (Texts{{"TITLE", "Film"}}));
}

TEST(Matroska, LeavesOutTheTagsOfTracks) {
    const std::string ofTrack =
        element(kTagElement, element(kTargets, element(kTrack, "\7")) + simpleTag("TITLE", "x"));
    EXPECT_EQ(fields(matroska(element(kTags, ofTrack + tag(50, simpleTag("ARTIST", "A"))))),
              (Texts{{"ARTIST", "A"}}));
}

TEST(Matroska, FollowsTheIndexBehindALiveCluster) {
    const auto segment = [](uint64_t position) {
        const std::string index =
            element(kSeekHead, element(kSeek, element(kSeekId, bigEndian(kTags, 4)) +
                                                  element(kSeekPosition, bigEndian(position, 8))));
        return index + bigEndian(kCluster, 4) + "\xFF" + std::string(300, '\0');
    };
    const std::string tags = element(kTags, tag(50, simpleTag("ARTIST", "A")));
    EXPECT_EQ(fields(matroska(segment(segment(0).size()) + tags)), (Texts{{"ARTIST", "A"}}));
    EXPECT_EQ(fields(matroska(segment(UINT64_MAX) + tags)), Texts());
}

TEST(Matroska, WithoutAKnownLengthIsReadToItsEnd) {
    const std::string file = element(kHeader, "") + bigEndian(kSegment, 4) + "\x01" + std::string(7, '\xFF') +
                             element(kInfo, element(kTitle, "Live"));
    EXPECT_EQ(fields(file), (Texts{{"TITLE", "Live"}}));
}

TEST(ReadMedia, SaysForWhichLibraryReaderTheRestIs) {
    const std::pair<std::string, AudioTagsKind> files[] = {
        {"wvPk1234", AudioTagsKind::none},
        {"\x30\x26\xB2\x75\x8E\x66\xCF\x11", AudioTagsKind::windowsMedia},
        {"TAG" + std::string(125, 'x'), AudioTagsKind::atTheEnd},
        {"sound"
         "APETAGEX" +
             std::string(24, 'x'),
         AudioTagsKind::atTheEnd},
        {"APETAGEX" + std::string(24, 'x') + "TAG" + std::string(125, 'x'), AudioTagsKind::atTheEnd},
        {"nothing that anybody knows", AudioTagsKind::none},
        {"", AudioTagsKind::none},
    };
    for (const auto& [bytes, kind] : files) EXPECT_EQ(readBytes(bytes).rest, kind) << bytes;
}

TEST(ReadMedia, LeavesTheTagAtTheEndForTheOneInFront) {
    EXPECT_EQ(readBytes(kTag + "sound" + "TAG" + std::string(125, 'x')).rest, AudioTagsKind::none);
    EXPECT_EQ(readBytes(id3Tag(3, "") + "TAG" + std::string(125, 'x')).rest, AudioTagsKind::atTheEnd);
    const std::string nameless = id3Tag(3, id3Frame("TSSE", "\0writer"s));
    EXPECT_EQ(readBytes(nameless + "TAG" + std::string(125, 'x')).rest, AudioTagsKind::atTheEnd);
    EXPECT_EQ(readBytes(kTag + "\x30\x26\xB2\x75\x8E\x66\xCF\x11").rest, AudioTagsKind::windowsMedia);
}

} // namespace
