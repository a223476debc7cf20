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
#include <vector>

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

    std::u16string finish() &&;

protected:
    bool start(Element element, const XMLAttributes& attributes) override;
    void end(Element element) override;
    void startNote(Element element, const XMLAttributes& attributes) override;
    void startChunk(const XMLAttributes& attributes) override;
    void startDiagram(const XMLAttributes& attributes) override;

private:
    void startSection();
    void endSection();
    void readPageSize(const XMLAttributes& attributes);
    void readPageMargins(const XMLAttributes& attributes);

    Parts parts_;
    DocumentInfo& info_;
    bool isTextDocument_ = false;

    // Where in the main story sections begin on a new page, all but the first. That a section does it says
    // only at its end, so the last place is one to be confirmed while its section is open.
    std::vector<size_t> pageStarts_;
    bool isInLaterSection_ = false;
    bool sectionBeginsPage_ = true;
    bool sectionEndsWithParagraph_ = false;
};

} // namespace OfficeOpenXML
