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
    case Element::pageSize: readPageSize(attributes); break;
    case Element::pageMargins: readPageMargins(attributes); break;
    default: break;
    }
    return StoryHandler::start(element, attributes);
}

// The last section counts.
void DocumentHandler::startSection() {
    info_.paperSize.reset();
    info_.leftMargin.reset();
    info_.rightMargin.reset();
    info_.topMargin.reset();
    info_.bottomMargin.reset();
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
