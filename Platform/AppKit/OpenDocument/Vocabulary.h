// SPDX-License-Identifier: Apache-2.0
//
// The names of OpenDocument that matter to a reader of text, those of its predecessor of 2000 included, which
// falls together with it but for a few elements.
#pragma once

#include "Platform/AppKit/Package/XMLReader.h"

#include <cstdint>
#include <span>
#include <string_view>

namespace OpenDocument {

// Namespaces, as XMLReader numbers them.
enum Space : int {
    kOffice = 1,
    kText,
    kStyle,
    kFormat,
    kDraw,
    kTable,
    kMeta,
    kDublinCore,
    kVector,
    kMath,
    kXML
};

std::span<const XMLNamespace> namespaces();

enum class Element : uint8_t {
    other,   // of no matter itself, its content may be
    ignored, // neither it nor its content is text that a reader of the document sees

    // the whole document
    document,
    documentPart,
    metaSection,
    stylesSection,
    bodySection,

    // bodies
    textBody,
    foreignBody,

    // text
    paragraph,
    heading,
    span,
    lineBreak,
    tab,
    spaces,
    displayedField,
    hiddenText,
    hiddenParagraph,
    note,
    textBox,
    section,
    table,
    tablePart,
    list,
    listItem,
    listHeader,
    numberedParagraph,

    // styles
    style,
    properties,
    listStyle,
    outlineStyle,
    numberLevel,
    bulletLevel,
    imageLevel,
    outlineLevel,
    pageLayout,
    masterPage,
    fontFace,

    // information
    title,
    subject,
    description,
    creator,
    date,
    initialCreator,
    creationDate,
    keyword,
    userDefined,
};

Element elementNamed(int space, std::string_view name);

} // namespace OpenDocument
