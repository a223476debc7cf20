// SPDX-License-Identifier: Apache-2.0
//
// The part of the handler that reads fields and the properties of paragraphs, runs and tables.
#include "Platform/AppKit/OfficeOpenXML/StoryHandler.h"
#include "Platform/Foundation/UnicodeText.h"

namespace OfficeOpenXML {

namespace {

// A run has a font for each sort of script; signs are of the first that has any.
SymbolFont symbolFont(const XMLAttributes& attributes) {
    for (std::string_view script : {"hAnsi", "ascii", "cs", "eastAsia"}) {
        SymbolFont font = symbolFontNamed(fromUTF8(attributes.value(kWord, script).substr(0, kLongestName)));
        if (font != SymbolFont::none) return font;
    }
    return SymbolFont::none;
}

} // namespace

bool StoryHandler::startProperty(Element element, const XMLAttributes& attributes) {
    bool isOfParagraph = !paragraphs_.empty() && outer() == Element::paragraphProperties;
    switch (element) {
    case Element::paragraphStyle:
        if (const Style* style = isOfParagraph ? styles_.find(value(attributes)) : nullptr)
            paragraphs_.back().style = style;
        break;
    case Element::runStyle:
        if (!runs_.empty() && outer(2) == Element::run) runs_.back().style = styles_.find(value(attributes));
        break;
    case Element::pageBreakBefore:
        if (isOfParagraph) paragraphs_.back().breaksPage = isOn(attributes);
        break;
    case Element::fonts:
        if (!runs_.empty() && outer(2) == Element::run) runs_.back().symbols = symbolFont(attributes);
        break;
    case Element::tableStyle:
        if (!tables_.empty()) tables_.back() = styles_.find(value(attributes));
        break;
    case Element::numberingID:
        if (!paragraphs_.empty() && outer(2) == Element::paragraphProperties)
            paragraphs_.back().listID = numberValue(value(attributes));
        break;
    case Element::numberingLevel:
        if (!paragraphs_.empty() && outer(2) == Element::paragraphProperties)
            paragraphs_.back().level = numberValue(value(attributes));
        break;
    case Element::vanish: readVanish(isOn(attributes), false); break;
    case Element::alwaysVanish: readVanish(isOn(attributes), true); break;
    default: break;
    }
    return true;
}

void StoryHandler::readVanish(bool isHidden, bool onlyParagraphEnds) {
    if (outer() != Element::runProperties) return;
    if (outer(2) == Element::paragraphProperties) {
        if (!paragraphs_.empty() && (isHidden || !onlyParagraphEnds))
            paragraphs_.back().endIsHidden = isHidden;
    } else if (!runs_.empty() && !onlyParagraphEnds &&
               (outer(2) == Element::run || outer(2) == Element::mathRun)) {
        runs_.back().vanish = isHidden;
    }
}

void StoryHandler::readFieldCharacter(const XMLAttributes& attributes) {
    std::string_view type = attributes.value(kWord, "fldCharType");
    size_t first = fieldsAroundBoxes_.empty() ? 0 : fieldsAroundBoxes_.back();
    if (type == "begin") {
        fields_.push_back(Field::instruction);
        ++instructions_;
    } else if (fields_.size() > first) {
        if (type == "separate" && fields_.back() == Field::instruction) {
            fields_.back() = Field::result;
            --instructions_;
        } else if (type == "end") {
            truncateFields(fields_.size() - 1);
        }
    }
}

void StoryHandler::truncateFields(size_t count) {
    while (fields_.size() > count) {
        if (fields_.back() == Field::instruction) --instructions_;
        fields_.pop_back();
    }
}

} // namespace OfficeOpenXML
