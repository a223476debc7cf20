// SPDX-License-Identifier: Apache-2.0
#include "Platform/PDFKit/MuPDF/MuPDFEngine.h"
#include "Platform/PDFKit/PDFDocument.h"

#include <algorithm>
#include <cstdlib>

// Reads all of a document as the extractor does: whatever the bytes, it comes to an end, raises nothing but
// for pages and annotations, and says no more than it can hold.
extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    std::string_view bytes(reinterpret_cast<const char*>(data), size);
    std::shared_ptr<PDFEngine> engine = MuPDFEngine::open(bytes);
    if (!engine) return 0;
    PDFDocument document(engine);
    NSDictionary attributes = document.documentAttributes();
    if (document.isLocked() && attributes.count() > 0) abort();
    for (size_t i = 0; i < std::min<size_t>(document.pageCount(), 50); ++i) {
        PDFPage page = document.pageAtIndex(i);
        std::u16string text;
        if (page && engine->appendPageText(i, text) && !text.empty() &&
            (text.back() == u'\n' || text.back() == u' '))
            abort();
        for (size_t n = 0; page && n < std::min<size_t>(engine->annotationCount(i), 100); ++n) {
            PDFAnnotationContents contents;
            engine->isLink(i, n);
            engine->readAnnotation(i, n, contents);
        }
    }
    return 0;
}
