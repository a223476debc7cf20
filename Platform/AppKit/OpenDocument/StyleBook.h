// SPDX-License-Identifier: Apache-2.0
//
// The styles of a document, as far as they bear on its text and its pages. Styles are asked for after all of
// them have been read; those of a later part (automatic styles) replace earlier ones of the same name.
#pragma once

#include "Platform/AppKit/NumberFormat.h"
#include "Platform/AppKit/SymbolFont.h"

#include <array>
#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>

namespace OpenDocument {

struct Style {
    std::string parent;
    std::optional<std::string> listStyle; // empty: explicitly none
    std::string masterPage;               // starts a new page
    std::optional<bool> hidden, breaksBefore, breaksAfter;
    std::optional<SymbolFont> symbols;
};

// What a paragraph style and its parents say together.
struct ParagraphLook {
    bool hidden = false, breaksBefore = false, breaksAfter = false;
    std::optional<std::string_view> listStyle;
    std::string_view masterPage;
};

struct ListLevel {
    enum class Kind : uint8_t { undefined, bullet, number };
    Kind kind = Kind::undefined;
    NumberFormat format = {NumberFormat::Kind::none};
    int displayLevels = 1, start = 1;
    std::u16string prefix, bullet, suffix;
    std::string textStyle; // of the marker

    bool showsNumber() const { return format.kind != NumberFormat::Kind::none; }
};

struct ListStyle {
    static constexpr int kLevels = 10; // the most that writers have
    std::array<ListLevel, kLevels> levels;
};

// Points.
struct PageLayout {
    std::optional<double> width, height, left, right, top, bottom;
};

class StyleBook {
public:
    // Of each sort. Far more than writers make; further ones are left out.
    static constexpr size_t kStyleLimit = 1 << 16;

    enum class Family { paragraph, text };

    // Null past the limit.
    Style* add(Family family, std::string_view name);
    ListStyle* addListStyle(std::string_view name);
    PageLayout* addPageLayout(std::string_view name);
    ListStyle& outlineStyle() { return outlineStyle_; }
    void addMasterPage(std::string_view name, std::string_view layout);
    // A name of the document's own for a font.
    void addFont(std::string_view name, SymbolFont font);

    ParagraphLook paragraph(std::string_view name) const;
    // Nothing when neither the style nor a parent says.
    std::optional<bool> textIsHidden(std::string_view name) const;
    SymbolFont symbolFontOfText(std::string_view style) const;
    // Null when there is no such style.
    const ListStyle* listStyle(std::string_view name) const;
    const ListStyle& outlineStyle() const { return outlineStyle_; }
    // A font that the document has no name of its own for goes by its real one.
    SymbolFont symbolFont(std::string_view name) const;
    // The layout of a master page; without a name, of the one that documents begin with. Null when there is
    // none.
    const PageLayout* pageLayout(std::string_view masterPage) const;

private:
    struct Hash : std::hash<std::string_view> {
        using is_transparent = void;
    };
    template <typename Value>
    using Table = std::unordered_map<std::string, Value, Hash, std::equal_to<>>;

    // Calls `look` with the style and then its parents, as long as it answers true.
    template <typename Look>
    void inherit(const Table<Style>& styles, std::string_view name, Look&& look) const;

    Table<Style> paragraphStyles_, textStyles_;
    Table<ListStyle> listStyles_;
    ListStyle outlineStyle_;
    Table<PageLayout> pageLayouts_;
    Table<SymbolFont> fonts_;
    Table<std::string> masterPages_; // their layouts
    std::string firstMasterPage_;
};

} // namespace OpenDocument
