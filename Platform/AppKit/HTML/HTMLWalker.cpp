// SPDX-License-Identifier: Apache-2.0
#include "Platform/AppKit/HTML/HTMLWalker.h"

#include "Platform/AppKit/HTML/HTMLCharacters.h"
#include "Platform/AppKit/HTML/HTMLPage.h"
#include "Platform/AppKit/HTML/HTMLTree.h"
#include "Platform/AppKit/TextCharacters.h"

#include <algorithm>
#include <charconv>
#include <cstdint>
#include <string>

namespace {

// How many pages may lie in one another.
constexpr size_t kFrameDepthLimit = 4;

// Classes that the platform's own HTML writer uses.
constexpr std::string_view kConvertedSpace = "Apple-converted-space";
constexpr std::string_view kConvertedTab = "Apple-converted-tab";
constexpr std::string_view kInterchangeNewline = "Apple-interchange-newline";

bool hasClass(const HTMLElement& element, std::string_view name) {
    return hasWord(element.name.classes, name);
}

bool isRoot(GumboTag tag) { return tag == GUMBO_TAG_HTML || tag == GUMBO_TAG_BODY; }

bool keepsSpace(const HTMLElement& element) {
    return element.is(GUMBO_TAG_PRE) || element.is(GUMBO_TAG_LISTING) || element.is(GUMBO_TAG_XMP) ||
           element.is(GUMBO_TAG_PLAINTEXT) || element.is(GUMBO_TAG_TEXTAREA);
}

bool isFormControl(const HTMLElement& element) {
    return element.is(GUMBO_TAG_TEXTAREA) || element.is(GUMBO_TAG_SELECT) || element.is(GUMBO_TAG_BUTTON) ||
           element.is(GUMBO_TAG_INPUT);
}

// INPUT without a type, or with one that nobody knows, is a text field.
bool isTextField(const HTMLElement& element) {
    constexpr std::string_view kOtherTypes[] = {
        "button", "checkbox", "color",  "date",   "datetime-local", "email", "file",
        "hidden", "image",    "month",  "number", "password",       "radio", "range",
        "reset",  "search",   "submit", "tel",    "time",           "url",   "week"};
    if (!element.type) return true;
    return std::none_of(std::begin(kOtherTypes), std::end(kOtherTypes),
                        [&](std::string_view other) { return equalIgnoringCase(element.type, other); });
}

bool isDataURL(const char* url) { return url && startsWithIgnoringCase(trimmed(url), "data:"); }

bool hasTag(const GumboNode& node, GumboTag tag) {
    return node.type == GUMBO_NODE_ELEMENT && node.v.element.tag == tag;
}

const GumboNode& childAt(const GumboVector& children, unsigned index) {
    return *static_cast<const GumboNode*>(children.data[index]);
}

// Captions stand before their table, its header before the rows, its footer behind them. Of several headers
// and footers the first has that place.
std::vector<const GumboNode*> orderedTableParts(const GumboVector& children) {
    enum Part { caption, header, body, footer, parts };
    std::vector<const GumboNode*> byPart[parts];
    for (unsigned i = 0; i < children.length; ++i) {
        const GumboNode& child = childAt(children, i);
        Part part = body;
        if (hasTag(child, GUMBO_TAG_CAPTION))
            part = caption;
        else if (hasTag(child, GUMBO_TAG_THEAD) && byPart[header].empty())
            part = header;
        else if (hasTag(child, GUMBO_TAG_TFOOT) && byPart[footer].empty())
            part = footer;
        byPart[part].push_back(&child);
    }
    std::vector<const GumboNode*> ordered;
    for (const auto& part : byPart) ordered.insert(ordered.end(), part.begin(), part.end());
    return ordered;
}

// Of closed DETAILS only the first SUMMARY shows.
std::vector<const GumboNode*> summaryOf(const GumboVector& children) {
    for (unsigned i = 0; i < children.length; ++i) {
        if (hasTag(childAt(children, i), GUMBO_TAG_SUMMARY)) return {&childAt(children, i)};
    }
    return {};
}

int64_t firstNumber(const HTMLElement& list) {
    if (list.name.tag != GUMBO_TAG_OL || !list.start) return 1;
    std::string_view text = trimmed(list.start);
    if (text.starts_with('+')) text.remove_prefix(1);
    int32_t number = 1;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    return error == std::errc() ? number : 1;
}

// The "type" attribute of a list, whose letters' case matters.
HTMLListStyle listStyleOfType(std::string_view type, HTMLListStyle otherwise) {
    if (type == "1") return HTMLListStyle::decimal;
    if (type == "a") return HTMLListStyle::lowerAlpha;
    if (type == "A") return HTMLListStyle::upperAlpha;
    if (type == "i") return HTMLListStyle::lowerRoman;
    if (type == "I") return HTMLListStyle::upperRoman;
    if (equalIgnoringCase(type, "disc")) return HTMLListStyle::disc;
    if (equalIgnoringCase(type, "circle")) return HTMLListStyle::circle;
    if (equalIgnoringCase(type, "square")) return HTMLListStyle::square;
    return equalIgnoringCase(type, "none") ? HTMLListStyle::none : otherwise;
}

} // namespace

void HTMLWalker::walk(const GumboNode& document) {
    frames_.emplace_back();
    frames_.back().children = childrenOf(&document);
    while (!frames_.empty() && !deadline_.passed()) {
        if (const GumboNode* child = nextChild(frames_.back())) {
            visit(*child);
        } else {
            leave(frames_.back());
            frames_.pop_back();
            if (!ancestors_.empty()) ancestors_.pop_back();
        }
    }
}

const GumboNode* HTMLWalker::nextChild(Frame& frame) const {
    if (frame.usesChosen) return frame.next < frame.chosen.size() ? frame.chosen[frame.next++] : nullptr;
    return frame.next < frame.children->length ? &childAt(*frame.children, frame.next++) : nullptr;
}

void HTMLWalker::visit(const GumboNode& node) {
    switch (node.type) {
    case GUMBO_NODE_ELEMENT: enter(node); break;
    case GUMBO_NODE_TEXT:
    case GUMBO_NODE_CDATA:
    case GUMBO_NODE_WHITESPACE: writer_.text(node.v.text.text, frames_.back().inherited.text); break;
    default: break;
    }
}

HTMLWalker::Style HTMLWalker::styleOf(const HTMLElement& element, const Inherited& outer) {
    HTMLCascade cascade;
    if (!sheet_.empty()) sheet_.apply(element.name, ancestors_, cascade);
    if (element.style) cascade.apply(parseDeclarations(element.style), HTMLStyleSheet::kAttributeRank);

    using P = HTMLStyleProperty;
    Style style;
    style.display = cascade.value(P::display, defaultDisplay(element));
    // Pages hide themselves until their scripts or their outer style sheets are there.
    if (style.display == HTMLDisplay::none && isRoot(element.name.tag)) style.display = HTMLDisplay::block;
    const bool isOut = cascade.value(P::floating, false) || cascade.value(P::positioned, false);
    if (isOut || outer.blockChildren) {
        if (style.display == HTMLDisplay::inlined)
            style.display = HTMLDisplay::block;
        else if (style.display == HTMLDisplay::inlineFlex)
            style.display = HTMLDisplay::flex;
    }
    style.listStyle = cascade.value(
        P::listStyle, listStyleOfType(element.type ? element.type : "", defaultListStyle(element.name.tag)));

    style.inherited = outer;
    HTMLTextRules& text = style.inherited.text;
    text.transform =
        cascade.value(P::textTransform, isFormControl(element) ? HTMLTextTransform::none : text.transform);
    text.keepsSpace = cascade.value(P::whiteSpace, text.keepsSpace || keepsSpace(element));
    if (element.is(GUMBO_TAG_SPAN) && hasClass(element, kConvertedSpace)) text.plainNoBreakSpace = true;
    style.inherited.blockChildren = style.display == HTMLDisplay::flex ||
                                    style.display == HTMLDisplay::inlineFlex ||
                                    (style.display == HTMLDisplay::contents && outer.blockChildren);
    if (isBlock(style.display)) {
        style.inherited.softLineBreaks =
            element.is(GUMBO_TAG_P) || element.is(GUMBO_TAG_LI) || element.isHeading();
    }
    return style;
}

// Bullets change with the depth of lists.
HTMLListStyle HTMLWalker::defaultListStyle(GumboTag tag) const {
    if (tag == GUMBO_TAG_OL) return HTMLListStyle::decimal;
    if (lists_ == 0) return HTMLListStyle::disc;
    return lists_ == 1 ? HTMLListStyle::circle : HTMLListStyle::square;
}

// In lists only the lists themselves and their items make paragraphs; other blocks make lines.
bool HTMLWalker::isPlainInList(GumboTag tag, HTMLDisplay display) const {
    const bool plain = display == HTMLDisplay::block || display == HTMLDisplay::flex;
    return plain && writer_.inList() && tag != GUMBO_TAG_LI && tag != GUMBO_TAG_UL && tag != GUMBO_TAG_OL;
}

bool HTMLWalker::breaksParagraph(GumboTag tag, HTMLDisplay display) const {
    const bool strayCell = display == HTMLDisplay::cell && tables_ == 0;
    return isBlock(display) && !strayCell && !isRoot(tag) && !isPlainInList(tag, display);
}

void HTMLWalker::lineBreak(const HTMLElement& element) {
    if (hasClass(element, kInterchangeNewline)) return;
    if (frames_.back().inherited.softLineBreaks)
        writer_.lineBreak();
    else
        writer_.newParagraph(true, false);
}

// Elements that are something else than their children. False for all others.
bool HTMLWalker::writeWithoutChildren(const HTMLElement& element, const Style& style) {
    if (!element.isHTML) return false;
    switch (element.name.tag) {
    case GUMBO_TAG_IMG:
        if (!element.src) return true;
        writer_.append(kAttachment);
        if (isBlock(style.display)) writer_.newParagraph(true, false);
        return true;
    case GUMBO_TAG_EMBED:
        if (isDataURL(element.src)) writer_.append(kAttachment);
        return true;
    case GUMBO_TAG_IFRAME: writeFrame(element.srcdoc); return true;
    case GUMBO_TAG_OBJECT:
        // Nothing is loaded, and then what stands inside takes the object's place.
        if (!isDataURL(element.data)) return false;
        writer_.append(kAttachment);
        return true;
    case GUMBO_TAG_INPUT:
        if (element.value && isTextField(element)) {
            std::string value = element.value;
            std::erase_if(value, [](char c) { return c == '\n' || c == '\r'; });
            writer_.text(value, {style.inherited.text.transform, true, false});
        }
        return true;
    case GUMBO_TAG_SPAN:
        if (!hasClass(element, kConvertedTab)) return false;
        writer_.append(kTab);
        return true;
    default: return false;
    }
}

// A page in a frame of this one, which is a box of its own.
void HTMLWalker::writeFrame(const char* page) {
    if (depth_ == kFrameDepthLimit) return;
    writer_.newParagraph(false, true);
    DocumentInfo framesOwn;
    writeHTMLPage(page, writer_, framesOwn, deadline_, depth_ + 1);
    writer_.newParagraph(false, true);
}

void HTMLWalker::enter(const GumboNode& node) {
    // The parser still builds the search field that ISINDEX once was.
    if (node.parse_flags & GUMBO_INSERTION_FROM_ISINDEX) return;
    const HTMLElement element(node);
    if (isNeverShown(element)) return;
    const Style style = styleOf(element, frames_.back().inherited);
    if (style.display == HTMLDisplay::none) return;
    if (element.is(GUMBO_TAG_BR)) {
        lineBreak(element);
        return;
    }

    const GumboTag tag = element.isHTML ? element.name.tag : GUMBO_TAG_UNKNOWN;
    if (breaksParagraph(tag, style.display)) writer_.newParagraph(false, true);
    if (writeWithoutChildren(element, style)) return;

    Frame frame;
    frame.children = childrenOf(&node);
    frame.tag = tag;
    frame.display = style.display;
    frame.begin = writer_.length();
    frame.inherited = style.inherited;
    if (style.display == HTMLDisplay::table) {
        ++tables_;
        frame.usesChosen = true;
        frame.chosen = orderedTableParts(*frame.children);
    } else if (tag == GUMBO_TAG_DETAILS && !element.open) {
        frame.usesChosen = true;
        frame.chosen = summaryOf(*frame.children);
    } else if (tag == GUMBO_TAG_UL || tag == GUMBO_TAG_OL) {
        ++lists_;
        frame.isList = true;
        writer_.openList(style.listStyle, firstNumber(element));
    } else if (tag == GUMBO_TAG_Q) {
        writer_.append(quotes_++ == 0 ? u'\u201C' : u'\u2018');
    }
    frames_.push_back(std::move(frame));
    ancestors_.push_back(element.name);
}

void HTMLWalker::leave(const Frame& frame) {
    if (frame.tag == GUMBO_TAG_Q) writer_.append(--quotes_ == 0 ? u'\u201D' : u'\u2019');
    if (isBlock(frame.display)) {
        const bool isPart = frame.display >= HTMLDisplay::headerGroup && frame.display != HTMLDisplay::cell;
        if (frame.display == HTMLDisplay::cell && tables_ == 0)
            writer_.tab();
        else if (isPlainInList(frame.tag, frame.display))
            writer_.lineBreak();
        else if (isRoot(frame.tag))
            writer_.endBody();
        else
            writer_.newParagraph(!isPart && writer_.length() == frame.begin, true);
    }
    if (frame.isList) {
        --lists_;
        writer_.closeList();
    }
    if (frame.display == HTMLDisplay::table) --tables_;
}
