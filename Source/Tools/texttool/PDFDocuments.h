// SPDX-License-Identifier: Apache-2.0
//
// The steps of reading a PDF document, for its extractor and for tests.
#pragma once

#include "Platform/PDFKit/PDFDocument.h"

#include <string>

// Appends the text of all pages with nothing between them, and the texts of all annotations. A page or an
// annotation that cannot be read costs only itself.
void appendPages(const PDFDocument& document, std::u16string& body, std::u16string& comments);

// Appends the annotation's author, contents and link target, as far as there are any, each with a line feed.
void appendAnnotationText(const PDFAnnotation& annotation, std::u16string& text);

// The notes that a reader keeps beside the file, in an extended attribute; nil when there are none.
NSString skimNotesForPDFPath(const NSString& path);
