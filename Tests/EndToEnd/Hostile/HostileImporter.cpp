// SPDX-License-Identifier: Apache-2.0
//
// An importer in a library that the document has taken over.
#include "Platform/SearchKit/ImporterModule.h"
#include "Tests/EndToEnd/Hostile/Attempts.h"

#include <fstream>

extern "C" __attribute__((visibility("default"))) int
texttool_import_text(const char* path, texttool_append append, void* context) {
    std::ifstream lines(path);
    for (std::string line; std::getline(lines, line);) {
        const std::string answer = attempt(line) + "\n";
        append(context, answer.data(), answer.size());
    }
    return 0;
}
