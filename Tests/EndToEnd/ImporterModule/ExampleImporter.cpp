// SPDX-License-Identifier: Apache-2.0
//
// An importer in a library: its text is the name of the document, and it crashes for a document named so.
#include "Platform/SearchKit/ImporterModule.h"

#include <cstdlib>
#include <cstring>

extern "C" __attribute__((visibility("default"))) int
texttool_import_text(const char* path, texttool_append append, void* context) {
    const char* name = strrchr(path, '/') + 1;
    if (strstr(name, "crash")) abort();
    if (strstr(name, "refuse")) return 1;
    append(context, "named ", 6);
    append(context, name, strlen(name));
    return 0;
}
