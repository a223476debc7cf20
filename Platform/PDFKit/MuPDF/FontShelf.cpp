// SPDX-License-Identifier: Apache-2.0
#include "Platform/PDFKit/MuPDF/FontShelf.h"

#include <algorithm>

std::shared_ptr<FontText> FontShelf::find(const pdf_font_desc* font) {
    for (Place& place : places_) {
        if (!place.font || place.font->font() != font) continue;
        place.lastUse = ++uses_;
        return place.font;
    }
    return nullptr;
}

std::shared_ptr<FontText> FontShelf::add(pdf_font_desc* font, pdf_obj* toUnicode) {
    auto place = std::min_element(places_.begin(), places_.end(),
                                  [](const Place& a, const Place& b) { return a.lastUse < b.lastUse; });
    place->font = std::make_shared<FontText>(context_, font, toUnicode);
    place->lastUse = ++uses_;
    return place->font;
}
