// SPDX-License-Identifier: Apache-2.0
//
// Importers that are not the tool's own: programs, and libraries that people have put on their system. Both
// work in a process of their own within bounds of time, memory and output, so that their failure costs
// nothing but the text.
#pragma once

#include "Platform/SearchKit/BuiltinImporters.h"
#include "Platform/SearchKit/ImporterDescriptor.h"

// Whether the program or the library is there at all.
bool isInstalled(const ImporterDescriptor& importer);

// Appends the text of the document; as BuiltinImporter says.
ImportStatus runForeignImporter(const ImporterDescriptor& importer, const ImportedFile& file,
                                std::u16string& text, NSString& why);
