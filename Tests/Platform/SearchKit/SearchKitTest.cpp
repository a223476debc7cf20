// SPDX-License-Identifier: Apache-2.0
#include "Platform/SearchKit/SearchKit.h"

#include "Platform/Foundation/NSNumber.h"
#include "Platform/SearchKit/SearchIndex.h"
#include "Tests/Support/TemporaryFolder.h"

#include <gtest/gtest.h>

namespace {

class Index : public testing::Test {
protected:
    void add(std::u16string_view text) {
        ASSERT_TRUE(index.addDocument(u"file:///a", text));
        index.commit();
    }
    std::string terms(int64_t document = 0) const {
        std::string all;
        for (const int64_t term : index.termIDs(document)) all += index.term(term).utf8() + " ";
        return all;
    }

    SearchIndex index{std::make_shared<std::string>(), true, 0};
};

TEST_F(Index, OrdersTermsByTheirBytes) {
    add(u"zebra Apple 10 9 ñandú \U0001D400 \uFB01ne");
    EXPECT_EQ(terms(), "10 9 a apple fine zebra ñandú ");
}

TEST_F(Index, FoldsCaseAndForms) {
    add(u"STRASSE Straße straße ﬀ ＡＢＣ");
    EXPECT_EQ(terms(), "abc ff strasse ");
}

TEST_F(Index, BreaksWordsOfLanguagesWithoutBlanks) {
    add(u"日本語のテスト ภาษาไทย");
    EXPECT_EQ(terms(), "ภาษา ไทย の テスト 日本語 ");
}

TEST_F(Index, KeepsPointsAndApostrophesInsideWords) {
    add(u"don't U.S.A. 3.14 1,000 C++");
    EXPECT_EQ(terms(), "1,000 3.14 c don't u.s.a ");
}

TEST_F(Index, RecordsEveryPlaceOfATerm) {
    add(u"to be or not to be");
    EXPECT_EQ(index.term(3).utf8(), "to");
    EXPECT_EQ(index.positions(3, 0), (std::vector<uint32_t>{0, 4}));
}

TEST_F(Index, HasNoBoundOnLengthOrNumberOfTerms) {
    std::u16string text(100'000, u'x');
    for (int i = 0; i < 50'000; ++i) text += u' ' + NSNumber::withInt(i).description().text();
    add(text);
    EXPECT_EQ(index.termIDs(0).size(), 50'001u);
    EXPECT_EQ(index.term(50'000).length(), 100'000u);
}

TEST_F(Index, BreaksLongTextsAtBlanks) {
    std::u16string text;
    while (text.size() < 3'000'000) text += u"words of a long text ";
    add(text);
    EXPECT_EQ(terms(), "a long of text words ");
}

TEST_F(Index, BoundsTheTermsOfADocumentWhenAskedTo) {
    SearchIndex small(std::make_shared<std::string>(), true, 2);
    ASSERT_TRUE(small.addDocument(u"file:///a", u"one two three one"));
    small.commit();
    EXPECT_EQ(small.termIDs(0).size(), 2u);
}

TEST_F(Index, BreaksPlainWordsAsItDoesOthers) {
    add(u"(plain) \"quoted\" end. a,b x_y #tag $5 -7 mixed\u0301 caf\u00E9! "
        u"\u0411\u0443\u043A\u0432\u044B... 50% \u2019tis it's.");
    EXPECT_EQ(
        terms(),
        "5 50 7 a b caf\u00E9 end it's mixed\u0301 plain quoted tag tis x_y \u0431\u0443\u043A\u0432\u044B ");
}

TEST_F(Index, WithoutPositionsKeepsEachTermOnce) {
    SearchIndex plain(std::make_shared<std::string>(), false, 0);
    ASSERT_TRUE(plain.addDocument(u"file:///a", u"to be or not to be"));
    plain.commit();
    EXPECT_EQ(plain.termIDs(0).size(), 4u);
    EXPECT_TRUE(plain.positions(0, 0).empty());
}

TEST_F(Index, ReplacesADocumentAndKeepsOthers) {
    add(u"old both");
    ASSERT_TRUE(index.addDocument(u"file:///b", u"other both"));
    add(u"new");
    EXPECT_EQ(terms(0), "new ");
    EXPECT_EQ(terms(1), "both other ");
}

TEST_F(Index, KnowsOnlyWhatIsCommitted) {
    ASSERT_TRUE(index.addDocument(u"file:///a", u"words"));
    EXPECT_EQ(terms(), "");
    EXPECT_FALSE(index.term(0));
    index.commit();
    EXPECT_EQ(terms(), "words ");
}

TEST(SearchKit, AnswersFailureForHandlesThatAreNothing) {
    EXPECT_FALSE(SKIndexAddDocument(nullptr, nullptr, nullptr, true));
    EXPECT_FALSE(SKIndexFlush(nullptr));
    EXPECT_EQ(SKIndexGetDocumentID(nullptr, nullptr), kCFNotFound);
    EXPECT_FALSE(SKIndexCopyTermIDArrayForDocumentID(nullptr, 0));
    EXPECT_FALSE(SKIndexCopyTermStringForTermID(nullptr, 0));
    EXPECT_FALSE(SKDocumentCreateWithURL(NSURL::URLWithString(u"http://example.org/")));
    SKIndexRef none;
    CFRelease(none);
}

TEST(SearchKit, ReplacesADocumentOnlyWithLeave) {
    TemporaryFolder folder;
    writeFile(folder.path() + "/a.txt", "some words");
    const auto index =
        SKIndexCreateWithMutableData(std::make_shared<std::string>(), nullptr, kSKIndexInverted,
                                     {{NSString(kSKProximityIndexing), NSNumber::withBool(true)}});
    const auto document =
        SKDocumentCreateWithURL(NSURL::fileURLWithPath(NSString::fromUTF8(folder.path() + "/a.txt")));
    EXPECT_EQ(SKIndexGetDocumentID(index, document), kCFNotFound);
    EXPECT_TRUE(SKIndexAddDocument(index, document, nullptr, false));
    EXPECT_FALSE(SKIndexAddDocument(index, document, nullptr, false));
    EXPECT_TRUE(SKIndexAddDocument(index, document, nullptr, true));
    EXPECT_TRUE(SKIndexFlush(index));
    const auto terms = SKIndexCopyTermIDArrayForDocumentID(index, SKIndexGetDocumentID(index, document));
    EXPECT_EQ(terms.count(), 2u);
    EXPECT_FALSE(SKIndexCopyTermStringForTermID(index, 2));
}

} // namespace
