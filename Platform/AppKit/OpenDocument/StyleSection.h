// SPDX-License-Identifier: Apache-2.0
//
// Reads the styles of a document: the common, the automatic and the master styles.
#pragma once

#include "Platform/AppKit/OpenDocument/Section.h"
#include "Platform/AppKit/OpenDocument/StyleBook.h"

namespace OpenDocument {

class StyleSection : public Section {
public:
    // The book must outlive the section.
    explicit StyleSection(StyleBook& book) : book_(book) {}

    bool start(Element element, const XMLAttributes& attributes) override;
    void end(Element element) override;

private:
    bool startStyle(const XMLAttributes& attributes);
    bool startListLevel(Element element, const XMLAttributes& attributes);
    void readFont(const XMLAttributes& attributes);
    void readProperties(const XMLAttributes& attributes);

    StyleBook& book_;
    // What is being read; null outside.
    Style* style_ = nullptr;
    ListStyle* listStyle_ = nullptr;
    ListLevel* listLevel_ = nullptr;
    PageLayout* pageLayout_ = nullptr;
};

} // namespace OpenDocument
