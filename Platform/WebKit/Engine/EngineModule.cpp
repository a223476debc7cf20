// SPDX-License-Identifier: Apache-2.0
//
// The entry of the module for web pages.
#include "Platform/Foundation/Module.h"
#include "Platform/WebKit/Engine/EngineView.h"
#include "Platform/WebKit/Engine/Surroundings.h"

#include <dlfcn.h>

extern "C" __attribute__((visibility("default"))) WebView*
MODULE_ENTRY(const NSRect& frame, const WebEngineSurroundings& where, NSString* why);

namespace {

// The part for the page's process lies in a folder of its own beside the module.
std::string extensionFolder() {
    Dl_info module{};
    if (!dladdr(reinterpret_cast<void*>(MODULE_ENTRY), &module) || !module.dli_fname) return {};
    const std::string file = module.dli_fname;
    return file.substr(0, file.find_last_of('/') + 1) + "WebKit";
}

} // namespace

WebView* MODULE_ENTRY(const NSRect& frame, const WebEngineSurroundings& where, NSString* why) {
    if (startToolkit(where)) {
        const std::string folder = extensionFolder();
        putLibrariesFirst(folder + "/Speechless");
        return new EngineView(frame, where, folder);
    }
    *why = u"The web engine can’t use its display.";
    return nullptr;
}
