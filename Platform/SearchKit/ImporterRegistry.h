// SPDX-License-Identifier: Apache-2.0
//
// All importers: those of descriptor files, NAME.importer in the folders texttool/importers of the user's and
// the system's data, and behind them the built-in ones.
#pragma once

#include "Platform/SearchKit/ImporterDescriptor.h"

#include <functional>
#include <string>
#include <vector>

class ImporterRegistry {
public:
    // Reads the descriptors of these data folders, the most important one first. A damaged one is a line in
    // the log, and the others serve.
    explicit ImporterRegistry(const std::vector<std::string>& dataFolders);

    // The first importer that is usable for the nearest of the types: of the most important folder, of the
    // highest priority, then by the file's name. Last come those for all kinds of a sort ("image/*"). Null
    // when there is none.
    const ImporterDescriptor*
    importerForTypes(const std::vector<std::string>& types,
                     const std::function<bool(const ImporterDescriptor&)>& isUsable) const;

    // All, in the order in which they are asked.
    const std::vector<ImporterDescriptor>& importers() const { return importers_; }

private:
    void readFolder(const std::string& folder);
    void readDescriptor(const std::string& folder, const std::string& name);

    std::vector<ImporterDescriptor> importers_;
};
