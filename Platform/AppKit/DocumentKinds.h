// SPDX-License-Identifier: Apache-2.0
//
// The kinds of document that can be read, and how a kind is told by its first bytes.
#pragma once

#include "Platform/AppKit/DocumentReader.h"
#include "Platform/Foundation/NSString.h"

#include <string_view>

struct DocumentKind {
    const char16_t* documentType; // "NSRTF"
    const char16_t* fileType;     // "public.rtf"
    DocumentReader reader;        // null for a reader in a module
    const char* module;           // its module, or null
};

// Null when the type is not known.
const DocumentKind* documentKindOfType(const NSString& documentType);

// Guesses from the bytes: what is nothing else is plain text. Null for a binary property list, which never
// is.
const DocumentKind* documentKindOfBytes(std::string_view bytes);

// The reader of a kind, loaded if need be; null and a sentence in `why` when its module is missing.
DocumentReader readerOfKind(const DocumentKind& kind, NSString* why);

// The entry of a module of readers: the reader of a document type, in ASCII.
using ReaderModuleEntry = DocumentReader (*)(std::string_view documentType);
