// SPDX-License-Identifier: Apache-2.0
//
// The styles of a document, as far as they matter to its text: whether they hide it, which list they put a
// paragraph in, and whether they put it on a new page.
#pragma once

#include "Platform/AppKit/OfficeOpenXML/Part.h"

#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>

namespace OfficeOpenXML {

struct Style {
    std::string basedOn;
    std::optional<bool> vanish, breaksPage;
    std::optional<int> numberingID, level;
    std::string numberingStyle; // the identifier of the style that names the list, this one or one below it
};

class StylesPart {
public:
    StylesPart(const ZipPackage& package, std::string_view name, Deadline& deadline);

    // With what it takes from the styles that it is based on. Null when there is none.
    const Style* find(std::string_view id) const;

    // The style of paragraphs that name none, or null.
    const Style* defaultParagraphStyle() const { return find(defaultParagraphStyle_); }

    // Hidden text is a toggle: a paragraph's style and a run's cancel each other out. Null stands for no
    // style.
    bool isHidden(const Style* table, const Style* paragraph, const Style* run) const;

private:
    class Handler;
    struct Hash : std::hash<std::string_view> {
        using is_transparent = void;
    };

    void inherit();

    std::unordered_map<std::string, Style, Hash, std::equal_to<>> styles_; // by identifier
    std::string defaultParagraphStyle_;
    bool isHiddenByDefault_ = false;
};

} // namespace OfficeOpenXML
