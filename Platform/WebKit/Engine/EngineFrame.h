// SPDX-License-Identifier: Apache-2.0
//
// The frames of the engine's view. Those below the main frame are known from the last look at the page.
#pragma once

#include "Platform/WebKit/WebFrame.h"

class EngineView;

WebFrame makeMainFrame(EngineView& view);

// A frame below the main one while it loads: an identity for delegates, without a document.
WebFrame makeLoadingFrame();
