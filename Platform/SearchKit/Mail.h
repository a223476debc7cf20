// SPDX-License-Identifier: Apache-2.0
//
// The text of mail messages, the fields that people read, the parts in text, and the names of attachments;
// and of what else has their format.
#pragma once

#include "Platform/SearchKit/BuiltinImporters.h"

ImportStatus importMessage(ImportedFile& file, std::u16string& text, NSString& why);

// Of many messages in one file, each behind a line that begins with "From ".
ImportStatus importMailbox(ImportedFile& file, std::u16string& text, NSString& why);

// Of a web page that was saved with what it uses, the page alone.
ImportStatus importSavedPage(ImportedFile& file, std::u16string& text, NSString& why);
