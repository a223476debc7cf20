// SPDX-License-Identifier: Apache-2.0
//
// The rules of a page's own style sheets that bear on its text, and what they make of an element. Selectors
// may name elements by tag, id and classes, also inside of or directly under others ("p.a", "#menu li", "ul >
// .b", and lists of these). Rules with other selectors have no effect, nor have rules for other media than a
// screen. Of rules that match, importance, then specificity, then order decides.
#pragma once

#include "Platform/AppKit/HTML/HTMLStyle.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <gumbo.h>
#include <span>
#include <string_view>
#include <unordered_map>
#include <vector>

// An element as selectors see it.
struct HTMLElementName {
    GumboTag tag = GUMBO_TAG_UNKNOWN;
    std::string_view name; // of an unknown tag
    std::string_view id, classes;
};

// Gathers what declarations make of one element.
class HTMLCascade {
public:
    // A higher rank wins, and important declarations win over all others. A rank is below 2^63 and not 0.
    void apply(const HTMLDeclarations& declarations, uint64_t rank);

    // What was declared for a property, or `otherwise`.
    template <typename Value>
    Value value(HTMLStyleProperty property, Value otherwise) const {
        const auto index = size_t(property);
        return ranks_[index] != 0 ? Value(values_[index]) : otherwise;
    }

private:
    std::array<uint64_t, kHTMLStyleProperties> ranks_{};
    std::array<uint8_t, kHTMLStyleProperties> values_{};
};

class HTMLStyleSheet {
public:
    // The rank of a style attribute, above that of every selector.
    static constexpr uint64_t kAttributeRank = INT64_MAX;

    // Adds the rules of a STYLE element. `css` must outlive the sheet.
    void add(std::string_view css, std::string_view media);

    // Applies the rules that match an element. `ancestors` are those around it, the innermost last. Of a page
    // that makes matching unduly long work, the last elements get no style.
    void apply(const HTMLElementName& element, std::span<const HTMLElementName> ancestors,
               HTMLCascade& cascade);

    bool empty() const { return rules_.empty(); }

private:
    // What a selector asks of one element.
    struct Compound {
        GumboTag tag = GUMBO_TAG_LAST; // GUMBO_TAG_LAST matches any
        std::string_view name, id;
        size_t firstClass = 0, classCount = 0;
        bool directlyUnder = false; // the next compound is for the parent, not for any ancestor
    };
    struct Rule {
        size_t firstCompound = 0, compoundCount = 0; // the element's own first, then outwards
        uint64_t rank = 0; // the selector's specificity, then the order of the rules
        HTMLDeclarations declarations;
    };
    using Rules = std::vector<uint32_t>;

    void addRule(std::string_view selectors, const HTMLDeclarations& declarations);
    bool parseSelector(std::string_view selector, Rule& rule);
    bool parseCompound(std::string_view& selector, Rule& rule, uint32_t& specificity);
    void indexRule(const Rule& rule);

    bool matches(const Compound& compound, const HTMLElementName& element);
    bool matchesAround(const Rule& rule, std::span<const HTMLElementName> ancestors);
    void applyAll(const Rules& rules, const HTMLElementName& element,
                  std::span<const HTMLElementName> ancestors, HTMLCascade& cascade);

    std::vector<Rule> rules_;
    std::vector<Compound> compounds_;
    std::vector<std::string_view> classNames_; // of all compounds
    std::unordered_map<std::string_view, Rules> byId_, byClass_;
    std::array<Rules, GUMBO_TAG_LAST + 1> byTag_;
    size_t work_ = 0;
};
