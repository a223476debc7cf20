// SPDX-License-Identifier: Apache-2.0
//
// The engine's settings: nothing is stored, nothing is fetched behind the program's back, and what a page may
// do is as little as showing it takes.
#pragma once

#include "Platform/WebKit/Engine/GObjectPointer.h"
#include "Platform/WebKit/WebPreferences.h"

#include <string>
#include <webkit2/webkit2.h>

// A context for one page, which keeps nothing. Its processes load the extension in `extensionFolder`.
GObjectPointer<WebKitWebContext> makeContext(const std::string& extensionFolder, bool hasSandbox);

GObjectPointer<WebKitSettings> makeSettings();

// What is added to every page.
GObjectPointer<WebKitUserContentManager> makeContent();

// What the view's owner wants, before a load.
void applyPreferences(const WebPreferences& preferences, WebKitSettings* settings);
