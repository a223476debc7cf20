// SPDX-License-Identifier: Apache-2.0
//
// What a document says of itself: its title, its META elements, and its style sheets, wherever in the tree
// they stand.
#pragma once

#include "Platform/AppKit/DocumentReader.h"
#include "Platform/AppKit/HTML/HTMLStyleSheet.h"
#include "Platform/Foundation/Deadline.h"

#include <gumbo.h>
#include <string_view>
#include <vector>

// Fills in the information, but for the page, and the sheet. The sheet points into the tree.
void readHead(const GumboNode& document, Deadline& deadline, DocumentInfo& info, HTMLStyleSheet& sheet);

// Takes one META element in. A later one of the same name replaces.
void takeMeta(std::string_view name, std::string_view content, DocumentInfo& info);

// The keywords of a META element. Unlike other formats, pages part them by one separator throughout: ", " if
// that occurs, else "," if that does, else " ". What stands between two separators is a keyword as it is,
// even nothing.
std::vector<std::u16string> splitMetaKeywords(std::string_view content);
