// SPDX-License-Identifier: Apache-2.0
//
// Opens documents with the engine in the test's own process, and measures how long that keeps the processor.
#pragma once

#include "Platform/Foundation/NSException.h"
#include "Platform/PDFKit/MuPDF/MuPDFEngine.h"
#include "Platform/PDFKit/PDFDocument.h"
#include "Tests/Support/PDFWriter.h"

#include <gtest/gtest.h>

#include <ctime>
#include <string>

// A document and its bytes.
class OpenedPDF {
public:
    explicit OpenedPDF(std::string bytes)
        : bytes_(std::move(bytes)), document_(std::shared_ptr<PDFEngine>(MuPDFEngine::open(bytes_))) {}

    explicit operator bool() const { return bool(document_); }
    const PDFDocument* operator->() const { return &document_; }

    std::u16string page(size_t index) const { return document_.pageAtIndex(index).string().text(); }

private:
    std::string bytes_;
    PDFDocument document_;
};

// The text of a document's first page.
inline std::u16string textOf(const std::string& bytes) {
    OpenedPDF pdf(bytes);
    return pdf ? pdf.page(0) : u"(not opened)";
}

// The text of one page with this content.
inline std::u16string textOfPage(const std::string& content) { return textOf(pdfOfPages({content})); }

// The same with a font of its own under /F.
inline std::u16string textInFont(PDFWriter& writer, int font, const std::string& content) {
    writer.addPage(content, "/Resources<</Font<</F " + reference(font) + ">>>>");
    return textOf(writer.write());
}

// Processor time of the test so far.
inline double secondsSoFar() {
    timespec time{};
    clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &time);
    return double(time.tv_sec) + double(time.tv_nsec) * 1e-9;
}

// Reads all of a document as an extractor does: its text and the contents of its annotations, one after the
// other. A test fails when that takes more than two seconds, or any time that ends where sanitizers are built
// in.
inline std::u16string readInTime(const std::string& bytes) {
    double start = secondsSoFar();
    OpenedPDF pdf(bytes);
    std::u16string text;
    for (size_t i = 0; pdf && i < pdf->pageCount(); ++i) {
        PDFPage page = pdf->pageAtIndex(i);
        try {
            text += page.string().text();
            for (const auto& annotation : page.annotations()) text += annotation->contents().text();
        } catch (const NSException&) {
            // What cannot be read costs only itself.
        }
    }
#ifndef TEXTTOOL_SANITIZED
    EXPECT_LT(secondsSoFar() - start, 2);
#else
    EXPECT_LT(secondsSoFar() - start, 30);
#endif
    return text;
}
