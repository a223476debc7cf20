// SPDX-License-Identifier: Apache-2.0
//
// The text of a web archive: that of its pages and texts as the readers for these have it. Nothing is shown,
// no style sheet counts and no script runs, since it is only the words that are wanted.
#pragma once

#include "Platform/SearchKit/BuiltinImporters.h"

ImportStatus importWebArchive(ImportedFile& file, std::u16string& text, NSString& why);
