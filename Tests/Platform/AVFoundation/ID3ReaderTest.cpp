// SPDX-License-Identifier: Apache-2.0
#include "Platform/AVFoundation/ID3/ID3Reader.h"

#include "Platform/AVFoundation/ID3/ID3Text.h"
#include "Tests/Platform/AVFoundation/MediaItems.h"
#include "Tests/Support/MediaWriter.h"

#include <gtest/gtest.h>
#include <zlib.h>

namespace {

using namespace std::string_literals;

Texts frames(std::string_view tag) { return textsOf(tag, MediaKeySpace::id3); }

std::string latin(std::string_view text) { return "\0"s + std::string(text); }
std::string title(std::string_view text, unsigned version = 3) {
    return id3Frame("TIT2", latin(text), 0, version);
}

TEST(ID3Reader, ReadsEachVersion) {
    EXPECT_EQ(
        frames(id3Tag(2, id3Frame("TT2", latin("Title"), 0, 2) + id3Frame("TP1", latin("Artist"), 0, 2))),
        (Texts{{"TIT2", "Title"}, {"TPE1", "Artist"}}));
    EXPECT_EQ(frames(id3Tag(3, title("Title"))), (Texts{{"TIT2", "Title"}}));
    EXPECT_EQ(frames(id3Tag(4, title("Title", 4))), (Texts{{"TIT2", "Title"}}));
}

TEST(ID3Reader, DecodesEachEncoding) {
    struct {
        std::string body;
        const char* text;
    } const cases[] = {
        {"\0caf\xE9 \x93q\x94"s, "café “q”"},
        {"\0caf\xC3\xA9"s, "café"},
        {"\1\xFF\xFE"s + "h\0i\0"s, "hi"},
        {"\1\xFE\xFF"s + utf16BigEndian(u"café"), "café"},
        {"\1"s + "h\0i\0"s, "hi"},
        {"\2"s + utf16BigEndian(u"café"), "café"},
        {"\3caf\xC3\xA9"s, "café"},
        {"\0Title\0"s, "Title"},
        {"\1\xFF\xFE"s + "h\0i\0\0\0"s, "hi"},
    };
    for (const auto& c : cases)
        EXPECT_EQ(frames(id3Tag(3, id3Frame("TIT2", c.body))), (Texts{{"TIT2", c.text}}));
    EXPECT_EQ(frames(id3Tag(3, id3Frame("TIT2", "\4text"))), Texts());
    EXPECT_EQ(frames(id3Tag(3, id3Frame("TIT2", "\1\xFF\xFE"
                                                "h"s))),
              Texts());
}

TEST(ID3Reader, GivesEachOfSeveralValues) {
    EXPECT_EQ(frames(id3Tag(4, id3Frame("TPE1", "\3One\0Two"s, 0, 4))),
              (Texts{{"TPE1", "One"}, {"TPE1", "Two"}}));
    const std::string two = "\1\xFF\xFE"s + "a\0\0\0"s + "\xFF\xFE" + "b\0"s;
    EXPECT_EQ(frames(id3Tag(4, id3Frame("TPE1", two, 0, 4))), (Texts{{"TPE1", "a"}, {"TPE1", "b"}}));
}

TEST(ID3Reader, TakesNoNullsAtTheEndForValues) {
    EXPECT_EQ(frames(id3Tag(4, id3Frame("TIT2", "\3Title\0\0\0"s, 0, 4))), (Texts{{"TIT2", "Title"}}));
    const std::string wide = "\1\xFF\xFE"s + "a\0\0\0"s + "\xFF\xFE" + "\0\0"s;
    EXPECT_EQ(frames(id3Tag(4, id3Frame("TIT2", wide, 0, 4))), (Texts{{"TIT2", "a"}}));
    EXPECT_EQ(frames(id3Tag(3, id3Frame("TIT2", "\0\0\0"s))), Texts());
}

TEST(ID3Reader, EndsTextsOfOlderVersionsAtANull) {
    EXPECT_EQ(frames(id3Tag(3, id3Frame("TPE1", "\0One\0junk"s))), (Texts{{"TPE1", "One"}}));
    EXPECT_EQ(frames(id3Tag(2, id3Frame("TP1", "\0One\0junk"s, 0, 2))), (Texts{{"TPE1", "One"}}));
}

TEST(ID3Reader, PassesOverEmptyAndUnknownFrames) {
    EXPECT_EQ(frames(id3Tag(3, id3Frame("MCDI", "") + id3Frame("TIT1", "") + id3Frame("XYZ1", "bytes") +
                                   id3Frame("TXXX", latin("name")) + id3Frame("COMM", "\0engtext"s) +
                                   title("Title"))),
              (Texts{{"TIT2", "Title"}}));
}

TEST(ID3Reader, SaysThatThereIsAPictureWithoutReadingIt) {
    EXPECT_EQ(frames(id3Tag(3, id3Frame("APIC", std::string(300, 'p')) + title("Title"))),
              (Texts{{"APIC", "(opaque)"}, {"TIT2", "Title"}}));
}

TEST(ID3Reader, EndsAtThePadding) {
    EXPECT_EQ(frames(id3Tag(3, title("Title") + std::string(200, '\0') + title("not a frame"))),
              (Texts{{"TIT2", "Title"}}));
}

TEST(ID3Reader, UndoesTheUnsynchronisationOfATag) {
    std::string frame = id3Frame("TIT2", "\1\xFF\xFE"s + "h\0"s);
    frame.replace(frame.find("\xFF\xFE"), 2, "\xFF\0\xFE"s);
    EXPECT_EQ(frames(id3Tag(3, frame + title("Second"), 0x80)), (Texts{{"TIT2", "h"}, {"TIT2", "Second"}}));
    EXPECT_EQ(withoutUnsynchronisation("\xFF\0\0a\xFF"s), "\xFF\0a\xFF"s);
}

TEST(ID3Reader, UndoesTheUnsynchronisationOfAFrame) {
    const std::string body = "\1\xFF\0\xFE"s + "h\0"s;
    EXPECT_EQ(frames(id3Tag(4, id3Frame("TIT2", body, 0x02, 4))), (Texts{{"TIT2", "h"}}));
    EXPECT_EQ(frames(id3Tag(4, id3Frame("TIT2", body, 0, 4), 0x80)), (Texts{{"TIT2", "h"}}));
}

TEST(ID3Reader, InflatesACompressedFrame) {
    const std::string body = latin("Title");
    uLongf length = compressBound(body.size());
    std::string stream(length, '\0');
    compress(reinterpret_cast<Bytef*>(stream.data()), &length, reinterpret_cast<const Bytef*>(body.data()),
             body.size());
    stream.resize(length);
    EXPECT_EQ(frames(id3Tag(3, id3Frame("TIT2", bigEndian(body.size(), 4) + stream, 0x80))),
              (Texts{{"TIT2", "Title"}}));
    EXPECT_EQ(frames(id3Tag(4, id3Frame("TIT2", syncsafe(body.size()) + stream, 0x09, 4))),
              (Texts{{"TIT2", "Title"}}));
    EXPECT_EQ(frames(id3Tag(3, id3Frame("TIT2", "\0\0\0\x05junk"s, 0x80))), Texts());
}

TEST(ID3Reader, InflatesOnlySoMuchOfATag) {
    const std::string text = latin(std::string(4 << 20, 'x'));
    uLongf length = compressBound(text.size());
    std::string stream(length, '\0');
    compress(reinterpret_cast<Bytef*>(stream.data()), &length, reinterpret_cast<const Bytef*>(text.data()),
             text.size());
    stream.resize(length);
    std::string bombs;
    for (int i = 0; i < 10; ++i) bombs += id3Frame("TIT2", bigEndian(text.size(), 4) + stream, 0x80);
    size_t total = 0;
    for (const auto& [key, value] : frames(id3Tag(3, bombs))) total += value.size();
    EXPECT_GT(total, 8u << 20);
    EXPECT_LE(total, 16u << 20);
}

TEST(ID3Reader, PassesOverWhatIsEncryptedAndTheGroupOfAFrame) {
    EXPECT_EQ(
        frames(id3Tag(3, id3Frame("TIT2", "secret", 0x40) + id3Frame("TPE1", "g" + latin("Artist"), 0x20))),
        (Texts{{"TPE1", "Artist"}}));
    EXPECT_EQ(
        frames(id3Tag(4, id3Frame("TIT2", "secret", 0x04, 4) + id3Frame("TPE1", "g" + latin("A"), 0x40, 4))),
        (Texts{{"TPE1", "A"}}));
}

TEST(ID3Reader, StepsOverTheExtendedHeader) {
    EXPECT_EQ(frames(id3Tag(3, bigEndian(6, 4) + std::string(6, '\0') + title("Title"), 0x40)),
              (Texts{{"TIT2", "Title"}}));
    EXPECT_EQ(frames(id3Tag(4, syncsafe(6) + "\1\0"s + title("Title", 4), 0x40)), (Texts{{"TIT2", "Title"}}));
}

TEST(ID3Reader, ReadsAWrongLengthOfVersion4ByWhatFollowsIt) {
    const std::string text(300, 't');
    const std::string plain = id3Frame("TIT2", latin(text), 0, 3),
                      next = id3Frame("TPE1", latin("Artist"), 0, 4);
    EXPECT_EQ(frames(id3Tag(4, plain + next)), (Texts{{"TIT2", text}, {"TPE1", "Artist"}}));
    EXPECT_EQ(frames(id3Tag(4, id3Frame("TIT2", latin(text), 0, 4) + next)),
              (Texts{{"TIT2", text}, {"TPE1", "Artist"}}));
}

TEST(ID3Reader, TakesOldNamesInANewTag) {
    EXPECT_EQ(frames(id3Tag(3, id3Frame("TT2\0"s, latin("Title")))), (Texts{{"TIT2", "Title"}}));
}

TEST(ID3Reader, LeavesOutACompressedTagOfVersion2AndUnknownVersions) {
    EXPECT_EQ(frames(id3Tag(2, id3Frame("TT2", latin("Title"), 0, 2), 0x40)), Texts());
    EXPECT_EQ(frames(id3Tag(9, title("Title"))), Texts());
}

TEST(ID3Reader, CutsWhatClaimsMoreThanThereIs) {
    std::string tag = id3Tag(3, title("Title"));
    tag.replace(6, 4, syncsafe(0xFFFFFFF));
    EXPECT_EQ(frames(tag), (Texts{{"TIT2", "Title"}}));
    tag.replace(14, 4, bigEndian(0x7FFFFFFF, 4));
    EXPECT_EQ(frames(tag), (Texts{{"TIT2", "Title"}}));
}

TEST(ID3Reader, AnswersTheLengthOfTheWholeTag) {
    std::vector<MediaItem> items;
    const std::string bytes = id3Tag(3, title("Title")) + "rest", footed = id3Tag(4, title("T", 4), 0x10);
    MemorySource source(bytes), withFooter(footed), none("RIFF");
    EXPECT_EQ(readID3Tag(source, {0, source.size()}, items), bytes.size() - 4);
    EXPECT_EQ(readID3Tag(withFooter, {0, withFooter.size()}, items), footed.size() + 10);
    EXPECT_EQ(readID3Tag(none, {0, none.size()}, items), 0u);
}

TEST(ID3Reader, ReadsEveryTagInFront) {
    EXPECT_EQ(frames(id3Tag(3, title("One")) + id3Tag(3, title("Two"))),
              (Texts{{"TIT2", "One"}, {"TIT2", "Two"}}));
}

} // namespace
