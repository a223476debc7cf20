// SPDX-License-Identifier: Apache-2.0
#include "Platform/AppKit/XMLText/XMLTextReaders.h"

#include "Tests/Support/ZipWriter.h"

#include <gtest/gtest.h>

namespace {

std::u16string textOf(DocumentReader reader, const std::string& bytes) {
    DocumentContents contents;
    Deadline deadline;
    EXPECT_EQ(reader(bytes, deadline, contents), ReadStatus::read);
    return contents.text;
}

std::u16string partText(const std::string& name, const std::string& bytes) {
    ZipWriter zip;
    zip.add("other.bin", "<p>never read</p>");
    zip.add(name, bytes);
    return textOf(readPackageText, zip.finish());
}

TEST(XMLText, EndsALineAtEveryElementButThoseInWords) {
    EXPECT_EQ(textOf(readXMLText, "<x><y>one</y><y>t<b>w</b>o</y>&amp;&#x20AC;</x>"), u"one\ntwo\n&€\n");
}

TEST(XMLText, LeavesOutWhatNobodySees) {
    EXPECT_EQ(textOf(readXMLText,
                     "<svg xmlns=\"http://www.w3.org/2000/svg\"><style>p</style><script>q</script>"
                     "<title>T</title><text>A<tspan>B</tspan></text></svg>"),
              u"T\nAB\n");
    EXPECT_EQ(textOf(readXMLText, "<FictionBook><body><p>a<style name=\"s\">b</style></p></body>"
                                  "<binary id=\"i\">QUJD</binary></FictionBook>"),
              u"ab\n");
    EXPECT_EQ(textOf(readXMLText, "<o:document xmlns:o=\"o\"><o:meta><o:generator>x</o:generator></o:meta>"
                                  "<o:body>b</o:body></o:document>"),
              u"b\n");
}

TEST(XMLText, HasTheTextsOfOutlines) {
    EXPECT_EQ(textOf(readXMLText,
                     "<opml><outline text=\"One\" _note=\"note\"><outline text=\"Two\"/></outline></opml>"),
              u"One\nnote\nTwo\n");
}

TEST(XMLText, IsInTheEncodingThatItSays) {
    EXPECT_EQ(textOf(readXMLText, "<?xml version=\"1.0\" encoding=\"ISO-8859-1\"?><x>\xE9</x>"), u"é\n");
}

TEST(XMLText, OfADamagedDocumentIsWhatStandsBeforeTheDamage) {
    EXPECT_EQ(textOf(readXMLText, "<x><p>before</p></wrong><p>after</p>"), u"before\n");
    DocumentContents contents;
    Deadline deadline;
    EXPECT_EQ(readXMLText("no document", deadline, contents), ReadStatus::wrongKind);
    EXPECT_EQ(readXMLText("", deadline, contents), ReadStatus::wrongKind);
}

TEST(PackageText, HasTheSharedTextsAndTheValuesOfASheet) {
    EXPECT_EQ(
        partText(
            "xl/sharedStrings.xml",
            "<sst><si><r><t>Wo</t></r><r><rPr/><t>rd</t></r><rPh><t>x</t></rPh></si><si><t>b</t></si></sst>"),
        u"Word\nb\n\n");
    EXPECT_EQ(partText("xl/worksheets/sheet1.xml",
                       "<worksheet><c t=\"s\"><v>0</v></c><c><f>A1</f><v>2.5</v></c>"
                       "<c t=\"inlineStr\"><is><t>inline</t></is></c></worksheet>"),
              u"2.5\ninline\n\n");
    EXPECT_EQ(
        partText("xl/worksheets/sheet1.xml",
                 "<worksheet><headerFooter><oddHeader>&amp;C&amp;A</oddHeader></headerFooter></worksheet>"),
        u"\n");
}

TEST(PackageText, HasSlidesAndTheirNotes) {
    const std::string slide =
        "<p:sld xmlns:p=\"p\" xmlns:a=\"a\"><a:p><a:r><a:t>Sl</a:t></a:r><a:r><a:t>ide</a:t>"
        "</a:r></a:p><a:p><a:r><a:t>two</a:t></a:r></a:p></p:sld>";
    EXPECT_EQ(partText("ppt/slides/slide12.xml", slide), u"Slide\ntwo\n\n");
    EXPECT_EQ(partText("ppt/notesSlides/notesSlide1.xml", slide), u"Slide\ntwo\n\n");
    EXPECT_EQ(partText("ppt/slides/slide1.xml", "<s xmlns:a=\"a\"><a:tableStyleId>{5C}</a:tableStyleId></s>"),
              u"\n");
    EXPECT_EQ(partText("ppt/slideLayouts/slideLayout1.xml", slide), u"");
}

TEST(PackageText, HasTheContentOfOpenDocuments) {
    EXPECT_EQ(partText("content.xml",
                       "<o:document-content xmlns:o=\"o\" xmlns:t=\"t\"><o:automatic-styles><t:p>no"
                       "</t:p></o:automatic-styles><o:body><t:p>a<t:span>b</t:span></t:p><t:p>c</t:p>"
                       "</o:body></o:document-content>"),
              u"ab\nc\n\n");
}

TEST(PackageText, HasTheChaptersOfABook) {
    const std::string chapter = "<!DOCTYPE html PUBLIC \"-//W3C//DTD XHTML 1.1//EN\" \"x.dtd\">"
                                "<html xmlns=\"http://www.w3.org/1999/xhtml\"><head><style>x</style></head>"
                                "<body><p>Cha<em>pter</em>&nbsp;one</p></body></html>";
    const std::u16string text = partText("OEBPS/Text/ch1.xhtml", chapter);
    EXPECT_NE(text.find(u"Chapter"), text.npos);
    EXPECT_EQ(text.find(u"x\n"), text.npos);
}

TEST(PackageText, OfADamagedPartLeavesTheOthers) {
    ZipWriter zip;
    zip.add("ppt/slides/slide1.xml", "<x><p>one</p><");
    zip.add("ppt/slides/slide2.xml", "<x><p>two</p></x>");
    EXPECT_EQ(textOf(readPackageText, zip.finish()), u"one\n\ntwo\n\n");
}

TEST(PackageText, NeedsAPackage) {
    DocumentContents contents;
    Deadline deadline;
    EXPECT_EQ(readPackageText("no package", deadline, contents), ReadStatus::wrongKind);
}

} // namespace
