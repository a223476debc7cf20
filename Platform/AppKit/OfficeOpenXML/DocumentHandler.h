// SPDX-License-Identifier: Apache-2.0
//
// Reads the main part of a document: its text, with the notes and other parts where it refers to them, and
// the geometry of its page.
#pragma once

#include "Platform/AppKit/DocumentReader.h"
#include "Platform/AppKit/OfficeOpenXML/LinkedText.h"
#include "Platform/AppKit/OfficeOpenXML/NotesPart.h"
#include "Platform/AppKit/OfficeOpenXML/StoryHandler.h"

#include <string>

namespace OfficeOpenXML {

class DocumentHandler : public StoryHandler {
public:
    struct Parts {
        const StylesPart& styles;
        const NumberingPart& lists;
        NotesPart& footnotes;
        NotesPart& endnotes;
        LinkedText& linked;
    };

    // The parts and the information must outlive the handler.
    DocumentHandler(const Parts& parts, DocumentInfo& info)
        : StoryHandler(parts.styles, parts.lists), parts_(parts), info_(info) {}

    // The part is, as far as it was read, a text document.
    bool isTextDocument() const { return isTextDocument_; }

    std::u16string finish() && { return std::move(story_).finish(); }

protected:
    bool start(Element element, const XMLAttributes& attributes) override;
    void startNote(Element element, const XMLAttributes& attributes) override;
    void startChunk(const XMLAttributes& attributes) override;
    void startDiagram(const XMLAttributes& attributes) override;

private:
    void startSection();
    void readPageSize(const XMLAttributes& attributes);
    void readPageMargins(const XMLAttributes& attributes);

    Parts parts_;
    DocumentInfo& info_;
    bool isTextDocument_ = false;
};

} // namespace OfficeOpenXML
