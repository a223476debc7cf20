// SPDX-License-Identifier: Apache-2.0
//
// A page of a PDF document, or nil, which has no text and no annotations.
#pragma once

#include "Platform/Foundation/NSString.h"
#include "Platform/PDFKit/PDFAnnotation.h"

#include <cstddef>
#include <memory>
#include <vector>

class PDFEngine;

class PDFPage {
public:
    PDFPage() = default;
    PDFPage(std::shared_ptr<PDFEngine> engine, size_t index) : engine_(std::move(engine)), index_(index) {}

    explicit operator bool() const { return engine_ != nullptr; }

    // The page's text, its lines separated by line feeds and none at its end. Of a damaged page, what can be
    // read. Raises a generic exception when nothing can.
    NSString string() const;

    // In the page's own order. Raises nothing: an annotation is read when it is asked something.
    std::vector<std::unique_ptr<PDFAnnotation>> annotations() const;

private:
    std::shared_ptr<PDFEngine> engine_;
    size_t index_ = 0;
};
