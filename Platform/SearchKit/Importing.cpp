// SPDX-License-Identifier: Apache-2.0
#include "Platform/SearchKit/Importing.h"

#include "Platform/Foundation/NSLog.h"
#include "Platform/Foundation/StringFormat.h"
#include "Platform/SearchKit/BuiltinImporters.h"

bool importDocument(const NSString& path, const NSString&, std::u16string& text) {
    ImportedFile file(path);
    if (!file.isReadable()) return false;
    const BuiltinImporter importer = builtinImporterNamed(builtinImporterForContent(file));
    if (!importer) return true;
    NSString why;
    const ImportStatus status = importer(file, text, why);
    if (status != ImportStatus::read) NSLog(stringWithFormat("No text of %@: %@", path, why));
    return status != ImportStatus::missingReader;
}
