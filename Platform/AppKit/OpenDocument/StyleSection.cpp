// SPDX-License-Identifier: Apache-2.0
#include "Platform/AppKit/OpenDocument/StyleSection.h"

#include "Platform/AppKit/Package/XMLValues.h"
#include "Platform/Foundation/ASCII.h"
#include "Platform/Foundation/UnicodeText.h"

namespace OpenDocument {

namespace {

// All numerals that are not Latin letters are shown as digits; no format shows no number.
NumberFormat numberFormatValue(std::string_view format, bool lettersRepeat) {
    using Kind = NumberFormat::Kind;
    if (format.empty()) return {Kind::none};
    switch (format.front()) {
    case 'a':
        return lettersRepeat ? NumberFormat{Kind::series, kLowerLatin} : NumberFormat{Kind::lowerLetters};
    case 'A':
        return lettersRepeat ? NumberFormat{Kind::series, kUpperLatin} : NumberFormat{Kind::upperLetters};
    case 'i': return {Kind::lowerRoman};
    case 'I': return {Kind::upperRoman};
    default: return {};
    }
}

void readListLevel(Element element, const XMLAttributes& attributes, ListLevel& level) {
    level.prefix = fromUTF8(attributes.value(kStyle, "num-prefix"));
    level.suffix = fromUTF8(attributes.value(kStyle, "num-suffix"));
    level.bullet.clear();
    if (element == Element::bulletLevel) {
        level.kind = ListLevel::Kind::bullet;
        level.textStyle = attributes.value(kText, "style-name");
        level.bullet = fromUTF8(attributes.value(kText, "bullet-char"));
    } else {
        level.kind = ListLevel::Kind::number;
        const bool lettersRepeat = attributes.value(kStyle, "num-letter-sync") == "true";
        level.format = numberFormatValue(attributes.value(kStyle, "num-format"), lettersRepeat);
        level.displayLevels = integerValue(attributes.value(kText, "display-levels")).value_or(1);
        level.start = integerValue(attributes.value(kText, "start-value")).value_or(1);
    }
}

// The first of a list of families, which may stand in quotes.
std::u16string firstFamily(std::string_view families) {
    auto isAround = [](char32_t c) { return isXMLSpace(c) || c == U'\'' || c == U'"'; };
    return fromUTF8(trimmed(families.substr(0, families.find(',')), isAround));
}

std::optional<bool> breaksPage(std::string_view value) {
    if (value.data() == nullptr) return std::nullopt;
    return value == "page" || value == "even-page" || value == "odd-page";
}

void readTextProperties(const XMLAttributes& attributes, Style& style) {
    std::string_view display = attributes.value(kText, "display");
    if (display == "none" || (display == "condition" && attributes.value(kText, "condition") == "none")) {
        style.hidden = true;
    } else if (display == "true") {
        style.hidden = false;
    }
    if (auto breaks = breaksPage(attributes.value(kFormat, "break-before"))) style.breaksBefore = breaks;
    if (auto breaks = breaksPage(attributes.value(kFormat, "break-after"))) style.breaksAfter = breaks;
}

void readPageProperties(const XMLAttributes& attributes, PageLayout& page) {
    auto length = [&](std::string_view name) { return lengthValue(attributes.value(kFormat, name)); };
    page.width = length("page-width");
    page.height = length("page-height");
    page.left = page.right = page.top = page.bottom = length("margin");
    if (auto margin = length("margin-left")) page.left = margin;
    if (auto margin = length("margin-right")) page.right = margin;
    if (auto margin = length("margin-top")) page.top = margin;
    if (auto margin = length("margin-bottom")) page.bottom = margin;
}

} // namespace

bool StyleSection::start(Element element, const XMLAttributes& attributes) {
    switch (element) {
    case Element::style: return startStyle(attributes);
    case Element::properties: readProperties(attributes); return false;
    case Element::listStyle: listStyle_ = book_.addListStyle(attributes.value(kStyle, "name")); return true;
    case Element::outlineStyle: listStyle_ = &book_.outlineStyle(); return true;
    case Element::numberLevel:
    case Element::bulletLevel:
    case Element::imageLevel:
    case Element::outlineLevel: return startListLevel(element, attributes);
    case Element::pageLayout:
        pageLayout_ = book_.addPageLayout(attributes.value(kStyle, "name"));
        return true;
    case Element::masterPage: {
        std::string_view layout = attributes.value(kStyle, "page-layout-name");
        if (layout.empty()) layout = attributes.value(kStyle, "page-master-name");
        book_.addMasterPage(attributes.value(kStyle, "name"), layout);
        return false;
    }
    case Element::fontFace: readFont(attributes); return false;
    default: return false;
    }
}

bool StyleSection::startListLevel(Element element, const XMLAttributes& attributes) {
    int number = integerValue(attributes.value(kText, "level")).value_or(0);
    if (listStyle_ == nullptr || number < 1 || number > ListStyle::kLevels) return false;
    listLevel_ = &listStyle_->levels[size_t(number) - 1];
    readListLevel(element, attributes, *listLevel_);
    return true;
}

void StyleSection::readFont(const XMLAttributes& attributes) {
    std::string_view family = attributes.value(kVector, "font-family");
    if (family.empty()) family = attributes.value(kFormat, "font-family");
    book_.addFont(attributes.value(kStyle, "name"), symbolFontNamed(firstFamily(family)));
}

bool StyleSection::startStyle(const XMLAttributes& attributes) {
    std::string_view family = attributes.value(kStyle, "family");
    bool isParagraph = family == "paragraph";
    if (!isParagraph && family != "text") return false;
    style_ = book_.add(isParagraph ? StyleBook::Family::paragraph : StyleBook::Family::text,
                       attributes.value(kStyle, "name"));
    if (style_ == nullptr) return false;
    style_->parent = attributes.value(kStyle, "parent-style-name");
    if (!isParagraph) return true;
    style_->masterPage = attributes.value(kStyle, "master-page-name");
    std::string_view listStyle = attributes.value(kStyle, "list-style-name");
    if (listStyle.data() != nullptr) style_->listStyle = listStyle;
    return true;
}

void StyleSection::readProperties(const XMLAttributes& attributes) {
    const std::string_view family = attributes.value(kFormat, "font-family"),
                           fontName = attributes.value(kStyle, "font-name");
    const SymbolFont symbols =
        family.empty() ? book_.symbolFont(fontName) : symbolFontNamed(firstFamily(family));
    const bool namesFont = !family.empty() || !fontName.empty();
    if (listLevel_ != nullptr) {
        if (namesFont) listLevel_->textStyle.clear();
        for (char16_t& unit : listLevel_->bullet) unit = signOf(symbols, unit);
    } else if (pageLayout_ != nullptr) {
        readPageProperties(attributes, *pageLayout_);
    } else if (style_ != nullptr) {
        readTextProperties(attributes, *style_);
        if (namesFont) style_->symbols = symbols;
    }
}

void StyleSection::end(Element element) {
    switch (element) {
    case Element::style: style_ = nullptr; break;
    case Element::listStyle:
    case Element::outlineStyle: listStyle_ = nullptr; break;
    case Element::numberLevel:
    case Element::bulletLevel:
    case Element::imageLevel:
    case Element::outlineLevel: listLevel_ = nullptr; break;
    case Element::pageLayout: pageLayout_ = nullptr; break;
    default: break;
    }
}

} // namespace OpenDocument
