// SPDX-License-Identifier: Apache-2.0
//
// Stands between a document and the parser, whose time grows with the square of the depth of elements, of the
// number of a tag's attributes, and of the formatting elements that wait for their end tags.
//
// Nothing that bears on the text of a page as people write them is lost: only the text of scripts and the
// attributes that nobody reads, which are half of many pages and most of a parser's time. What goes past the
// limits of depth loses the tag, not the text.
#pragma once

#include <string>
#include <string_view>

// The source for the parser: `source` itself, or `rewritten`, which the function fills then.
std::string_view guardedSource(std::string_view source, std::string& rewritten);
