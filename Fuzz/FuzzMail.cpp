// SPDX-License-Identifier: Apache-2.0
//
// Reads any bytes as a message, as one of Outlook, as a mailbox and as a saved page.
#include "Platform/SearchKit/Mail.h"
#include "Platform/SearchKit/OutlookMessage.h"

#include <cstddef>
#include <cstdint>

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    const std::string bytes(reinterpret_cast<const char*>(data), size);
    for (const BuiltinImporter import :
         {importMessage, importOutlookMessage, importMailbox, importSavedPage}) {
        ImportedFile file(u"/message", bytes);
        std::u16string text;
        NSString why;
        import(file, text, why);
    }
    return 0;
}
