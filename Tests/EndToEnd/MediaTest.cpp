// SPDX-License-Identifier: Apache-2.0
#include "Tests/EndToEnd/EndToEnd.h"

#include "Platform/Foundation/NSNumber.h"
#include "Tests/Support/MediaWriter.h"

#include <filesystem>

namespace {

using namespace std::string_literals;

class Media : public EndToEnd {
protected:
    NSDictionary record(std::string_view bytes) const {
        return recordOf(request("QTPath", write("file", bytes)).output);
    }

    void expectEmptySuccess(const std::string& file) const {
        const ToolResult result = request("QTPath", file);
        const NSDictionary record = recordOf(result.output);
        EXPECT_EQ(record.count(), 6u) << file;
        for (const char16_t* key : {u"string", u"title", u"author", u"url"})
            EXPECT_EQ(stringIn(record, key), "") << file;
        EXPECT_EQ(logLines(result), std::vector<std::string>()) << file;
    }
};

std::string iTunes(std::string_view items) { return movieFile(atom("udta", itemList(items)), "M4A "); }
std::string title(std::string_view text) { return atom("@nam", dataAtom(1, text)); }
std::string artist(std::string_view text) { return atom("@ART", dataAtom(1, text)); }

TEST_F(Media, GivesCommonTitleAndArtistAndEveryLine) {
    const NSDictionary found = record(iTunes(title("T") + artist("A") + atom("@cmt", dataAtom(1, "C"))));
    EXPECT_EQ(stringIn(found, u"title"), "T");
    EXPECT_EQ(stringIn(found, u"author"), "A");
    EXPECT_EQ(stringIn(found, u"string"), "T\nA\nA\nC\nT");
    EXPECT_EQ(found.objectForKey(NSString(u"partsCount")), NSNumber::withInt(0));
    EXPECT_EQ(stringIn(found, u"url"), "");
    EXPECT_EQ(found.get<NSDictionary>(NSString(u"otherAttributes")).count(), 0u) << "not even keywords";
}

TEST_F(Media, GivesTheFourKeySpacesInTheirOrder) {
    const std::string file = movieFile(
        keyedItemList({{"com.apple.quicktime.comment", dataAtom(1, "keyed")}}) +
            atom("udta", atom("@inf", languageText(0, "user")) +
                             itemList(atom("@lyr", dataAtom(1, "iTunes"))) + isoText("titl", "common")),
        "qt  ");
    EXPECT_EQ(stringIn(record(file), u"string"), "common\niTunes\nkeyed\nuser");
}

TEST_F(Media, WithAnAuthorAndACreatorButNoArtistHasNoAuthor) {
    const NSDictionary found =
        record(iTunes(atom("@aut", dataAtom(1, "Author")) + atom("@wrt", dataAtom(1, "W"))));
    EXPECT_EQ(stringIn(found, u"author"), "");
    EXPECT_EQ(stringIn(found, u"title"), "");
    EXPECT_EQ(stringIn(found, u"string"), "W\nAuthor\nW\nAuthor");
}

TEST_F(Media, KeepsTheLaterOfTwoStringsWithOneKey) {
    const NSDictionary found = record(iTunes(title("early") + artist("A") + title("late")));
    EXPECT_EQ(stringIn(found, u"title"), "late");
    EXPECT_EQ(stringIn(found, u"string"), "late\nA\nA\nlate");
}

TEST_F(Media, LeavesArtworkAndNumbersOut) {
    EXPECT_EQ(stringIn(record(iTunes(title("T") + atom("covr", dataAtom(13, "\xFF\xD8picture")) +
                                     atom("tmpo", dataAtom(21, "\x78")))),
                       u"string"),
              "T\nT");
}

TEST_F(Media, WithOneValueIsOneLine) {
    EXPECT_EQ(stringIn(record(iTunes(atom("@cmt", dataAtom(1, "only")))), u"string"), "only");
}

TEST_F(Media, GivesOriginalSourceAndCreditsOfUserDataOnce) {
    EXPECT_EQ(stringIn(record(movieFile(atom("udta", atom("@src", languageText(0, "source"))))), u"string"),
              "source\nsource")
        << "as the common source, and once as user data";
}

TEST_F(Media, OfAnMP3HasCommonItemsOnly) {
    const NSDictionary found = record(id3Tag(3, id3Frame("TIT2", "\0T"s) + id3Frame("TPE1", "\0A"s) +
                                                    id3Frame("TCON", "\0Rock"s) + id3Frame("TALB", "\0L"s)));
    EXPECT_EQ(stringIn(found, u"title"), "T");
    EXPECT_EQ(stringIn(found, u"author"), "A");
    EXPECT_EQ(stringIn(found, u"string"), "T\nL\nA");
}

TEST_F(Media, TakesTheTagsOfAFileInTheirOrder) {
    const std::string comment = vorbisComment({"TITLE=own", "ALBUM=L"});
    const std::string flac = "fLaC\x84" + bigEndian(comment.size(), 3) + comment;
    EXPECT_EQ(stringIn(record(flac), u"string"), "own\nL");
    const std::string tag = id3Tag(3, id3Frame("TIT2", "\0front"s) + id3Frame("TPE1", "\0A"s));
    EXPECT_EQ(stringIn(record(tag + flac), u"string"), "own\nL\nA");
}

TEST_F(Media, PrefersTheTagInFrontToOneAtTheEnd) {
    const auto field = [](std::string text) { return text + std::string(30 - text.size(), '\0'); };
    const std::string old = "TAG" + field("old") + field("A") + field("L") + "2001" + field("") + "\x0C";
    EXPECT_EQ(stringIn(record("sound" + old), u"string"), "old\nL\nA");
    EXPECT_EQ(stringIn(record(id3Tag(3, id3Frame("TIT2", "\0front"s)) + "sound" + old), u"string"), "front");
    EXPECT_EQ(stringIn(record(id3Tag(3, id3Frame("TPE1", "\0front"s)) + "sound" + old), u"string"),
              "old\nL\nfront");
}

TEST_F(Media, ThatIsNoneIsAnEmptySuccess) {
    expectEmptySuccess(write("empty", ""));
    expectEmptySuccess(write("text.mp3", "not a media file"));
    expectEmptySuccess(write("zeros", std::string(100'000, '\0')));
    expectEmptySuccess(write("movie", movieFile("")));
    expectEmptySuccess(write("damaged", "\x30\x26\xB2\x75\x8E\x66\xCF\x11" + std::string(100, '\xFF')));
}

TEST_F(Media, ThatIsMissingOrNoFileIsAnError) {
    std::filesystem::create_directory(path("folder"));
    for (const std::string& file : {path("nothing"), path("folder"), std::string("/dev/zero"), std::string()})
        EXPECT_EQ(errorOf(request("QTPath", file).output), missingFile(file)) << file;
}

TEST_F(Media, MayHaveAnyName) {
    for (const char* name : {"two words", "per%20cent", "\xFF\xFE", "ü", "a?b#c", "line\nfeed"})
        EXPECT_EQ(stringIn(recordOf(request("QTPath", write(name, iTunes(title("T")))).output), u"title"),
                  "T")
            << name;
}

TEST_F(Media, KeepsNullsOutOfTheTitleOnly) {
    const NSDictionary found = record(iTunes(title("A\0B"s)));
    EXPECT_EQ(stringIn(found, u"title"), "AB");
    EXPECT_EQ(stringIn(found, u"string"), "A\0B\nA\0B"s);
}

} // namespace
