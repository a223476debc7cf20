// SPDX-License-Identifier: Apache-2.0
#include "Platform/AVFoundation/CommonKeys.h"

#include "Platform/AVFoundation/AVMetadataItem.h"
#include "Platform/AVFoundation/AVMetadataKeys.h"

#include <gtest/gtest.h>

namespace {

std::u16string common(MediaKeySpace space, std::string_view key) {
    const char16_t* found = commonKeyForKey(space, key);
    return found ? found : u"";
}

TEST(CommonKeys, AreKnownInEachSpace) {
    EXPECT_EQ(common(MediaKeySpace::iTunes, "@nam"), AVMetadataCommonKeyTitle);
    EXPECT_EQ(common(MediaKeySpace::quickTimeMetadata, "com.apple.quicktime.artist"),
              AVMetadataCommonKeyArtist);
    EXPECT_EQ(common(MediaKeySpace::quickTimeUserData, "@cpy"), AVMetadataCommonKeyCopyrights);
    EXPECT_EQ(common(MediaKeySpace::isoUserData, "perf"), AVMetadataCommonKeyArtist);
    EXPECT_EQ(common(MediaKeySpace::id3, "TCOM"), AVMetadataCommonKeyCreator);
    EXPECT_EQ(common(MediaKeySpace::fieldName, "ORGANIZATION"), AVMetadataCommonKeyPublisher);
}

TEST(CommonKeys, BelongToOneSpaceOnly) {
    EXPECT_EQ(common(MediaKeySpace::iTunes, "TIT2"), u"");
    EXPECT_EQ(common(MediaKeySpace::id3, "@nam"), u"");
    EXPECT_EQ(common(MediaKeySpace::quickTimeMetadata, "title"), u"");
    EXPECT_EQ(common(MediaKeySpace::quickTimeMetadata, "com.apple.quicktime."), u"");
    EXPECT_EQ(common(MediaKeySpace::fieldName, "title"), u"");
    for (int space = 0; space <= int(MediaKeySpace::id3); ++space)
        EXPECT_EQ(common(MediaKeySpace(space), ""), u"") << space;
}

TEST(CommonKeys, AreNotThoseOfCommentsAndGenres) {
    for (const char* key : {"@cmt", "@gen", "@day", "desc", "@too"})
        EXPECT_EQ(common(MediaKeySpace::iTunes, key), u"") << key;
    EXPECT_EQ(common(MediaKeySpace::id3, "TCON"), u"");
    EXPECT_EQ(common(MediaKeySpace::id3, "COMM"), u"");
}

TEST(MetadataItem, IsFoundByKeyAndKeySpace) {
    const std::vector<AVMetadataItem> items = {{u"@nam", AVMetadataKeySpaceiTunes, NSString(u"1")},
                                               {u"@nam", AVMetadataKeySpaceQuickTimeUserData, NSString(u"2")},
                                               {u"@ART", AVMetadataKeySpaceiTunes, NSString(u"3")},
                                               {u"@nam", AVMetadataKeySpaceiTunes, NSString(u"4")}};
    const auto found = AVMetadataItem::metadataItemsFromArray(items, u"@nam", AVMetadataKeySpaceiTunes);
    ASSERT_EQ(found.size(), 2u);
    EXPECT_EQ(found[0].value, NSString(u"1"));
    EXPECT_EQ(found[1].value, NSString(u"4"));
}

} // namespace
