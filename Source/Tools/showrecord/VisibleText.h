// SPDX-License-Identifier: Apache-2.0
//
// Text from documents on its way to a terminal: UTF-8 in which nothing can be mistaken for a command.
#pragma once

#include <string>
#include <string_view>

// Appends UTF-8. Controls (but for line feed and tab), the line and paragraph separators and lone surrogates
// become escapes of the form \u001b.
void appendVisible(std::string& out, std::u16string_view text);

// The same for a document's text, in which a line break is U+2028 and a page break U+000C: each is shown by
// its symbol, and breaks the line.
void appendVisibleDocument(std::string& out, std::u16string_view text);

// Appends a JSON string with its quotes. The same units become escapes, JSON's short ones where it has them.
void appendJSONString(std::string& out, std::u16string_view text);
