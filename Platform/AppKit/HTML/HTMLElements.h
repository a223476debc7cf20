// SPDX-License-Identifier: Apache-2.0
//
// How elements look when no style says otherwise.
#pragma once

#include "Platform/AppKit/HTML/HTMLStyle.h"
#include "Platform/AppKit/HTML/HTMLStyleSheet.h"

#include <gumbo.h>
#include <string_view>

// An element's tag and the attributes that bear on its text. Absent attributes are null pointers, present
// ones may be empty.
struct HTMLElement {
    explicit HTMLElement(const GumboNode& node);

    // The name as selectors see it.
    HTMLElementName name;
    bool isHTML = true; // not SVG or MathML

    const char* style = nullptr;
    const char* hidden = nullptr;
    const char* open = nullptr;
    const char* src = nullptr;
    const char* data = nullptr;
    const char* type = nullptr;
    const char* value = nullptr;
    const char* start = nullptr;
    const char* srcdoc = nullptr;

    bool is(GumboTag tag) const { return isHTML && name.tag == tag; }
    bool isHeading() const { return isHTML && name.tag >= GUMBO_TAG_H1 && name.tag <= GUMBO_TAG_H6; }
};

// The display value by the browsers' own style sheet, the attributes "hidden" and "open" included. `none` for
// what is hidden unless a style shows it.
HTMLDisplay defaultDisplay(const HTMLElement& element);

// Elements whose content is never shown as text, whatever a style says.
bool isNeverShown(const HTMLElement& element);
