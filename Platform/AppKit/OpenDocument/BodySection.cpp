// SPDX-License-Identifier: Apache-2.0
#include "Platform/AppKit/OpenDocument/BodySection.h"

#include "Platform/AppKit/Package/XMLValues.h"
#include "Platform/Foundation/ASCII.h"
#include "Platform/Foundation/UnicodeText.h"

#include <algorithm>
#include <optional>

namespace OpenDocument {

namespace {

// A count of spaces in one element is a number that costs a hostile document nothing.
constexpr int kSpacesLimit = 1000;

// The length of the text up to white space that collapses: single spaces between words stand as they are.
size_t lengthOfPlainRun(std::string_view text) {
    size_t i = 0;
    for (; i < text.size(); ++i) {
        if (!isXMLSpace(text[i])) continue;
        if (text[i] != ' ' || i + 1 == text.size() || isXMLSpace(text[i + 1])) break;
    }
    return i;
}

bool isTrue(std::string_view value) { return value == "true"; }

// Writers mean "none" by a negative one.
std::optional<int> startValue(const XMLAttributes& attributes) {
    auto value = integerValue(attributes.value(kText, "start-value"));
    return value && *value >= 0 ? value : std::nullopt;
}

bool sectionIsHidden(const XMLAttributes& attributes) {
    std::string_view display = attributes.value(kText, "display");
    return display == "none" || (display == "condition" && isTrue(attributes.value(kText, "is-hidden")));
}

// Of a row or a cell; filtered ones are those that a filter set on the table leaves out.
bool tablePartIsHidden(const XMLAttributes& attributes) {
    std::string_view visibility = attributes.value(kTable, "visibility");
    return visibility == "collapse" || visibility == "filter";
}

} // namespace

bool BodySection::start(Element element, const XMLAttributes& attributes) {
    switch (element) {
    case Element::ignored: return false;
    case Element::textBody: isText_ = true; return true;
    case Element::foreignBody: isForeign_ = true; return false;
    case Element::paragraph:
    case Element::heading: beginParagraph(element, attributes); return true;
    case Element::span: beginSpan(attributes); return true;
    case Element::lineBreak: appendUnits(kLineBreak, 1); return false;
    case Element::tab: appendUnits(kTab, 1); return false;
    case Element::spaces: {
        int count = integerValue(attributes.value(kText, "c")).value_or(1);
        appendUnits(u' ', size_t(std::clamp(count, 0, kSpacesLimit)));
        return false;
    }
    case Element::displayedField: return attributes.value(kText, "display") != "none";
    case Element::hiddenText: return !isTrue(attributes.value(kText, "is-hidden"));
    case Element::hiddenParagraph:
        if (isTrue(attributes.value(kText, "is-hidden"))) flow_.dropped = true;
        return false;
    case Element::note:
    case Element::textBox: return beginFlow(element);
    case Element::section: return !sectionIsHidden(attributes);
    case Element::table: ++tableDepth_; return true;
    case Element::tablePart: return !tablePartIsHidden(attributes);
    case Element::list:
    case Element::numberedParagraph: beginList(element, attributes); return true;
    case Element::listItem:
        numbering_.beginItem(startValue(attributes), attributes.value(kText, "style-override"));
        return true;
    case Element::listHeader: numbering_.beginHeader(); return true;
    default: return true;
    }
}

void BodySection::end(Element element) {
    switch (element) {
    case Element::paragraph:
    case Element::heading: endParagraph(); break;
    case Element::span: endSpan(); break;
    case Element::note:
    case Element::textBox: endFlow(element); break;
    case Element::table: --tableDepth_; break;
    case Element::list:
    case Element::numberedParagraph: numbering_.endList(); break;
    default: break;
    }
}

void BodySection::beginParagraph(Element element, const XMLAttributes& attributes) {
    if (flow_.inParagraph) {
        pushFlow();
        story_.beginTextBox();
        flow_.startedByParagraph = true;
    }
    ParagraphLook look = styles_.paragraph(attributes.value(kText, "style-name"));
    outerHidden_.push_back(flow_.hidden);
    flow_.inParagraph = flow_.atStart = true;
    flow_.dropped = flow_.spaceWaits = false;
    flow_.hidden = flow_.paragraphHidden = look.hidden;
    flow_.breaksAfter = look.breaksAfter;
    if (!look.hidden) beginPage(look);
    flow_.paragraphStart = story_.current().size();
    if (!look.hidden) beginMarker(element, attributes, look);
}

void BodySection::beginPage(const ParagraphLook& look) {
    if (!outerFlows_.empty()) return;
    if (!hasParagraph_) firstMasterPage_ = look.masterPage;
    hasParagraph_ = true;
    bool breaks = tableDepth_ == 0 && (look.breaksBefore || !look.masterPage.empty());
    if ((breaks || pageBreakWaits_) && !story_.current().empty()) story_.pageBreak();
    pageBreakWaits_ = false;
}

void BodySection::beginMarker(Element element, const XMLAttributes& attributes, const ParagraphLook& look) {
    std::u16string marker;
    bool styledUnnumbered = look.listStyle && look.listStyle->empty();
    if (numbering_.isInList()) {
        marker = numbering_.takeMarker(look.listStyle.value_or(""));
    } else if (element == Element::heading && !styledUnnumbered &&
               !isTrue(attributes.value(kText, "is-list-header"))) {
        auto level = integerValue(attributes.value(kText, "outline-level"));
        if (!level) level = integerValue(attributes.value(kText, "level"));
        marker = numbering_.headingMarker(
            level.value_or(1), isTrue(attributes.value(kText, "restart-numbering")), startValue(attributes));
    }
    if (!marker.empty()) story_.listMarker(marker);
}

void BodySection::endParagraph() {
    if (flow_.dropped) story_.current().resize(std::min(flow_.paragraphStart, story_.current().size()));
    bool isEmpty = story_.current().size() <= flow_.paragraphStart;
    if (!isEmpty || (!flow_.paragraphHidden && !flow_.dropped)) story_.endParagraph();
    if (flow_.breaksAfter && outerFlows_.empty() && tableDepth_ == 0) pageBreakWaits_ = true;
    flow_.inParagraph = false;
    endSpan();
    if (!flow_.startedByParagraph) return;
    story_.endTextBox();
    popFlow();
}

void BodySection::beginSpan(const XMLAttributes& attributes) {
    outerHidden_.push_back(flow_.hidden);
    auto hidden = styles_.textIsHidden(attributes.value(kText, "style-name"));
    if (hidden) flow_.hidden = *hidden;
}

void BodySection::endSpan() {
    flow_.hidden = outerHidden_.back();
    outerHidden_.pop_back();
}

bool BodySection::beginFlow(Element element) {
    if (flow_.inParagraph && isSilent()) return false;
    pushFlow();
    element == Element::note ? story_.beginNote() : story_.beginTextBox();
    return true;
}

void BodySection::endFlow(Element element) {
    element == Element::note ? story_.endNote() : story_.endTextBox();
    popFlow();
}

void BodySection::pushFlow() {
    outerFlows_.push_back(flow_);
    flow_ = {};
    numbering_.beginStory();
}

void BodySection::popFlow() {
    flow_ = outerFlows_.back();
    outerFlows_.pop_back();
    numbering_.endStory();
}

void BodySection::beginList(Element element, const XMLAttributes& attributes) {
    ListNumbering::ListStart start;
    start.style = attributes.value(kText, "style-name");
    start.id = attributes.value(kXML, "id");
    start.continuedID = attributes.value(kText, "continue-list");
    std::string_view continues = attributes.value(kText, "continue-numbering");
    if (!continues.empty()) start.continuesPrevious = isTrue(continues);
    if (element != Element::numberedParagraph) return numbering_.beginList(start);
    start.id = start.continuedID = attributes.value(kText, "list-id");
    numbering_.beginNumberedParagraph(start, integerValue(attributes.value(kText, "level")).value_or(1),
                                      startValue(attributes));
}

bool BodySection::prepareText() {
    if (isSilent()) return false;
    if (flow_.spaceWaits) story_.append(u' ');
    flow_.spaceWaits = flow_.atStart = false;
    return true;
}

void BodySection::appendUnits(char16_t unit, size_t count) {
    if (count > 0 && prepareText()) story_.current().append(count, unit);
}

void BodySection::characters(std::string_view utf8) {
    if (isSilent()) return;
    while (!utf8.empty()) {
        if (isXMLSpace(utf8.front())) {
            flow_.spaceWaits = !flow_.atStart;
            utf8.remove_prefix(1);
            continue;
        }
        size_t length = lengthOfPlainRun(utf8);
        prepareText();
        appendUTF8(story_.current(), utf8.substr(0, length));
        utf8.remove_prefix(length);
    }
}

} // namespace OpenDocument
