// SPDX-License-Identifier: Apache-2.0
//
// The bytes of a document as the engine reads them: to their end, or until the document's time is up. All
// that the engine does comes back for more bytes sooner or later, also where it calls nobody on the way:
// while it repairs, looks for objects, decodes.
#pragma once

#include "Platform/PDFKit/MuPDF/WorkLimit.h"

#include <mupdf/fitz.h>

#include <string_view>

// A stream that reads `bytes`, which like `limit` outlive it. May fail in the engine's way.
fz_stream* openDocumentStream(fz_context* context, std::string_view bytes, const WorkLimit& limit);
