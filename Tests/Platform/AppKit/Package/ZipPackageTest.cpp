// SPDX-License-Identifier: Apache-2.0
#include "Platform/AppKit/Package/ZipPackage.h"
#include "Tests/Support/ZipWriter.h"

#include <gtest/gtest.h>
#include <string>
#include <vector>

namespace {

std::string sampleText(size_t lines) {
    std::string text;
    for (size_t i = 0; i < lines; ++i) text += "line " + std::to_string(i * 7919 % 10007) + "\n";
    return text;
}

std::string contents(const std::optional<ZipPackage>& package, std::string_view name) {
    Deadline deadline;
    return package ? package->contents(name, deadline, 1 << 24) : "no package";
}

bool readsWhole(const ZipPackage& package, std::string_view name) {
    Deadline deadline;
    return package.read(name, deadline, [](std::string_view) { return true; });
}

TEST(ZipPackage, readsStoredAndDeflatedEntriesInEveryForm) {
    const std::string text = sampleText(5000);
    for (bool deflate : {false, true}) {
        for (bool sizesBehind : {false, true}) {
            for (bool large : {false, true}) {
                ZipWriter writer;
                writer.add("first.txt", "first", {deflate, sizesBehind, large && !sizesBehind, 0});
                writer.add("dir/second.txt", text, {deflate, sizesBehind, large && !sizesBehind, 0});
                for (const std::string& archive : {writer.finish(large), writer.body()}) {
                    SCOPED_TRACE(testing::Message() << deflate << sizesBehind << large << archive.size());
                    auto package = ZipPackage::open(archive);
                    EXPECT_EQ(contents(package, "first.txt"), "first");
                    EXPECT_EQ(contents(package, "dir/second.txt"), text);
                    EXPECT_TRUE(readsWhole(*package, "dir/second.txt"));
                }
            }
        }
    }
}

TEST(ZipPackage, comparesNamesWithoutCaseAndWithEitherSlash) {
    ZipWriter writer;
    writer.add("Word\\Document.XML", "text");
    std::string archive = writer.finish();
    auto package = ZipPackage::open(archive);
    for (const char* name : {"word/document.xml", "/word/document.xml", "WORD\\DOCUMENT.xml"})
        EXPECT_TRUE(package->contains(name)) << name;
    EXPECT_FALSE(package->contains("word/document.xm"));
    EXPECT_EQ(package->findName([](std::string_view name) { return name.ends_with(".XML"); }),
              "Word\\Document.XML");
    EXPECT_EQ(package->findName([](std::string_view name) { return name == "x"; }), "");
}

TEST(ZipPackage, readsTheLastOfEntriesOfOneName) {
    ZipWriter writer;
    writer.add("content.xml", "old");
    writer.add("other.xml", "other");
    writer.add("content.xml", "new");
    std::string archive = writer.finish();
    EXPECT_EQ(contents(ZipPackage::open(archive), "content.xml"), "new");
    EXPECT_EQ(contents(ZipPackage::open(archive), "other.xml"), "other");
}

TEST(ZipPackage, readsPastBytesInFrontOfAndBehindTheArchive) {
    ZipWriter writer;
    writer.add("a", "some text");
    for (bool large : {false, true}) {
        std::string archive = "#!/bin/sh\n" + writer.finish(large) + "trailing";
        EXPECT_EQ(contents(ZipPackage::open(archive), "a"), "some text") << large;
    }
}

TEST(ZipPackage, isNothingWithoutAnEntry) {
    for (std::string bytes : {std::string(), std::string("PK"), std::string("plain text"),
                              ZipWriter().finish(), std::string("PK\5\6", 4), std::string("PK\3\4", 4)})
        EXPECT_FALSE(ZipPackage::open(bytes)) << bytes;
}

TEST(ZipPackage, refusesEncryptedEntriesAndUnknownMethods) {
    ZipWriter writer;
    writer.add("locked", "secret", {true, false, false, 1});
    writer.add("odd", "text", {false, false, false, 0});
    std::string archive = writer.finish();
    size_t directory = archive.rfind("PK\1\2");
    archive[directory + 10] = 12;
    auto package = ZipPackage::open(archive);
    EXPECT_TRUE(package->contains("locked"));
    EXPECT_EQ(contents(package, "locked"), "");
    EXPECT_EQ(contents(package, "odd"), "");
}

TEST(ZipPackage, yieldsWhatStandsBeforeACut) {
    const std::string text = sampleText(20000);
    for (bool deflate : {false, true}) {
        for (bool sizesBehind : {false, true}) {
            ZipWriter writer;
            writer.add("a", "first", {deflate, sizesBehind, false, 0});
            writer.add("b", text, {deflate, sizesBehind, false, 0});
            writer.add("c", "last", {deflate, sizesBehind, false, 0});
            std::string archive = writer.finish();
            size_t before = 0;
            for (size_t percent = 0; percent <= 100; ++percent) {
                SCOPED_TRACE(testing::Message() << deflate << sizesBehind << " " << percent << " %");
                std::string cut = archive.substr(0, archive.size() * percent / 100);
                auto package = ZipPackage::open(cut);
                if (!package) continue;
                std::string read = contents(package, "b");
                EXPECT_TRUE(text.starts_with(read));
                EXPECT_GE(read.size(), before);
                before = read.size();
            }
            EXPECT_EQ(before, text.size());
        }
    }
}

TEST(ZipPackage, readsByLocalHeadersWhatTheDirectoryHasWrong) {
    ZipWriter writer;
    writer.add("a", "first");
    writer.add("b", "second");
    const std::string archive = writer.finish();
    size_t firstEntry = archive.find("PK\1\2"), secondEntry = archive.rfind("PK\1\2"),
           end = archive.rfind("PK\5\6");
    for (size_t at : {firstEntry, firstEntry + 42, firstEntry + 28, secondEntry, secondEntry + 30, end,
                      end + 10, end + 12, end + 16}) {
        SCOPED_TRACE(at);
        std::string damaged = archive;
        damaged[at] = char(damaged[at] + 1);
        auto package = ZipPackage::open(damaged);
        EXPECT_EQ(contents(package, "a"), "first");
        EXPECT_EQ(contents(package, "b"), "second");
    }
}

TEST(ZipPackage, doesNotBelieveSizesThatReachPastTheNextEntry) {
    ZipWriter writer;
    writer.add("a", "first", {false, false, false, 0});
    writer.add("b", "second", {false, false, false, 0});
    for (char size : {'\0', '\3', '\x7F'}) {
        std::string body = writer.body();
        body[18] = size;
        EXPECT_EQ(contents(ZipPackage::open(body), "b"), "second") << int(size);
    }
}

TEST(ZipPackage, saysThatADamagedEntryWasNotReadToItsEnd) {
    const std::string text = sampleText(20000);
    std::string half = deflated(text);
    half.resize(half.size() / 2);
    ZipWriter writer;
    writer.add("a", half, {false, false, false, 0});
    std::string archive = writer.finish();
    archive[archive.rfind("PK\1\2") + 10] = 8;
    auto package = ZipPackage::open(archive);
    EXPECT_FALSE(readsWhole(*package, "a"));
    EXPECT_GT(contents(package, "a").size(), 1000u);
}

TEST(ZipPackage, stopsWhenTheSinkOrTheDeadlineSaysSo) {
    ZipWriter writer;
    writer.add("a", std::string(20 << 20, 'x'));
    std::string archive = writer.finish();
    auto package = ZipPackage::open(archive);
    Deadline never;
    size_t pieces = 0;
    EXPECT_FALSE(package->read("a", never, [&](std::string_view piece) {
        EXPECT_LE(piece.size(), ZipPackage::kPieceSize);
        return ++pieces < 3;
    }));
    EXPECT_EQ(pieces, 3u);
    Deadline passed(std::chrono::duration<double>(0));
    EXPECT_FALSE(package->read("a", passed, [](std::string_view) { return true; }));
    EXPECT_EQ(package->contents("a", never, 10), "xxxxxxxxxx");
}

// All entries of the directory name the same bytes: 1000 x 10 MB out of 60 kB.
TEST(ZipPackage, boundsTheTotalOfOverlappingEntries) {
    ZipWriter writer;
    writer.add("0", std::string(10 << 20, '\0'));
    for (int i = 1; i < 1000; ++i) writer.repeatLast(std::to_string(i));
    std::string archive = writer.finish();
    auto package = ZipPackage::open(archive);
    Deadline deadline;
    uint64_t total = 0;
    for (int i = 0; i < 1000; ++i) {
        package->read(std::to_string(i), deadline, [&](std::string_view piece) {
            total += piece.size();
            return true;
        });
    }
    EXPECT_LE(total, ZipPackage::kRatioLimit * archive.size());
    EXPECT_FALSE(readsWhole(*package, "999"));
}

TEST(ZipPackage, readsThePackageInsideAPackageOnlyWhenAsked) {
    ZipWriter inner;
    inner.add("a", "inner");
    ZipWriter outer;
    outer.add("embedded.zip", inner.finish(), {false, false, false, 0});
    outer.add("a", "outer");
    EXPECT_EQ(contents(ZipPackage::open(outer.finish()), "a"), "outer");
    EXPECT_EQ(contents(ZipPackage::open(outer.body()), "a"), "outer");
}

} // namespace
