// SPDX-License-Identifier: Apache-2.0
#include "Platform/Foundation/Module.h"

#include "Platform/Foundation/NSPathUtilities.h"
#include "Platform/Foundation/StringFormat.h"

#include <climits>
#include <dlfcn.h>
#include <unistd.h>

namespace {

#define STRING_OF(x) #x
#define NAME_OF(x) STRING_OF(x)

std::string& chosenFolder() {
    static std::string folder;
    return folder;
}

std::string folderBesideProgram() {
    char program[PATH_MAX];
    ssize_t length = readlink("/proc/self/exe", program, sizeof program);
    std::string path(program, length > 0 ? size_t(length) : 0);
    for (int i = 0; i < 2; ++i)
        path.resize(path.find_last_of('/') == std::string::npos ? 0 : path.find_last_of('/'));
    return path + "/lib/texttool";
}

std::string fileOf(const std::string& module) {
    std::string file;
    for (const std::string& folder : moduleFolders()) {
        file.assign(folder).append("/").append(module).append(".so");
        if (access(file.c_str(), F_OK) == 0) break;
    }
    return file;
}

} // namespace

void setModuleFolder(const NSString& folder) { chosenFolder() = fileSystemRepresentation(folder); }

std::vector<std::string> moduleFolders() {
    std::vector<std::string> folders = {folderBesideProgram(), TEXTTOOL_MODULE_FOLDER};
    if (!chosenFolder().empty()) folders.insert(folders.begin(), chosenFolder());
    return folders;
}

void* moduleEntry(const char* module, NSString* why) {
    void* library = dlopen(fileOf(module).c_str(), RTLD_LAZY | RTLD_LOCAL);
    void* entry = library ? dlsym(library, NAME_OF(MODULE_ENTRY)) : nullptr;
    if (!entry && why) *why = stringWithFormat("The module “%s” can’t be loaded: %s", module, dlerror());
    return entry;
}

NSError moduleError(const NSString& why) {
    return NSError(NSCocoaErrorDomain, NSExecutableLoadError, {{NSString(NSLocalizedDescriptionKey), why}});
}
