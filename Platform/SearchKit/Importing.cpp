// SPDX-License-Identifier: Apache-2.0
#include "Platform/SearchKit/Importing.h"

#include "Platform/Foundation/ASCII.h"
#include "Platform/Foundation/BaseFolders.h"
#include "Platform/Foundation/NSLog.h"
#include "Platform/Foundation/NSPathUtilities.h"
#include "Platform/Foundation/StringFormat.h"
#include "Platform/Sandbox/Sandbox.h"
#include "Platform/SearchKit/ForeignImporters.h"
#include "Platform/SearchKit/ImporterRegistry.h"
#include "Platform/SearchKit/MIMEDatabase.h"
#include "Platform/SearchKit/ProgramOutput.h"

#include <functional>

namespace {

struct Importers {
    MIMEDatabase kinds{dataFolders()};
    ImporterRegistry registry{dataFolders()};
};

const Importers& importers() {
    static const Importers all;
    return all;
}

// Kinds that the shared database does not know; it takes an archive with pages at its start for a page.
std::string typeOfOwn(const std::string& name, std::string_view start) {
    const bool isList = start.starts_with("bplist0") && start.find("WebMainResource") != start.npos;
    if (isList || name.ends_with(".webarchive")) return "application/x-webarchive";
    if (name.ends_with(".msg") && start.starts_with("\xD0\xCF\x11\xE0")) return "application/vnd.ms-outlook";
    return name.ends_with(".jsonl") || name.ends_with(".ndjson") ? "application/json" : "";
}

std::string typeOfDocument(const ImportedFile& file) {
    if (file.isFolder()) return "inode/directory";
    const std::string name = fileSystemRepresentation(lastPathComponent(file.path()));
    const std::string own = typeOfOwn(lowered(name), file.start());
    return own.empty() ? importers().kinds.typeOf(name, file.start()) : own;
}

// The built-in importer that the bytes call for. When the kind is known, only plain text is still possible.
std::string_view readerByContent(ImportedFile& file, bool isKnown) {
    const std::string_view reader = builtinImporterForContent(file);
    return isKnown && reader != "text" ? "" : reader;
}

// A name can be wrong: then what the bytes say counts.
ImportStatus importBuiltin(std::string_view name, ImportedFile& file, std::u16string& text, NSString& why) {
    const ImportStatus status = builtinImporterNamed(name)(file, text, why);
    const std::string_view other = status == ImportStatus::failed ? builtinImporterForContent(file) : "";
    if (other.empty() || other == name) return status;
    return builtinImporterNamed(other)(file, text, why);
}

ImportStatus import(ImportedFile& file, const std::string& type,
                    const std::function<bool(const ImporterDescriptor&)>& isUsable, std::u16string& text,
                    NSString& why) {
    const ImporterDescriptor* importer =
        importers().registry.importerForTypes(importers().kinds.lineage(type), isUsable);
    if (importer && importer->type != ImporterDescriptor::Type::builtin)
        return runForeignImporter(*importer, file, text, why);
    if (!renounceOtherPrograms()) {
        why = u"the sandbox of its importer cannot be entered";
        return ImportStatus::failed;
    }
    const bool isKnown = !type.empty() && !file.isFolder();
    const std::string_view reader = importer ? importer->reader : readerByContent(file, isKnown);
    return reader.empty() ? ImportStatus::read : importBuiltin(reader, file, text, why);
}

} // namespace

void loadImporters() { importers(); }

std::vector<std::string> filesOfImporting() {
    std::vector<std::string> files;
    for (const std::string& data : dataFolders()) {
        files.push_back(data + "/mime");
        files.push_back(data + "/texttool");
    }
    for (const ImporterDescriptor& importer : importers().registry.importers()) {
        if (!importer.module.empty()) files.push_back(importer.module);
    }
    return files;
}

std::vector<std::string> programsOfImporting() {
    std::vector<std::string> programs;
    for (const ImporterDescriptor& importer : importers().registry.importers()) {
        for (const std::string& name :
             {importer.command.empty() ? "" : importer.command[0], importer.needed}) {
            const std::string file = name.empty() ? "" : programFile(name);
            if (!file.empty() && !file.starts_with("/usr/")) programs.push_back(file);
        }
    }
    return programs;
}

bool importDocument(const NSString& path, const NSString& mimeType, std::u16string& text) {
    ImportedFile file(path);
    if (!file.isReadable()) return false;
    NSString why;
    const ImportStatus status =
        import(file, mimeType ? mimeType.utf8() : typeOfDocument(file), isInstalled, text, why);
    if (status != ImportStatus::read) NSLog(stringWithFormat("No text of %@: %@", path, why));
    return status != ImportStatus::missingReader;
}

ImportStatus importEnclosed(ImportedFile& file, std::u16string& text, NSString& why) {
    const auto readsBytes = [](const ImporterDescriptor& importer) {
        return importer.type == ImporterDescriptor::Type::builtin && importer.reader != "compressed" &&
               importer.reader != "image" && importer.reader != "media";
    };
    return import(file, typeOfDocument(file), readsBytes, text, why);
}
