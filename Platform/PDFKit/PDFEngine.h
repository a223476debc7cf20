// SPDX-License-Identifier: Apache-2.0
//
// What the classes of this folder ask of the engine behind them, which is a module of its own. The engine
// raises nothing: what it cannot read it answers with false, and a class makes an exception of that.
#pragma once

#include "Platform/Foundation/NSDictionary.h"

#include <memory>
#include <optional>
#include <string>
#include <string_view>

// What an annotation says. Empty optionals stand for "not said".
struct PDFAnnotationContents {
    bool answersToUserName = false;
    std::optional<std::u16string> userName, contents, url;
    std::optional<std::u16string> baseURL = std::nullopt; // what a relative URL is relative to
};

class PDFEngine {
public:
    virtual ~PDFEngine() = default;

    // True when the document is encrypted and the empty password does not open it.
    virtual bool isLocked() = 0;

    // As the document says, at most the number of its objects.
    virtual size_t pageCount() = 0;

    // The document's information; empty for one that is locked.
    virtual NSDictionary documentAttributes() = 0;

    // Whether the page is there. Pages are asked for in ascending order at little cost.
    virtual bool hasPage(size_t page) = 0;

    // Appends what can be read of the page's text. False when there is none to be had for a failure.
    virtual bool appendPageText(size_t page, std::u16string& text) = 0;

    virtual size_t annotationCount(size_t page) = 0;

    virtual bool isLink(size_t page, size_t index) = 0;

    // False when it could not be read.
    virtual bool readAnnotation(size_t page, size_t index, PDFAnnotationContents& contents) = 0;
};

// The entry of the module: the engine for a document, or null when the bytes are not one that can be opened.
// `bytes` outlives the engine.
using PDFModuleEntry = PDFEngine* (*)(std::string_view bytes);
