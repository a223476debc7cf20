// SPDX-License-Identifier: Apache-2.0
#include "Platform/AppKit/HTML/HTMLElements.h"

#include "Platform/AppKit/HTML/HTMLCharacters.h"

#include <initializer_list>
#include <utility>

namespace {

using namespace std::string_view_literals;

// Enough for all classes that anybody writes; matching selectors takes time for each.
constexpr size_t kClassesLength = 2048;

using DisplayTable = std::array<HTMLDisplay, GUMBO_TAG_LAST + 1>;

#define TAG(name) GUMBO_TAG_##name
constexpr DisplayTable makeDisplays() {
    DisplayTable table{};
    for (HTMLDisplay& display : table) display = HTMLDisplay::inlined;
    auto set = [&table](HTMLDisplay display, std::initializer_list<GumboTag> tags) {
        for (GumboTag tag : tags) table[tag] = display;
    };
    set(HTMLDisplay::block,
        {TAG(HTML),      TAG(BODY),     TAG(ADDRESS),    TAG(ARTICLE),  TAG(ASIDE),   TAG(BLOCKQUOTE),
         TAG(CENTER),    TAG(DD),       TAG(DETAILS),    TAG(DIR),      TAG(DIV),     TAG(DL),
         TAG(DT),        TAG(FIELDSET), TAG(FIGCAPTION), TAG(FIGURE),   TAG(FOOTER),  TAG(FORM),
         TAG(H1),        TAG(H2),       TAG(H3),         TAG(H4),       TAG(H5),      TAG(H6),
         TAG(HEADER),    TAG(HGROUP),   TAG(HR),         TAG(LEGEND),   TAG(LISTING), TAG(MAIN),
         TAG(MENU),      TAG(NAV),      TAG(OL),         TAG(OPTGROUP), TAG(OPTION),  TAG(P),
         TAG(PLAINTEXT), TAG(PRE),      TAG(SECTION),    TAG(SUMMARY),  TAG(UL),      TAG(XMP)});
    set(HTMLDisplay::none,
        {TAG(AREA), TAG(BASE), TAG(BASEFONT), TAG(DATALIST), TAG(HEAD), TAG(LINK), TAG(META), TAG(PARAM),
         TAG(RP), TAG(SCRIPT), TAG(STYLE), TAG(TEMPLATE), TAG(TITLE)});
    set(HTMLDisplay::listItem, {TAG(LI)});
    set(HTMLDisplay::table, {TAG(TABLE)});
    set(HTMLDisplay::caption, {TAG(CAPTION)});
    set(HTMLDisplay::headerGroup, {TAG(THEAD)});
    set(HTMLDisplay::rowGroup, {TAG(TBODY)});
    set(HTMLDisplay::footerGroup, {TAG(TFOOT)});
    set(HTMLDisplay::row, {TAG(TR)});
    set(HTMLDisplay::cell, {TAG(TD), TAG(TH)});
    set(HTMLDisplay::column, {TAG(COL), TAG(COLGROUP)});
    return table;
}
#undef TAG

constexpr DisplayTable kDisplays = makeDisplays();

bool isOneOf(std::string_view name, std::initializer_list<std::string_view> names) {
    for (std::string_view other : names) {
        if (equalIgnoringCase(name, other)) return true;
    }
    return false;
}

// The name in an element's own tag, for elements that the parser has no number for.
std::string_view nameInTag(const GumboStringPiece& source) {
    constexpr std::string_view kEmptyEndTag = "</>";
    std::string_view tag(source.data, source.length);
    // The parser counts what it passed over to the next tag.
    while (tag.starts_with(kEmptyEndTag)) tag.remove_prefix(kEmptyEndTag.size());
    if (tag.starts_with('<')) tag.remove_prefix(1);
    size_t length = 0;
    while (length < tag.size() && !isHTMLSpace(tag[length]) && tag[length] != '/' && tag[length] != '>')
        ++length;
    return tag.substr(0, length);
}

} // namespace

HTMLElement::HTMLElement(const GumboNode& node) {
    static constexpr std::pair<std::string_view, const char * HTMLElement::*> kAttributes[] = {
        {"style", &HTMLElement::style}, {"hidden", &HTMLElement::hidden}, {"open", &HTMLElement::open},
        {"src", &HTMLElement::src},     {"data", &HTMLElement::data},     {"type", &HTMLElement::type},
        {"value", &HTMLElement::value}, {"start", &HTMLElement::start},   {"srcdoc", &HTMLElement::srcdoc}};
    const GumboElement& element = node.v.element;
    name.tag = element.tag;
    isHTML = element.tag_namespace == GUMBO_NAMESPACE_HTML;
    if (element.tag == GUMBO_TAG_UNKNOWN) name.name = nameInTag(element.original_tag);
    for (unsigned i = 0; i < element.attributes.length; ++i) {
        const auto& attribute = *static_cast<const GumboAttribute*>(element.attributes.data[i]);
        const std::string_view key = attribute.name;
        if (key == "class"sv) name.classes = std::string_view(attribute.value).substr(0, kClassesLength);
        if (key == "id"sv) name.id = attribute.value;
        for (const auto& [known, member] : kAttributes) {
            if (key == known) this->*member = attribute.value;
        }
    }
}

HTMLDisplay defaultDisplay(const HTMLElement& element) {
    const std::string_view name = element.name.name;
    if (!element.isHTML) {
        const bool block = element.name.tag == GUMBO_TAG_FOREIGNOBJECT || name == "text"sv;
        return block ? HTMLDisplay::block : HTMLDisplay::inlined;
    }
    if (element.hidden) return HTMLDisplay::none;
    if (element.name.tag == GUMBO_TAG_UNKNOWN) {
        if (equalIgnoringCase(name, "dialog")) return element.open ? HTMLDisplay::block : HTMLDisplay::none;
        if (equalIgnoringCase(name, "slot")) return HTMLDisplay::contents;
        return equalIgnoringCase(name, "search") ? HTMLDisplay::block : HTMLDisplay::inlined;
    }
    if (element.is(GUMBO_TAG_INPUT) && element.type && equalIgnoringCase(element.type, "hidden")) {
        return HTMLDisplay::none;
    }
    return kDisplays[element.name.tag];
}

bool isNeverShown(const HTMLElement& element) {
    switch (element.name.tag) {
    case GUMBO_TAG_SCRIPT:
    case GUMBO_TAG_STYLE:
    case GUMBO_TAG_TITLE: return true;
    case GUMBO_TAG_DESC:
    case GUMBO_TAG_ANNOTATION_XML: return !element.isHTML;
    case GUMBO_TAG_UNKNOWN:
        return !element.isHTML &&
               isOneOf(element.name.name, {"annotation", "clippath", "defs", "filter", "marker", "mask",
                                           "metadata", "pattern", "symbol"});
    case GUMBO_TAG_HEAD:
    case GUMBO_TAG_TEMPLATE:
    case GUMBO_TAG_META:
    case GUMBO_TAG_LINK:
    case GUMBO_TAG_NOEMBED:
    case GUMBO_TAG_NOFRAMES:
    case GUMBO_TAG_AUDIO:
    case GUMBO_TAG_CANVAS:
    case GUMBO_TAG_VIDEO:
    case GUMBO_TAG_PROGRESS:
    case GUMBO_TAG_METER: return element.isHTML;
    case GUMBO_TAG_IFRAME: return element.isHTML && !element.srcdoc;
    default: return false;
    }
}
