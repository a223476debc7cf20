// SPDX-License-Identifier: Apache-2.0
//
// The text of mail that Outlook saved as a file of its own, [MS-OXMSG]: the fields that people read, the
// body, and the names of attachments.
#pragma once

#include "Platform/SearchKit/BuiltinImporters.h"

ImportStatus importOutlookMessage(ImportedFile& file, std::u16string& text, NSString& why);
