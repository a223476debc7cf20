// SPDX-License-Identifier: Apache-2.0
#include "Tests/Platform/PDFKit/MuPDF/EngineTesting.h"

namespace {

using Annotations = std::vector<std::unique_ptr<PDFAnnotation>>;

// A page's annotations, and the document that they belong to.
struct AnnotatedPage {
    OpenedPDF pdf;
    Annotations all;

    explicit AnnotatedPage(const std::string& annotations, const std::string& catalog = "")
        : pdf(documentWith(annotations, catalog)), all(pdf->pageAtIndex(0).annotations()) {}

    static std::string documentWith(const std::string& annotations, const std::string& catalog) {
        PDFWriter writer;
        writer.catalog = catalog;
        writer.addPage("", "/Annots " + annotations);
        return writer.write();
    }
};

const PDFAnnotationLink* asLink(const std::unique_ptr<PDFAnnotation>& annotation) {
    return dynamic_cast<const PDFAnnotationLink*>(annotation.get());
}

std::string urlOf(const std::string& action, const std::string& catalog = "") {
    AnnotatedPage page("[<</Subtype/Link/A<<" + action + ">>>>]", catalog);
    NSURL url = asLink(page.all.at(0))->URL();
    return url ? url.description().utf8() : "(nil)";
}

TEST(PDFAnnotation, SaysItsAuthorAndContents) {
    AnnotatedPage page("[<</Subtype/Text/T(Ann)/Contents(Note)>>]");
    ASSERT_EQ(page.all.size(), 1u);
    EXPECT_TRUE(page.all[0]->respondsToUserName());
    EXPECT_EQ(page.all[0]->userName().text(), u"Ann");
    EXPECT_EQ(page.all[0]->contents().text(), u"Note");
    EXPECT_EQ(asLink(page.all[0]), nullptr);
}

TEST(PDFAnnotation, TellsEmptyContentsFromNone) {
    AnnotatedPage page("[<</Subtype/Text/Contents()>> <</Subtype/Text>> <</Subtype/Text/Contents/Name>>]");
    EXPECT_TRUE(page.all[0]->contents());
    EXPECT_EQ(page.all[0]->contents().text(), u"");
    EXPECT_FALSE(page.all[1]->contents());
    EXPECT_FALSE(page.all[1]->userName());
    EXPECT_FALSE(page.all[2]->contents());
}

TEST(PDFAnnotation, HasAnAuthorOnlyWhereItsKindHasOne) {
    for (const char* kind :
         {"Text", "FreeText", "Highlight", "StrikeOut", "Stamp", "Ink", "FileAttachment", "Own"})
        EXPECT_TRUE(
            AnnotatedPage("[<</Subtype/" + std::string(kind) + "/T(x)>>]").all[0]->respondsToUserName())
            << kind;
    for (const char* kind : {"Widget", "Link", "Popup", "Screen", "Movie"}) {
        AnnotatedPage page("[<</Subtype/" + std::string(kind) + "/T(field)/Contents(said)>>]");
        EXPECT_FALSE(page.all[0]->respondsToUserName()) << kind;
        EXPECT_FALSE(page.all[0]->userName()) << kind;
        EXPECT_EQ(page.all[0]->contents().text(), u"said") << kind;
    }
}

TEST(PDFAnnotation, StandsInThePagesOrder) {
    AnnotatedPage page("[<</Subtype/Text/Contents(2)>><</Subtype/Text/Contents(1)>>]");
    EXPECT_EQ(page.all[0]->contents().text() + page.all[1]->contents().text(), u"21");
}

TEST(PDFAnnotation, ThatIsNoneSaysNothing) {
    AnnotatedPage page("[null 17 99 0 R (text)]");
    for (const auto& annotation : page.all) {
        EXPECT_FALSE(annotation->contents());
        EXPECT_FALSE(annotation->userName());
    }
    EXPECT_TRUE(AnnotatedPage("(text)").all.empty());
}

TEST(PDFAnnotationLink, LeadsToAURL) {
    EXPECT_EQ(urlOf("/S/URI/URI(http://example.org/a)"), "http://example.org/a");
    EXPECT_EQ(urlOf("/S/URI/URI(mailto:ann@example.org)"), "mailto:ann@example.org");
    EXPECT_EQ(urlOf("/S/URI/URI(http://example.org/a b)"), "http://example.org/a%20b");
    EXPECT_EQ(urlOf("/S/URI/URI(http://example.org/\xC3\xBC)"), "http://example.org/%C3%BC");
}

TEST(PDFAnnotationLink, LeadsToWhatIsNoProperURLToo) {
    for (const char* url : {"http://example.org/[a]|^`{b}", "http://example.org/%zz", "www.example.org",
                            "#here", "http://example.org/a\"<b>", "::"})
        EXPECT_EQ(urlOf("/S/URI/URI(" + std::string(url) + ")"), url);
}

TEST(PDFAnnotationLink, ThatLeadsElsewhereHasNoURL) {
    for (const char* action : {"/S/GoTo/D[5 0 R/Fit]", "/S/Launch/F(a.exe)", "/S/GoToR/F(b.pdf)", "/S/URI",
                               "/S/URI/URI/Name", "/S/Named/N/NextPage", "/URI(http://example.org/)"})
        EXPECT_EQ(urlOf(action), "(nil)") << action;
}

TEST(PDFAnnotationLink, IsRelativeToTheDocumentsBase) {
    const std::string base = "/URI<</Base(http://example.org/dir/)>>";
    EXPECT_EQ(urlOf("/S/URI/URI(page.html)", base), "http://example.org/dir/page.html");
    EXPECT_EQ(urlOf("/S/URI/URI(../page.html)", base), "http://example.org/page.html");
    EXPECT_EQ(urlOf("/S/URI/URI(/page.html)", base), "http://example.org/page.html");
    EXPECT_EQ(urlOf("/S/URI/URI(page.html)", "/URI<</Base(http://example.org/dir/index.html)>>"),
              "http://example.org/dir/page.html");
    EXPECT_EQ(urlOf("/S/URI/URI(http://other.org/)", base), "http://other.org/");
    EXPECT_EQ(urlOf("/S/URI/URI(page.html)"), "page.html");
}

} // namespace
