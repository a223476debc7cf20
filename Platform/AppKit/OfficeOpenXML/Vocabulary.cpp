// SPDX-License-Identifier: Apache-2.0
#include "Platform/AppKit/OfficeOpenXML/Vocabulary.h"

#include <array>
#include <cstddef>
#include <iterator>

namespace OfficeOpenXML {

namespace {

constexpr XMLNamespace kNamespaces[] = {
    {"http://schemas.openxmlformats.org/wordprocessingml/2006/main", kWord},
    {"http://purl.oclc.org/ooxml/wordprocessingml/main", kWord},
    {"http://www.w3.org/XML/1998/namespace", kXML},
    {"http://schemas.openxmlformats.org/officeDocument/2006/math", kMath},
    {"http://purl.oclc.org/ooxml/officeDocument/math", kMath},
    {"http://schemas.openxmlformats.org/markup-compatibility/2006", kCompatibility},
    {"http://schemas.openxmlformats.org/drawingml/2006/main", kDrawing},
    {"http://purl.oclc.org/ooxml/drawingml/main", kDrawing},
    {"http://schemas.openxmlformats.org/drawingml/2006/diagram", kDiagram},
    {"http://purl.oclc.org/ooxml/drawingml/diagram", kDiagram},
    {"http://schemas.openxmlformats.org/officeDocument/2006/relationships", kReference},
    {"http://purl.oclc.org/ooxml/officeDocument/relationships", kReference},
    {"http://schemas.openxmlformats.org/package/2006/relationships", kRelationships},
    {"http://schemas.openxmlformats.org/package/2006/content-types", kContentTypes},
    {"http://schemas.openxmlformats.org/package/2006/metadata/core-properties", kCoreProperties},
    {"http://purl.org/dc/elements/1.1/", kDublinCore},
    {"http://purl.org/dc/terms/", kDublinCoreTerms},
    {"http://schemas.openxmlformats.org/officeDocument/2006/extended-properties", kExtendedProperties},
    {"http://purl.oclc.org/ooxml/officeDocument/extendedProperties", kExtendedProperties},
};

struct NamedElement {
    constexpr NamedElement(Space ofSpace, std::string_view ofName, Element itself)
        : name(ofName), space(ofSpace), element(itself) {}
    std::string_view name;
    Space space;
    Element element;
};

constexpr NamedElement kElements[] = {
    {kWord, "document", Element::document},
    {kWord, "body", Element::body},
    {kWord, "p", Element::paragraph},
    {kWord, "r", Element::run},
    {kWord, "t", Element::text},
    {kWord, "tab", Element::tab},
    {kWord, "ptab", Element::tab},
    {kWord, "br", Element::lineBreak},
    {kWord, "cr", Element::carriageReturn},
    {kWord, "noBreakHyphen", Element::noBreakHyphen},
    {kWord, "softHyphen", Element::softHyphen},
    {kWord, "sym", Element::symbol},
    {kWord, "fldChar", Element::fieldCharacter},
    {kWord, "del", Element::deleted},
    {kWord, "cellDel", Element::deleted},
    {kWord, "moveFrom", Element::deleted},
    {kWord, "footnoteReference", Element::footnoteReference},
    {kWord, "endnoteReference", Element::endnoteReference},
    {kWord, "footnote", Element::footnote},
    {kWord, "endnote", Element::endnote},
    {kWord, "txbxContent", Element::textBox},
    {kWord, "tbl", Element::table},
    {kWord, "tr", Element::tableRow},
    {kWord, "tc", Element::tableCell},
    {kWord, "trPr", Element::tableRowProperties},
    {kWord, "tcPr", Element::tableCellProperties},
    {kWord, "tblStyle", Element::tableStyle},
    {kWord, "altChunk", Element::chunk},

    {kWord, "delInstrText", Element::ignored},
    {kWord, "delText", Element::ignored},
    {kWord, "ffData", Element::ignored},
    {kWord, "instrText", Element::ignored},
    {kWord, "numberingChange", Element::ignored},
    {kWord, "pPrChange", Element::ignored},
    {kWord, "rPrChange", Element::ignored},
    {kWord, "rt", Element::ignored},
    {kWord, "sdtEndPr", Element::ignored},
    {kWord, "sdtPr", Element::ignored},
    {kWord, "sectPrChange", Element::ignored},
    {kWord, "tabs", Element::ignored},
    {kWord, "tblGridChange", Element::ignored},
    {kWord, "tblPrChange", Element::ignored},
    {kWord, "tblPrExChange", Element::ignored},
    {kWord, "tcPrChange", Element::ignored},
    {kWord, "trPrChange", Element::ignored},

    {kWord, "pPr", Element::paragraphProperties},
    {kWord, "rPr", Element::runProperties},
    {kWord, "pStyle", Element::paragraphStyle},
    {kWord, "rStyle", Element::runStyle},
    {kWord, "numPr", Element::numbering},
    {kWord, "numId", Element::numberingID},
    {kWord, "ilvl", Element::numberingLevel},
    {kWord, "vanish", Element::vanish},
    {kWord, "specVanish", Element::alwaysVanish},
    {kWord, "pageBreakBefore", Element::pageBreakBefore},
    {kWord, "sectPr", Element::section},
    {kWord, "type", Element::sectionType},
    {kWord, "pgSz", Element::pageSize},
    {kWord, "pgMar", Element::pageMargins},

    {kWord, "docDefaults", Element::defaults},
    {kWord, "style", Element::style},
    {kWord, "basedOn", Element::basedOn},

    {kWord, "abstractNum", Element::abstractNumbering},
    {kWord, "abstractNumId", Element::abstractNumberingID},
    {kWord, "num", Element::numberingInstance},
    {kWord, "numStyleLink", Element::numberingStyleLink},
    {kWord, "lvl", Element::level},
    {kWord, "lvlOverride", Element::levelOverride},
    {kWord, "startOverride", Element::startOverride},
    {kWord, "start", Element::start},
    {kWord, "numFmt", Element::numberFormat},
    {kWord, "lvlText", Element::levelText},
    {kWord, "lvlRestart", Element::levelRestart},
    {kWord, "isLgl", Element::legalNumbering},
    {kWord, "rFonts", Element::fonts},

    {kMath, "r", Element::mathRun},
    {kMath, "t", Element::text},
    {kDrawing, "txBody", Element::drawingTextBody},
    {kDrawing, "p", Element::drawingParagraph},
    {kDrawing, "t", Element::text},
    {kDrawing, "br", Element::drawingLineBreak},
    {kDiagram, "relIds", Element::diagram},
    {kDiagram, "pt", Element::diagramPoint},
    {kCompatibility, "AlternateContent", Element::alternateContent},
    {kCompatibility, "Choice", Element::alternative},
    {kCompatibility, "Fallback", Element::alternative},

    {kRelationships, "Relationship", Element::relationship},
    {kContentTypes, "Default", Element::defaultContentType},
    {kContentTypes, "Override", Element::overridingContentType},
    {kDublinCore, "title", Element::title},
    {kDublinCore, "creator", Element::creator},
    {kDublinCore, "subject", Element::subject},
    {kDublinCore, "description", Element::description},
    {kCoreProperties, "keywords", Element::keywords},
    {kCoreProperties, "category", Element::category},
    {kCoreProperties, "lastModifiedBy", Element::lastModifiedBy},
    {kDublinCoreTerms, "created", Element::created},
    {kDublinCoreTerms, "modified", Element::modified},
    {kExtendedProperties, "Company", Element::company},
    {kExtendedProperties, "Manager", Element::manager},
};

// A hash table with open addressing: every element of a document is looked up in it, most are in none.
constexpr size_t kSlots = 512;
static_assert(std::size(kElements) < 255 && std::size(kElements) * 4 < kSlots);

constexpr size_t slotOf(int space, std::string_view name) {
    size_t hash = size_t(space);
    for (char c : name) hash = hash * 31 + static_cast<unsigned char>(c);
    return hash % kSlots;
}

// In each slot one more than the place in kElements, or 0.
constexpr std::array<uint8_t, kSlots> kTable = [] {
    std::array<uint8_t, kSlots> table{};
    for (size_t i = 0; i < std::size(kElements); ++i) {
        size_t slot = slotOf(kElements[i].space, kElements[i].name);
        while (table[slot] != 0) slot = (slot + 1) % kSlots;
        table[slot] = uint8_t(i + 1);
    }
    return table;
}();

} // namespace

std::span<const XMLNamespace> namespaces() { return kNamespaces; }

Element elementNamed(int space, std::string_view name) {
    if (space == 0) return Element::other;
    for (size_t slot = slotOf(space, name); kTable[slot] != 0; slot = (slot + 1) % kSlots) {
        const NamedElement& candidate = kElements[kTable[slot] - 1];
        if (candidate.space == space && candidate.name == name) return candidate.element;
    }
    return Element::other;
}

} // namespace OfficeOpenXML
