// SPDX-License-Identifier: Apache-2.0
#include "Platform/AppKit/DocumentKinds.h"

#include "Platform/AppKit/DocumentAttributes.h"
#include "Platform/AppKit/NSAttributedString.h"
#include "Platform/Foundation/NSArray.h"
#include "Platform/Foundation/NSDate.h"
#include "Platform/Foundation/NSGeometry.h"
#include "Platform/Foundation/NSNumber.h"

#include <gtest/gtest.h>

namespace {

using namespace std::string_literals;

std::string kindOf(std::string_view bytes) {
    return NSString(documentKindOfBytes(bytes)->documentType).utf8();
}

TEST(DocumentKinds, AreToldByTheFirstBytes) {
    struct {
        std::string bytes;
        const char* type;
    } cases[] = {
        {"", "NSPlainText"},
        {"text", "NSPlainText"},
        {"<b>x</b>", "NSPlainText"},
        {"{\\rtf1 x}", "NSRTF"},
        {"\xEF\xBB\xBF \n{\\rtf1 x}", "NSRTF"},
        {"rtfd\0\0\0\0"s, "NSRTFD"},
        {"<html>", "NSHTML"},
        {"<HTML lang=en>", "NSHTML"},
        {"  <!doctype HTML>", "NSHTML"},
        {"<head><title>", "NSHTML"},
        {"<!-- saved --><!-- twice -->\n<html>", "NSHTML"},
        {"<?xml version=\"1.0\"?><!DOCTYPE html PUBLIC", "NSHTML"},
        {"<?xml version=\"1.0\"?><office:document x", "NSOpenDocument"},
        {"<?xml never closed", "NSPlainText"},
        {"PK\x03\x04................mimetypeapplication/vnd.oasis.opendocument.text", "NSOpenDocument"},
        {"PK\x03\x04 [Content_Types].xml word/document.xml content.xml", "NSOfficeOpenXML"},
        {"PK\x03\x04 content.xml", "NSOpenDocument"},
        {"\xD0\xCF\x11\xE0\xA1\xB1\x1A\xE1 rest", "NSDocFormat"},
    };
    for (const auto& c : cases) EXPECT_EQ(kindOf(c.bytes), c.type) << c.bytes;
}

TEST(DocumentKinds, ABinaryPropertyListIsNoText) {
    EXPECT_FALSE(documentKindOfBytes("bplist00\xD1"));
    NSError error;
    EXPECT_FALSE(NSAttributedString::initWithData(NSData("bplist00\xD1"), nullptr, nullptr, &error));
    EXPECT_EQ(error.code(), 259);
}

TEST(DocumentKinds, AFlattenedPackageIsReadAsItsText) {
    NSDictionary attributes;
    std::string flat("rtfd\0\0\0\0\3\0\0\0TXT.rtf", 19);
    NSAttributedString text = NSAttributedString::initWithData(NSData(flat + "{\\rtf1 flat}trailing"),
                                                               nullptr, &attributes, nullptr);
    EXPECT_EQ(text.string().utf8(), "flat");
    EXPECT_EQ(attributes.get<NSString>(NSString(u"DocumentType")).utf8(), "NSRTFD");
    EXPECT_FALSE(NSAttributedString::initWithData(NSData(flat), nullptr, nullptr, nullptr));
}

TEST(DocumentKinds, AreFoundByTheirType) {
    for (const char16_t* type : {u"NSPlainText", u"NSRTF", u"NSRTFD", u"NSHTML", u"NSDocFormat",
                                 u"NSOfficeOpenXML", u"NSOpenDocument"}) {
        ASSERT_TRUE(documentKindOfType(type)) << NSString(type).utf8();
        EXPECT_EQ(documentKindOfType(type)->documentType, std::u16string_view(type));
    }
    EXPECT_FALSE(documentKindOfType(u"nsrtf"));
    EXPECT_FALSE(documentKindOfType(nullptr));
}

TEST(DocumentKinds, HaveTheirReadersInTheirModules) {
    NSString why;
    for (const char16_t* type : {u"NSRTF", u"NSHTML", u"NSOfficeOpenXML", u"NSOpenDocument"}) {
        EXPECT_TRUE(readerOfKind(*documentKindOfType(type), &why)) << why.utf8();
    }
    DocumentKind kind{u"NSNone", u"none", nullptr, "NoSuchModule"};
    EXPECT_FALSE(readerOfKind(kind, &why));
    EXPECT_NE(why.utf8().find("“NoSuchModule”"), std::string::npos) << why.utf8();
}

TEST(Readers, GuardedAnswerThatMemoryIsOut) {
    Deadline deadline;
    DocumentContents contents;
    auto noMemory = [](std::string_view, Deadline&, DocumentContents&) -> ReadStatus {
        throw std::bad_alloc();
    };
    EXPECT_EQ(readGuarded(noMemory, "", deadline, contents), ReadStatus::outOfMemory);
    auto tooLong = [](std::string_view, Deadline&, DocumentContents&) -> ReadStatus {
        throw std::length_error("");
    };
    EXPECT_EQ(readGuarded(tooLong, "", deadline, contents), ReadStatus::outOfMemory);
}

std::string description(const NSObject& object) { return object.description().utf8(); }

TEST(DocumentAttributes, AreInThePlatformsKeysAndTypes) {
    DocumentInfo info;
    info.title = u"T";
    info.author = u"A";
    info.subject = u"S";
    info.comment = u"C";
    info.company = u"Co";
    info.manager = u"M";
    info.category = u"Ca";
    info.copyright = u"©";
    info.editor = u"E";
    info.keywords = {u"k1", u"k2"};
    info.creationTime = 1;
    info.modificationTime = 2;
    info.paperSize = {612, 792};
    info.leftMargin = 90;
    info.rightMargin = 91;
    info.topMargin = 72.5;
    info.bottomMargin = 73;
    info.defaultTabInterval = 36;
    info.hyphenationFactor = 0;
    info.cocoaVersion = 2761;
    info.converted = -1;
    info.viewMode = 1;
    info.readOnly = 1;
    info.backgroundColor = DocumentColor{255, 0, 51};
    info.viewZoom = 150;
    info.viewSize = {100, 200};
    info.characterEncoding = 0x80000632;
    NSDictionary a = documentAttributes(info, u"NSHTML", u"public.html");
    struct {
        const char16_t* key;
        const char* className;
        const char* text;
    } expected[] = {
        {u"DocumentType", "NSString", "NSHTML"},
        {u"UTI", "NSString", "public.html"},
        {u"Title", "NSString", "T"},
        {u"Author", "NSString", "A"},
        {u"Subject", "NSString", "S"},
        {u"Comment", "NSString", "C"},
        {u"Company", "NSString", "Co"},
        {u"Manager", "NSString", "M"},
        {u"Category", "NSString", "Ca"},
        {u"Copyright", "NSString", "©"},
        {u"Editor", "NSString", "E"},
        {u"Keywords", "NSArray", "(\n    k1,\n    k2\n)"},
        {u"CreationTime", "NSDate", "2001-01-01 00:00:01 +0000"},
        {u"ModificationTime", "NSDate", "2001-01-01 00:00:02 +0000"},
        {u"PaperSize", "NSValue", "NSSize: {612, 792}"},
        {u"LeftMargin", "NSNumber", "90"},
        {u"RightMargin", "NSNumber", "91"},
        {u"TopMargin", "NSNumber", "72.5"},
        {u"BottomMargin", "NSNumber", "73"},
        {u"DefaultTabInterval", "NSNumber", "36"},
        {u"HyphenationFactor", "NSNumber", "0"},
        {u"CocoaRTFVersion", "NSNumber", "2761"},
        {u"Converted", "NSNumber", "-1"},
        {u"ViewMode", "NSNumber", "1"},
        {u"ReadOnly", "NSNumber", "1"},
        {u"BackgroundColor", "NSColor", "NSCalibratedRGBColorSpace 1 0 0.2 1"},
        {u"ViewZoom", "NSNumber", "150"},
        {u"ViewSize", "NSValue", "NSSize: {100, 200}"},
        {u"CharacterEncoding", "NSNumber", "2147485234"},
    };
    for (const auto& e : expected) {
        NSObject value = a.objectForKey(NSString(e.key));
        EXPECT_EQ(value.className(), e.className) << NSString(e.key).utf8();
        EXPECT_EQ(description(value), e.text) << NSString(e.key).utf8();
    }
    EXPECT_EQ(a.count(), std::size(expected));
    EXPECT_TRUE(a.get<NSNumber>(NSString(u"LeftMargin")).isFloating());
    EXPECT_FALSE(a.get<NSNumber>(NSString(u"Converted")).isFloating());
}

TEST(DocumentAttributes, SayOnlyWhatTheDocumentSays) {
    EXPECT_EQ(documentAttributes({}, u"NSHTML", u"public.html").count(), 2u);
}

TEST(DocumentAttributes, OfRTFHaveItsConstants) {
    for (const char16_t* type : {u"NSRTF", u"NSRTFD"}) {
        NSDictionary a = documentAttributes({}, type, u"public.rtf");
        EXPECT_EQ(a.count(), 4u);
        EXPECT_EQ(a.get<NSNumber>(NSString(u"TextScaling")).integerValue(), 0);
        EXPECT_EQ(a.get<NSNumber>(NSString(u"UsesScreenFonts")).integerValue(), 0);
    }
}

} // namespace
