// SPDX-License-Identifier: Apache-2.0
//
// A page as it stood at one moment: what the script in the page's process says of every frame.
#pragma once

#include "Platform/WebKit/DOMNode.h"

#include <string>
#include <string_view>
#include <vector>

struct PageSnapshot {
    struct Frame {
        bool isKnown = false;     // false stands for a frame of which nothing was said
        bool hasDocument = false; // one that can be read
        NSString url, title, text;
        DOMNode document;
        std::vector<Frame> children;
    };

    Frame main;

    // From the script's fields, in UTF-8. They come from a process that a page may have taken over: what does
    // not read as it should ends the reading, and what was read before stays.
    static PageSnapshot withFields(std::string_view fields);
};
