// SPDX-License-Identifier: Apache-2.0
#include "Platform/Foundation/NSArchiver.h"
#include "Platform/Foundation/NSArray.h"
#include "Platform/Foundation/NSDate.h"
#include "Platform/Foundation/NSNull.h"
#include "Platform/Foundation/NSNumber.h"
#include "Platform/Foundation/NSUserDefaults.h"
#include "ZORFoundation/Source/NSError+ZOR.h"
#include "ZORFoundation/Source/ZORException.h"
#include "ZORFoundation/Source/ZORFunctions.h"

#include <gtest/gtest.h>

namespace {

NSString s(const char16_t* text) { return text; }

NSObject entry(const NSError& error, const char16_t* key) { return error.userInfo().objectForKey(s(key)); }

std::string text(const NSError& error, const char16_t* key) { return entry(error, key).description().utf8(); }

const NSError kError(u"Domain", -7, {{s(u"k"), s(u"v")}});

// Domain, code and the entry that was there are kept, and one entry is new.
void expectOneMore(const NSError& error, const char16_t* key, const NSObject& value) {
    EXPECT_TRUE(zorHasDomain(error, u"Domain", -7));
    EXPECT_EQ(error.userInfo().count(), 2u) << error.description().utf8();
    EXPECT_EQ(text(error, u"k"), "v");
    EXPECT_EQ(entry(error, key), value) << error.description().utf8();
    EXPECT_EQ(kError.userInfo().count(), 1u);
}

TEST(ErrorWithPlace, KnowsFileLineFunctionAndCode) {
    NSError error = zorErrorWithDomain(u"D", -3, "dir/é.cpp", 21, "-[A b:]", "open(path)",
                                       {{s(u"ZORLine"), s(u"old")}, {s(u"k"), s(u"v")}});
    EXPECT_TRUE(zorHasDomain(error, u"D", -3));
    EXPECT_EQ(error.userInfo().count(), 5u);
    EXPECT_EQ(entry(error, u"ZORFile"), s(u"dir/é.cpp"));
    EXPECT_EQ(entry(error, u"ZORLine"), NSNumber::withUnsignedInteger(21));
    EXPECT_EQ(entry(error, u"ZORFunction"), s(u"-[A b:]"));
    EXPECT_EQ(entry(error, u"ZORCodeString"), s(u"open(path)"));
    EXPECT_EQ(entry(error, u"k"), s(u"v"));
    EXPECT_EQ(zorErrorWithDomain(u"D", 1, "f", 2, "g", "h", nullptr).userInfo().count(), 4u);
}

TEST(RequirementFailed, QuotesTheRequirement) {
    NSError error = zorRequirementFailedError(u"n > 0");
    EXPECT_TRUE(zorHasDomain(error, u"ZORErrorDomain", 901));
    EXPECT_EQ(error.userInfo().count(), 2u); // without a stack trace as recovery suggestion
    EXPECT_EQ(entry(error, u"NSLocalizedDescription"),
              s(u"The requirement \u201Cn > 0\u201D was not satisfied."));
    EXPECT_EQ(entry(error, u"ZORFailingObject"), s(u"n > 0"));
}

TEST(RequirementFailed, KeepsTheUserInformation) {
    NSError error = zorRequirementFailedError(u"r", {{s(u"k"), s(u"v")}, {s(u"ZORFailingObject"), s(u"x")}});
    EXPECT_EQ(error.userInfo().count(), 3u);
    EXPECT_EQ(text(error, u"k"), "v");
    EXPECT_EQ(text(error, u"ZORFailingObject"), "r");
}

TEST(RequirementFailed, WithoutTextFailsOnTheEmptyString) {
    NSError error = zorRequirementFailedError(nullptr);
    EXPECT_EQ(entry(error, u"ZORFailingObject"), s(u""));
    EXPECT_EQ(text(error, u"NSLocalizedDescription"), "The requirement “(null)” was not satisfied.");
}

TEST(UnsupportedKey, NamesKeyAndPath) {
    NSError error = zorErrorWithUnsupportedKey(u"Size", NSURL::URLWithString(u"file:///a%20b"));
    EXPECT_TRUE(zorHasDomain(error, u"ZORErrorDomain", 1001));
    EXPECT_EQ(entry(error, u"ZORFailingKey"), s(u"Size"));
    EXPECT_EQ(entry(error, u"NSFilePath"), s(u"/a b"));
    EXPECT_EQ(text(zorErrorWithUnsupportedKey(nullptr, NSURL()), u"NSFilePath"), "<nil>");
    EXPECT_EQ(text(zorErrorWithUnsupportedKey(nullptr, NSURL()), u"ZORFailingKey"), "<nil>");
}

TEST(WrongObjectInAFile, IsACorruptFile) {
    NSError error = zorErrorWithFailingObject(NSNumber::withInt(3), NSClass("NSArray"),
                                              NSURL::URLWithString(u"file:///x"));
    EXPECT_TRUE(zorHasDomain(error, NSCocoaErrorDomain, 259));
    EXPECT_EQ(text(error, u"NSFilePath"), "/x");
    EXPECT_EQ(entry(error, u"ZORFailingObject"), NSNumber::withInt(3));
    EXPECT_EQ(entry(error, u"ZORExpectedType"), NSClass("NSArray"));
    EXPECT_EQ(entry(error, u"ZORActualType"), NSClass("NSNumber"));
    NSError pathless =
        zorErrorWithFailingObject(NSObject(), NSClass("NSArray"), NSURL::URLWithString(u"mailto:a@b"));
    EXPECT_EQ(text(pathless, u"NSFilePath"), "<nil>");
    EXPECT_EQ(entry(pathless, u"ZORFailingObject"), NSNull::null());
    EXPECT_EQ(entry(pathless, u"ZORActualType"), NSNull::null());
}

TEST(ErrorFromException, TellsNameAndReason) {
    ZORException exception(u"Name", u"why", {{s(ZORExceptionLocation), s(u"F:1 ")}, {s(u"k"), s(u"v")}});
    NSError error = zorErrorFromException(exception);
    EXPECT_TRUE(zorHasDomain(error, u"ZORErrorDomain", 5));
    EXPECT_EQ(text(error, u"k"), "v");
    EXPECT_EQ(text(error, u"NSLocalizedDescription"), "Name");
    EXPECT_EQ(text(error, u"NSLocalizedFailureReason"), "Name - why at F:1 \nStack Trace: (null)");
    EXPECT_EQ(text(error, u"ZORShortFailureReason"), "Name - why at F:1 \nStack Trace: (null)");
    EXPECT_EQ(text(error, u"NSLocalizedRecoverySuggestion"), "why at F:1 ");
    EXPECT_FALSE(entry(error, u"ZORIsInAppSandbox"));
}

// A setting that is on for the length of a test.
class Setting {
public:
    explicit Setting(const char16_t* key) : key_(key) { set(true); }
    ~Setting() { set(false); }
    Setting(const Setting&) = delete;
    Setting& operator=(const Setting&) = delete;

private:
    void set(bool value) {
        NSUserDefaults::standardUserDefaults().registerDefaults({{key_, NSNumber::withBool(value)}});
    }
    const NSString key_;
};

TEST(ErrorFromException, TellsOfTheSandbox) {
    const Setting sandboxed(u"ZORAppSandbox");
    EXPECT_EQ(entry(zorErrorFromException(ZORException(u"N", u"r")), u"ZORIsInAppSandbox"),
              NSNumber::withBool(true));
}

TEST(ErrorFromException, OfOneWithoutNameAndReasonStoresText) {
    NSError error = zorErrorFromException(NSException(nullptr, nullptr));
    EXPECT_EQ(text(error, u"NSLocalizedDescription"), "<nil>");
    EXPECT_EQ(text(error, u"NSLocalizedFailureReason"), "(null) - (null)\nStack Trace: (null)");
    EXPECT_EQ(text(error, u"NSLocalizedRecoverySuggestion"), "<nil>");
}

TEST(FullDescription, LogsTheShortFormWhenTheSettingSaysSo) {
    class Recorder : public ZORLoggingDelegate {
    public:
        Recorder() { ZORFunctions::setLoggingDelegate(this); }
        ~Recorder() override { ZORFunctions::setLoggingDelegate(nullptr); }
        void logString(const NSString& line) override { lines.push_back(line.utf8()); }
        std::vector<std::string> lines;
    } recorder;
    (void)zorFullDescription(kError);
    EXPECT_TRUE(recorder.lines.empty());
    const Setting shortLogging(u"ErrorShortLogging");
    EXPECT_TRUE(zorFullDescription(kError).text().starts_with(u"<NSError Domain=Domain Code=-7 UserInfo={"));
    EXPECT_EQ(recorder.lines, std::vector<std::string>{"Error: " + kError.description().utf8()});
}

TEST(SettingAnEntry, LeavesTheErrorAsItWas) {
    expectOneMore(zorErrorBySettingObject(kError, NSNumber::withInt(1), u"n"), u"n", NSNumber::withInt(1));
}

TEST(SettingAnEntry, ReplacesOneOfTheSameKey) {
    NSError error = zorErrorBySettingObject(kError, s(u"w"), u"k");
    EXPECT_EQ(error.userInfo().count(), 1u);
    EXPECT_EQ(text(error, u"k"), "w");
}

TEST(SettingAnEntry, WithoutAKeyIsAnEqualCopy) {
    EXPECT_EQ(zorErrorBySettingObject(kError, s(u"x"), nullptr), kError);
}

TEST(SettingAnEntry, StoresNilAsText) {
    expectOneMore(zorErrorBySettingObject(kError, nullptr, u"n"), u"n", s(u"<nil>"));
}

TEST(SettingAnEntry, OfNilIsNil) {
    EXPECT_FALSE(zorErrorBySettingObject(nullptr, s(u"x"), u"n"));
    EXPECT_FALSE(zorErrorByAddingStackFrame(nullptr, "f", 1));
    EXPECT_FALSE(zorArchivableError(nullptr));
}

TEST(SettingAMode, WritesItInOctal) {
    expectOneMore(zorErrorBySettingMode(kError, 0100644, u"mode"), u"mode", s(u"100644"));
    expectOneMore(zorErrorBySettingMode(kError, 0, u"mode"), u"mode", s(u"0"));
}

TEST(SettingAPath, GoesUnderThePlatformsKey) {
    expectOneMore(zorErrorBySettingFilePath(kError, u"/p"), u"NSFilePath", s(u"/p"));
    expectOneMore(zorErrorBySettingFilePath(kError, nullptr), u"NSFilePath", s(u"<nil>"));
    expectOneMore(zorErrorBySettingDestinationFilePath(kError, u"/q"), u"NSDestinationFilePath", s(u"/q"));
    const NSURL relative = NSURL::URLWithString(u"b%20c", NSURL::URLWithString(u"file:///a/"));
    expectOneMore(zorErrorBySettingFileURL(kError, relative), u"NSFilePath", s(u"/a/b c"));
    expectOneMore(zorErrorBySettingFileURL(kError, NSURL()), u"NSFilePath", s(u"<nil>"));
    expectOneMore(zorErrorBySettingURL(kError, relative), u"NSURL", relative);
    expectOneMore(zorErrorBySettingURL(kError, NSURL()), u"NSURL", s(u"<nil>"));
}

TEST(SettingAPath, TakesBytesOfTheFileSystem) {
    const std::u16string escaped{u'/', 0xDCFF};
    expectOneMore(zorErrorBySettingCFilePath(kError, "/\xFF"), u"NSFilePath", NSString(escaped));
    expectOneMore(zorErrorBySettingCFilePath(kError, "/é"), u"NSFilePath", s(u"/é"));
    expectOneMore(zorErrorBySettingCFilePath(kError, nullptr), u"NSFilePath", s(u"<nil>"));
}

TEST(SettingATextOrACause, GoesUnderItsKey) {
    expectOneMore(zorErrorBySettingDescription(kError, u"d"), u"NSLocalizedDescription", s(u"d"));
    expectOneMore(zorErrorBySettingRecoverySuggestion(kError, u"r"), u"NSLocalizedRecoverySuggestion",
                  s(u"r"));
    const NSError inner(u"I", 1);
    expectOneMore(zorErrorBySettingUnderlyingError(kError, inner), u"NSUnderlyingError", inner);
    expectOneMore(zorErrorBySettingUnderlyingReason(kError, inner), u"ZORUnderlyingReason", inner);
    expectOneMore(zorErrorBySettingUnderlyingReason(kError, nullptr), u"ZORUnderlyingReason", s(u"<nil>"));
}

TEST(SettingTheFailingObject, StoresNilAsTheNullObject) {
    expectOneMore(zorErrorBySettingFailingObject(kError, s(u"o")), u"ZORFailingObject", s(u"o"));
    expectOneMore(zorErrorBySettingFailingObject(kError, nullptr), u"ZORFailingObject", NSNull::null());
    expectOneMore(zorErrorBySettingArguments(kError, NSArray{s(u"a")}), u"ZORArguments", NSArray{s(u"a")});
    expectOneMore(zorErrorBySettingArguments(kError, nullptr), u"ZORArguments", NSNull::null());
}

TEST(SettingTheFailingObject, NamesTheClasses) {
    NSError error = zorErrorBySettingFailingObject(kError, s(u"o"), NSClass("NSDictionary"));
    EXPECT_EQ(error.userInfo().count(), 4u);
    EXPECT_EQ(entry(error, u"ZORFailingObject"), s(u"o"));
    EXPECT_EQ(entry(error, u"ZORExpectedType"), NSClass("NSDictionary"));
    EXPECT_EQ(entry(error, u"ZORActualType"), NSClass("NSString"));
    error = zorErrorBySettingFailingObject(kError, nullptr, NSClass());
    EXPECT_EQ(entry(error, u"ZORFailingObject"), NSNull::null());
    EXPECT_EQ(entry(error, u"ZORExpectedType"), s(u"<nil>"));
    EXPECT_EQ(entry(error, u"ZORActualType"), NSNull::null());
}

TEST(StackFrames, HaveTheOutermostCallerFirst) {
    NSError error = zorErrorByAddingStackFrame(kError, "inner", 10);
    error = zorErrorByAddingStackFrame(error, "outer", 20);
    const NSArray expected{s(u"outer (20)"), s(u"inner (10)")};
    expectOneMore(error, u"ZORStackFrames", expected);
}

TEST(StackFrames, ReplaceAValueThatHoldsNone) {
    NSError odd(u"D", 1, {{s(ZORStackFrames), s(u"no array")}});
    EXPECT_EQ(entry(zorErrorByAddingStackFrame(odd, "-[A é]", 1), ZORStackFrames), NSArray{s(u"-[A é] (1)")});
}

TEST(PermissionsErrors, CountTheUnknownWriteError) {
    EXPECT_TRUE(zorIsFilePermissionsError(NSError(NSCocoaErrorDomain, 513)));
    EXPECT_TRUE(zorIsFilePermissionsError(NSError(NSCocoaErrorDomain, 512)));
    EXPECT_TRUE(zorIsFilePermissionsError(NSError(NSPOSIXErrorDomain, 13)));
    EXPECT_TRUE(zorIsFilePermissionsError(NSError::posix(EACCES)));
    EXPECT_FALSE(zorIsFilePermissionsError(NSError(NSPOSIXErrorDomain, 1)));
    EXPECT_FALSE(zorIsFilePermissionsError(NSError(NSCocoaErrorDomain, 13)));
    EXPECT_FALSE(zorIsFilePermissionsError(NSError(NSPOSIXErrorDomain, 513)));
    EXPECT_FALSE(zorIsFilePermissionsError(nullptr));
}

class ScriptingBody final : public ObjectBody {
public:
    ScriptingBody() : ObjectBody(NSKind::other) {}
    std::string_view className() const override { return "SBObject"; }
    std::u16string description(unsigned) const override { return u"<scripted>"; }
};

TEST(ArchivableError, HoldsTheTextOfWhatHasNoArchivedForm) {
    NSError error(u"D", 3,
                  {{s(u"class"), NSClass("NSArray")},
                   {s(u"uid"), CFKeyedArchiverUID(5)},
                   {s(u"scripting"), NSObject(new ScriptingBody)}});
    NSError archivable = zorArchivableError(error);
    EXPECT_TRUE(zorHasDomain(archivable, u"D", 3));
    EXPECT_EQ(archivable.userInfo().count(), 3u);
    EXPECT_EQ(entry(archivable, u"class"), s(u"NSArray"));
    EXPECT_EQ(entry(archivable, u"uid"), s(u"<CFKeyedArchiverUID>{value = 5}"));
    EXPECT_EQ(entry(archivable, u"scripting"), s(u"<scripted>"));
    EXPECT_THROW((void)NSArchiver::archivedDataWithRootObject(error), NSException);
    EXPECT_TRUE(NSArchiver::archivedDataWithRootObject(archivable));
}

TEST(ArchivableError, LeavesOtherValuesAsTheyAre) {
    NSError error(u"D", 3,
                  {{s(u"string"), s(u"text")},
                   {s(u"number"), NSNumber::withDouble(1.5)},
                   {s(u"date"), NSDate(1.0)},
                   {s(u"null"), NSNull::null()},
                   {s(u"url"), NSURL::URLWithString(u"http://h/")},
                   {s(u"array"), NSArray{s(u"a"), NSNull::null()}}});
    EXPECT_EQ(zorArchivableError(error), error);
}

TEST(ArchivableError, ReachesIntoNestedErrors) {
    NSError inner = zorErrorBySettingFailingObject(NSError(u"I", 1), s(u"o"), NSClass("NSArray"));
    NSError middle = zorErrorBySettingUnderlyingError(NSError(u"M", 2), inner);
    NSError outer = zorArchivableError(zorErrorBySettingUnderlyingError(kError, middle));
    NSError found = as<NSError>(entry(as<NSError>(entry(outer, u"NSUnderlyingError")), u"NSUnderlyingError"));
    EXPECT_TRUE(zorHasDomain(found, u"I", 1));
    EXPECT_EQ(entry(found, u"ZORExpectedType"), s(u"NSArray"));
    EXPECT_TRUE(NSArchiver::archivedDataWithRootObject(outer));
}

} // namespace
