// SPDX-License-Identifier: Apache-2.0
//
// The text of one document that was compressed alone, "notes.txt.gz", as that of the document itself.
#pragma once

#include "Platform/SearchKit/BuiltinImporters.h"

ImportStatus importCompressed(ImportedFile& file, std::u16string& text, NSString& why);
