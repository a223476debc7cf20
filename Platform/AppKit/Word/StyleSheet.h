// SPDX-License-Identifier: Apache-2.0
//
// The styles of a document, of which only what matters for the text is kept. A style builds on another one;
// what it does not say itself, that one says. The table must outlive the style sheet.
#pragma once

#include "Platform/AppKit/Word/Modifiers.h"

#include <cstdint>
#include <optional>
#include <string_view>
#include <vector>

namespace Word {

class StyleSheet {
public:
    // What a style and those under it say together.
    struct Properties {
        bool hidden = false;
        bool beginsPage = false;
        std::optional<uint16_t> font;
        ListMembership list;
    };

    StyleSheet(std::string_view table, bool isOld);

    // Those of a style that does not exist are the defaults.
    Properties properties(uint16_t style) const;

    // False when no style hides text, so that nobody needs to ask.
    bool canHide() const { return canHide_; }

private:
    struct Style {
        uint16_t base = 0;
        Toggle hidden = Toggle::asStyle;
        std::optional<bool> beginsPage;
        std::optional<uint16_t> font;
        ListMembership list;
    };

    static Style readStyle(std::string_view description, size_t baseSize, bool isOld);

    std::vector<Style> styles_;
    bool canHide_ = false;
};

} // namespace Word
