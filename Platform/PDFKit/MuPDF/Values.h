// SPDX-License-Identifier: Apache-2.0
//
// The engine's objects as values.
#pragma once

#include "Platform/Foundation/NSDictionary.h"

#include <mupdf/pdf.h>

#include <optional>
#include <string>

// The information dictionary as values: strings, names and numbers as such, the two dates as dates where they
// can be read. Nothing for null. Empty, not nil, for what is no dictionary.
NSDictionary informationOf(fz_context* context, pdf_obj* dictionary);

// The text of a string object; nothing for objects of other kinds.
std::optional<std::u16string> textStringOf(fz_context* context, pdf_obj* object);

// The bytes of a string object; empty for objects of other kinds. They live as long as the object.
std::string_view stringBytesOf(fz_context* context, pdf_obj* object);
