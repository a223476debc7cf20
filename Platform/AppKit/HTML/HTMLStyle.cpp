// SPDX-License-Identifier: Apache-2.0
#include "Platform/AppKit/HTML/HTMLStyle.h"

#include "Platform/AppKit/HTML/HTMLCharacters.h"
#include "Platform/AppKit/HTML/HTMLListMarker.h"
#include "Platform/AppKit/HTML/HTMLTextTransform.h"

#include <optional>

namespace {

struct Keyword {
    std::string_view name;
    uint8_t value;
};

template <typename Value>
constexpr Keyword word(std::string_view name, Value value) {
    return {name, uint8_t(value)};
}

using D = HTMLDisplay;
constexpr Keyword kDisplays[] = {
    word("none", D::none),
    word("block", D::block),
    word("inline", D::inlined),
    word("inline-block", D::inlined),
    word("flex", D::flex),
    word("grid", D::flex),
    word("list-item", D::listItem),
    word("table", D::table),
    word("table-cell", D::cell),
    word("table-row", D::row),
    word("table-row-group", D::rowGroup),
    word("table-header-group", D::headerGroup),
    word("table-footer-group", D::footerGroup),
    word("table-caption", D::caption),
    word("table-column", D::column),
    word("table-column-group", D::column),
    word("inline-table", D::inlined),
    word("inline-flex", D::inlineFlex),
    word("inline-grid", D::inlineFlex),
    word("flow-root", D::block),
    word("contents", D::contents),
    word("initial", D::inlined),
    word("unset", D::inlined),
    word("-webkit-box", D::flex),
    word("-webkit-flex", D::flex),
    word("-webkit-inline-box", D::inlineFlex),
    word("-webkit-inline-flex", D::inlineFlex),
};

constexpr Keyword kTransforms[] = {
    word("none", HTMLTextTransform::none),
    word("uppercase", HTMLTextTransform::uppercase),
    word("lowercase", HTMLTextTransform::lowercase),
    word("capitalize", HTMLTextTransform::capitalize),
};

constexpr Keyword kWhiteSpaces[] = {
    word("normal", 0), word("nowrap", 0),   word("pre-line", 0),
    word("pre", 1),    word("pre-wrap", 1), word("break-spaces", 1),
};

constexpr Keyword kListStyles[] = {
    word("none", HTMLListStyle::none),
    word("disc", HTMLListStyle::disc),
    word("circle", HTMLListStyle::circle),
    word("square", HTMLListStyle::square),
    word("decimal", HTMLListStyle::decimal),
    word("lower-alpha", HTMLListStyle::lowerAlpha),
    word("lower-latin", HTMLListStyle::lowerAlpha),
    word("upper-alpha", HTMLListStyle::upperAlpha),
    word("upper-latin", HTMLListStyle::upperAlpha),
    word("lower-roman", HTMLListStyle::lowerRoman),
    word("upper-roman", HTMLListStyle::upperRoman),
};

constexpr Keyword kFloats[] = {word("none", 0), word("left", 1), word("right", 1)};

constexpr Keyword kPositions[] = {
    word("static", 0), word("relative", 0), word("sticky", 0), word("absolute", 1), word("fixed", 1),
};

template <size_t count>
std::optional<uint8_t> lookUp(const Keyword (&keywords)[count], std::string_view name) {
    for (const Keyword& keyword : keywords) {
        if (equalIgnoringCase(keyword.name, name)) return keyword.value;
    }
    return std::nullopt;
}

// Of the shorthand's parts the type of marker; "none" may be meant for the picture beside a type.
std::optional<uint8_t> listStyleOfShorthand(std::string_view value) {
    std::optional<uint8_t> style;
    for (std::string_view part = takeWord(value); !part.empty(); part = takeWord(value)) {
        const auto found = lookUp(kListStyles, part);
        if (found && (!style || *found != uint8_t(HTMLListStyle::none))) style = found;
    }
    return style;
}

std::optional<HTMLStyleProperty> propertyOf(std::string_view name) {
    using P = HTMLStyleProperty;
    if (equalIgnoringCase(name, "display")) return P::display;
    if (equalIgnoringCase(name, "float")) return P::floating;
    if (equalIgnoringCase(name, "position")) return P::positioned;
    if (equalIgnoringCase(name, "white-space")) return P::whiteSpace;
    if (equalIgnoringCase(name, "text-transform")) return P::textTransform;
    if (equalIgnoringCase(name, "list-style") || equalIgnoringCase(name, "list-style-type"))
        return P::listStyle;
    return std::nullopt;
}

std::optional<uint8_t> valueOf(HTMLStyleProperty property, std::string_view value) {
    switch (property) {
    case HTMLStyleProperty::display: return lookUp(kDisplays, value);
    case HTMLStyleProperty::textTransform: return lookUp(kTransforms, value);
    case HTMLStyleProperty::whiteSpace: return lookUp(kWhiteSpaces, value);
    case HTMLStyleProperty::listStyle: return listStyleOfShorthand(value);
    case HTMLStyleProperty::floating: return lookUp(kFloats, value);
    case HTMLStyleProperty::positioned: return lookUp(kPositions, value);
    }
    return std::nullopt;
}

// Takes "!important" off the end of a value.
bool takeImportance(std::string_view& value) {
    const size_t mark = value.rfind('!');
    if (mark == std::string_view::npos) return false;
    if (!equalIgnoringCase(trimmed(value.substr(mark + 1)), "important")) return false;
    value = trimmed(value.substr(0, mark));
    return true;
}

} // namespace

HTMLDeclarations parseDeclarations(std::string_view text) {
    HTMLDeclarations declarations;
    HTMLStyleScanner scanner(text);
    while (scanner.skipSpace()) {
        const std::string_view name = trimmed(scanner.readTo(":;{"));
        if (scanner.stop() == '{') scanner.readBlock();
        if (scanner.stop() != ':') continue;
        // Rules nested in the block have colons too, in their selectors.
        std::string_view value = trimmed(scanner.readTo(";{"));
        if (scanner.stop() == '{') {
            scanner.readBlock();
            continue;
        }
        const auto property = propertyOf(name);
        if (!property) continue;
        const bool important = takeImportance(value);
        const auto parsed = valueOf(*property, value);
        const auto bit = uint8_t(1u << size_t(*property));
        if (!parsed || (!important && (declarations.important & bit))) continue;
        declarations.values[size_t(*property)] = *parsed;
        declarations.set |= bit;
        if (important) declarations.important |= bit;
    }
    return declarations;
}

void HTMLStyleScanner::skipComment() {
    const size_t end = text_.find("*/", position_ + 2);
    position_ = end == std::string_view::npos ? text_.size() : end + 2;
}

// A string ends at its quote, or unfinished at the end of its line.
void HTMLStyleScanner::skipString() {
    const char quote = current();
    for (++position_; position_ < text_.size(); ++position_) {
        if (current() == '\\') {
            ++position_;
        } else if (current() == quote) {
            ++position_;
            return;
        } else if (current() == '\n') {
            return;
        }
    }
    position_ = text_.size();
}

bool HTMLStyleScanner::skipSpace() {
    while (position_ < text_.size()) {
        if (isHTMLSpace(current()))
            ++position_;
        else if (at("/*"))
            skipComment();
        else if (at("<!--"))
            position_ += 4;
        else if (at("-->"))
            position_ += 3;
        else
            return true;
    }
    return false;
}

std::string_view HTMLStyleScanner::readTo(std::string_view stops) {
    const size_t begin = position_;
    size_t depth = 0;
    while (position_ < text_.size()) {
        const char c = current();
        if (depth == 0 && stops.find(c) != std::string_view::npos) {
            stop_ = c;
            return text_.substr(begin, position_++ - begin);
        }
        if (c == '"' || c == '\'') {
            skipString();
            continue;
        }
        if (at("/*")) {
            skipComment();
            continue;
        }
        if (c == '\\')
            ++position_;
        else if (c == '(' || c == '[')
            ++depth;
        else if ((c == ')' || c == ']') && depth > 0)
            --depth;
        ++position_;
    }
    position_ = text_.size();
    stop_ = 0;
    return text_.substr(begin);
}

std::string_view HTMLStyleScanner::readBlock() {
    const size_t begin = position_;
    for (size_t depth = 1; depth > 0;) {
        readTo("{}");
        if (stop_ == 0) return text_.substr(begin);
        if (stop_ == '{')
            ++depth;
        else
            --depth;
    }
    stop_ = '}';
    return text_.substr(begin, position_ - 1 - begin);
}
