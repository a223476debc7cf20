// SPDX-License-Identifier: Apache-2.0
//
// What a document reader is: a function from a document's bytes to its text and information. Readers know
// nothing of the value model, of errors or of files; NSAttributedString puts both sides together.
#pragma once

#include "Platform/Foundation/Deadline.h"

#include <cstdint>
#include <new>
#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

struct DocumentSize {
    double width = 0, height = 0; // points
};

struct DocumentColor {
    uint8_t red = 0, green = 0, blue = 0;
};

// Seconds since 2001-01-01 00:00:00 UTC, fractions allowed.
using DocumentTime = double;

// What a document says of itself. An empty text and an empty optional stand for "not said".
struct DocumentInfo {
    std::u16string title, author, subject, comment, company, manager, category, copyright, editor;
    std::vector<std::u16string> keywords;
    std::optional<DocumentTime> creationTime, modificationTime;

    std::optional<DocumentSize> paperSize;                                     // points
    std::optional<double> leftMargin, rightMargin, topMargin, bottomMargin;    // points
    std::optional<double> defaultTabInterval, hyphenationFactor, cocoaVersion; // points; 0 to 1; a version
    std::optional<int> converted, viewMode, readOnly;                          // see the attribute keys
    std::optional<double> viewZoom;                                            // percent
    std::optional<DocumentSize> viewSize;                                      // points
    std::optional<DocumentColor> backgroundColor;                              // of the pages
    std::optional<uint32_t> characterEncoding;                                 // NSStringEncoding
};

struct DocumentContents {
    std::u16string text;
    DocumentInfo info;
};

enum class ReadStatus {
    read,        // the contents hold all that could be read; of a damaged document, what is not lost
    wrongKind,   // the bytes are not a document of this kind, or nothing at all could be read from them
    locked,      // the document is of this kind and encrypted
    outOfMemory, // the system gave no memory; readers leave this to readGuarded
};

// A reader. `bytes` lives as long as the call. The reader leaves off when the deadline passes and answers
// `read` with what it has. Readers do not throw but for want of memory: std::bad_alloc, or std::length_error
// for a text longer than any string. They work in time and memory proportional to the document and never
// recurse on its depth without a limit.
using DocumentReader = ReadStatus (*)(std::string_view bytes, Deadline& deadline, DocumentContents& contents);

ReadStatus readRTF(std::string_view bytes, Deadline& deadline, DocumentContents& contents);
// The text of an RTFD package is RTF whose attachments are part of the text.
ReadStatus readRTFDText(std::string_view bytes, Deadline& deadline, DocumentContents& contents);
ReadStatus readDocFormat(std::string_view bytes, Deadline& deadline, DocumentContents& contents);
ReadStatus readOfficeOpenXML(std::string_view bytes, Deadline& deadline, DocumentContents& contents);
ReadStatus readOpenDocument(std::string_view bytes, Deadline& deadline, DocumentContents& contents);
ReadStatus readHTML(std::string_view bytes, Deadline& deadline, DocumentContents& contents);
ReadStatus readPlainText(std::string_view bytes, Deadline& deadline, DocumentContents& contents);

// Calls a reader; memory that is not to be had is a status, here and at the wall of a module.
inline ReadStatus readGuarded(DocumentReader reader, std::string_view bytes, Deadline& deadline,
                              DocumentContents& contents) {
    try {
        return reader(bytes, deadline, contents);
    } catch (const std::bad_alloc&) {
        return ReadStatus::outOfMemory;
    } catch (const std::length_error&) {
        return ReadStatus::outOfMemory;
    }
}
