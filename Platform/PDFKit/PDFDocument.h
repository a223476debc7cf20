// SPDX-License-Identifier: Apache-2.0
//
// A PDF document, its pages and their annotations. The handles share the document; they are cheap to copy and
// belong to one thread.
#pragma once

#include "Platform/Foundation/NSData.h"
#include "Platform/Foundation/NSDictionary.h"
#include "Platform/Foundation/NSError.h"
#include "Platform/PDFKit/PDFPage.h"

#include <memory>

class PDFEngine;

// The keys of the information dictionary that everybody asks for. Others go under their names.
inline constexpr const char16_t* PDFDocumentTitleAttribute = u"Title";
inline constexpr const char16_t* PDFDocumentAuthorAttribute = u"Author";

class PDFDocument {
public:
    PDFDocument() = default;
    explicit PDFDocument(std::shared_ptr<PDFEngine> engine) : engine_(std::move(engine)) {}

    // From a file's bytes. nil when they are no PDF document that can be opened: then without an error. nil
    // with a Cocoa error 3587 that names the module when the reader itself cannot be loaded.
    static PDFDocument initWithData(const NSData& data, NSError* error);

    explicit operator bool() const { return engine_ != nullptr; }

    // True when the document is encrypted and opens only with a password or a key.
    bool isLocked() const;

    // What the document says of itself, at most the number of its objects.
    size_t pageCount() const;

    // Counted from 0; nil for a page that is not there.
    PDFPage pageAtIndex(size_t index) const;

    // The information dictionary with its own keys: strings, dates, numbers; arrays and dictionaries where
    // somebody wrote them. Never nil; empty when there is none or the document is locked.
    NSDictionary documentAttributes() const;

private:
    std::shared_ptr<PDFEngine> engine_;
};
