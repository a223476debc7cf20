// SPDX-License-Identifier: Apache-2.0
#include "Platform/SearchKit/CompressedFile.h"

#include "Platform/Foundation/Module.h"
#include "Platform/Foundation/NSPathUtilities.h"
#include "Platform/SearchKit/Compression/Decompress.h"
#include "Platform/SearchKit/Importing.h"

namespace {

constexpr std::chrono::seconds kTimeout{30};

// A path below that of the compressed file, where nothing can be.
NSString innerPath(const NSString& path) {
    const NSString name = stringByDeletingPathExtension(lastPathComponent(path));
    return stringByAppendingPathComponent(path, name);
}

} // namespace

ImportStatus importCompressed(ImportedFile& file, std::u16string& text, NSString& why) {
    if (!file.data()) return importFailed(why, kCannotBeRead);
    static const ModuleEntry<CompressionModuleEntry> module("Compression");
    if (!module.get()) {
        why = module.why();
        return ImportStatus::missingReader;
    }
    Deadline deadline(kTimeout);
    std::string bytes;
    switch (module.get()(file.data().bytes(), deadline, bytes)) {
    case DecompressionStatus::wrongKind: return importFailed(why, kOfAnotherKind);
    case DecompressionStatus::outOfMemory: return importFailed(why, kOutOfMemory);
    case DecompressionStatus::done: break;
    }
    ImportedFile inner(innerPath(file.path()), std::move(bytes));
    return importEnclosed(inner, text, why);
}
