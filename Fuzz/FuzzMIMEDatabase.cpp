// SPDX-License-Identifier: Apache-2.0
//
// Asks a database of kinds whose files hold any bytes. The input is, with a byte 1E between them, a file's
// name and its start, then the files of the folders: names, magic, aliases, parents.
#include "Platform/SearchKit/MIMEDatabase.h"
#include "Platform/SearchKit/TextLines.h"

#include <cstddef>
#include <cstdint>
#include <cstdlib>

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    std::string_view rest(reinterpret_cast<const char*>(data), size);
    const auto part = [&] { return std::string(takePart(rest, '\x1E')); };
    const std::string name = part(), start = part();
    std::vector<MIMEDatabase::Folder> folders;
    while (!rest.empty() && folders.size() < 4) {
        MIMEDatabase::Folder& folder = folders.emplace_back();
        for (std::string* file : {&folder.names, &folder.magic, &folder.aliases, &folder.parents})
            *file = part();
    }
    const MIMEDatabase database(std::move(folders));
    // Plain text may come behind the last one.
    if (database.lineage(database.typeOf(name, start)).size() > MIMEDatabase::kLongestLineage + 1)
        std::abort();
    return 0;
}
