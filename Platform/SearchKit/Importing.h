// SPDX-License-Identifier: Apache-2.0
//
// From a document of any kind to its text, by the importer for its kind.
#pragma once

#include "Platform/Foundation/NSString.h"
#include "Platform/SearchKit/BuiltinImporters.h"

#include <string>
#include <vector>

// Looks up what importers and kinds of files there are on the system, once.
void loadImporters();

// What reading a document may still need then: the folders of kinds of files and of importers, and libraries
// that importers are. They need not exist.
std::vector<std::string> filesOfImporting();

// The programs that importers are, wherever they are found.
std::vector<std::string> programsOfImporting();

// Appends the text of the document, nothing when no importer knows its kind. False when the document cannot
// be opened or the built-in reader for its kind cannot be loaded; an importer that fails costs only the text,
// and the log tells why. The MIME type may be nil: then the document's kind is looked at.
bool importDocument(const NSString& path, const NSString& mimeType, std::u16string& text);

// Appends the text of a document that lay inside of another, by the tool's own readers alone, and not when it
// holds documents in turn.
ImportStatus importEnclosed(ImportedFile& file, std::u16string& text, NSString& why);
