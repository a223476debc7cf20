// SPDX-License-Identifier: Apache-2.0
//
// Reads the body of a text document. Character data counts in paragraphs only; its white space collapses, as
// the format has it: within a paragraph, over all elements of it, any run of white space is one space, and
// none at either end.
#pragma once

#include "Platform/AppKit/OpenDocument/ListNumbering.h"
#include "Platform/AppKit/OpenDocument/Section.h"
#include "Platform/AppKit/OpenDocument/StyleBook.h"
#include "Platform/AppKit/StoryBuilder.h"

#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace OpenDocument {

class BodySection : public Section {
public:
    // The styles must outlive the section.
    explicit BodySection(const StyleBook& styles) : styles_(styles), numbering_(styles) {}

    bool start(Element element, const XMLAttributes& attributes) override;
    void end(Element element) override;
    void characters(std::string_view utf8) override;

    // The body is that of a text document; of a spreadsheet, a drawing ...
    bool isText() const { return isText_; }
    bool isForeign() const { return isForeign_; }
    // For documents whose root tells the kind, not the body.
    void setIsText(bool isText) { (isText ? isText_ : isForeign_) = true; }

    // That of the first paragraph; empty when it names none.
    const std::string& firstMasterPage() const { return firstMasterPage_; }

    std::u16string finish() && { return std::move(story_).finish(); }

private:
    // Where in the main story, a text box or a note the reading is.
    struct Flow {
        bool inParagraph = false;
        bool startedByParagraph = false; // a paragraph in a paragraph, read as a text box
        bool hidden = false;             // by the styles of the paragraph and its spans
        bool dropped = false;            // the paragraph, by a field in it
        bool paragraphHidden = false;    // by its style
        bool breaksAfter = false;
        bool atStart = false;      // of the paragraph: white space is dropped
        bool spaceWaits = false;   // white space that counts only before more text
        size_t paragraphStart = 0; // in the story's current text
    };

    bool isSilent() const { return !flow_.inParagraph || flow_.hidden || flow_.dropped; }

    void beginParagraph(Element element, const XMLAttributes& attributes);
    void endParagraph();
    void beginPage(const ParagraphLook& look);
    void beginMarker(Element element, const XMLAttributes& attributes, const ParagraphLook& look);
    void beginSpan(const XMLAttributes& attributes);
    void endSpan();
    bool beginFlow(Element element);
    void endFlow(Element element);
    void pushFlow();
    void popFlow();
    void beginList(Element element, const XMLAttributes& attributes);
    // Makes ready for a unit of text; false when it is not to be shown.
    bool prepareText();
    void appendUnits(char16_t unit, size_t count);

    const StyleBook& styles_;
    StoryBuilder story_;
    ListNumbering numbering_;
    Flow flow_;
    std::vector<Flow> outerFlows_;
    std::vector<bool> outerHidden_; // of each open paragraph and span, what `hidden` was before it
    int tableDepth_ = 0;
    bool pageBreakWaits_ = false;
    bool isText_ = false, isForeign_ = false;
    std::string firstMasterPage_;
    bool hasParagraph_ = false;
};

} // namespace OpenDocument
