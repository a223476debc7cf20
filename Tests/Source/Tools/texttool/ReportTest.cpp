// SPDX-License-Identifier: Apache-2.0
#include "Source/Tools/texttool/Report.h"

#include "Platform/Foundation/NSArchiver.h"
#include "Platform/Foundation/NSArray.h"
#include "Platform/Foundation/NSClass.h"
#include "Platform/Foundation/NSDate.h"
#include "Platform/Foundation/NSException.h"
#include "Platform/Foundation/NSGeometry.h"
#include "Platform/Foundation/NSNull.h"
#include "Platform/Foundation/NSNumber.h"
#include "Platform/Foundation/NSPropertyListSerialization.h"
#include "Platform/Foundation/NSURL.h"
#include "Tests/Support/TemporaryFolder.h"

#include <cstdlib>
#include <gtest/gtest.h>
#include <sys/xattr.h>

namespace {

NSString s(const char16_t* text) { return text; }

// Reports go to a file of the test's.
class Report : public testing::Test {
protected:
    void SetUp() override { setenv("OutPath", output.c_str(), 1); }
    void TearDown() override { unsetenv("OutPath"); }

    NSDictionary record() {
        NSPropertyListFormat format{};
        NSDictionary list = as<NSDictionary>(propertyListWithData(readFile(output), &format, nullptr));
        EXPECT_EQ(format, NSPropertyListBinaryFormat_v1_0);
        return list;
    }

    TemporaryFolder folder;
    std::string output = folder.path() + "/record";
};

TEST_F(Report, WithoutAnythingHasSixKeysAllEmpty) {
    reportSuccess(u"/none", nullptr, nullptr, nullptr, 0, nullptr, nullptr);
    NSDictionary r = record();
    EXPECT_EQ(r.count(), 6u);
    for (const char16_t* key : {u"string", u"title", u"author", u"url"}) {
        ASSERT_TRUE(r.get<NSString>(s(key))) << s(key).utf8();
        EXPECT_EQ(r.get<NSString>(s(key)).length(), 0u);
    }
    EXPECT_EQ(r.get<NSNumber>(s(u"partsCount")).integerValue(), 0);
    ASSERT_TRUE(r.get<NSDictionary>(s(u"otherAttributes")));
    EXPECT_EQ(r.get<NSDictionary>(s(u"otherAttributes")).count(), 0u);
}

TEST_F(Report, ANullTitleAndAuthorAreEmpty) {
    reportSuccess(u"/none", u"t", NSNull::null(), NSNull::null(), 1, nullptr, nullptr);
    EXPECT_EQ(record().get<NSString>(s(u"title")).utf8(), "");
    EXPECT_EQ(record().get<NSString>(s(u"author")).utf8(), "");
}

TEST_F(Report, NulIsTakenOutOfTitleAndAuthorButNotOfTheText) {
    NSString odd(std::u16string(u"A\0B\0", 4));
    reportSuccess(u"/none", odd, odd, odd, 1, odd, nullptr);
    EXPECT_EQ(record().get<NSString>(s(u"title")).utf8(), "AB");
    EXPECT_EQ(record().get<NSString>(s(u"author")).utf8(), "AB");
    EXPECT_EQ(record().get<NSString>(s(u"string")).length(), 4u);
    EXPECT_EQ(record().get<NSString>(s(u"url")).length(), 4u);
}

TEST_F(Report, PartsCountIsSigned32Bits) {
    reportSuccess(u"/none", nullptr, nullptr, nullptr, INT32_MIN, nullptr, nullptr);
    EXPECT_EQ(record().get<NSNumber>(s(u"partsCount")).integerValue(), INT32_MIN);
}

TEST_F(Report, OtherAttributesAreMadeFitAndKeywordsAdded) {
    reportSuccess(u"/none", nullptr, nullptr, nullptr, 0, nullptr,
                  {{s(u"array"), NSArray{s(u"a"), s(u"b")}},
                   {s(u"number"), NSNumber::withInt(3)},
                   {s(u"size"), NSValue(NSSize{612, 792})}});
    NSDictionary other = record().get<NSDictionary>(s(u"otherAttributes"));
    EXPECT_EQ(other.count(), 4u);
    EXPECT_EQ(other.get<NSString>(s(u"array")).utf8(), "(\n    a,\n    b\n)");
    EXPECT_EQ(other.get<NSNumber>(s(u"number")).integerValue(), 3);
    EXPECT_EQ(other.get<NSString>(s(u"size")).utf8(), "NSSize: {612, 792}");
    EXPECT_EQ(other.get<NSString>(s(u"SpotlightKeywords")).utf8(), "(\n)");
}

TEST_F(Report, KeywordsOfTheFileGoOutAsText) {
    std::string file = folder.path() + "/file";
    writeFile(file, "x");
    ASSERT_EQ(setxattr(file.c_str(), "user.xdg.tags", "k1,k2", 5, 0), 0);
    reportSuccess(NSString::fromUTF8(file), nullptr, nullptr, nullptr, 0, nullptr,
                  NSDictionary::dictionary());
    EXPECT_EQ(record().get<NSDictionary>(s(u"otherAttributes")).get<NSString>(s(u"SpotlightKeywords")).utf8(),
              "(\n    k1,\n    k2\n)");
}

TEST(Plistify, KeepsWhatAPropertyListHasAsALeaf) {
    NSDictionary in{{s(u"s"), s(u"x")},
                    {s(u"d"), NSData("x")},
                    {s(u"t"), NSDate(1)},
                    {s(u"n"), NSNumber::withBool(true)},
                    {s(u"a"), NSArray{NSArray{s(u"deep")}}},
                    {s(u"o"), NSDictionary::dictionary()},
                    {s(u"u"), NSURL::URLWithString(u"http://h/")},
                    {s(u"0"), NSNull::null()},
                    {s(u"c"), NSClass("NSString")},
                    {s(u"e"), NSError(u"D", 1)}};
    NSDictionary out = plistifyDictionary(in);
    EXPECT_EQ(out.count(), in.count());
    for (const char16_t* key : {u"s", u"d", u"t", u"n"})
        EXPECT_EQ(out.objectForKey(s(key)), in.objectForKey(s(key)));
    EXPECT_EQ(out.get<NSString>(s(u"a")).utf8(), "(\n        (\n        deep\n    )\n)");
    EXPECT_EQ(out.get<NSString>(s(u"o")).utf8(), "{\n}");
    EXPECT_EQ(out.get<NSString>(s(u"u")).utf8(), "http://h/");
    EXPECT_EQ(out.get<NSString>(s(u"0")).utf8(), "<null>");
    EXPECT_EQ(out.get<NSString>(s(u"c")).utf8(), "NSString");
    EXPECT_EQ(out.get<NSString>(s(u"e")).utf8(), "Error Domain=D Code=1 \"(null)\"");
    EXPECT_TRUE(dataFromPropertyList(out, NSPropertyListBinaryFormat_v1_0, nullptr));
}

TEST(Plistify, OfNilIsAnEmptyDictionary) {
    EXPECT_TRUE(plistifyDictionary(nullptr));
    EXPECT_EQ(plistifyDictionary(nullptr).count(), 0u);
}

TEST_F(Report, OfAnErrorHoldsItWhole) {
    NSError error(NSCocoaErrorDomain, 4, {{s(NSFilePathErrorKey), s(u"/tmp/nope.rtf")}});
    reportError(error);
    NSDictionary r = record();
    EXPECT_EQ(r.count(), 2u);
    EXPECT_EQ(r.get<NSString>(s(u"errorString")).utf8(), "The file “nope.rtf” doesn’t exist.");
    EXPECT_EQ(NSUnarchiver::unarchiveObjectWithData(r.get<NSData>(s(u"errorData")).bytes(), nullptr),
              NSObject(error));
}

TEST_F(Report, OfNoErrorHasBothKeys) {
    reportError(nullptr);
    NSDictionary r = record();
    EXPECT_EQ(r.count(), 2u);
    EXPECT_EQ(r.get<NSString>(s(u"errorString")).utf8(), "");
    ASSERT_TRUE(r.get<NSData>(s(u"errorData")));
    NSError why;
    EXPECT_FALSE(NSUnarchiver::unarchiveObjectWithData(r.get<NSData>(s(u"errorData")).bytes(), &why));
    EXPECT_FALSE(why);
}

TEST_F(Report, OfAnErrorThatCannotBeArchivedRaisesAndWritesNothing) {
    EXPECT_THROW(reportError(NSError(u"D", 1, {{s(u"ZORExpectedType"), NSClass("NSString")}})), NSException);
    EXPECT_NE(access(output.c_str(), F_OK), 0);
}

TEST_F(Report, AMissingFileIsCocoaError4WithItsPath) {
    reportMissingFile(u"/none/x");
    NSObject error =
        NSUnarchiver::unarchiveObjectWithData(record().get<NSData>(s(u"errorData")).bytes(), nullptr);
    EXPECT_EQ(error, NSObject(NSError(NSCocoaErrorDomain, 4, {{s(NSFilePathErrorKey), s(u"/none/x")}})));
}

TEST_F(Report, AURLThatIsNoStringGivesTheFallbackRecord) {
    reportSuccess(u"/none", u"text", nullptr, nullptr, 0, NSURL::URLWithString(u"http://h/"), nullptr);
    NSDictionary r = record();
    EXPECT_EQ(r.count(), 1u);
    EXPECT_EQ(
        r.get<NSString>(s(u"error")).utf8(),
        "Property list invalid for format: 200 (property lists cannot contain objects of type 'CFURL')");
}

TEST_F(Report, ASecondReportReplacesTheFile) {
    reportError(nullptr);
    reportSuccess(u"/none", u"second", nullptr, nullptr, 0, nullptr, nullptr);
    EXPECT_EQ(record().get<NSString>(s(u"string")).utf8(), "second");
}

TEST_F(Report, AnOutputThatCannotBeWrittenIsLogged) {
    setenv("OutPath", (folder.path() + "/missing/record").c_str(), 1);
    testing::internal::CaptureStderr();
    reportError(nullptr);
    std::string line = testing::internal::GetCapturedStderr();
    std::string expected = "Error writing output to " + folder.path() +
                           "/missing/record: <NSError Domain=NSCocoaErrorDomain Code=4 UserInfo={";
    EXPECT_NE(line.find(expected), std::string::npos) << line;
    EXPECT_NE(line.find("NSUnderlyingError = \"<NSError Domain=NSPOSIXErrorDomain Code=2"), std::string::npos)
        << line;
}

TEST(ArchiveError, KeepsWhatEveryHostKnows) {
    NSDictionary known{{s(NSURLErrorFailingURLStringErrorKey), s(u"http://h/")},
                       {s(NSLocalizedDescriptionKey), s(u"d")},
                       {s(NSFilePathErrorKey), s(u"/p")},
                       {s(NSURLErrorKey), NSURL::URLWithString(u"file:///p")},
                       {s(NSLocalizedFailureReasonErrorKey), s(u"r")},
                       {s(NSLocalizedRecoverySuggestionErrorKey), s(u"s")}};
    NSMutableDictionary all(known);
    all.setObject(NSNumber::withInt(919), s(u"ZORLine"));
    all.setObject(NSClass("NSString"), s(u"ZORExpectedType"));
    all.setObject(NSError(u"U", 1), s(NSUnderlyingErrorKey));
    NSData archive = archiveError(NSError(u"D", -7, all.copy()));
    EXPECT_EQ(NSUnarchiver::unarchiveObjectWithData(archive.bytes(), nullptr),
              NSObject(NSError(u"D", -7, known)));
}

TEST(XMLPropertyList, IsMadeOrNil) {
    NSData data = dataFromPropertyList(NSDictionary{{s(u"k"), s(u"v")}});
    EXPECT_TRUE(data.bytes().starts_with("<?xml version=\"1.0\"")) << data.bytes();
    EXPECT_FALSE(dataFromPropertyList(NSNull::null()));
}

} // namespace
