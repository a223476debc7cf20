// SPDX-License-Identifier: Apache-2.0
//
// PDF documents through the program: what is in the record, and what leaves parts of it out.
#include "Tests/EndToEnd/EndToEnd.h"

#include "Platform/Foundation/NSArray.h"
#include "Platform/Foundation/NSDate.h"
#include "Platform/Foundation/NSNumber.h"
#include "Platform/Foundation/NSPropertyListSerialization.h"
#include "Tests/Support/PDFWriter.h"

#include <filesystem>
#include <sys/xattr.h>

namespace {

constexpr const char* kNotesAttribute = "user.net_sourceforge_skim-app_text_notes";

class PDFRequest : public EndToEnd {
protected:
    NSDictionary read(const std::string& file, const std::vector<std::string>& more = {},
                      const std::map<std::string, std::string>& environment = {}) const {
        std::vector<std::string> arguments = {"-PDFPath", file};
        arguments.insert(arguments.end(), more.begin(), more.end());
        ToolResult result = runTool({.arguments = arguments, .environment = environment});
        EXPECT_EQ(result.status, 0);
        EXPECT_EQ(result.errors, "");
        return recordOf(result.output);
    }

    // Two pages with an annotation each, a title and an author.
    std::string document(const std::string& name = "a.pdf") const {
        PDFWriter writer;
        writer.addPage(textAt(50, 700, "A"), "/Annots[<</Subtype/Text/T(Ann)/Contents(Note)>>]");
        writer.addPage(textAt(50, 700, "B"),
                       "/Annots[<</Subtype/Link/Contents()/A<</S/URI/URI(http://example.org/)>>>>]");
        writer.trailer = "/Info " + reference(writer.add("<</Title(The title)/Author(The author)/Pages 2"
                                                         "/CreationDate(D:20260131120000Z)/Trapped/True>>"));
        return write(name, writer.write());
    }

    static void setNotes(const std::string& file, const NSData& value) {
        if (setxattr(file.c_str(), kNotesAttribute, value.bytes().data(), value.length(), 0) != 0)
            GTEST_SKIP() << "no extended attributes of this size on this file system";
    }

    static NSData list(const NSObject& value, int format = NSPropertyListBinaryFormat_v1_0) {
        return dataFromPropertyList(value, NSPropertyListFormat(format), nullptr);
    }
};

int64_t pagesIn(const NSDictionary& record) {
    return record.get<NSNumber>(NSString(u"partsCount")).integerValue();
}

NSDictionary othersIn(const NSDictionary& record) {
    return record.get<NSDictionary>(NSString(u"otherAttributes"));
}

constexpr const char* kComments = "Ann\nNote\n\nhttp://example.org/\n";

TEST_F(PDFRequest, AnswersTextPagesAndAttributes) {
    NSDictionary record = read(document());
    EXPECT_EQ(stringIn(record, u"string"), "AB");
    EXPECT_EQ(stringIn(record, u"title"), "The title");
    EXPECT_EQ(stringIn(record, u"author"), "The author");
    EXPECT_EQ(stringIn(record, u"url"), "");
    EXPECT_EQ(pagesIn(record), 2);
    NSDictionary others = othersIn(record);
    EXPECT_EQ(attributeIn(record, u"Title"), "The title");
    EXPECT_EQ(attributeIn(record, u"Trapped"), "True");
    EXPECT_EQ(attributeIn(record, u"Comment"), kComments);
    EXPECT_EQ(others.get<NSNumber>(NSString(u"Pages")).integerValue(), 2);
    EXPECT_EQ(others.get<NSDate>(NSString(u"CreationDate")).timeIntervalSinceReferenceDate(),
              referenceTime({2026, 1, 31, 12, 0, 0}));
}

TEST_F(PDFRequest, WithoutPagesAnswersAttributes) {
    NSDictionary record = read(write("a.pdf", pdfOfPages({})));
    EXPECT_EQ(stringIn(record, u"string"), "");
    EXPECT_EQ(pagesIn(record), 0);
    EXPECT_EQ(attributeIn(record, u"Comment"), "");
}

TEST_F(PDFRequest, WithoutItsBodyAnswersAllTheRest) {
    NSDictionary record = read(document(), {"-SkipBody", "YES"});
    EXPECT_EQ(stringIn(record, u"string"), "");
    EXPECT_EQ(attributeIn(record, u"Comment"), "");
    EXPECT_EQ(stringIn(record, u"title"), "The title");
    EXPECT_EQ(pagesIn(record), 2);
    EXPECT_EQ(stringIn(read(document(), {"-SkipBody", "NO"}), u"string"), "AB");
}

TEST_F(PDFRequest, SkipsTheBodyOfNamesInTheHostsSettings) {
    std::filesystem::create_directory(path("settings"));
    writeFile(path("settings") + "/" TEXTTOOL_HOST_DOMAIN ".plist",
              "{ TextToolSkippedNames = ( \"skipped.pdf\", \"other.pdf\" ); }");
    std::map<std::string, std::string> environment = {{"XDG_CONFIG_HOME", path("settings")}};
    std::filesystem::create_directory(path("folder"));
    EXPECT_EQ(stringIn(read(document("skipped.pdf"), {}, environment), u"string"), "");
    EXPECT_EQ(stringIn(read(document("folder/skipped.pdf"), {}, environment), u"string"), "");
    EXPECT_EQ(pagesIn(read(document("skipped.pdf"), {}, environment)), 2);
    EXPECT_EQ(stringIn(read(document("Skipped.pdf"), {}, environment), u"string"), "AB");
    EXPECT_EQ(stringIn(read(document("not-skipped.pdf"), {}, environment), u"string"), "AB");
}

TEST_F(PDFRequest, AddsTheNotesBesideTheFile) {
    std::string file = document();
    for (int format : {int(NSPropertyListBinaryFormat_v1_0), int(NSPropertyListXMLFormat_v1_0)}) {
        setNotes(file, list(NSString(u"Notes with ü"), format));
        if (IsSkipped()) return;
        EXPECT_EQ(attributeIn(read(file), u"Comment"), std::string(kComments) + "Notes with ü");
    }
    setNotes(file, NSData(std::string("\"an old style list\"")));
    EXPECT_EQ(attributeIn(read(file), u"Comment"), std::string(kComments) + "an old style list");
    EXPECT_EQ(attributeIn(read(file, {"-SkipBody", "YES"}), u"Comment"), "an old style list");
}

TEST_F(PDFRequest, AddsLongNotes) {
    std::string file = document();
    setNotes(file, list(NSString(std::u16string(3000, u'n'))));
    if (IsSkipped()) return;
    EXPECT_EQ(attributeIn(read(file, {"-SkipBody", "YES"}), u"Comment"), std::string(3000, 'n'));
}

TEST_F(PDFRequest, IgnoresNotesThatAreNoString) {
    std::string file = document();
    for (const NSObject& value :
         {NSObject(NSData(std::string("text"))), NSObject(NSArray{NSString(u"text")}),
          NSObject(NSDictionary{{NSString(u"a"), NSString(u"text")}}), NSObject(NSNumber::withInt(3))}) {
        setNotes(file, list(value));
        if (IsSkipped()) return;
        EXPECT_EQ(attributeIn(read(file), u"Comment"), kComments);
    }
    setNotes(file, NSData(std::string("<plist><string>never ends")));
    EXPECT_EQ(attributeIn(read(file), u"Comment"), kComments);
}

TEST_F(PDFRequest, LeavesTheFileAsItIs) {
    std::string file = document();
    std::string before = readFile(file);
    auto time = std::filesystem::last_write_time(file);
    read(file);
    EXPECT_EQ(readFile(file), before);
    EXPECT_EQ(std::filesystem::last_write_time(file), time);
}

TEST_F(PDFRequest, OfALockedDocumentSaysThatItIs) {
    std::string file = write("locked.pdf", readFile(TEST_DATA_FOLDER "/PDF/aes-256-r6.pdf"));
    setNotes(file, list(NSString(u"notes")));
    NSDictionary record = read(file);
    EXPECT_EQ(stringIn(record, u"string"), "Encrypted");
    EXPECT_EQ(stringIn(record, u"title"), "");
    EXPECT_EQ(pagesIn(record), 2);
    EXPECT_EQ(othersIn(record).count(), 1u) << "nothing but the keywords";
}

TEST_F(PDFRequest, ForBytesThatAreNoneIsError259) {
    for (const char* bytes : {"", "text", "%PDF-1.7\n"}) {
        std::string file = write("a.pdf", bytes);
        EXPECT_EQ(errorOf(request("PDFPath", file).output),
                  cocoaError(NSFileReadCorruptFileError,
                             {{NSString(NSFilePathErrorKey), NSString::fromUTF8(file)}}))
            << bytes;
    }
}

TEST_F(PDFRequest, ForAFolderIsError4) {
    EXPECT_EQ(errorOf(request("PDFPath", folder.path()).output), missingFile(folder.path()));
}

// The first report on standard output, where the second finds it closed; the second in a file.
TEST_F(PDFRequest, ForAFileThatCannotBeReadReportsTwice) {
    const char* unreadable = "/proc/self/mem";
    EXPECT_EQ(errorOf(request("PDFPath", unreadable).output).code(), NSFileReadUnknownError);
    request("PDFPath", unreadable, {{"OutPath", path("record")}});
    EXPECT_EQ(errorOf(readFile(path("record"))),
              cocoaError(NSFileReadCorruptFileError,
                         {{NSString(NSFilePathErrorKey), NSString(u"/proc/self/mem")}}));
}

TEST_F(PDFRequest, GivesTheSameRecordEachTime) {
    std::string file = document();
    EXPECT_EQ(request("PDFPath", file).output, request("PDFPath", file).output);
}

} // namespace
