// SPDX-License-Identifier: Apache-2.0
//
// What each kind of tag does to the open elements.
#include "Platform/AppKit/HTML/HTMLOpenElements.h"

#include "Platform/AppKit/HTML/HTMLTagTraits.h"

#include <algorithm>

namespace {

constexpr size_t kUsualDepth = 100;

// In these elements of SVG and MathML, HTML's rules hold again.
bool holdsHTML(const HTMLStartTag& start, bool math) {
    switch (start.tag) {
    case GUMBO_TAG_FOREIGNOBJECT:
    case GUMBO_TAG_DESC:
    case GUMBO_TAG_TITLE: return !math;
    case GUMBO_TAG_MI:
    case GUMBO_TAG_MO:
    case GUMBO_TAG_MN:
    case GUMBO_TAG_MS:
    case GUMBO_TAG_MTEXT: return math;
    case GUMBO_TAG_ANNOTATION_XML: return math && start.hasHTMLEncoding;
    default: return false;
    }
}

// Tags that do not tell what a template is for.
bool suitsAnyTemplate(GumboTag tag) {
    switch (tag) {
    case GUMBO_TAG_BASE:
    case GUMBO_TAG_BASEFONT:
    case GUMBO_TAG_BGSOUND:
    case GUMBO_TAG_LINK:
    case GUMBO_TAG_META:
    case GUMBO_TAG_NOFRAMES:
    case GUMBO_TAG_SCRIPT:
    case GUMBO_TAG_STYLE:
    case GUMBO_TAG_TEMPLATE:
    case GUMBO_TAG_TITLE: return true;
    default: return hasTrait(tag, kTagIsRoot);
    }
}

} // namespace

// Whether a start tag in SVG or MathML ends them.
bool HTMLOpenElements::breaksOut(const HTMLStartTag& start) const {
    return hasTrait(start.tag, kTagBreaksOut) && (start.tag != GUMBO_TAG_FONT || start.hasFontStyle);
}

bool HTMLOpenElements::startForeign(const HTMLStartTag& start) {
    if (start.isSelfClosing) return true;
    Element element(start.tag);
    element.identity = identityOf(start.name);
    element.foreign = true;
    element.math =
        start.tag == GUMBO_TAG_MATH || (start.tag != GUMBO_TAG_SVG && inForeign() && open_.back().math);
    element.holdsHTML = holdsHTML(start, element.math);
    return push(element);
}

// LI, and DD with DT, end the one before, past all but blocks that are no mere wrapping.
void HTMLOpenElements::closeItem(GumboTag tag, GumboTag other) {
    if (count_[tag] == 0 && count_[other] == 0) return;
    for (size_t i = open_.size(); i-- > 0;) {
        const Element& element = open_[i];
        if (element.foreign) return;
        if (element.tag == tag || element.tag == other) {
            popTo(i);
            return;
        }
        const bool wrapping =
            element.tag == GUMBO_TAG_ADDRESS || element.tag == GUMBO_TAG_DIV || element.tag == GUMBO_TAG_P;
        if (hasTrait(element.tag, kTagIsSpecial) && !wrapping) return;
    }
}

// What a start tag closes besides an open P.
void HTMLOpenElements::closeImplied(GumboTag tag) {
    switch (tag) {
    case GUMBO_TAG_LI: closeItem(tag, tag); break;
    case GUMBO_TAG_DD:
    case GUMBO_TAG_DT: closeItem(GUMBO_TAG_DD, GUMBO_TAG_DT); break;
    case GUMBO_TAG_BUTTON: popThrough(tag); break;
    case GUMBO_TAG_OPTION:
    case GUMBO_TAG_OPTGROUP:
        if (isTop({GUMBO_TAG_OPTION})) pop();
        if (inSelect() && tag == GUMBO_TAG_OPTGROUP && isTop({GUMBO_TAG_OPTGROUP})) pop();
        break;
    case GUMBO_TAG_RB:
    case GUMBO_TAG_RT:
    case GUMBO_TAG_RP:
    case GUMBO_TAG_RTC:
        while (isTop({GUMBO_TAG_RB, GUMBO_TAG_RT, GUMBO_TAG_RP}) && isInScope(GUMBO_TAG_RUBY)) pop();
        break;
    default:
        if (hasTrait(tag, kTagIsHeading) && !open_.empty() && hasTrait(open_.back().tag, kTagIsHeading))
            pop();
    }
}

// The place behind the innermost TABLE or TEMPLATE, or 0.
size_t HTMLOpenElements::afterTableHolder() const {
    if (count_[GUMBO_TAG_TABLE] == 0 && count_[GUMBO_TAG_TEMPLATE] == 0) return 0;
    size_t size = open_.size();
    while (size > 0 && !holdsTableParts(open_[size - 1])) --size;
    return size;
}

// Whether a table is open, and none of its cells nor its caption.
bool HTMLOpenElements::inTableRows() const {
    if (count_[GUMBO_TAG_TABLE] == 0) return false;
    for (size_t i = open_.size(); i-- > 0;) {
        switch (open_[i].tag) {
        case GUMBO_TAG_TABLE:
        case GUMBO_TAG_TBODY:
        case GUMBO_TAG_THEAD:
        case GUMBO_TAG_TFOOT:
        case GUMBO_TAG_TR: return !open_[i].foreign;
        case GUMBO_TAG_TD:
        case GUMBO_TAG_TH:
        case GUMBO_TAG_CAPTION:
        case GUMBO_TAG_TEMPLATE: return false;
        default: break;
        }
    }
    return false;
}

void HTMLOpenElements::fillTemplate(GumboTag tag) {
    if (count_[GUMBO_TAG_TEMPLATE] == 0 || suitsAnyTemplate(tag)) return;
    const size_t inside = afterTableHolder();
    if (inside == 0) return;
    TemplateContent& content = open_[inside - 1].content;
    if (content != TemplateContent::unknown) return;
    content = hasTrait(tag, kTagIsTablePart) ? TemplateContent::table : TemplateContent::other;
}

bool HTMLOpenElements::startTablePart(GumboTag tag) {
    const size_t inside = afterTableHolder();
    // The parser ignores it outside of tables.
    if (inside == 0 || open_[inside - 1].content == TemplateContent::other) return true;

    auto isOpenAt = [&](size_t index, std::initializer_list<GumboTag> tags) {
        return index < open_.size() && std::find(tags.begin(), tags.end(), open_[index].tag) != tags.end();
    };
    const bool isCell = tag == GUMBO_TAG_TD || tag == GUMBO_TAG_TH;
    size_t kept = inside;
    if (isCell || tag == GUMBO_TAG_TR) {
        if (isOpenAt(kept, {GUMBO_TAG_TBODY, GUMBO_TAG_THEAD, GUMBO_TAG_TFOOT})) ++kept;
        if (isCell && kept > inside && isOpenAt(kept, {GUMBO_TAG_TR})) ++kept;
    }
    popTo(kept);
    if (tag == GUMBO_TAG_COL) return true;
    const bool needsBody = kept == inside && (isCell || tag == GUMBO_TAG_TR);
    const bool needsRow = kept < inside + 2 && isCell;
    if (needsBody && hasRoom()) push(Element(GUMBO_TAG_TBODY));
    if (needsRow && hasRoom()) push(Element(GUMBO_TAG_TR));
    return push(Element(tag));
}

// Inside SELECT most tags mean nothing, and some end it. Returns whether the tag has a meaning.
bool HTMLOpenElements::startInSelect(GumboTag tag) {
    const bool isTablePart = tag == GUMBO_TAG_TABLE || hasTrait(tag, kTagIsTablePart);
    const bool endsIt = tag == GUMBO_TAG_INPUT || tag == GUMBO_TAG_KEYGEN || tag == GUMBO_TAG_TEXTAREA ||
                        (isTablePart && count_[GUMBO_TAG_TABLE] > 0);
    if (endsIt || tag == GUMBO_TAG_SELECT) popThrough(GUMBO_TAG_SELECT);
    return endsIt || tag == GUMBO_TAG_OPTION || tag == GUMBO_TAG_OPTGROUP || tag == GUMBO_TAG_TEMPLATE;
}

bool HTMLOpenElements::start(const HTMLStartTag& start) {
    const GumboTag tag = start.tag;
    const bool isGlyph = tag == GUMBO_TAG_MGLYPH || tag == GUMBO_TAG_MALIGNMARK;
    if (inForeignContent() || (inForeign() && open_.back().math && isGlyph)) {
        if (!breaksOut(start)) return startForeign(start);
        while (inForeignContent()) pop();
    }
    if (inSelect() && !startInSelect(tag)) return true;
    fillTemplate(tag);
    if (hasTrait(tag, kTagIsTablePart)) return startTablePart(tag);
    if (hasTrait(tag, kTagIsRoot)) return true;
    // Outside of templates forms do not lie in forms.
    const bool inTemplate = count_[GUMBO_TAG_TEMPLATE] > 0;
    if (formOpen_ && !inTemplate && (tag == GUMBO_TAG_FORM || tag == GUMBO_TAG_ISINDEX)) return true;
    if (tag == GUMBO_TAG_TABLE && inTableRows() && !popThroughInTable(tag)) return true;

    if (hasTrait(tag, kTagClosesParagraph)) popThrough(GUMBO_TAG_P, GUMBO_TAG_BUTTON);
    closeImplied(tag);
    if (hasTrait(tag, kTagIsFormatting)) return startFormatting(tag, start.source);
    if (!hasTrait(tag, kTagClosesParagraph)) text();
    if (hasTrait(tag, kTagIsVoid | kTagHasRawText)) return true;
    if (tag == GUMBO_TAG_SVG || tag == GUMBO_TAG_MATH) return startForeign(start);

    if (tag == GUMBO_TAG_FORM && !inTemplate) formOpen_ = true;
    Element element(tag);
    if (tag == GUMBO_TAG_UNKNOWN) element.identity = identityOf(start.name);
    return push(element);
}

bool HTMLOpenElements::endForeign(std::string_view name) {
    const uint32_t identity = identityOf(name);
    for (size_t i = open_.size(); i-- > 0 && open_[i].foreign;) {
        if (open_[i].identity != identity) continue;
        popTo(i);
        return true;
    }
    return false;
}

// Headings end one another.
void HTMLOpenElements::endHeading() {
    for (size_t i = open_.size(); i-- > 0;) {
        if (open_[i].foreign || hasTrait(open_[i].tag, kTagIsScopeBorder)) return;
        if (!hasTrait(open_[i].tag, kTagIsHeading)) continue;
        popTo(i);
        return;
    }
}

void HTMLOpenElements::endForm() {
    if (count_[GUMBO_TAG_TEMPLATE] > 0) {
        popThrough(GUMBO_TAG_FORM);
        return;
    }
    formOpen_ = false;
    if (count_[GUMBO_TAG_FORM] == 0) return;
    for (size_t i = open_.size(); i-- > 0;) {
        if (open_[i].foreign || open_[i].tag != GUMBO_TAG_FORM) continue;
        remove(i);
        return;
    }
}

void HTMLOpenElements::endOther(GumboTag tag, std::string_view name) {
    for (size_t i = open_.size(); i-- > 0;) {
        if (open_[i].foreign) return;
        const bool same = open_[i].tag == tag;
        if (same && (tag != GUMBO_TAG_UNKNOWN || open_[i].identity == identityOf(name))) {
            popTo(i);
            return;
        }
        if (hasTrait(open_[i].tag, kTagIsSpecial)) return;
    }
}

bool HTMLOpenElements::end(GumboTag tag, std::string_view name) {
    if (refused_[tag] > 0) {
        --refused_[tag];
        return false;
    }
    if (inForeign() && endForeign(name)) return true;

    const bool tablePart = hasTrait(tag, kTagIsTablePart) || tag == GUMBO_TAG_TABLE;
    const bool selectPart = tag == GUMBO_TAG_SELECT || tag == GUMBO_TAG_OPTION || tag == GUMBO_TAG_OPTGROUP;
    if (inSelect() && !selectPart && tag != GUMBO_TAG_TEMPLATE && !tablePart) return true;

    if (tablePart || tag == GUMBO_TAG_TEMPLATE)
        popThroughInTable(tag);
    else if (hasTrait(tag, kTagIsFormatting))
        endFormatting(tag);
    else if (hasTrait(tag, kTagIsHeading))
        endHeading();
    else if (tag == GUMBO_TAG_FORM)
        endForm();
    else if (tag == GUMBO_TAG_P)
        popThrough(tag, GUMBO_TAG_BUTTON);
    else if (tag == GUMBO_TAG_LI)
        popThrough(tag, GUMBO_TAG_OL, GUMBO_TAG_UL);
    else if (hasTrait(tag, kTagEndsInScope))
        popThrough(tag);
    else if (count_[tag] > 0)
        endOther(tag, name);
    // The parser asks every open element before it ignores the end tag of one that is not open.
    else
        return open_.size() <= kUsualDepth || hasTrait(tag, kTagIsSpecial | kTagIsVoid | kTagIsRoot);
    return true;
}
