// SPDX-License-Identifier: Apache-2.0
//
// Follows the operators of a page's content and hands its glyphs to the line assembler. Nothing is drawn:
// images, paths and shadings are passed over unread.
//
// This works below the engine's devices, on its processor of content streams: only there are the widths of
// the document, to which spacing is relative, and the marks that tell what a piece of content says.
#pragma once

#include "Platform/PDFKit/MuPDF/FontShelf.h"
#include "Platform/PDFKit/MuPDF/TextPen.h"
#include "Platform/PDFKit/MuPDF/WorkLimit.h"
#include "Platform/PDFKit/Text/LineAssembler.h"

#include <mupdf/fitz.h>
#include <mupdf/pdf.h>

#include <string>
#include <vector>

class ContentReader {
public:
    ContentReader(fz_context* context, pdf_document* document, FontShelf& fonts, WorkLimit& limit,
                  std::u16string& out);
    ~ContentReader();
    ContentReader(const ContentReader&) = delete;
    ContentReader& operator=(const ContentReader&) = delete;

    // Reads a page. What was read before a failure is in the text. False when nothing could be read at all.
    bool readPage(pdf_obj* page);

private:
    struct Processor; // the engine's, with its way back to the reader

    void readContent(pdf_obj* contents, pdf_obj* resources);
    void earnTime(pdf_obj* contents);
    fz_buffer* decoded(pdf_obj* contents);
    void readForm(pdf_obj* form, pdf_obj* resources);
    bool mayEnter(pdf_obj* form) const;
    void setFont(const char* name, pdf_font_desc* font, double size);
    void save();
    void restore();
    void show(const unsigned char* bytes, size_t count);
    void showArray(pdf_obj* array);
    void addGlyph(const Glyph& glyph);
    void beginMarked(pdf_obj* properties);
    void endMarked();
    void leaveMarks(size_t depth) noexcept;
    void endReplacement();
    void checkTime();  // at every operator
    void checkClock(); // at those that may take long

    static void install(pdf_processor& processor);
    static ContentReader& of(pdf_processor* processor);

    fz_context* context_;
    pdf_document* document_;
    FontShelf& fonts_;
    WorkLimit& limit_;
    LineAssembler lines_;
    Processor* processor_ = nullptr;

    TextPen pen_;
    std::vector<GraphicsState> saved_;
    size_t savedOutside_ = 0;         // states that belong to the content around a form
    std::vector<int> formsEntered_;   // object numbers
    std::vector<pdf_obj*> resources_; // of the page and of the forms entered

    // A piece of content that says itself what its glyphs mean.
    struct Replacement {
        std::u16string text;
        Glyph glyph; // from the first glyph on
        double endX = 0, endY = 0;
        bool hasGlyph = false;
        size_t depth = 0; // of the marks around it and its own; 0: none
    } replacement_;
    size_t markDepth_ = 0;
};
