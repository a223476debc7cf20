// SPDX-License-Identifier: Apache-2.0
//
// Reads the information of a document (office:meta).
#pragma once

#include "Platform/AppKit/DocumentReader.h"
#include "Platform/AppKit/OpenDocument/Section.h"

#include <string>

namespace OpenDocument {

class MetaSection : public Section {
public:
    // The info must outlive the section.
    explicit MetaSection(DocumentInfo& info) : info_(info) {}

    bool start(Element element, const XMLAttributes& attributes) override;
    void end(Element element) override;
    void characters(std::string_view utf8) override { value_ += utf8; }

private:
    void take(Element element, std::string_view value);

    DocumentInfo& info_;
    std::u16string* userDefined_ = nullptr; // where the user-defined value being read belongs, if anywhere
    std::string value_;                     // of the element being read
    bool hasInitialCreator_ = false;
};

} // namespace OpenDocument
