// SPDX-License-Identifier: Apache-2.0
#include "Platform/Foundation/NSError.h"

#include "Platform/Foundation/NSNumber.h"
#include "Platform/Foundation/NSURL.h"

#include <cerrno>
#include <gtest/gtest.h>

namespace {

NSString s(const char16_t* text) { return text; }

NSError cocoa(int64_t code, const char16_t* path = nullptr) {
    if (!path) return NSError(NSCocoaErrorDomain, code);
    return NSError(NSCocoaErrorDomain, code, {{s(NSFilePathErrorKey), s(path)}});
}

TEST(ErrorSentences, OfTheCocoaDomainNameThePath) {
    struct {
        int64_t code;
        const char* withPath;
        const char* withoutPath;
    } cases[] = {
        {4, "The file “x” doesn’t exist.", "The file doesn’t exist."},
        {256, "The file “x” couldn’t be opened.", "The file couldn’t be opened."},
        {257, "The file “x” couldn’t be opened because you don’t have permission to view it.",
         "The file couldn’t be opened because you don’t have permission to view it."},
        {259, "The file “x” couldn’t be opened because it isn’t in the correct format.",
         "The file couldn’t be opened because it isn’t in the correct format."},
        {260, "The file “x” couldn’t be opened because there is no such file.",
         "The file couldn’t be opened because there is no such file."},
        {258, "The file “x” couldn’t be opened because the specified file name is invalid.",
         "The file couldn’t be opened because the specified file name is invalid."},
        {261, "The file “x” couldn’t be opened because the specified text encoding isn’t applicable.",
         "The file couldn’t be opened because the specified text encoding isn’t applicable."},
        {262, "The file “x” couldn’t be opened because the specified URL type isn’t supported.",
         "The file couldn’t be opened because the specified URL type isn’t supported."},
        {263, "The file “x” couldn’t be opened because it is too large.",
         "The file couldn’t be opened because it is too large."},
        {264,
         "The file “x” couldn’t be opened because the text encoding of its contents can’t be determined.",
         "The file couldn’t be opened because the text encoding of its contents can’t be determined."},
        {514, "The file “x” couldn’t be saved because the file name is invalid.",
         "The file couldn’t be saved because the file name is invalid."},
        {516,
         "The file “x” couldn’t be saved in the folder “y” because a file with the same name already exists.",
         "The file couldn’t be saved because a file with the same name already exists."},
        {518, "The file “x” couldn’t be saved because the specified URL type isn’t supported.",
         "The file couldn’t be saved because the specified URL type isn’t supported."},
        {640, "The file “x” couldn’t be saved in the folder “y” because there isn’t enough space.",
         "The file couldn’t be saved because there isn’t enough space."},
        {642, "The file “x” couldn’t be saved in the folder “y” because the volume is read only.",
         "The file couldn’t be saved because the volume is read only."},
        {3851, "The data couldn’t be written because an error occurred in the destination of the data.",
         "The data couldn’t be written because an error occurred in the destination of the data."},
        {3852, "The data couldn’t be written because an error occurred in the content of the data.",
         "The data couldn’t be written because an error occurred in the content of the data."},
        {512, "The file “x” couldn’t be saved in the folder “y”.", "The file couldn’t be saved."},
        {513, "You don’t have permission to save the file “x” in the folder “y”.",
         "You don’t have permission to save the file."},
        {3840, "The data couldn’t be read because it isn’t in the correct format.",
         "The data couldn’t be read because it isn’t in the correct format."},
        {65806, "The operation couldn’t be completed. (Cocoa error 65806.)",
         "The operation couldn’t be completed. (Cocoa error 65806.)"},
        {3587, "The operation couldn’t be completed. (Cocoa error 3587.)",
         "The operation couldn’t be completed. (Cocoa error 3587.)"},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(cocoa(c.code, u"/none/y/x").localizedDescription().utf8(), c.withPath);
        EXPECT_EQ(cocoa(c.code).localizedDescription().utf8(), c.withoutPath);
    }
}

TEST(ErrorSentences, CallAFolderAFolder) {
    EXPECT_EQ(cocoa(256, u"/usr/lib").localizedDescription().utf8(), "The folder “lib” couldn’t be opened.");
}

TEST(ErrorSentences, ShowTheRootByTheNameOfItsVolume) {
    EXPECT_EQ(cocoa(512, u"/x").localizedDescription().utf8(),
              "The file “x” couldn’t be saved in the folder “File System”.");
}

TEST(ErrorSentences, TakeThePathOfAURL) {
    NSError error(NSCocoaErrorDomain, 4, {{s(NSURLErrorKey), NSURL::URLWithString(u"file:///none/a%20b")}});
    EXPECT_EQ(error.localizedDescription().utf8(), "The file “a b” doesn’t exist.");
    NSError odd(NSCocoaErrorDomain, 4, {{s(NSFilePathErrorKey), NSNumber::withInt(1)}});
    EXPECT_EQ(odd.localizedDescription().utf8(), "The file doesn’t exist.");
}

TEST(ErrorSentences, PreferTheUserInformation) {
    EXPECT_EQ(NSError(u"D", 1, {{s(NSLocalizedDescriptionKey), s(u"Given.")}}).localizedDescription().utf8(),
              "Given.");
    EXPECT_EQ(
        NSError(u"D", 1, {{s(NSLocalizedFailureErrorKey), s(u"Failed.")}}).localizedDescription().utf8(),
        "Failed.");
    EXPECT_EQ(NSError(u"D", 1,
                      {{s(NSLocalizedFailureErrorKey), s(u"Failed.")},
                       {s(NSLocalizedFailureReasonErrorKey), s(u"Why.")}})
                  .localizedDescription()
                  .utf8(),
              "Failed. Why.");
    EXPECT_EQ(
        NSError(u"D", 1, {{s(NSLocalizedFailureReasonErrorKey), s(u"Why.")}}).localizedDescription().utf8(),
        "The operation couldn’t be completed. Why.");
    EXPECT_EQ(NSError(NSOSStatusErrorDomain, -50, {{s(u"NSDescription"), s(u"paramErr")}})
                  .localizedDescription()
                  .utf8(),
              "The operation couldn’t be completed. (OSStatus error -50 - paramErr)");
}

TEST(ErrorSentences, FallBackOnDomainAndCode) {
    EXPECT_EQ(NSError(u"ZORErrorDomain", 901).localizedDescription().utf8(),
              "The operation couldn’t be completed. (ZORErrorDomain error 901.)");
    EXPECT_EQ(NSError(NSURLErrorDomain, -1013).localizedDescription().utf8(),
              "The operation couldn’t be completed. (NSURLErrorDomain error -1013.)");
    EXPECT_EQ(NSError(NSMachErrorDomain, 5).localizedDescription().utf8(),
              "The operation couldn’t be completed. (Mach error 5.)");
}

TEST(ErrorSentences, OfPOSIXAreThePlatformsWords) {
    EXPECT_EQ(NSError::posix(ENOENT).localizedDescription().utf8(),
              "The operation couldn’t be completed. No such file or directory");
    EXPECT_EQ(NSError(NSPOSIXErrorDomain, 93).localizedDescription().utf8(),
              "The operation couldn’t be completed. Attribute not found");
    EXPECT_EQ(NSError(NSPOSIXErrorDomain, 4711).localizedFailureReason().utf8(), "Unknown error: 4711");
    EXPECT_EQ(NSError(NSPOSIXErrorDomain, -1).localizedFailureReason().utf8(), "Unknown error: -1");
}

TEST(POSIXNumbers, AreThePlatforms) {
    struct {
        int system, platform;
    } cases[] = {{EAGAIN, 35},      {EDEADLK, 11}, {ENAMETOOLONG, 63}, {ENOTEMPTY, 66}, {ELOOP, 62},
                 {EOPNOTSUPP, 102}, {ESTALE, 70},  {EDQUOT, 69},       {EOVERFLOW, 84}, {ENOSYS, 78},
                 {ENOLCK, 77},      {EILSEQ, 92},  {ETIMEDOUT, 60},    {ENODATA, 96},   {ENOENT, 2},
                 {EACCES, 13},      {ERANGE, 34},  {EPERM, 1}};
    for (const auto& c : cases) EXPECT_EQ(NSError::posix(c.system).code(), c.platform) << c.system;
}

TEST(FailureReasons, OfTheCocoaDomain) {
    EXPECT_EQ(cocoa(4).localizedFailureReason().utf8(), "The file doesn’t exist.");
    EXPECT_EQ(cocoa(259).localizedFailureReason().utf8(), "The file isn’t in the correct format.");
    EXPECT_FALSE(cocoa(256).localizedFailureReason());
    EXPECT_FALSE(cocoa(512).localizedFailureReason());
    EXPECT_FALSE(cocoa(4).localizedRecoverySuggestion());
}

TEST(NilError, HasNoTexts) {
    EXPECT_FALSE(NSError().localizedDescription());
    EXPECT_FALSE(NSError().localizedFailureReason());
    EXPECT_FALSE(NSError().domain());
    EXPECT_EQ(NSError().code(), 0);
}

TEST(NilUserInformation, CountsAsEmpty) {
    EXPECT_TRUE(NSError(u"D", 1).userInfo());
    EXPECT_EQ(NSError(u"D", 1), NSObject(NSError(u"D", 1, NSDictionary::dictionary())));
}

} // namespace
