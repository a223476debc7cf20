// SPDX-License-Identifier: Apache-2.0
//
// What the standard's tree construction knows of an element by its tag alone.
#pragma once

#include <array>
#include <cstdint>
#include <gumbo.h>
#include <initializer_list>

enum HTMLTagTrait : uint16_t {
    kTagIsVoid = 1 << 0,          // has no content
    kTagIsFormatting = 1 << 1,    // opened anew in every block until its end tag
    kTagIsSpecial = 1 << 2,       // the standard's category "special": other end tags do not reach past it
    kTagClosesParagraph = 1 << 3, // its start tag ends an open P
    kTagIsScopeBorder = 1 << 4,   // end tags inside it do not reach what is outside
    kTagHasMarker = 1 << 5,       // formatting elements from outside are not opened anew inside it
    kTagIsHeading = 1 << 6,
    kTagHasRawText = 1 << 7,  // its text holds no tags
    kTagIsTablePart = 1 << 8, // means nothing outside of a table
    kTagEndsInScope = 1 << 9, // its end tag closes what was left open inside
    kTagIsRoot = 1 << 10,     // there is one in a document, and only its attributes matter
    kTagBreaksOut = 1 << 11,  // its start tag ends SVG and MathML
};

namespace html_tag_traits {

using Table = std::array<uint16_t, GUMBO_TAG_LAST + 1>;

constexpr void add(Table& table, uint16_t trait, std::initializer_list<GumboTag> tags) {
    for (GumboTag tag : tags) table[tag] = uint16_t(table[tag] | trait);
}

#define TAG(name) GUMBO_TAG_##name
constexpr Table makeTable() {
    Table t{};
    add(t, kTagIsVoid | kTagIsSpecial,
        {TAG(AREA), TAG(BASE), TAG(BASEFONT), TAG(BGSOUND), TAG(BR), TAG(COL), TAG(EMBED), TAG(FRAME),
         TAG(HR), TAG(IMG), TAG(INPUT), TAG(ISINDEX), TAG(LINK), TAG(META), TAG(PARAM), TAG(SOURCE),
         TAG(TRACK), TAG(WBR)});
    add(t, kTagIsVoid, {TAG(IMAGE), TAG(KEYGEN), TAG(MENUITEM)});
    add(t, kTagIsFormatting,
        {TAG(A), TAG(B), TAG(BIG), TAG(CODE), TAG(EM), TAG(FONT), TAG(I), TAG(NOBR), TAG(S), TAG(SMALL),
         TAG(STRIKE), TAG(STRONG), TAG(TT), TAG(U)});
    add(t, kTagClosesParagraph | kTagEndsInScope | kTagIsSpecial,
        {TAG(ADDRESS), TAG(ARTICLE), TAG(ASIDE),  TAG(BLOCKQUOTE), TAG(CENTER),     TAG(DETAILS),
         TAG(DIR),     TAG(DIV),     TAG(DL),     TAG(FIELDSET),   TAG(FIGCAPTION), TAG(FIGURE),
         TAG(FOOTER),  TAG(HEADER),  TAG(HGROUP), TAG(LISTING),    TAG(MAIN),       TAG(MENU),
         TAG(NAV),     TAG(OL),      TAG(PRE),    TAG(SECTION),    TAG(SUMMARY),    TAG(UL)});
    add(t, kTagClosesParagraph | kTagIsSpecial,
        {TAG(ISINDEX), TAG(P), TAG(LI), TAG(DD), TAG(DT), TAG(FORM), TAG(HR), TAG(PLAINTEXT), TAG(TABLE),
         TAG(XMP)});
    add(t, kTagClosesParagraph | kTagIsHeading | kTagEndsInScope | kTagIsSpecial,
        {TAG(H1), TAG(H2), TAG(H3), TAG(H4), TAG(H5), TAG(H6)});
    add(t, kTagEndsInScope, {TAG(DD), TAG(DT), TAG(APPLET), TAG(BUTTON), TAG(MARQUEE), TAG(OBJECT)});
    add(t, kTagIsScopeBorder | kTagHasMarker | kTagIsSpecial,
        {TAG(APPLET), TAG(CAPTION), TAG(MARQUEE), TAG(OBJECT), TAG(TD), TAG(TEMPLATE), TAG(TH)});
    add(t, kTagIsScopeBorder | kTagIsSpecial, {TAG(TABLE)});
    add(t, kTagIsSpecial,
        {TAG(BUTTON), TAG(COLGROUP), TAG(FRAMESET), TAG(IFRAME), TAG(NOEMBED), TAG(NOFRAMES), TAG(NOSCRIPT),
         TAG(SCRIPT), TAG(SELECT), TAG(STYLE), TAG(TBODY), TAG(TEXTAREA), TAG(TFOOT), TAG(THEAD), TAG(TITLE),
         TAG(TR)});
    add(t, kTagHasRawText,
        {TAG(IFRAME), TAG(NOEMBED), TAG(NOFRAMES), TAG(SCRIPT), TAG(STYLE), TAG(TEXTAREA), TAG(TITLE),
         TAG(XMP)});
    add(t, kTagIsTablePart,
        {TAG(CAPTION), TAG(COL), TAG(COLGROUP), TAG(TBODY), TAG(TD), TAG(TFOOT), TAG(TH), TAG(THEAD),
         TAG(TR)});
    add(t, kTagIsRoot, {TAG(HTML), TAG(HEAD), TAG(BODY)});
    add(t, kTagBreaksOut,
        {TAG(B),     TAG(BIG),     TAG(BLOCKQUOTE), TAG(BODY), TAG(BR),     TAG(CENTER), TAG(CODE), TAG(DD),
         TAG(DIV),   TAG(DL),      TAG(DT),         TAG(EM),   TAG(EMBED),  TAG(FONT),   TAG(H1),   TAG(H2),
         TAG(H3),    TAG(H4),      TAG(H5),         TAG(H6),   TAG(HEAD),   TAG(HR),     TAG(I),    TAG(IMG),
         TAG(LI),    TAG(LISTING), TAG(MENU),       TAG(META), TAG(NOBR),   TAG(OL),     TAG(P),    TAG(PRE),
         TAG(RUBY),  TAG(S),       TAG(SMALL),      TAG(SPAN), TAG(STRONG), TAG(STRIKE), TAG(SUB),  TAG(SUP),
         TAG(TABLE), TAG(TT),      TAG(U),          TAG(UL),   TAG(VAR)});
    return t;
}
#undef TAG

inline constexpr Table kTable = makeTable();

} // namespace html_tag_traits

constexpr bool hasTrait(GumboTag tag, unsigned traits) {
    return (html_tag_traits::kTable[tag] & traits) != 0;
}
