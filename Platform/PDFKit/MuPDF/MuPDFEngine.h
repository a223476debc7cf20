// SPDX-License-Identifier: Apache-2.0
//
// The engine for PDF documents, on MuPDF.
#pragma once

#include "Platform/PDFKit/MuPDF/Context.h"
#include "Platform/PDFKit/MuPDF/FontShelf.h"
#include "Platform/PDFKit/MuPDF/OpenedDocument.h"
#include "Platform/PDFKit/MuPDF/PageTree.h"
#include "Platform/PDFKit/MuPDF/WorkLimit.h"
#include "Platform/PDFKit/PDFEngine.h"

class MuPDFEngine : public PDFEngine {
public:
    // Null when the bytes are no document that can be opened.
    static std::unique_ptr<MuPDFEngine> open(std::string_view bytes);

    bool isLocked() override;
    size_t pageCount() override;
    NSDictionary documentAttributes() override;
    bool hasPage(size_t page) override;
    bool appendPageText(size_t page, std::u16string& text) override;
    size_t annotationCount(size_t page) override;
    bool isLink(size_t page, size_t index) override;
    bool readAnnotation(size_t page, size_t index, PDFAnnotationContents& contents) override;

private:
    explicit MuPDFEngine(std::string_view bytes);

    pdf_obj* annotation(size_t page, size_t index);
    std::string_view baseURI();
    std::optional<std::u16string> limited(std::optional<std::u16string> text);
    void readAttributes();
    void forgetObjects();

    WorkLimit limit_;
    Context context_;
    OpenedDocument document_;
    PageTree pages_;
    FontShelf fonts_;
    NSDictionary attributes_;
    unsigned pagesRead_ = 0;
    size_t memoryLeft_; // when objects were last forgotten
};
