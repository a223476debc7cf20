// SPDX-License-Identifier: Apache-2.0
#include "Tests/Platform/PDFKit/MuPDF/EngineTesting.h"

#include "Tests/Support/TemporaryFolder.h"

namespace {

std::string encrypted(const std::string& name) {
    return readFile(std::string(TEST_DATA_FOLDER "/PDF/") + name + ".pdf");
}

const char* const kCiphers[] = {"rc4-40", "rc4-128", "aes-128", "aes-256-r5", "aes-256-r6"};

// A document with two pages and this encryption dictionary, its content as it is.
std::string withEncryption(const std::string& entries) {
    PDFWriter writer;
    writer.addPage(textAt(50, 700, "plain"));
    writer.addPage("");
    int information = writer.add("<</Title(plain title)>>");
    writer.trailer = "/Info " + reference(information) + "/ID[<0011><0011>]/Encrypt<<" + entries + ">>";
    return writer.write();
}

const std::string kStandard = "/Filter/Standard/V 4/R 4/Length 128/P -44/O<" + std::string(64, 'A') + ">/U<" +
                              std::string(64, 'B') +
                              ">/CF<</StdCF<</CFM/AESV2/AuthEvent/DocOpen/Length 16>>>>";

TEST(LockedPDF, IsFoundForEveryCipher) {
    for (const char* cipher : kCiphers) {
        OpenedPDF pdf(encrypted(cipher));
        ASSERT_TRUE(pdf) << cipher;
        EXPECT_TRUE(pdf->isLocked()) << cipher;
        EXPECT_EQ(pdf->pageCount(), 2u) << cipher;
        EXPECT_EQ(pdf->documentAttributes().count(), 0u) << cipher;
    }
}

TEST(LockedPDF, WithAnEncryptedCatalogueHasNoPagesThatAreKnown) {
    OpenedPDF pdf(encrypted("object-streams"));
    ASSERT_TRUE(pdf);
    EXPECT_TRUE(pdf->isLocked());
    EXPECT_EQ(pdf->pageCount(), 0u);
}

TEST(LockedPDF, SaysAtItsFrontHowManyPagesItHasWhereItIsLinearized) {
    OpenedPDF pdf(encrypted("linearized"));
    ASSERT_TRUE(pdf);
    EXPECT_TRUE(pdf->isLocked());
    EXPECT_EQ(pdf->pageCount(), 2u);
}

TEST(LockedPDF, IsOneThatOnlyCertificatesOpen) {
    OpenedPDF pdf(
        withEncryption("/Filter/Adobe.PubSec/SubFilter/adbe.pkcs7.s4/V 2/Length 128/Recipients[<00>]"));
    ASSERT_TRUE(pdf);
    EXPECT_TRUE(pdf->isLocked());
    EXPECT_EQ(pdf->pageCount(), 2u);
    EXPECT_EQ(pdf->documentAttributes().count(), 0u);
}

TEST(LockedPDF, IsOneOfAnUnknownScheme) {
    OpenedPDF pdf(withEncryption("/Filter/Own.Scheme/V 9"));
    ASSERT_TRUE(pdf);
    EXPECT_TRUE(pdf->isLocked());
}

TEST(LockedPDF, IsNotOneThatOpensWithoutAPassword) {
    for (const char* cipher : kCiphers) {
        OpenedPDF pdf(encrypted(std::string("owner-") + cipher));
        ASSERT_TRUE(pdf) << cipher;
        EXPECT_FALSE(pdf->isLocked()) << cipher;
        EXPECT_EQ(pdf.page(0) + pdf.page(1), u"Secret pageSecond") << cipher;
        EXPECT_EQ(pdf->documentAttributes().get<NSString>(NSString(u"Title")).text(), u"Secret title")
            << cipher;
    }
}

TEST(LockedPDF, IsNotOneWhoseAttachmentsAloneAreEncrypted) {
    for (const std::string& scheme :
         {kStandard + "/StmF/Identity/StrF/Identity/EFF/StdCF", kStandard + "/EFF/StdCF",
          std::string("/Filter/Adobe.PubSec/V 4/SubFilter/adbe.pkcs7.s5/CF<</DefEmbeddedFile<</CFM/AESV2>>>>"
                      "/StmF/Identity/StrF/Identity/EFF/DefEmbeddedFile")}) {
        OpenedPDF pdf(withEncryption(scheme));
        ASSERT_TRUE(pdf) << scheme;
        EXPECT_FALSE(pdf->isLocked()) << scheme;
        EXPECT_EQ(pdf.page(0), u"plain") << scheme;
        EXPECT_EQ(pdf->documentAttributes().get<NSString>(NSString(u"Title")).text(), u"plain title")
            << scheme;
    }
}

TEST(LockedPDF, IsOneWhoseStringsOrStreamsAreEncrypted) {
    EXPECT_TRUE(OpenedPDF(withEncryption(kStandard + "/StmF/StdCF/StrF/Identity"))->isLocked());
    EXPECT_TRUE(OpenedPDF(withEncryption(kStandard + "/StmF/Identity/StrF/StdCF"))->isLocked());
}

} // namespace
