// SPDX-License-Identifier: Apache-2.0
#include "Platform/AppKit/OfficeOpenXML/DocumentHandler.h"

#include <cmath>

namespace OfficeOpenXML {

namespace {

// A margin that the page's header cannot push is written as a negative one.
std::optional<double> margin(const XMLAttributes& attributes, std::string_view name) {
    std::optional<double> points = measureValue(attributes.value(kWord, name));
    return points ? std::optional(std::abs(*points)) : std::nullopt;
}

} // namespace

bool DocumentHandler::start(Element element, const XMLAttributes& attributes) {
    if (!isTextDocument_ && element != Element::document) return false;
    switch (element) {
    case Element::document: isTextDocument_ = true; break;
    case Element::section: startSection(); break;
    case Element::sectionType:
        if (outer() == Element::section)
            sectionBeginsPage_ = value(attributes) != "continuous" && value(attributes) != "nextColumn";
        break;
    case Element::pageSize: readPageSize(attributes); break;
    case Element::pageMargins: readPageMargins(attributes); break;
    default: break;
    }
    return StoryHandler::start(element, attributes);
}

void DocumentHandler::end(Element element) {
    StoryHandler::end(element);
    if (element == Element::section) endSection();
    if (element != Element::paragraph || !sectionEndsWithParagraph_ || !story_.isInMainStory()) return;
    sectionEndsWithParagraph_ = false;
    isInLaterSection_ = true;
    pageStarts_.push_back(story_.current().size());
}

// The page of the last section counts.
void DocumentHandler::startSection() {
    sectionBeginsPage_ = true;
    info_.paperSize.reset();
    info_.leftMargin.reset();
    info_.rightMargin.reset();
    info_.topMargin.reset();
    info_.bottomMargin.reset();
}

// Its properties stand in its last paragraph, those of the last section behind all paragraphs.
void DocumentHandler::endSection() {
    if (!story_.isInMainStory()) return;
    if (isInLaterSection_ && !sectionBeginsPage_) pageStarts_.pop_back();
    isInLaterSection_ = false;
    sectionEndsWithParagraph_ = outer() == Element::paragraphProperties;
}

std::u16string DocumentHandler::finish() && {
    std::u16string text = std::move(story_).finish();
    if (pageStarts_.empty()) return text;
    std::u16string paged;
    paged.reserve(text.size() + pageStarts_.size());
    size_t copied = 0;
    for (size_t start : pageStarts_) {
        if (start >= text.size() || text[start] == kPageBreak) continue;
        paged.append(text, copied, start - copied) += kPageBreak;
        copied = start;
    }
    return paged.append(text, copied);
}

void DocumentHandler::readPageSize(const XMLAttributes& attributes) {
    auto width = measureValue(attributes.value(kWord, "w")),
         height = measureValue(attributes.value(kWord, "h"));
    if (width && height && *width > 0 && *height > 0) info_.paperSize = DocumentSize{*width, *height};
}

void DocumentHandler::readPageMargins(const XMLAttributes& attributes) {
    info_.leftMargin = margin(attributes, "left");
    info_.rightMargin = margin(attributes, "right");
    info_.topMargin = margin(attributes, "top");
    info_.bottomMargin = margin(attributes, "bottom");
}

void DocumentHandler::startNote(Element element, const XMLAttributes& attributes) {
    NotesPart& notes = element == Element::footnoteReference ? parts_.footnotes : parts_.endnotes;
    std::u16string text = notes.take(attributes.value(kWord, "id"));
    if (text.empty()) return;
    story_.beginNote();
    story_.append(text);
    story_.endNote();
    noteText();
}

void DocumentHandler::startChunk(const XMLAttributes& attributes) {
    std::u16string text = parts_.linked.takeChunk(attributes.value(kReference, "id"));
    if (text.empty()) return;
    endOpenParagraph();
    story_.append(text);
    endOpenParagraph();
    noteText();
}

void DocumentHandler::startDiagram(const XMLAttributes& attributes) {
    std::u16string text = parts_.linked.takeDiagram(attributes.value(kReference, "dm"));
    if (text.empty()) return;
    beginText();
    story_.beginTextBox();
    story_.append(text);
    story_.endTextBox();
    noteText();
}

} // namespace OfficeOpenXML
