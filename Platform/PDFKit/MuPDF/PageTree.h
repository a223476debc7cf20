// SPDX-License-Identifier: Apache-2.0
//
// The pages of a document in their order. The tree is followed only as far as pages are asked for, so that
// the first pages of a long document cost no more than those of a short one, and each of its nodes only once,
// so that one that leads back into itself comes to an end.
#pragma once

#include "Platform/PDFKit/MuPDF/WorkLimit.h"

#include <mupdf/pdf.h>

#include <cstddef>
#include <optional>
#include <vector>

class PageTree {
public:
    // `limit` outlives the tree. `told` is the number of pages for a tree that says none itself.
    PageTree(fz_context* context, pdf_document* document, const WorkLimit& limit, size_t told)
        : context_(context), document_(document), limit_(limit), told_(told) {}
    ~PageTree();
    PageTree(const PageTree&) = delete;
    PageTree& operator=(const PageTree&) = delete;

    // What the tree says, between 0 and the number of the document's objects; where it does not say, what it
    // was told, or else the number of pages that there are.
    size_t count();

    // The page's dictionary, or null when it is not there. It lives as long as the tree.
    pdf_obj* page(size_t index);

private:
    struct Node {
        pdf_obj* kids; // kept
        int next, count;
    };

    size_t findCount();
    void begin();
    void step();
    void enter(pdf_obj* kid);
    bool isVisited(pdf_obj* node);
    void addPage(pdf_obj* page);

    fz_context* context_;
    pdf_document* document_;
    const WorkLimit& limit_;
    size_t told_;
    std::optional<size_t> count_;
    bool begun_ = false;
    unsigned steps_ = 0;
    std::vector<Node> path_;
    std::vector<bool> visited_;   // by object number
    std::vector<pdf_obj*> pages_; // kept
};
