// SPDX-License-Identifier: Apache-2.0
//
// The names of Office Open XML that matter to a reader of text, in both forms of the format: the transitional
// one that programs write and the strict one, which differs in its namespaces.
#pragma once

#include "Platform/AppKit/Package/XMLReader.h"

#include <cstdint>
#include <span>
#include <string_view>

namespace OfficeOpenXML {

// Namespaces, as XMLReader numbers them.
enum Space : int {
    kWord = 1,
    kMath,
    kDrawing,
    kDiagram,
    kCompatibility,
    kReference, // of attributes that name a relationship
    kRelationships,
    kCoreProperties,
    kDublinCore,
    kDublinCoreTerms,
    kExtendedProperties,
    kContentTypes,
    kXML
};

std::span<const XMLNamespace> namespaces();

enum class Element : uint8_t {
    other,   // of no matter itself, its content may be
    ignored, // neither it nor its content is text that a reader of the document sees

    // the flow of text
    document,
    body,
    paragraph,
    run,
    text,
    mathRun,
    tab,
    lineBreak,
    carriageReturn,
    noBreakHyphen,
    softHyphen,
    symbol,
    fieldCharacter,
    deleted,
    footnoteReference,
    endnoteReference,
    footnote,
    endnote,
    textBox,
    table,
    tableRow,
    tableCell,
    tableRowProperties,
    tableCellProperties,
    tableStyle,
    chunk,
    alternateContent,
    alternative,
    drawingTextBody,
    drawingParagraph,
    drawingLineBreak,
    diagram,
    diagramPoint,

    // properties
    paragraphProperties,
    runProperties,
    paragraphStyle,
    runStyle,
    numbering,
    numberingID,
    numberingLevel,
    vanish,
    alwaysVanish,
    pageBreakBefore,
    section,
    sectionType,
    pageSize,
    pageMargins,

    // styles
    defaults,
    style,
    basedOn,

    // numbering
    abstractNumbering,
    abstractNumberingID,
    numberingInstance,
    numberingStyleLink,
    level,
    levelOverride,
    startOverride,
    start,
    numberFormat,
    levelText,
    levelRestart,
    legalNumbering,
    fonts,

    // relationships and information
    relationship,
    defaultContentType,
    overridingContentType,
    title,
    creator,
    subject,
    description,
    keywords,
    category,
    lastModifiedBy,
    created,
    modified,
    company,
    manager,
};

Element elementNamed(int space, std::string_view name);

} // namespace OfficeOpenXML
