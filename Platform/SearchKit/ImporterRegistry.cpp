// SPDX-License-Identifier: Apache-2.0
#include "Platform/SearchKit/ImporterRegistry.h"

#include "Platform/Foundation/NSData.h"
#include "Platform/Foundation/NSError.h"
#include "Platform/Foundation/NSLog.h"
#include "Platform/Foundation/NSPathUtilities.h"
#include "Platform/Foundation/StringFormat.h"
#include "Platform/SearchKit/BuiltinImporters.h"
#include "Platform/SearchKit/ImportedFile.h"

#include <algorithm>
#include <dirent.h>
#include <memory>

namespace {

constexpr std::string_view kSuffix = ".importer";

struct CloseDirectory {
    void operator()(DIR* directory) const { closedir(directory); }
};

// The names of descriptors in a folder, sorted.
std::vector<std::string> descriptorNames(const std::string& folder) {
    std::vector<std::string> names;
    const std::unique_ptr<DIR, CloseDirectory> directory(opendir(folder.c_str()));
    while (const dirent* entry = directory ? readdir(directory.get()) : nullptr) {
        const std::string name = entry->d_name;
        if (name.size() > kSuffix.size() && name.substr(name.size() - kSuffix.size()) == kSuffix)
            names.push_back(name);
    }
    std::sort(names.begin(), names.end());
    return names;
}

void logUnused(const NSString& path, const std::string& why) {
    NSLog(stringWithFormat("The importer %@ is not used: %@", path, NSString::fromUTF8(why)));
}

bool serves(const ImporterDescriptor& importer, std::string_view type) {
    return std::find(importer.mimeTypes.begin(), importer.mimeTypes.end(), type) != importer.mimeTypes.end();
}

} // namespace

ImporterRegistry::ImporterRegistry(const std::vector<std::string>& dataFolders) {
    for (const std::string& data : dataFolders) readFolder(data + "/texttool/importers");
    for (ImporterDescriptor& builtin : builtinImporters()) importers_.push_back(std::move(builtin));
}

void ImporterRegistry::readFolder(const std::string& folder) {
    const size_t first = importers_.size();
    for (const std::string& name : descriptorNames(folder)) readDescriptor(folder, name);
    std::stable_sort(importers_.begin() + ptrdiff_t(first), importers_.end(),
                     [](const auto& a, const auto& b) { return a.priority > b.priority; });
}

void ImporterRegistry::readDescriptor(const std::string& folder, const std::string& name) {
    const NSString path = stringWithFileSystemRepresentation(folder + "/" + name);
    const ImportedFile file(path);
    std::string why = "it cannot be read";
    std::optional<ImporterDescriptor> descriptor;
    if (file.isReadable() && !file.isFolder()) {
        why = "it is too long";
        if (file.start().size() < ImportedFile::kStartSize)
            descriptor = importerDescriptor(file.start(), why);
    }
    if (descriptor && descriptor->type == ImporterDescriptor::Type::builtin &&
        !builtinImporterNamed(descriptor->reader)) {
        descriptor.reset();
        why = "there is no such reader";
    }
    if (!descriptor) {
        logUnused(path, why);
        return;
    }
    if (descriptor->name.empty()) descriptor->name = name.substr(0, name.size() - kSuffix.size());
    if (!descriptor->module.empty() && descriptor->module[0] != '/')
        descriptor->module = folder + "/" + descriptor->module;
    importers_.push_back(std::move(*descriptor));
}

const ImporterDescriptor*
ImporterRegistry::importerForTypes(const std::vector<std::string>& types,
                                   const std::function<bool(const ImporterDescriptor&)>& isUsable) const {
    std::vector<std::string> asked = types;
    if (!types.empty()) asked.push_back(types[0].substr(0, types[0].find('/')) + "/*");
    for (const std::string& type : asked) {
        for (const ImporterDescriptor& importer : importers_) {
            if (serves(importer, type) && isUsable(importer)) return &importer;
        }
    }
    return nullptr;
}
