// SPDX-License-Identifier: Apache-2.0
#include "Platform/AppKit/NSDocumentAttributes.h"
#include "Platform/Foundation/NSArchiver.h"
#include "Platform/Foundation/NSPathUtilities.h"
#include "Platform/Foundation/NSPropertyListSerialization.h"
#include "Platform/WebKit/WebPreferences.h"
#include "Source/Tools/texttool/Extractors.h"
#include "Tests/Support/TemporaryFolder.h"

#include <cstdlib>
#include <filesystem>
#include <gtest/gtest.h>

namespace {

class TextDocuments : public testing::Test {
protected:
    void SetUp() override { setenv("OutPath", output.c_str(), 1); }
    void TearDown() override { unsetenv("OutPath"); }

    NSString path(const std::string& name) {
        return stringWithFileSystemRepresentation(folder.path() + "/" + name);
    }
    NSString write(const std::string& name, std::string_view bytes) {
        writeFile(folder.path() + "/" + name, bytes);
        return path(name);
    }
    NSAttributedString read(const NSString& file, const char16_t* type) {
        return readDocument(file, type, &attributes, &error, false);
    }
    NSError reported() {
        NSDictionary record = as<NSDictionary>(propertyListWithData(readFile(output), nullptr, nullptr));
        return as<NSError>(NSUnarchiver::unarchiveObjectWithData(
            record.get<NSData>(NSString(u"errorData")).bytes(), nullptr));
    }

    TemporaryFolder folder;
    std::string output = folder.path() + "/record";
    NSDictionary attributes;
    NSError error;
};

TEST_F(TextDocuments, ATypeOfNilIsError65806) {
    NSString file = write("a.rtf", "{\\rtf1 x}");
    handlePath(file, nullptr);
    EXPECT_EQ(reported(),
              NSObject(NSError(NSCocoaErrorDomain, 65806, {{NSString(NSFilePathErrorKey), file}})));
}

TEST_F(TextDocuments, AnUnknownTypeIsError65806) {
    EXPECT_FALSE(read(write("a.rtf", "{\\rtf1 x}"), u"NSNothing"));
    EXPECT_EQ(error.code(), 65806);
}

TEST_F(TextDocuments, ContentOfAnotherKindIsReadByItsOwn) {
    EXPECT_EQ(read(write("a", "{\\rtf1 x}"), NSDocFormatTextDocumentType).string().utf8(), "x");
    EXPECT_EQ(attributes.get<NSString>(NSString(NSDocumentTypeDocumentAttribute)).utf8(), "NSRTF");
    EXPECT_EQ(read(write("b", "plain\n"), NSDocFormatTextDocumentType).string().utf8(), "plain\n");
    EXPECT_EQ(attributes.get<NSString>(NSString(NSDocumentTypeDocumentAttribute)).utf8(), "NSPlainText");
    EXPECT_EQ(attributes.get<NSString>(NSString(NSFileTypeDocumentAttribute)).utf8(), "public.plain-text");
    EXPECT_EQ(read(write("c", "plain"), NSRTFTextDocumentType).string().utf8(), "plain");
}

TEST_F(TextDocuments, APackageIsReadAsRTFDWhateverTypeWasDeclared) {
    std::filesystem::create_directory(folder.path() + "/a.rtfd");
    write("a.rtfd/TXT.rtf", "{\\rtf1 packed}");
    for (const char16_t* type : {NSRTFDTextDocumentType, NSRTFTextDocumentType, NSHTMLTextDocumentType}) {
        EXPECT_EQ(read(path("a.rtfd"), type).string().utf8(), "packed");
        EXPECT_EQ(read(path("a.rtfd/"), type).string().utf8(), "packed");
        EXPECT_EQ(attributes.get<NSString>(NSString(NSDocumentTypeDocumentAttribute)).utf8(), "NSRTFD");
    }
}

TEST_F(TextDocuments, AnotherDirectoryIs256Over21) {
    std::filesystem::create_directory(folder.path() + "/d");
    EXPECT_FALSE(read(path("d"), NSRTFDTextDocumentType));
    EXPECT_EQ(error.code(), 256);
    EXPECT_EQ(error.userInfo().get<NSError>(NSString(NSUnderlyingErrorKey)).code(), 21);
    EXPECT_EQ(error.userInfo().get<NSString>(NSString(NSFilePathErrorKey)), path("d"));
}

TEST_F(TextDocuments, ADeviceIs256AndIsNotOpened) {
    EXPECT_FALSE(read(u"/dev/zero", NSRTFTextDocumentType));
    EXPECT_EQ(error.code(), 256);
}

TEST_F(TextDocuments, AnUnreadableFileIsReportedTwice) {
    handlePath(u"/proc/self/mem", NSRTFTextDocumentType);
    NSError last = reported();
    EXPECT_EQ(last.code(), 256);
    EXPECT_EQ(last.userInfo().count(), 0u); // the reader's, which had no data, and not the file's
}

TEST_F(TextDocuments, ReadImmediatelyAreTheSame) {
    NSString file = write("a.rtf", "{\\rtf1 at once}");
    NSAttributedString text = readDocument(file, NSRTFTextDocumentType, &attributes, &error, true);
    EXPECT_EQ(text.string().utf8(), "at once");
}

TEST_F(TextDocuments, DataFromPathReportsItsOwnFailure) {
    EXPECT_FALSE(dataFromPath(path("missing")));
    EXPECT_EQ(reported().code(), 260);
    EXPECT_EQ(dataFromPath(write("a", "bytes")).bytes(), "bytes");
}

TEST_F(TextDocuments, ReadingSwitchesWebContentOffForTheProcess) {
    read(write("a.rtf", "{\\rtf1 x}"), NSRTFTextDocumentType);
    WebPreferences preferences = WebPreferences::standardPreferences();
    EXPECT_FALSE(preferences.autosaves());
    EXPECT_FALSE(preferences.loadsImagesAutomatically());
    EXPECT_FALSE(preferences.plugInsEnabled());
    EXPECT_FALSE(preferences.javaScriptCanOpenWindowsAutomatically());
    EXPECT_FALSE(preferences.javaEnabled());
}

} // namespace
