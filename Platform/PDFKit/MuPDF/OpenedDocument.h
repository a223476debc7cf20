// SPDX-License-Identifier: Apache-2.0
//
// A document that the engine has opened, and whether it is locked.
#pragma once

#include "Platform/PDFKit/MuPDF/WorkLimit.h"

#include <mupdf/pdf.h>

#include <string>
#include <string_view>

class OpenedDocument {
public:
    // `bytes` and `limit` outlive the object; `context` may be null, as when there was no memory for it.
    OpenedDocument(fz_context* context, std::string_view bytes, const WorkLimit& limit);
    ~OpenedDocument();
    OpenedDocument(const OpenedDocument&) = delete;
    OpenedDocument& operator=(const OpenedDocument&) = delete;

    // Null when the bytes could not be opened.
    pdf_document* get() const { return document_; }

    // True when strings and streams are encrypted and the empty password is not the one. A document of which
    // only the attachments are encrypted is not locked.
    bool isLocked() const { return locked_; }

private:
    void open(std::string_view bytes);
    void openUndecrypted(std::string_view bytes);
    bool encryptsContent(const char* key);

    fz_context* context_;
    const WorkLimit& limit_;
    pdf_document* document_ = nullptr;
    bool locked_ = false;
    std::string masked_; // the bytes as the engine reads them where it knows nothing of their encryption
};
