// SPDX-License-Identifier: Apache-2.0
#include "Source/Tools/texttool/MediaMetadata.h"

#include "Platform/AVFoundation/AVMetadataKeys.h"
#include "Platform/Foundation/NSData.h"
#include "Platform/Foundation/NSNumber.h"
#include "Source/Tools/texttool/Image.h"
#include "Source/Tools/texttool/Lines.h"

#include <gtest/gtest.h>

namespace {

NSString s(const char16_t* text) { return text; }

AVMetadataItem item(const char16_t* key, NSObject value,
                    const char16_t* keySpace = AVMetadataKeySpaceCommon) {
    return {key, keySpace, std::move(value)};
}

NSDictionary common(const std::vector<AVMetadataItem>& items) {
    return metadataDictFromItems(items, commonMetadataKeys(), AVMetadataKeySpaceCommon);
}

std::string listed(const NSArray& keys) {
    std::string text;
    for (const NSObject& key : keys) text += (text.empty() ? "" : " ") + as<NSString>(key).utf8();
    return text;
}

TEST(KeyTables, HaveTheirKeysInOrder) {
    EXPECT_EQ(listed(commonMetadataKeys()),
              "title creator subject description publisher contributor source location copyrights albumName "
              "author artist artwork");
    EXPECT_EQ(listed(iTunesMetadataKeys()),
              "@alb @ART @cmt @nam @st3 @wrt aART @ard @arg @aut @lyr @cak @con "
              "@des @dir @lnt @mak @ope @prd @prf @pub @sne @sol @src @thx @xpd");
    EXPECT_EQ(listed(quickTimeUserMetadataKeys()),
              "@alb @arg @ART @aut @chp @cmt @com @cpy @des @dir @dis @nam @gen @inf "
              "@key @ope @fmt @src @prf @prd @pub @trk @wrn @wrt @url tnam @src");
}

TEST(KeyTables, HaveTheirQuickTimeKeysInOrder) {
    std::string expected;
    for (const char* name :
         {"author",          "comment",       "copyright",     "director",      "displayname",
          "information",     "keywords",      "producer",      "publisher",     "album",
          "artist",          "description",   "software",      "genre",         "arranger",
          "originalartist",  "performer",     "composer",      "credits",       "title",
          "collection.user", "location.name", "location.body", "location.note", "location.role"})
        expected += (expected.empty() ? "" : " ") + ("com.apple.quicktime." + std::string(name));
    EXPECT_EQ(listed(quickTimeMetadataKeys()), expected);
}

TEST(MetadataDict, KeepsTheLastStringOfAKey) {
    const NSDictionary found = common({item(u"title", s(u"one")), item(u"title", s(u"two"))});
    EXPECT_EQ(found.count(), 1u);
    EXPECT_EQ(found.objectForKey(s(u"title")), s(u"two"));
}

TEST(MetadataDict, PassesOverValuesThatAreNotStringsWithoutReplacingAny) {
    const NSDictionary found = common({item(u"artwork", NSData(std::string("picture"))),
                                       item(u"title", s(u"one")), item(u"title", NSNumber::withInt(2))});
    EXPECT_EQ(found.count(), 1u);
    EXPECT_EQ(found.objectForKey(s(u"title")), s(u"one"));
}

TEST(MetadataDict, TakesOnlyTheKeysAndTheSpaceThatWereAskedFor) {
    EXPECT_EQ(common({item(u"software", s(u"x")), item(u"title", s(u"x"), AVMetadataKeySpaceiTunes)}).count(),
              0u);
    EXPECT_TRUE(common({}));
}

TEST(FirstValue, LooksAtTheFirstKeyOnly) {
    const NSDictionary values{{s(u"b"), s(u"second")}};
    EXPECT_FALSE(firstValueForKeys(values, {s(u"a"), s(u"b")}));
    EXPECT_EQ(firstValueForKeys(values, {s(u"b"), s(u"a")}), s(u"second"));
}

TEST(FirstValue, OfAnArrayIsItsFirstString) {
    const NSDictionary values{{s(u"a"), NSArray{NSNumber::withInt(1), s(u"Ann"), s(u"Bob")}},
                              {s(u"n"), NSArray{NSNumber::withInt(1)}},
                              {s(u"e"), NSArray(std::vector<NSObject>())}};
    EXPECT_EQ(firstValueForKeys(values, {s(u"a")}), s(u"Ann"));
    EXPECT_FALSE(firstValueForKeys(values, {s(u"n")}));
    EXPECT_FALSE(firstValueForKeys(values, {s(u"e")}));
}

TEST(FirstValue, IsNothingWithoutKeysOrForOtherValues) {
    const NSDictionary values{{s(u"a"), NSNumber::withInt(1)}};
    EXPECT_FALSE(firstValueForKeys(values, NSArray(std::vector<NSObject>())));
    EXPECT_FALSE(firstValueForKeys(values, {s(u"a")}));
    EXPECT_FALSE(firstValueForKeys(nullptr, {s(u"a")}));
}

TEST(AddProperties, TakesStringsAndTheStringsOfArraysInTheOrderOfTheKeys) {
    const NSDictionary values{{s(u"c"), s(u"last")},
                              {s(u"a"), NSArray{s(u"x"), NSNumber::withInt(1), s(u"y")}},
                              {s(u"n"), NSNumber::withInt(2)},
                              {s(u"d"), NSDictionary::dictionary()},
                              {s(u"empty"), s(u"")}};
    std::vector<NSString> lines = {s(u"before")};
    addPropertiesWithKeys(lines, values, {s(u"a"), s(u"n"), s(u"d"), s(u"missing"), s(u"empty"), s(u"c")});
    EXPECT_EQ(joinedLines(lines).utf8(), "before\nx\ny\n\nlast");
}

TEST(Lines, HaveALineFeedBetweenNeighboursOnly) {
    EXPECT_EQ(joinedLines({}).utf8(), "");
    EXPECT_EQ(joinedLines({s(u"one")}).utf8(), "one");
    EXPECT_EQ(joinedLines({s(u"one"), s(u""), s(u"two")}).utf8(), "one\n\ntwo");
}

} // namespace
