// SPDX-License-Identifier: Apache-2.0
#include "Platform/AppKit/OfficeOpenXML/StoryHandler.h"

#include "Platform/Foundation/ASCII.h"
#include "Platform/Foundation/UnicodeText.h"

#include <algorithm>
#include <charconv>

namespace OfficeOpenXML {

bool StoryHandler::isVisible() const {
    if (instructions_ > 0) return false;
    return runs_.empty() ? !styles_.isHidden(tableStyle(), paragraphStyle(), nullptr)
                         : !runs_.back().isHidden;
}

bool StoryHandler::preservesSpace(const XMLAttributes& attributes, bool inherited) const {
    std::string_view space = attributes.value(kXML, "space");
    return space.data() == nullptr ? inherited : space == "preserve";
}

const Style* StoryHandler::paragraphStyle() const {
    return paragraphs_.empty() ? nullptr : paragraphs_.back().style;
}

bool StoryHandler::start(Element element, const XMLAttributes& attributes) {
    switch (element) {
    case Element::other: return true;
    case Element::text: startText(attributes); return true;
    case Element::run:
    case Element::mathRun: startRun(attributes); return true;
    case Element::paragraph: startParagraph(attributes); return true;
    case Element::runProperties:
    case Element::paragraphProperties: return true;
    default: return startFlow(element, attributes) && startProperty(element, attributes);
    }
}

bool StoryHandler::startFlow(Element element, const XMLAttributes& attributes) {
    switch (element) {
    case Element::document: preservesSpace_ = preservesSpace(attributes, false); break;
    case Element::tab: append(kTab); break;
    case Element::lineBreak: appendBreak(attributes); break;
    case Element::carriageReturn:
    case Element::drawingLineBreak: append(kLineBreak); break;
    case Element::noBreakHyphen: append(kNoBreakHyphen); break;
    case Element::softHyphen: append(kSoftHyphen); break;
    case Element::symbol: appendSymbol(attributes); break;
    case Element::fieldCharacter: readFieldCharacter(attributes); break;
    case Element::deleted: return startDeleted();
    case Element::footnoteReference:
    case Element::endnoteReference: startNoteReference(element, attributes); break;
    case Element::textBox:
    case Element::drawingTextBody: return startTextBox();
    case Element::table:
        endOpenParagraph();
        tables_.push_back(nullptr);
        break;
    case Element::tableRowProperties: rowIsDeleted_ = false; break;
    case Element::tableCellProperties: cellIsDeleted_ = false; break;
    case Element::chunk:
        if (isVisible()) startChunk(attributes);
        break;
    case Element::diagram:
        if (isVisible()) startDiagram(attributes);
        break;
    case Element::alternateContent: alternatives_.emplace_back(); break;
    case Element::alternative: return startAlternative();
    default: break;
    }
    return true;
}

void StoryHandler::end(Element element) {
    switch (element) {
    case Element::text: endText(); break;
    case Element::run:
    case Element::mathRun: runs_.pop_back(); break;
    case Element::paragraph: endParagraph(); break;
    case Element::runProperties: endRunProperties(); break;
    case Element::textBox:
    case Element::drawingTextBody: endTextBox(); break;
    case Element::drawingParagraph:
        if (isVisible()) endOpenParagraph();
        break;
    case Element::body:
    case Element::tableCell: endOpenParagraph(); break;
    case Element::table: tables_.pop_back(); break;
    case Element::tableRowProperties:
        if (rowIsDeleted_ && outer() == Element::tableRow) passOverRest();
        rowIsDeleted_ = false;
        break;
    case Element::tableCellProperties:
        if (cellIsDeleted_ && outer() == Element::tableCell) passOverRest();
        cellIsDeleted_ = false;
        break;
    case Element::alternateContent: alternatives_.pop_back(); break;
    case Element::alternative:
        if (!alternatives_.empty())
            alternatives_.back().isFound = textCount_ > alternatives_.back().textCountBefore;
        break;
    default: break;
    }
}

void StoryHandler::startParagraph(const XMLAttributes& attributes) {
    Paragraph paragraph;
    paragraph.style = styles_.defaultParagraphStyle();
    paragraph.preservesSpace = preservesSpace(attributes, preservesSpace_);
    paragraphs_.push_back(paragraph);
}

// Where the text of the paragraph begins its list marker stands. The paragraph may go on in a line whose end
// is hidden; then it is none of its own.
void StoryHandler::beginText() {
    if (paragraphs_.empty() || paragraphs_.back().hasBegun) return;
    Paragraph& paragraph = paragraphs_.back();
    paragraph.hasBegun = true;
    if (!story_.atParagraphStart()) return;
    const Style* style = paragraph.style;
    bool breaksPage = paragraph.breaksPage.value_or(style != nullptr && style->breaksPage.value_or(false));
    if (breaksPage && tables_.empty()) story_.beginPage();
    std::optional<int> listID = paragraph.listID, level = paragraph.level;
    if (!listID && style != nullptr && style->numberingID) {
        listID = style->numberingID;
        if (!level) level = lists_.levelOfStyle(*listID, style->numberingStyle);
        if (!level) level = style->level;
    }
    if (!listID || *listID == 0) return;
    std::u16string marker = counters_.nextMarker(*listID, level.value_or(0));
    if (!marker.empty()) story_.listMarker(marker);
}

void StoryHandler::endParagraph() {
    // A field whose instruction has no end does not hide the rest of the document.
    for (size_t i = fields_.size(); i-- > 0 && instructions_ > 0;) {
        if (fields_[i] == Field::instruction) --instructions_;
        fields_[i] = Field::result;
    }
    const Paragraph& paragraph = paragraphs_.back();
    bool isHidden = paragraph.endIsHidden.value_or(styles_.isHidden(tableStyle(), paragraph.style, nullptr));
    if (!isHidden && !paragraph.endIsDeleted) {
        beginText();
        story_.endParagraph();
    }
    paragraphs_.pop_back();
}

void StoryHandler::endOpenParagraph() {
    if (!story_.atParagraphStart()) story_.endParagraph();
}

void StoryHandler::startRun(const XMLAttributes& attributes) {
    Run run;
    bool inherited = paragraphs_.empty() ? preservesSpace_ : paragraphs_.back().preservesSpace;
    run.preservesSpace = preservesSpace(attributes, inherited);
    run.isHidden = styles_.isHidden(tableStyle(), paragraphStyle(), nullptr);
    runs_.push_back(run);
}

void StoryHandler::endRunProperties() {
    if (runs_.empty() || (outer() != Element::run && outer() != Element::mathRun)) return;
    Run& run = runs_.back();
    run.isHidden = run.vanish.value_or(styles_.isHidden(tableStyle(), paragraphStyle(), run.style));
}

void StoryHandler::startText(const XMLAttributes& attributes) {
    if (!isVisible()) return;
    beginText();
    bool inherited = runs_.empty() ? preservesSpace_ : runs_.back().preservesSpace;
    text_ = {true, preservesSpace(attributes, inherited), story_.current().size()};
}

void StoryHandler::characters(std::string_view utf8) {
    if (!text_.isOpen || isPassingOver()) return;
    std::u16string& story = story_.current();
    size_t before = story.size();
    if (before == text_.start && !text_.preservesSpace)
        while (!utf8.empty() && isXMLSpace(utf8.front())) utf8.remove_prefix(1);
    appendUTF8(story, utf8);
    for (size_t i = before; i < story.size(); ++i) {
        if (story[i] == u'\n' || story[i] == u'\r') story[i] = u' ';
    }
    const SymbolFont symbols = runs_.empty() ? SymbolFont::none : runs_.back().symbols;
    if (symbols == SymbolFont::none) return;
    for (size_t i = before; i < story.size(); ++i) {
        if (isSymbolCode(story[i])) story[i] = signOf(symbols, story[i]);
    }
}

void StoryHandler::endText() {
    if (!text_.isOpen) return;
    text_.isOpen = false;
    std::u16string& story = story_.current();
    if (!text_.preservesSpace) {
        while (story.size() > text_.start && isXMLSpace(story.back())) story.pop_back();
    }
    if (story.size() > text_.start) noteText();
}

void StoryHandler::append(char16_t unit) {
    if (!isVisible()) return;
    beginText();
    story_.append(unit);
    noteText();
}

void StoryHandler::appendBreak(const XMLAttributes& attributes) {
    std::string_view type = attributes.value(kWord, "type");
    append(type == "page" || type == "column" ? kPageBreak : kLineBreak);
}

void StoryHandler::appendSymbol(const XMLAttributes& attributes) {
    std::string_view text = attributes.value(kWord, "char");
    uint16_t code = 0;
    auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), code, 16);
    if (error == std::errc() && code >= 0x20 && !isSurrogate(code))
        append(signOf(symbolFontNamed(fromUTF8(attributes.value(kWord, "font"))), char16_t(code)));
}

void StoryHandler::startNoteReference(Element element, const XMLAttributes& attributes) {
    if (!isVisible()) return;
    beginText();
    startNote(element, attributes);
    // A mark of the writer's own follows in the same run.
    std::string_view ownMark = attributes.value(kWord, "customMarkFollows");
    if (!runs_.empty() && (ownMark == "1" || ownMark == "true" || ownMark == "on"))
        runs_.back().isHidden = true;
}

// Deleted are a piece of text, the end of a paragraph, or a row or a cell of a table.
bool StoryHandler::startDeleted() {
    if (outer() == Element::runProperties && outer(2) == Element::paragraphProperties && !paragraphs_.empty())
        paragraphs_.back().endIsDeleted = true;
    if (outer() == Element::tableRowProperties) rowIsDeleted_ = true;
    if (outer() == Element::tableCellProperties) cellIsDeleted_ = true;
    return false;
}

bool StoryHandler::startTextBox() {
    if (!isVisible()) return false;
    beginText();
    story_.beginTextBox();
    fieldsAroundBoxes_.push_back(fields_.size());
    return true;
}

void StoryHandler::endTextBox() {
    truncateFields(fieldsAroundBoxes_.back());
    fieldsAroundBoxes_.pop_back();
    story_.endTextBox();
}

bool StoryHandler::startAlternative() {
    if (alternatives_.empty()) return true;
    alternatives_.back().textCountBefore = textCount_;
    return !alternatives_.back().isFound;
}

} // namespace OfficeOpenXML
