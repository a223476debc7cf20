// SPDX-License-Identifier: Apache-2.0
#include "Platform/PDFKit/PDFDocument.h"

#include "Platform/Foundation/Module.h"
#include "Platform/PDFKit/PDFEngine.h"

PDFDocument PDFDocument::initWithData(const NSData& data, NSError* error) {
    NSString why;
    auto open = reinterpret_cast<PDFModuleEntry>(moduleEntry("PDF", &why));
    if (!open) {
        fail(error, moduleError(why));
        return PDFDocument();
    }
    PDFEngine* engine = open(data.bytes());
    if (!engine) return PDFDocument();
    // The engine reads the bytes as long as it lives.
    return PDFDocument(std::shared_ptr<PDFEngine>(engine, [data](PDFEngine* used) { delete used; }));
}

bool PDFDocument::isLocked() const { return engine_ && engine_->isLocked(); }
size_t PDFDocument::pageCount() const { return engine_ ? engine_->pageCount() : 0; }

PDFPage PDFDocument::pageAtIndex(size_t index) const {
    return engine_ && engine_->hasPage(index) ? PDFPage(engine_, index) : PDFPage();
}

NSDictionary PDFDocument::documentAttributes() const {
    NSDictionary attributes = engine_ ? engine_->documentAttributes() : NSDictionary();
    return attributes ? attributes : NSDictionary::dictionary();
}
