// SPDX-License-Identifier: Apache-2.0
#include "Platform/PDFKit/MuPDF/OpenedDocument.h"

#include "Platform/PDFKit/MuPDF/DocumentStream.h"
#include "Platform/PDFKit/MuPDF/Guarded.h"

#include <cstring>

namespace {

constexpr std::string_view kEncrypt = "/Encrypt";
constexpr const char* kMaskedKey = "Encrypu"; // as long as the key that it hides

bool endsName(char c) { return std::strchr(" \t\r\n\f/<>[](){}%", c) != nullptr; } // U+0000 too

// The bytes with every key of an encryption dictionary under another name.
std::string withoutEncryption(std::string_view bytes) {
    std::string masked(bytes);
    for (size_t at = 0; (at = masked.find(kEncrypt, at)) != std::string::npos; at += kEncrypt.size()) {
        size_t end = at + kEncrypt.size();
        if (end < masked.size() && endsName(masked[end])) masked[end - 1] = 'u';
    }
    return masked;
}

} // namespace

OpenedDocument::OpenedDocument(fz_context* context, std::string_view bytes, const WorkLimit& limit)
    : context_(context), limit_(limit) {
    if (!context_) return;
    open(bytes);
    if (document_) {
        guarded(context_, [this] {
            locked_ = pdf_needs_password(context_, document_) &&
                      !pdf_authenticate_password(context_, document_, "") && encryptsContent("Encrypt");
        });
    } else if (bytes.find(kEncrypt) != std::string_view::npos) {
        // The engine refuses kinds of encryption that it does not know, such as that with certificates.
        openUndecrypted(bytes);
    }
}

OpenedDocument::~OpenedDocument() {
    if (document_) pdf_drop_document(context_, document_);
}

void OpenedDocument::open(std::string_view bytes) {
    fz_stream* stream = nullptr;
    guarded(context_, [&] {
        stream = openDocumentStream(context_, bytes, limit_);
        document_ = pdf_open_document_with_stream(context_, stream);
    });
    fz_drop_stream(context_, stream);
}

void OpenedDocument::openUndecrypted(std::string_view bytes) {
    masked_ = withoutEncryption(bytes);
    open(masked_);
    if (!document_) return;
    bool encrypted = false;
    guarded(context_, [&] {
        encrypted =
            pdf_is_dict(context_, pdf_dict_gets(context_, pdf_trailer(context_, document_), kMaskedKey));
        locked_ = encrypted && encryptsContent(kMaskedKey);
    });
    if (encrypted) return;
    pdf_drop_document(context_, document_);
    document_ = nullptr;
}

// Crypt filters say what is encrypted; the identity encrypts nothing.
bool OpenedDocument::encryptsContent(const char* key) {
    pdf_obj* encrypt = pdf_dict_gets(context_, pdf_trailer(context_, document_), key);
    int version = pdf_dict_get_int(context_, encrypt, PDF_NAME(V));
    if (version != 4 && version != 5) return true;
    for (pdf_obj* filter : {PDF_NAME(StmF), PDF_NAME(StrF)}) {
        pdf_obj* name = pdf_dict_get(context_, encrypt, filter);
        if (name && !pdf_name_eq(context_, name, PDF_NAME(Identity))) return true;
    }
    return false;
}
