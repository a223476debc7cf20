// SPDX-License-Identifier: Apache-2.0
//
// Opens documents with the engine in the test's own process.
#pragma once

#include "Platform/PDFKit/MuPDF/MuPDFEngine.h"
#include "Platform/PDFKit/PDFDocument.h"
#include "Tests/Support/PDFWriter.h"

#include <gtest/gtest.h>

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
