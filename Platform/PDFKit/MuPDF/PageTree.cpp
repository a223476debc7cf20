// SPDX-License-Identifier: Apache-2.0
#include "Platform/PDFKit/MuPDF/PageTree.h"

#include "Platform/PDFKit/MuPDF/Guarded.h"

#include <algorithm>

namespace {

constexpr size_t kDeepest = 256;
constexpr unsigned kStepsBetween = 256; // two looks at the clock

pdf_obj* rootOf(fz_context* context, pdf_document* document) {
    return pdf_dict_getp(context, pdf_trailer(context, document), "Root/Pages");
}

} // namespace

PageTree::~PageTree() {
    for (Node& node : path_) pdf_drop_obj(context_, node.kids);
    for (pdf_obj* page : pages_) pdf_drop_obj(context_, page);
}

size_t PageTree::count() {
    if (!count_) count_ = findCount();
    return *count_;
}

size_t PageTree::findCount() {
    int64_t said = 0, objects = 0;
    bool says = false;
    guarded(context_, [&] {
        objects = pdf_count_objects(context_, document_);
        pdf_obj* count = pdf_dict_get(context_, rootOf(context_, document_), PDF_NAME(Count));
        says = pdf_is_number(context_, count);
        said = pdf_to_int64(context_, count);
    });
    size_t most = size_t(std::max<int64_t>(objects, 0));
    if (says) return std::min(size_t(std::max<int64_t>(said, 0)), most);
    if (told_ > 0) return std::min(told_, most);
    page(most);
    return std::min(pages_.size(), most);
}

pdf_obj* PageTree::page(size_t index) {
    if (!begun_) {
        begun_ = true;
        guarded(context_, [this] { begin(); });
    }
    while (index >= pages_.size() && !path_.empty() && !(++steps_ % kStepsBetween == 0 && limit_.isOver()))
        guarded(context_, [this] { step(); });
    return index < pages_.size() ? pages_[index] : nullptr;
}

void PageTree::begin() {
    contained(context_,
              [this] { visited_.resize(size_t(std::max(pdf_count_objects(context_, document_), 0))); });
    enter(rootOf(context_, document_));
}

// Goes on to the next child of the innermost node, and does so even when that child cannot be loaded.
void PageTree::step() {
    Node& node = path_.back();
    if (node.next >= node.count) {
        pdf_drop_obj(context_, node.kids);
        path_.pop_back();
        return;
    }
    enter(pdf_array_get(context_, node.kids, node.next++));
}

void PageTree::enter(pdf_obj* kid) {
    if (!pdf_is_dict(context_, kid)) return;
    pdf_obj* kids = pdf_dict_get(context_, kid, PDF_NAME(Kids));
    if (!pdf_is_array(context_, kids)) {
        addPage(kid);
        return;
    }
    if (path_.size() >= kDeepest || isVisited(kid)) return;
    int count = pdf_array_len(context_, kids);
    contained(context_, [&] { path_.push_back({kids, 0, count}); });
    pdf_keep_obj(context_, kids);
}

bool PageTree::isVisited(pdf_obj* node) {
    size_t number = size_t(pdf_to_num(context_, node));
    if (!pdf_is_indirect(context_, node) || number >= visited_.size()) return false;
    bool visited = visited_[number];
    visited_[number] = true;
    return visited;
}

void PageTree::addPage(pdf_obj* page) {
    contained(context_, [&] { pages_.push_back(nullptr); });
    pages_.back() = pdf_keep_obj(context_, page);
}
