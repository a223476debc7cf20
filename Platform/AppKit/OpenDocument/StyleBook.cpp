// SPDX-License-Identifier: Apache-2.0
#include "Platform/AppKit/OpenDocument/StyleBook.h"

#include "Platform/Foundation/UnicodeText.h"

namespace OpenDocument {

namespace {

// Chains of parents are a few styles long; a hostile one may be a ring.
constexpr int kParentLimit = 32;

// A new value under the name, in the place of an older one; null when the table is full.
template <typename Table>
auto replaced(Table& table, std::string_view name) -> decltype(&table.begin()->second) {
    auto at = table.find(name);
    if (at == table.end()) {
        if (table.size() >= StyleBook::kStyleLimit) return nullptr;
        at = table.emplace(std::string(name), typename Table::mapped_type()).first;
    } else {
        at->second = {};
    }
    return &at->second;
}

template <typename Table>
auto found(const Table& table, std::string_view name) -> decltype(&table.begin()->second) {
    auto at = table.find(name);
    return at == table.end() ? nullptr : &at->second;
}

} // namespace

Style* StyleBook::add(Family family, std::string_view name) {
    return replaced(family == Family::paragraph ? paragraphStyles_ : textStyles_, name);
}

ListStyle* StyleBook::addListStyle(std::string_view name) { return replaced(listStyles_, name); }

PageLayout* StyleBook::addPageLayout(std::string_view name) { return replaced(pageLayouts_, name); }

void StyleBook::addMasterPage(std::string_view name, std::string_view layout) {
    if (masterPages_.empty()) firstMasterPage_ = name;
    if (std::string* page = replaced(masterPages_, name)) *page = layout;
}

void StyleBook::addFont(std::string_view name, SymbolFont font) {
    if (SymbolFont* known = replaced(fonts_, name)) *known = font;
}

template <typename Look>
void StyleBook::inherit(const Table<Style>& styles, std::string_view name, Look&& look) const {
    for (int i = 0; i < kParentLimit && !name.empty(); ++i) {
        const Style* style = found(styles, name);
        if (style == nullptr || !look(*style)) return;
        name = style->parent;
    }
}

ParagraphLook StyleBook::paragraph(std::string_view name) const {
    ParagraphLook result;
    std::optional<bool> hidden, breaksBefore, breaksAfter;
    inherit(paragraphStyles_, name, [&](const Style& style) {
        if (!hidden) hidden = style.hidden;
        if (!breaksBefore) breaksBefore = style.breaksBefore;
        if (!breaksAfter) breaksAfter = style.breaksAfter;
        if (!result.listStyle && style.listStyle) result.listStyle = *style.listStyle;
        if (result.masterPage.empty()) result.masterPage = style.masterPage;
        return true;
    });
    result.hidden = hidden.value_or(false);
    result.breaksBefore = breaksBefore.value_or(false);
    result.breaksAfter = breaksAfter.value_or(false);
    return result;
}

std::optional<bool> StyleBook::textIsHidden(std::string_view name) const {
    std::optional<bool> hidden;
    inherit(textStyles_, name, [&](const Style& style) {
        hidden = style.hidden;
        return !hidden;
    });
    return hidden;
}

SymbolFont StyleBook::symbolFontOfText(std::string_view name) const {
    std::optional<SymbolFont> symbols;
    inherit(textStyles_, name, [&](const Style& style) {
        symbols = style.symbols;
        return !symbols;
    });
    return symbols.value_or(SymbolFont::none);
}

const ListStyle* StyleBook::listStyle(std::string_view name) const { return found(listStyles_, name); }

SymbolFont StyleBook::symbolFont(std::string_view name) const {
    const SymbolFont* font = found(fonts_, name);
    return font != nullptr ? *font : symbolFontNamed(fromUTF8(name));
}

const PageLayout* StyleBook::pageLayout(std::string_view masterPage) const {
    const std::string* layout = found(masterPages_, masterPage);
    if (layout == nullptr) layout = found(masterPages_, "Standard");
    if (layout == nullptr) layout = found(masterPages_, firstMasterPage_);
    return layout == nullptr ? nullptr : found(pageLayouts_, *layout);
}

} // namespace OpenDocument
