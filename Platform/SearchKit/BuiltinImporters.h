// SPDX-License-Identifier: Apache-2.0
//
// The importers that the tool brings: its own readers, asked for nothing but text.
#pragma once

#include "Platform/Foundation/NSString.h"
#include "Platform/SearchKit/ImportedFile.h"
#include "Platform/SearchKit/ImporterDescriptor.h"

#include <string>
#include <string_view>
#include <vector>

enum class ImportStatus {
    read,         // the text holds all that could be read, which may be nothing
    failed,       // the document is damaged or locked, or its importer did not do its work
    missingReader // the importer itself cannot be loaded
};

// Appends the text of the document. `why` says what went wrong when the status is not `read`.
using BuiltinImporter = ImportStatus (*)(ImportedFile& file, std::u16string& text, NSString& why);

// Null for a name of none: "text", "html", "rtf", "rtfd", "doc", "docx", "odt", "pdf", "xml",
// "package", "json", "table", "subtitles", "mail", "outlook", "mailbox", "savedpage", "webarchive",
// "compressed", "image", "media".
BuiltinImporter builtinImporterNamed(std::string_view name);

// What the built-in importers say of themselves.
std::vector<ImporterDescriptor> builtinImporters();

// Says why there is no text.
ImportStatus importFailed(NSString& why, const char16_t* reason);
inline constexpr const char16_t* kCannotBeRead = u"it cannot be read";
inline constexpr const char16_t* kOfAnotherKind = u"it is damaged or of another kind";
inline constexpr const char16_t* kOutOfMemory = u"there is not enough memory";

// Appends the text of a document of one of AppKit's types, or of those of XMLTextReaders.h. nil data is a
// failure.
ImportStatus importData(const NSString& documentType, const NSData& data, std::u16string& text,
                        NSString& why);

// The name of the importer for a document by its first bytes alone; "" when they tell of no kind.
std::string_view builtinImporterForContent(ImportedFile& file);
