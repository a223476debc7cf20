// SPDX-License-Identifier: Apache-2.0
//
// What passes between the program and the engine's module.
#pragma once

#include "Platform/WebKit/Caretaker.h"
#include "Platform/WebKit/WebView.h"

#include <string>

struct WebEngineSurroundings {
    std::string display;            // the name of the display server
    std::string runtimeFolder;      // for all that programs keep of the user; "" for none
    bool hasSandbox = false;        // the engine's sandbox works here
    Caretaker* caretaker = nullptr; // outlives the view; null for views that nobody cares for
};

// The module's entry. The view is the caller's; null and a reason when the engine does not start.
using WebEngineEntry = WebView* (*)(const NSRect& frame, const WebEngineSurroundings& where, NSString* why);
