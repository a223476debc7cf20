// SPDX-License-Identifier: Apache-2.0
#include "Platform/AppKit/HTML/HTMLStyleSheet.h"

#include "Platform/AppKit/HTML/HTMLCharacters.h"
#include "Platform/AppKit/HTML/HTMLMediaQuery.h"

#include <algorithm>

namespace {

constexpr size_t kRuleLimit = 65536;
constexpr size_t kCompoundLimit = 8; // of one selector
constexpr size_t kClassLimit = 64;   // of one compound, and of one element
constexpr unsigned kBlockDepthLimit = 16;

// Comparisons of an element with a compound, all in all. Matching takes time for the product of rules,
// elements and their depth, and pages that mean well stay far below.
constexpr size_t kWorkLimit = 5'000'000;
constexpr size_t kBytesOfWork = 32; // of class attributes that one comparison reads

constexpr uint64_t kImportance = uint64_t(1) << 63;

// Whether the rules in the block of this at-rule have effect.
bool holdsRules(std::string_view prelude) {
    const std::string_view keyword = takeStyleName(prelude);
    if (equalIgnoringCase(keyword, "media")) return mediaQueriesHold(prelude);
    if (equalIgnoringCase(keyword, "supports")) return !startsWithIgnoringCase(trimmed(prelude), "not");
    return equalIgnoringCase(keyword, "layer");
}

} // namespace

void HTMLCascade::apply(const HTMLDeclarations& declarations, uint64_t rank) {
    for (size_t i = 0; i < kHTMLStyleProperties; ++i) {
        if (!(declarations.set >> i & 1)) continue;
        const uint64_t own = declarations.important >> i & 1 ? rank | kImportance : rank;
        if (own < ranks_[i]) continue;
        ranks_[i] = own;
        values_[i] = declarations.values[i];
    }
}

void HTMLStyleSheet::add(std::string_view css, std::string_view media) {
    if (!mediaQueriesHold(media)) return;
    HTMLStyleScanner scanner(css);
    unsigned depth = 0; // of the blocks of at-rules
    while (scanner.skipSpace()) {
        if (scanner.current() == '}') {
            scanner.advance();
            if (depth > 0) --depth;
        } else if (scanner.current() == '@') {
            scanner.advance();
            const std::string_view prelude = scanner.readTo(";{}");
            if (scanner.stop() != '{') continue;
            if (depth < kBlockDepthLimit && holdsRules(prelude))
                ++depth;
            else
                scanner.readBlock();
        } else {
            const std::string_view selectors = scanner.readTo("{;}");
            if (scanner.stop() != '{') continue;
            const HTMLDeclarations declarations = parseDeclarations(scanner.readBlock());
            if (!declarations.empty()) addRule(selectors, declarations);
        }
    }
}

void HTMLStyleSheet::addRule(std::string_view selectors, const HTMLDeclarations& declarations) {
    while (rules_.size() < kRuleLimit) {
        const size_t comma = selectors.find(',');
        Rule rule;
        rule.declarations = declarations;
        if (parseSelector(trimmed(selectors.substr(0, comma)), rule))
            indexRule(rule);
        else
            compounds_.resize(rule.firstCompound);
        if (comma == std::string_view::npos) return;
        selectors.remove_prefix(comma + 1);
    }
}

// Reads "tag#id.class" or a part of that.
bool HTMLStyleSheet::parseCompound(std::string_view& selector, Rule& rule, uint32_t& specificity) {
    Compound compound;
    compound.firstClass = classNames_.size();
    const size_t before = selector.size();
    if (selector.starts_with('*')) {
        selector.remove_prefix(1);
    } else if (const std::string_view name = takeStyleName(selector); !name.empty()) {
        compound.name = name;
        compound.tag = gumbo_tagn_enum(name.data(), unsigned(name.size()));
        specificity += 1;
    }
    while (!selector.empty() && (selector.front() == '#' || selector.front() == '.')) {
        const bool isId = selector.front() == '#';
        selector.remove_prefix(1);
        const std::string_view name = takeStyleName(selector);
        if (name.empty() || (isId && !compound.id.empty()) || compound.classCount == kClassLimit)
            return false;
        if (isId) {
            compound.id = name;
        } else {
            classNames_.push_back(name);
            ++compound.classCount;
        }
        specificity += isId ? 1u << 20 : 1u << 10;
    }
    compounds_.push_back(compound);
    ++rule.compoundCount;
    return selector.size() < before && rule.compoundCount <= kCompoundLimit;
}

bool HTMLStyleSheet::parseSelector(std::string_view selector, Rule& rule) {
    rule.firstCompound = compounds_.size();
    uint32_t specificity = 0;
    while (true) {
        if (!parseCompound(selector, rule, specificity)) return false;
        if (selector.empty()) break;
        if (!isHTMLSpace(selector.front()) && selector.front() != '>') return false;
        selector = trimmed(selector);
        if (selector.front() != '>') continue;
        selector = trimmed(selector.substr(1));
        // Marks the outer one until the order is turned round.
        compounds_.back().directlyUnder = true;
    }
    const auto first = compounds_.begin() + std::ptrdiff_t(rule.firstCompound);
    std::reverse(first, compounds_.end());
    for (size_t i = rule.firstCompound; i < compounds_.size(); ++i) {
        compounds_[i].directlyUnder = i + 1 < compounds_.size() && compounds_[i + 1].directlyUnder;
    }
    rule.rank = (uint64_t(specificity) << 32) + rules_.size() + 1;
    return true;
}

// A rule is found by the rarest part of what it asks of the element itself.
void HTMLStyleSheet::indexRule(const Rule& rule) {
    const auto index = uint32_t(rules_.size());
    const Compound& own = compounds_[rule.firstCompound];
    if (!own.id.empty())
        byId_[own.id].push_back(index);
    else if (own.classCount > 0)
        byClass_[classNames_[own.firstClass]].push_back(index);
    else
        byTag_[own.tag].push_back(index);
    rules_.push_back(rule);
}

bool HTMLStyleSheet::matches(const Compound& compound, const HTMLElementName& element) {
    work_ += 1 + compound.classCount * (element.classes.size() / kBytesOfWork);
    if (compound.tag != GUMBO_TAG_LAST) {
        if (compound.tag != element.tag) return false;
        if (compound.tag == GUMBO_TAG_UNKNOWN && !equalIgnoringCase(compound.name, element.name))
            return false;
    }
    if (!compound.id.empty() && compound.id != element.id) return false;
    for (size_t i = 0; i < compound.classCount; ++i) {
        if (!hasWord(element.classes, classNames_[compound.firstClass + i])) return false;
    }
    return true;
}

// Each run of compounds that stand directly under one another takes the nearest place that fits; what stands
// further out has the most room so.
bool HTMLStyleSheet::matchesAround(const Rule& rule, std::span<const HTMLElementName> ancestors) {
    const Compound* compounds = &compounds_[rule.firstCompound];
    size_t runBegin = 1, runAncestors = ancestors.size(); // where the run was tried to begin
    bool fixed = compounds[0].directlyUnder;              // the run has only one place
    size_t left = ancestors.size();
    for (size_t i = 1; i < rule.compoundCount;) {
        if (left == 0 || work_ >= kWorkLimit) return false;
        if (matches(compounds[i], ancestors[--left])) {
            if (!compounds[i].directlyUnder) {
                runBegin = i + 1;
                runAncestors = left;
                fixed = false;
            }
            ++i;
        } else if (fixed) {
            return false;
        } else {
            i = runBegin;
            left = --runAncestors;
        }
    }
    return true;
}

void HTMLStyleSheet::applyAll(const Rules& rules, const HTMLElementName& element,
                              std::span<const HTMLElementName> ancestors, HTMLCascade& cascade) {
    for (uint32_t index : rules) {
        if (work_ >= kWorkLimit) return;
        const Rule& rule = rules_[index];
        if (matches(compounds_[rule.firstCompound], element) && matchesAround(rule, ancestors)) {
            cascade.apply(rule.declarations, rule.rank);
        }
    }
}

void HTMLStyleSheet::apply(const HTMLElementName& element, std::span<const HTMLElementName> ancestors,
                           HTMLCascade& cascade) {
    applyAll(byTag_[GUMBO_TAG_LAST], element, ancestors, cascade);
    applyAll(byTag_[element.tag], element, ancestors, cascade);
    if (!byClass_.empty()) {
        std::string_view classes = element.classes;
        for (size_t i = 0; i < kClassLimit; ++i) {
            const std::string_view name = takeWord(classes);
            if (name.empty()) break;
            const auto found = byClass_.find(name);
            if (found != byClass_.end()) applyAll(found->second, element, ancestors, cascade);
        }
    }
    if (byId_.empty() || element.id.empty()) return;
    const auto found = byId_.find(element.id);
    if (found != byId_.end()) applyAll(found->second, element, ancestors, cascade);
}
