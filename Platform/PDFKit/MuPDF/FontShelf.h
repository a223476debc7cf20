// SPDX-License-Identifier: Apache-2.0
//
// The fonts that pages used last, with what has been found out about their codes.
#pragma once

#include "Platform/PDFKit/MuPDF/FontText.h"

#include <array>
#include <memory>

class FontShelf {
public:
    explicit FontShelf(fz_context* context) : context_(context) {}

    // Null when there is none yet.
    std::shared_ptr<FontText> find(const pdf_font_desc* font);

    // Puts a font there in place of the one that was not used for longest.
    std::shared_ptr<FontText> add(pdf_font_desc* font, pdf_obj* toUnicode);

private:
    static constexpr size_t kFonts = 32;

    struct Place {
        std::shared_ptr<FontText> font;
        uint64_t lastUse = 0;
    };

    fz_context* context_;
    uint64_t uses_ = 0;
    std::array<Place, kFonts> places_;
};
