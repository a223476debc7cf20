// SPDX-License-Identifier: Apache-2.0
//
// One page: a document, or what one of its frames holds.
#pragma once

#include "Platform/AppKit/DocumentReader.h"
#include "Platform/AppKit/HTML/HTMLTextWriter.h"

#include <cstddef>
#include <string_view>

// Writes the text of a page and fills in what its head says. `depth` is how many pages it lies in. When the
// deadline passes, what had been read of the page until then is written.
void writeHTMLPage(std::string_view utf8, HTMLTextWriter& writer, DocumentInfo& info, Deadline& deadline,
                   size_t depth);
