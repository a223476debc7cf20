// SPDX-License-Identifier: Apache-2.0
#include "Platform/PDFKit/MuPDF/ContentReader.h"

#include "Platform/PDFKit/MuPDF/Guarded.h"
#include "Platform/PDFKit/PDFTextString.h"

#include <algorithm>
#include <cmath>

namespace {

constexpr size_t kMostForms = 24;                 // within each other
constexpr size_t kMostSaved = 512;                // states
constexpr size_t kMostContent = size_t(32) << 20; // bytes of one stream, decoded

} // namespace

struct ContentReader::Processor {
    pdf_processor super;
    ContentReader* reader;
};

ContentReader& ContentReader::of(pdf_processor* processor) {
    return *reinterpret_cast<Processor*>(processor)->reader;
}

ContentReader::ContentReader(fz_context* context, pdf_document* document, FontShelf& fonts, WorkLimit& limit,
                             std::u16string& out)
    : context_(context), document_(document), fonts_(fonts), limit_(limit), lines_(out) {
    saved_.reserve(16);
}

ContentReader::~ContentReader() {
    if (processor_) pdf_drop_processor(context_, &processor_->super);
}

bool ContentReader::readPage(pdf_obj* page) {
    if (!limit_.beginPage()) return true;
    bool begun = guarded(context_, [&] {
        processor_ = static_cast<Processor*>(pdf_new_processor(context_, sizeof(Processor)));
        processor_->reader = this;
        processor_->super.usage = "View";
        install(processor_->super);
    });
    if (!begun) return false;
    guarded(context_, [&] {
        pdf_obj* resources = pdf_dict_get_inheritable(context_, page, PDF_NAME(Resources));
        readContent(pdf_dict_get(context_, page, PDF_NAME(Contents)), resources);
    });
    guarded(context_, [&] {
        endReplacement();
        lines_.finish();
    });
    return true;
}

// May fail in the engine's way.
void ContentReader::readContent(pdf_obj* contents, pdf_obj* resources) {
    contained(context_, [&] { resources_.push_back(resources); });
    fz_buffer* buffer = nullptr;
    fz_var(buffer);
    fz_try(context_) {
        earnTime(contents);
        buffer = decoded(contents);
        pdf_process_glyph(context_, &processor_->super, document_, resources, buffer);
    }
    fz_always(context_) {
        fz_drop_buffer(context_, buffer);
        resources_.pop_back();
    }
    fz_catch(context_) { fz_rethrow(context_); }
}

// Content brings the time for reading it along, by its length in the file.
void ContentReader::earnTime(pdf_obj* contents) {
    int parts = pdf_is_array(context_, contents) ? pdf_array_len(context_, contents) : 1;
    for (int i = 0; i < parts; ++i) {
        pdf_obj* part = pdf_is_array(context_, contents) ? pdf_array_get(context_, contents, i) : contents;
        int length = pdf_dict_get_int(context_, part, PDF_NAME(Length));
        if (length > 0) limit_.earnContent(size_t(length));
    }
}

// The content's bytes, up to where it is damaged, grows beyond all measure or the time is up.
fz_buffer* ContentReader::decoded(pdf_obj* contents) {
    fz_stream* stream = nullptr;
    fz_buffer* buffer = nullptr;
    fz_var(stream);
    fz_var(buffer);
    fz_try(context_) {
        buffer = fz_new_buffer(context_, 16384);
        stream = pdf_open_contents_stream(context_, document_, contents);
        while (size_t size = fz_available(context_, stream, 65536)) {
            fz_append_data(context_, buffer, stream->rp, size);
            stream->rp += size;
            checkClock();
            if (fz_buffer_storage(context_, buffer, nullptr) > kMostContent) break;
        }
    }
    fz_always(context_) { fz_drop_stream(context_, stream); }
    fz_catch(context_) {
        fz_drop_buffer(context_, buffer);
        fz_rethrow(context_);
    }
    return buffer;
}

bool ContentReader::mayEnter(pdf_obj* form) const {
    int number = pdf_to_num(context_, form);
    return formsEntered_.size() < kMostForms &&
           std::find(formsEntered_.begin(), formsEntered_.end(), number) == formsEntered_.end();
}

void ContentReader::readForm(pdf_obj* form, pdf_obj* resources) {
    checkClock();
    if (!mayEnter(form)) return;
    fz_matrix matrix = pdf_xobject_matrix(context_, form);
    pdf_obj* own = pdf_xobject_resources(context_, form);
    pdf_obj* const inner = own ? own : resources;
    const size_t outside = savedOutside_, marks = markDepth_;
    const int hidden = processor_->super.hidden;
    save();
    savedOutside_ = saved_.size();
    contained(context_, [&] { formsEntered_.push_back(pdf_to_num(context_, form)); });
    pen_.state.matrix = fz_concat(matrix, pen_.state.matrix);
    fz_try(context_) { readContent(form, inner); }
    fz_always(context_) {
        formsEntered_.pop_back();
        processor_->super.hidden = hidden;
        leaveMarks(marks);
        saved_.resize(savedOutside_);
        savedOutside_ = outside;
        restore();
    }
    fz_catch(context_) { fz_rethrow(context_); }
}

void ContentReader::setFont(const char* name, pdf_font_desc* font, double size) {
    pen_.state.size = size;
    pen_.state.font = nullptr;
    if (!font || !font->encoding) return;
    pen_.state.font = fonts_.find(font);
    if (pen_.state.font) return;
    limit_.earnFont(); // it has just been loaded
    checkClock();
    pdf_obj* known = pdf_dict_get(context_, resources_.back(), PDF_NAME(Font));
    pdf_obj* toUnicode = pdf_dict_get(context_, pdf_dict_gets(context_, known, name), PDF_NAME(ToUnicode));
    contained(context_, [&] { pen_.state.font = fonts_.add(font, toUnicode); });
}

void ContentReader::save() {
    if (saved_.size() >= kMostSaved) fz_throw(context_, FZ_ERROR_ABORT, "too many states");
    contained(context_, [&] { saved_.push_back(pen_.state); });
}

void ContentReader::restore() {
    if (saved_.size() <= savedOutside_) return;
    pen_.state = std::move(saved_.back());
    saved_.pop_back();
}

void ContentReader::show(const unsigned char* bytes, size_t count) {
    checkTime();
    contained(context_, [&] {
        pen_.show(bytes, count, [this](const Glyph& glyph) {
            addGlyph(glyph);
            return limit_.takeText(glyph.text.size()) && !limit_.passed();
        });
    });
}

void ContentReader::showArray(pdf_obj* array) {
    int count = pdf_array_len(context_, array);
    for (int i = 0; i < count; ++i) {
        pdf_obj* item = pdf_array_get(context_, array, i);
        if (pdf_is_string(context_, item)) {
            size_t size = 0;
            const char* bytes = pdf_to_string(context_, item, &size);
            show(reinterpret_cast<const unsigned char*>(bytes), size);
        } else {
            pen_.goBack(pdf_to_real(context_, item));
        }
    }
}

void ContentReader::addGlyph(const Glyph& glyph) {
    if (processor_->super.hidden) return;
    if (!replacement_.depth) {
        lines_.addGlyph(glyph);
        return;
    }
    if (!replacement_.hasGlyph) {
        replacement_.glyph = glyph;
        replacement_.hasGlyph = true;
    }
    replacement_.endX = glyph.x + glyph.ux * glyph.length;
    replacement_.endY = glyph.y + glyph.uy * glyph.length;
}

void ContentReader::beginMarked(pdf_obj* properties) {
    ++markDepth_;
    if (replacement_.depth) return;
    pdf_obj* text = pdf_dict_get(context_, properties, PDF_NAME(ActualText));
    if (!pdf_is_string(context_, text)) return;
    size_t size = 0;
    const char* bytes = pdf_to_string(context_, text, &size);
    contained(context_, [&] {
        replacement_.text = textOfPDFString({bytes, size});
        replacement_.hasGlyph = false;
        replacement_.depth = markDepth_;
    });
}

void ContentReader::endMarked() {
    if (replacement_.depth && replacement_.depth == markDepth_) {
        contained(context_, [this] { endReplacement(); });
    }
    if (markDepth_ > 0) --markDepth_;
}

// Ends what a form has begun and not ended. Must not fail.
void ContentReader::leaveMarks(size_t depth) noexcept {
    markDepth_ = std::min(markDepth_, depth);
    if (replacement_.depth <= depth) return;
    try {
        endReplacement();
    } catch (const std::bad_alloc&) {
        // The text is lost; the rest of the page need not be.
    }
}

void ContentReader::endReplacement() {
    if (!replacement_.depth) return;
    replacement_.depth = 0;
    if (!replacement_.hasGlyph || replacement_.text.empty()) return;
    if (!limit_.takeText(replacement_.text.size())) return;
    Glyph glyph = replacement_.glyph;
    double dx = replacement_.endX - glyph.x, dy = replacement_.endY - glyph.y;
    double length = std::hypot(dx, dy);
    if (length > 1e-6) {
        glyph.length = length;
        glyph.ux = dx / length;
        glyph.uy = dy / length;
    }
    glyph.text = replacement_.text;
    lines_.addGlyph(glyph);
}

void ContentReader::checkTime() {
    if (limit_.passed()) fz_throw(context_, FZ_ERROR_ABORT, "the time is up");
}

void ContentReader::checkClock() {
    if (limit_.passedByClock()) fz_throw(context_, FZ_ERROR_ABORT, "the time is up");
}
