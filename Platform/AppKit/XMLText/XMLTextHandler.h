// SPDX-License-Identifier: Apache-2.0
//
// All the text of an XML document, for those who want its words and not its looks: every element ends the
// line but those that stand inside words, and what no reader sees is left out.
#pragma once

#include "Platform/AppKit/Package/XMLReader.h"

#include <string>

class XMLTextHandler : public XMLHandler {
public:
    // The text is appended to as the document is read.
    explicit XMLTextHandler(std::u16string& text) : text_(text) {}

    bool hasRoot() const { return hasRoot_; }

    void startElement(int space, std::string_view name, const XMLAttributes& attributes) override;
    void endElement(int space, std::string_view name) override;
    void characters(std::string_view utf8) override;

private:
    bool isLeftOut(std::string_view name, const XMLAttributes& attributes);
    void endLine(std::string_view element);

    std::u16string& text_;
    size_t leftOut_ = 0; // open elements from the one on that is left out
    bool hasRoot_ = false;
    bool isInCell_ = false, isSharedCell_ = false; // of a sheet
};
