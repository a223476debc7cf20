// SPDX-License-Identifier: Apache-2.0
//
// The ways in which a PDF file writes text outside of its pages.
#pragma once

#include <optional>
#include <string>
#include <string_view>

// A text string: UTF-16 of either order or UTF-8 where a mark in front says so, else PDFDocEncoding. Language
// escapes are dropped. Bytes that mean nothing become U+FFFD.
std::u16string textOfPDFString(std::string_view bytes);

// A name or a URI, whose encoding nobody wrote down: UTF-8 where it is well-formed, else Latin-1.
std::u16string textOfPDFName(std::string_view bytes);

// The URL that a link's bytes stand for: blanks and all that is not ASCII are percent-encoded in UTF-8.
std::u16string textOfPDFURI(std::string_view bytes);

// The time of a date such as D:20260131120000+01'00', in seconds since 2001-01-01 00:00:00 UTC. All after the
// year may be missing, the mark in front too; without a zone it is UTC. Nothing for what is no such date.
std::optional<double> timeOfPDFDate(std::u16string_view text);
