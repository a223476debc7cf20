// SPDX-License-Identifier: Apache-2.0
#include "Platform/PDFKit/MuPDF/MuPDFEngine.h"

#include "Platform/PDFKit/MuPDF/ContentReader.h"
#include "Platform/PDFKit/MuPDF/Guarded.h"
#include "Platform/PDFKit/MuPDF/Linearization.h"
#include "Platform/PDFKit/MuPDF/Values.h"
#include "Platform/PDFKit/PDFTextString.h"

#include <algorithm>

namespace {

constexpr size_t kKeptObjects = size_t(1) << 20; // bytes
constexpr size_t kMostAnnotations = 100'000;     // of one page
constexpr unsigned kPagesBetween = 16;           // what all pages need is loaded anew after each forgetting

// The kinds of annotation that have an author under /T, where others have the name of a field or a title.
bool hasAuthor(fz_context* context, pdf_obj* subtype) {
    for (pdf_obj* other :
         {PDF_NAME(Link), PDF_NAME(Popup), PDF_NAME(Widget), PDF_NAME(Screen), PDF_NAME(Movie)}) {
        if (pdf_name_eq(context, subtype, other)) return false;
    }
    return true;
}

bool isRelative(std::string_view uri) {
    size_t end = uri.find_first_of(":/?#");
    return end == std::string_view::npos || uri[end] != ':';
}

} // namespace

std::unique_ptr<MuPDFEngine> MuPDFEngine::open(std::string_view bytes) {
    std::unique_ptr<MuPDFEngine> engine(new MuPDFEngine(bytes));
    if (!engine->document_.get()) engine = nullptr;
    return engine;
}

MuPDFEngine::MuPDFEngine(std::string_view bytes)
    : limit_(bytes.size()), context_(bytes.size()), document_(context_.get(), bytes, limit_),
      pages_(context_.get(), document_.get(), limit_,
             document_.isLocked() ? linearizedPageCount(bytes).value_or(0) : 0),
      fonts_(context_.get()), memoryLeft_(context_.memoryLeft()) {
    if (!document_.get()) return;
    readAttributes(); // first, so that pages that take all the time leave them whole
    limit_.beginPages();
}

bool MuPDFEngine::isLocked() { return document_.isLocked(); }
size_t MuPDFEngine::pageCount() { return pages_.count(); }
NSDictionary MuPDFEngine::documentAttributes() { return attributes_; }

void MuPDFEngine::readAttributes() {
    if (isLocked()) return;
    pdf_obj* information = nullptr;
    guarded(context_.get(), [&] {
        information =
            pdf_dict_get(context_.get(), pdf_trailer(context_.get(), document_.get()), PDF_NAME(Info));
    });
    attributes_ = informationOf(context_.get(), information);
}

// Past the limit no page is there any more.
bool MuPDFEngine::hasPage(size_t page) { return !limit_.isOver() && pages_.page(page) != nullptr; }

bool MuPDFEngine::appendPageText(size_t page, std::u16string& text) {
    pdf_obj* dictionary = pages_.page(page);
    if (!dictionary) return true;
    forgetObjects();
    ContentReader reader(context_.get(), document_.get(), fonts_, limit_, text);
    return reader.readPage(dictionary);
}

// The engine keeps every object that it has loaded. Few of them are asked for on later pages.
void MuPDFEngine::forgetObjects() {
    if (++pagesRead_ % kPagesBetween != 0 || context_.memoryLeft() + kKeptObjects > memoryLeft_) return;
    guarded(context_.get(), [this] { pdf_clear_xref(context_.get(), document_.get()); });
    memoryLeft_ = context_.memoryLeft();
}

size_t MuPDFEngine::annotationCount(size_t page) {
    int count = 0;
    if (limit_.isOver()) return 0;
    guarded(context_.get(), [&] {
        count =
            pdf_array_len(context_.get(), pdf_dict_get(context_.get(), pages_.page(page), PDF_NAME(Annots)));
    });
    return std::min(size_t(count), kMostAnnotations);
}

pdf_obj* MuPDFEngine::annotation(size_t page, size_t index) {
    pdf_obj* annotations = pdf_dict_get(context_.get(), pages_.page(page), PDF_NAME(Annots));
    return pdf_array_get(context_.get(), annotations, int(index));
}

bool MuPDFEngine::isLink(size_t page, size_t index) {
    bool link = false;
    guarded(context_.get(), [&] {
        pdf_obj* subtype = pdf_dict_get(context_.get(), annotation(page, index), PDF_NAME(Subtype));
        link = pdf_name_eq(context_.get(), subtype, PDF_NAME(Link));
    });
    return link;
}

bool MuPDFEngine::readAnnotation(size_t page, size_t index, PDFAnnotationContents& contents) {
    if (limit_.isOver()) return true; // and says nothing
    fz_context* context = context_.get();
    pdf_obj *object = nullptr, *author = nullptr, *text = nullptr, *uri = nullptr;
    bool read = guarded(context, [&] {
        object = annotation(page, index);
        contents.answersToUserName = hasAuthor(context, pdf_dict_get(context, object, PDF_NAME(Subtype)));
        author = pdf_dict_get(context, object, PDF_NAME(T));
        text = pdf_dict_get(context, object, PDF_NAME(Contents));
        pdf_obj* action = pdf_dict_get(context, object, PDF_NAME(A));
        if (pdf_name_eq(context, pdf_dict_get(context, action, PDF_NAME(S)), PDF_NAME(URI)))
            uri = pdf_dict_get(context, action, PDF_NAME(URI));
    });
    if (!read) return false;
    if (contents.answersToUserName) contents.userName = limited(textStringOf(context, author));
    contents.contents = limited(textStringOf(context, text));
    std::string_view target = stringBytesOf(context, uri);
    if (target.empty()) return true;
    contents.url = limited(textOfPDFURI(target));
    if (isRelative(target)) contents.baseURL = limited(textOfPDFURI(baseURI()));
    return true;
}

// Text as far as there may be more of it.
std::optional<std::u16string> MuPDFEngine::limited(std::optional<std::u16string> text) {
    if (text && !limit_.takeText(text->size())) text = std::nullopt;
    return text;
}

// What relative URIs of links are relative to.
std::string_view MuPDFEngine::baseURI() {
    pdf_obj* base = nullptr;
    guarded(context_.get(), [&] {
        base = pdf_dict_getp(context_.get(), pdf_trailer(context_.get(), document_.get()), "Root/URI/Base");
    });
    return stringBytesOf(context_.get(), base);
}
