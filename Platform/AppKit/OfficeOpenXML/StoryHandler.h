// SPDX-License-Identifier: Apache-2.0
//
// Reads the flow of text of a part: paragraphs and runs, tables, text boxes, fields, tracked changes. What a
// reader of the document does not see - hidden text, what was deleted, the instructions of fields - stays
// out.
#pragma once

#include "Platform/AppKit/OfficeOpenXML/ListCounters.h"
#include "Platform/AppKit/OfficeOpenXML/Part.h"
#include "Platform/AppKit/OfficeOpenXML/StylesPart.h"
#include "Platform/AppKit/StoryBuilder.h"
#include "Platform/AppKit/SymbolFont.h"

#include <cstdint>
#include <optional>
#include <string_view>
#include <vector>

namespace OfficeOpenXML {

class StoryHandler : public PartHandler {
public:
    // Styles and lists must outlive the handler.
    StoryHandler(const StylesPart& styles, const NumberingPart& lists)
        : styles_(styles), counters_(lists), lists_(lists) {}

    void characters(std::string_view utf8) override;

protected:
    bool start(Element element, const XMLAttributes& attributes) override;
    void end(Element element) override;

    // What stands in other parts, where the text refers to it. Called of visible references only.
    virtual void startNote(Element, const XMLAttributes&) {}
    virtual void startChunk(const XMLAttributes&) {}
    virtual void startDiagram(const XMLAttributes&) {}

    // For text that is not in this part: makes ready for it in the paragraph.
    void beginText();
    void noteText() { ++textCount_; }
    void endOpenParagraph();

    StoryBuilder story_;

private:
    struct Paragraph {
        const Style* style = nullptr;
        std::optional<int> listID, level;
        std::optional<bool> breaksPage;  // likewise
        std::optional<bool> endIsHidden; // by a property of its own
        bool endIsDeleted = false;       // then the next paragraph goes on in this one
        bool hasBegun = false;           // its marker, if any, has been written
        bool preservesSpace = false;
    };
    struct Run {
        const Style* style = nullptr;
        std::optional<bool> vanish; // a property of its own
        SymbolFont symbols = SymbolFont::none;
        bool isHidden = false;
        bool preservesSpace = false;
    };
    enum class Field : uint8_t { instruction, result };
    // Of several forms of the same content the first counts that has text.
    struct Alternatives {
        uint64_t textCountBefore = 0;
        bool isFound = false;
    };
    // An element of text, whose white space at both ends counts only if it says so.
    struct Text {
        bool isOpen = false;
        bool preservesSpace = false;
        size_t start = 0; // in the story's current text
    };

    bool isVisible() const;
    bool preservesSpace(const XMLAttributes& attributes, bool inherited) const;

    bool startFlow(Element element, const XMLAttributes& attributes);
    bool startProperty(Element element, const XMLAttributes& attributes);
    void startParagraph(const XMLAttributes& attributes);
    void endParagraph();
    void startRun(const XMLAttributes& attributes);
    void endRunProperties();
    void startText(const XMLAttributes& attributes);
    void endText();
    void startNoteReference(Element element, const XMLAttributes& attributes);
    bool startDeleted();
    bool startTextBox();
    void endTextBox();
    bool startAlternative();
    void readFieldCharacter(const XMLAttributes& attributes);
    void truncateFields(size_t count);
    void readVanish(bool isHidden, bool onlyParagraphEnds);
    void appendBreak(const XMLAttributes& attributes);
    void appendSymbol(const XMLAttributes& attributes);
    void append(char16_t unit);

    const Style* paragraphStyle() const;
    const Style* tableStyle() const { return tables_.empty() ? nullptr : tables_.back(); }

    const StylesPart& styles_;
    ListCounters counters_;
    const NumberingPart& lists_;

    bool preservesSpace_ = false;
    std::vector<Paragraph> paragraphs_; // open ones: one around a text box stays open
    std::vector<Run> runs_;
    std::vector<const Style*> tables_;
    std::vector<Field> fields_;
    size_t instructions_ = 0; // of fields_ those in their instruction
    std::vector<size_t> fieldsAroundBoxes_;
    std::vector<Alternatives> alternatives_;
    bool rowIsDeleted_ = false, cellIsDeleted_ = false;
    Text text_;
    uint64_t textCount_ = 0; // pieces of text so far
};

} // namespace OfficeOpenXML
