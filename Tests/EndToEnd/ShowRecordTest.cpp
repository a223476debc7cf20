// SPDX-License-Identifier: Apache-2.0
#include "Tests/EndToEnd/EndToEnd.h"

#include "Platform/Foundation/NSArchiver.h"
#include "Platform/Foundation/NSArray.h"
#include "Platform/Foundation/NSData.h"
#include "Platform/Foundation/NSDate.h"
#include "Platform/Foundation/NSNull.h"
#include "Platform/Foundation/NSNumber.h"
#include "Platform/Foundation/NSPropertyListSerialization.h"
#include "Platform/Foundation/NSURL.h"

#include <limits>

namespace {

NSString s(const char16_t* text) { return text; }

std::string listOf(const NSObject& object) {
    NSString why;
    NSData data = dataFromPropertyList(object, NSPropertyListBinaryFormat_v1_0, &why);
    EXPECT_TRUE(data) << why.utf8();
    return std::string(data.bytes());
}

std::string success(const NSString& text, const NSString& title, const NSDictionary& attributes) {
    return listOf(NSDictionary{{s(u"string"), text},
                               {s(u"title"), title},
                               {s(u"author"), s(u"")},
                               {s(u"partsCount"), NSNumber::withInt(-3)},
                               {s(u"url"), s(u"http://h/")},
                               {s(u"otherAttributes"), attributes}});
}

std::string failure(const NSData& archive, const char16_t* text) {
    return listOf(NSDictionary{{s(u"errorData"), archive}, {s(u"errorString"), s(text)}});
}

std::string failure(const NSError& error) {
    return failure(NSArchiver::archivedDataWithRootObject(error), u"What went wrong.");
}

ToolResult show(std::vector<std::string> arguments, const std::string& input) {
    return runTool({.arguments = std::move(arguments), .input = input, .program = SHOWRECORD_PROGRAM});
}

void expectShown(const std::vector<std::string>& arguments, const std::string& input, int status,
                 const std::string& output) {
    ToolResult result = show(arguments, input);
    EXPECT_EQ(result.status, status);
    EXPECT_EQ(result.output, output);
    EXPECT_EQ(result.errors, "");
}

NSError nestedError() {
    return NSError(
        NSCocoaErrorDomain, 256,
        {{s(NSFilePathErrorKey), s(u"/a\nb")},
         {s(NSUnderlyingErrorKey), NSError(NSPOSIXErrorDomain, 5, {{s(u"n"), NSNumber::withInt(1)}})}});
}

TEST(ShowRecord, SetsFieldsInColumns) {
    expectShown({},
                success(u"text\n", u"T",
                        {{s(u"Keywords"), s(u"(\n    a\n)")},
                         {s(u"Pages"), NSNumber::withInt(3)},
                         {s(u"Größe"), NSNumber::withDouble(1.5)},
                         {s(u"Data"), NSData("\1\2\3")},
                         {s(u"Saved"), NSDate(0.0)}}),
                0,
                "record           success\n"
                "title            T\n"
                "author\n"
                "partsCount       -3\n"
                "url              http://h/\n"
                "otherAttributes\n"
                "  Keywords       (\n"
                "                     a\n"
                "                 )\n"
                "  Pages          3\n"
                "  Größe          1.5\n"
                "  Data           {length = 3, bytes = 0x010203}\n"
                "  Saved          2001-01-01 00:00:00 +0000\n"
                "string           5 UTF-16 units\n"
                "\n"
                "text\n");
}

TEST(ShowRecord, LetsNoDocumentCommandTheTerminal) {
    std::u16string text = u"a\x1B[2J\r\x7F\u009B\u2028tab\t";
    text += {0, 0xD800, u'x', 0xDC00};
    std::string output = show({}, success(text, u"\x1B]0;t\a", NSDictionary::dictionary())).output;
    EXPECT_NE(output.find("title            \\u001b]0;t\\u0007\n"), std::string::npos) << output;
    EXPECT_TRUE(output.ends_with("\n\na\\u001b[2J\\u000d\\u007f\\u009b↵\ntab\t\\u0000\\ud800x\\udc00\n"))
        << output;
}

TEST(ShowRecord, IndentsUnderlyingErrors) {
    expectShown({}, failure(nestedError()), 1,
                "record               error\n"
                "domain               NSCocoaErrorDomain\n"
                "code                 256\n"
                "description          What went wrong.\n"
                "userInfo\n"
                "  NSFilePath         /a\n"
                "                     b\n"
                "  NSUnderlyingError\n"
                "    domain           NSPOSIXErrorDomain\n"
                "    code             5\n"
                "    description      The operation couldn’t be completed. Input/output error\n"
                "    userInfo\n"
                "      n              1\n");
}

TEST(ShowRecord, SaysWhenNoErrorWasGiven) {
    for (const NSData& archive : {NSArchiver::archivedDataWithRootObject(nullptr), NSData(std::string())}) {
        expectShown({}, failure(archive, u""), 1,
                    "record       error\n"
                    "description\n"
                    "error        none was given\n");
    }
}

TEST(ShowRecord, SaysWhenAnErrorCannotBeRead) {
    ToolResult result = show({}, failure(NSData("no archive"), u"What went wrong."));
    EXPECT_EQ(result.status, 1);
    EXPECT_EQ(result.output.find("record       error\n"
                                 "description  What went wrong.\n"
                                 "error        its archive cannot be read\n"
                                 "reason       Error Domain=NSCocoaErrorDomain Code=4864 "),
              0u)
        << result.output;
}

TEST(ShowRecord, KnowsTheFallback) {
    expectShown({}, listOf(NSDictionary{{s(u"error"), s(u"why")}}), 2, "record  fallback\nerror   why\n");
    expectShown({"--json"}, listOf(NSDictionary{{s(u"error"), s(u"why")}}), 2,
                "{\n  \"record\": \"fallback\",\n  \"error\": \"why\"\n}\n");
}

TEST(ShowRecord, WritesJSON) {
    std::u16string text = u"\"\\\n\u2028é😀";
    text += {0, 0xDFFF};
    expectShown({"--json"},
                success(text, u"T",
                        {{s(u"yes"), NSNumber::withBool(true)},
                         {s(u"real"), NSNumber::withDouble(0.1)},
                         {s(u"none"), NSNumber::withDouble(std::numeric_limits<double>::infinity())},
                         {s(u"data"), NSData("\xFF\xFE\xFD\xFC")},
                         {s(u"date"), NSDate(86399.5)},
                         {s(u"array"),
                          NSArray{s(u"a"), NSArray(std::vector<NSObject>()), NSDictionary::dictionary()}}}),
                0, R"json({
  "record": "success",
  "string": "\"\\\n\u2028é😀\u0000\udfff",
  "title": "T",
  "author": "",
  "partsCount": -3,
  "url": "http://h/",
  "otherAttributes": {
    "yes": true,
    "real": 0.1,
    "none": {"$number": "inf"},
    "data": {"$data": "//79/A=="},
    "date": {"$date": "2001-01-01T23:59:59Z"},
    "array": [
      "a",
      [],
      {}
    ]
  }
}
)json");
}

TEST(ShowRecord, WritesErrorsAsJSON) {
    NSError error(u"D", -1,
                  {{s(u"url"), NSURL::URLWithString(u"http://h/")},
                   {s(u"null"), NSNull::null()},
                   {s(u"error"), NSError(u"E", 2)}});
    expectShown({"--json"}, failure(error), 1, R"json({
  "record": "error",
  "errorString": "What went wrong.",
  "error": {
    "domain": "D",
    "code": -1,
    "description": "The operation couldn’t be completed. (D error -1.)",
    "userInfo": {
      "url": {"$url": "http://h/"},
      "null": null,
      "error": {
        "$error": {
          "domain": "E",
          "code": 2,
          "description": "The operation couldn’t be completed. (E error 2.)",
          "userInfo": {}
        }
      }
    }
  }
}
)json");
    expectShown({"--json"}, failure(NSData(std::string()), u"gone"), 1,
                "{\n  \"record\": \"error\",\n  \"errorString\": \"gone\",\n  \"error\": null\n}\n");
}

TEST(ShowRecord, GivesTheTextAlone) {
    std::u16string text = u"a\x1B\n\u2028😀";
    text += {0, 0xD800};
    expectShown({"--text"}, success(text, u"T", NSDictionary::dictionary()), 0,
                std::string("a\x1B\n\u2028😀\0\uFFFD", 14));
    ToolResult result = show({"--text"}, failure(nestedError()));
    EXPECT_EQ(result.status, 1);
    EXPECT_EQ(result.output, "");
    EXPECT_EQ(result.errors, "showrecord: standard input: What went wrong.\n");
}

TEST(ShowRecord, ReadsAFileOrStandardInput) {
    TemporaryFolder folder;
    std::string file = folder.path() + "/-record", bytes = listOf(NSDictionary{{s(u"error"), s(u"why")}});
    writeFile(file, bytes);
    std::string shown = show({}, bytes).output;
    EXPECT_EQ(show({"-"}, bytes).output, shown);
    EXPECT_EQ(show({file}, "").output, shown);
    EXPECT_EQ(
        runTool({.arguments = {"--", "-record"}, .directory = folder.path(), .program = SHOWRECORD_PROGRAM})
            .output,
        shown);
}

TEST(ShowRecord, SaysWhatIsNoRecord) {
    const std::pair<std::string, std::string> inputs[] = {
        {"", "no record: there is nothing in it"},
        {"damaged", "no record: A property list that is no dictionary"},
        {listOf(NSDictionary::dictionary()), "no record: A dictionary without the keys of a record"},
        {listOf(NSArray{s(u"a")}), "no record: A property list that is no dictionary"},
    };
    for (const auto& [input, reason] : inputs) {
        ToolResult result = show({}, input);
        EXPECT_EQ(result.status, 3);
        EXPECT_EQ(result.output, "");
        EXPECT_EQ(result.errors, "showrecord: standard input: " + reason + "\n");
    }
    ToolResult missing = show({"/nonexistent/record"}, "");
    EXPECT_EQ(missing.status, 3);
    EXPECT_EQ(missing.errors, "showrecord: /nonexistent/record: No such file or directory\n");
    EXPECT_EQ(show({"/"}, "").errors, "showrecord: /: Is a directory\n");
}

TEST(ShowRecord, SaysHowItIsUsed) {
    for (const std::vector<std::string>& arguments :
         std::vector<std::vector<std::string>>{{"--other"},
                                               {"-j"},
                                               {"--color=red"},
                                               {"--color"},
                                               {"--json", "--text"},
                                               {"a", "b"},
                                               {"--help", "a"}}) {
        ToolResult result = show(arguments, "");
        EXPECT_EQ(result.status, 64);
        EXPECT_EQ(result.errors, "usage: showrecord [--json | --text] [--color=WHEN] [--no-pager] [FILE]\n");
    }
    EXPECT_EQ(show({"--help"}, "").status, 0);
    EXPECT_EQ(show({"--help"}, "")
                  .output.find("usage: showrecord [--json | --text] [--color=WHEN] [--no-pager] [FILE]\n"),
              0u);
    EXPECT_EQ(show({"--version"}, "").output.find("showrecord "), 0u);
}

TEST(ShowRecord, SaysWhenItsOutputIsNotTaken) {
    ToolResult result = runTool({.input = listOf(NSDictionary{{s(u"error"), s(u"why")}}),
                                 .program = SHOWRECORD_PROGRAM,
                                 .outputPath = "/dev/full"});
    EXPECT_EQ(result.status, 74);
    EXPECT_EQ(result.errors, "showrecord: standard output: No space left on device\n");
}

} // namespace
