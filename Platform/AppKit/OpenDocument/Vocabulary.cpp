// SPDX-License-Identifier: Apache-2.0
#include "Platform/AppKit/OpenDocument/Vocabulary.h"

#include <algorithm>
#include <iterator>
#include <tuple>

namespace OpenDocument {

namespace {

// Of each space, the name of the standard first, then that of its predecessor.
constexpr XMLNamespace kNamespaces[] = {
    {"urn:oasis:names:tc:opendocument:xmlns:text:1.0", kText},
    {"urn:oasis:names:tc:opendocument:xmlns:style:1.0", kStyle},
    {"urn:oasis:names:tc:opendocument:xmlns:xsl-fo-compatible:1.0", kFormat},
    {"urn:oasis:names:tc:opendocument:xmlns:office:1.0", kOffice},
    {"urn:oasis:names:tc:opendocument:xmlns:table:1.0", kTable},
    {"urn:oasis:names:tc:opendocument:xmlns:drawing:1.0", kDraw},
    {"urn:oasis:names:tc:opendocument:xmlns:meta:1.0", kMeta},
    {"urn:oasis:names:tc:opendocument:xmlns:svg-compatible:1.0", kVector},
    {"http://purl.org/dc/elements/1.1/", kDublinCore},
    {"http://www.w3.org/1998/Math/MathML", kMath},
    {"http://www.w3.org/XML/1998/namespace", kXML},
    {"http://openoffice.org/2000/text", kText},
    {"http://openoffice.org/2000/style", kStyle},
    {"http://www.w3.org/1999/XSL/Format", kFormat},
    {"http://openoffice.org/2000/office", kOffice},
    {"http://openoffice.org/2000/table", kTable},
    {"http://openoffice.org/2000/drawing", kDraw},
    {"http://openoffice.org/2000/meta", kMeta},
    {"http://www.w3.org/2000/svg", kVector},
};

struct NamedElement {
    std::string_view name;
    Space space;
    Element element;

    constexpr auto key() const { return std::tuple(int(space), name); }
};

constexpr NamedElement kElements[] = {
    {"annotation", kOffice, Element::ignored},
    {"automatic-styles", kOffice, Element::stylesSection},
    {"binary-data", kOffice, Element::ignored},
    {"body", kOffice, Element::bodySection},
    {"chart", kOffice, Element::foreignBody},
    {"database", kOffice, Element::foreignBody},
    {"document", kOffice, Element::document},
    {"document-content", kOffice, Element::documentPart},
    {"document-meta", kOffice, Element::documentPart},
    {"document-styles", kOffice, Element::documentPart},
    {"drawing", kOffice, Element::foreignBody},
    {"event-listeners", kOffice, Element::ignored},
    {"events", kOffice, Element::ignored},
    {"font-decls", kOffice, Element::stylesSection},
    {"font-face-decls", kOffice, Element::stylesSection},
    {"forms", kOffice, Element::ignored},
    {"formula", kOffice, Element::foreignBody},
    {"image", kOffice, Element::foreignBody},
    {"master-styles", kOffice, Element::stylesSection},
    {"meta", kOffice, Element::metaSection},
    {"presentation", kOffice, Element::foreignBody},
    {"script", kOffice, Element::ignored},
    {"scripts", kOffice, Element::ignored},
    {"spreadsheet", kOffice, Element::foreignBody},
    {"styles", kOffice, Element::stylesSection},
    {"text", kOffice, Element::textBody},
    {"a", kText, Element::span},
    {"alphabetical-index-auto-mark-file", kText, Element::ignored},
    {"alphabetical-index-source", kText, Element::ignored},
    {"bibliography-source", kText, Element::ignored},
    {"database-display", kText, Element::displayedField},
    {"dde-connection-decls", kText, Element::ignored},
    {"endnote", kText, Element::note},
    {"endnote-citation", kText, Element::ignored},
    {"expression", kText, Element::displayedField},
    {"footnote", kText, Element::note},
    {"footnote-citation", kText, Element::ignored},
    {"h", kText, Element::heading},
    {"hidden-paragraph", kText, Element::hiddenParagraph},
    {"hidden-text", kText, Element::hiddenText},
    {"illustration-index-source", kText, Element::ignored},
    {"line-break", kText, Element::lineBreak},
    {"list", kText, Element::list},
    {"list-header", kText, Element::listHeader},
    {"list-item", kText, Element::listItem},
    {"list-level-style-bullet", kText, Element::bulletLevel},
    {"list-level-style-image", kText, Element::imageLevel},
    {"list-level-style-number", kText, Element::numberLevel},
    {"list-style", kText, Element::listStyle},
    {"note", kText, Element::note},
    {"note-citation", kText, Element::ignored},
    {"number", kText, Element::ignored},
    {"numbered-paragraph", kText, Element::numberedParagraph},
    {"object-index-source", kText, Element::ignored},
    {"ordered-list", kText, Element::list},
    {"outline-level-style", kText, Element::outlineLevel},
    {"outline-style", kText, Element::outlineStyle},
    {"p", kText, Element::paragraph},
    {"ruby-text", kText, Element::ignored},
    {"s", kText, Element::spaces},
    {"script", kText, Element::ignored},
    {"section", kText, Element::section},
    {"sequence-decls", kText, Element::ignored},
    {"span", kText, Element::span},
    {"tab", kText, Element::tab},
    {"tab-stop", kText, Element::tab},
    {"table-index-source", kText, Element::ignored},
    {"table-of-content-source", kText, Element::ignored},
    {"tracked-changes", kText, Element::ignored},
    {"unordered-list", kText, Element::list},
    {"user-field-decls", kText, Element::ignored},
    {"user-field-get", kText, Element::displayedField},
    {"user-index-source", kText, Element::ignored},
    {"variable-decls", kText, Element::ignored},
    {"variable-get", kText, Element::displayedField},
    {"variable-input", kText, Element::displayedField},
    {"variable-set", kText, Element::displayedField},
    {"font-decl", kStyle, Element::fontFace},
    {"font-face", kStyle, Element::fontFace},
    {"master-page", kStyle, Element::masterPage},
    {"page-layout", kStyle, Element::pageLayout},
    {"page-layout-properties", kStyle, Element::properties},
    {"page-master", kStyle, Element::pageLayout},
    {"paragraph-properties", kStyle, Element::properties},
    {"properties", kStyle, Element::properties},
    {"style", kStyle, Element::style},
    {"text-properties", kStyle, Element::properties},
    {"applet", kDraw, Element::ignored},
    {"caption", kDraw, Element::textBox},
    {"circle", kDraw, Element::textBox},
    {"connector", kDraw, Element::textBox},
    {"control", kDraw, Element::ignored},
    {"custom-shape", kDraw, Element::textBox},
    {"ellipse", kDraw, Element::textBox},
    {"floating-frame", kDraw, Element::ignored},
    {"image", kDraw, Element::ignored},
    {"line", kDraw, Element::textBox},
    {"measure", kDraw, Element::textBox},
    {"object", kDraw, Element::ignored},
    {"object-ole", kDraw, Element::ignored},
    {"path", kDraw, Element::textBox},
    {"plugin", kDraw, Element::ignored},
    {"polygon", kDraw, Element::textBox},
    {"polyline", kDraw, Element::textBox},
    {"rect", kDraw, Element::textBox},
    {"regular-polygon", kDraw, Element::textBox},
    {"text-box", kDraw, Element::textBox},
    {"content-validations", kTable, Element::ignored},
    {"covered-table-cell", kTable, Element::ignored},
    {"desc", kTable, Element::ignored},
    {"sub-table", kTable, Element::table},
    {"table", kTable, Element::table},
    {"table-cell", kTable, Element::tablePart},
    {"table-row", kTable, Element::tablePart},
    {"title", kTable, Element::ignored},
    {"tracked-changes", kTable, Element::ignored},
    {"creation-date", kMeta, Element::creationDate},
    {"initial-creator", kMeta, Element::initialCreator},
    {"keyword", kMeta, Element::keyword},
    {"user-defined", kMeta, Element::userDefined},
    {"creator", kDublinCore, Element::creator},
    {"date", kDublinCore, Element::date},
    {"description", kDublinCore, Element::description},
    {"subject", kDublinCore, Element::subject},
    {"title", kDublinCore, Element::title},
    {"desc", kVector, Element::ignored},
    {"title", kVector, Element::ignored},
    {"math", kMath, Element::ignored},
};

static_assert(std::is_sorted(std::begin(kElements), std::end(kElements),
                             [](const NamedElement& a, const NamedElement& b) { return a.key() < b.key(); }));

} // namespace

std::span<const XMLNamespace> namespaces() { return kNamespaces; }

Element elementNamed(int space, std::string_view name) {
    auto found = std::lower_bound(std::begin(kElements), std::end(kElements), std::tuple(space, name),
                                  [](const NamedElement& e, const auto& key) { return e.key() < key; });
    return found != std::end(kElements) && found->key() == std::tuple(space, name) ? found->element
                                                                                   : Element::other;
}

} // namespace OpenDocument
