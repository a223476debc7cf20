// SPDX-License-Identifier: Apache-2.0
#include "Platform/AppKit/HTML/HTMLOpenElements.h"

#include "Platform/AppKit/HTML/HTMLCharacters.h"
#include "Platform/AppKit/HTML/HTMLTagTraits.h"

#include <algorithm>

namespace {

// The standard's limit on the rounds in which an end tag frees blocks from a formatting element.
constexpr size_t kAdoptionRounds = 8;

} // namespace

uint32_t HTMLOpenElements::identityOf(std::string_view text) {
    uint32_t hash = 2166136261u;
    for (char c : text) hash = (hash ^ static_cast<unsigned char>(lowered(c))) * 16777619u;
    return hash;
}

bool HTMLOpenElements::inForeignContent() const { return inForeign() && !open_.back().holdsHTML; }

bool HTMLOpenElements::inSelect() const {
    return count_[GUMBO_TAG_SELECT] > 0 && isTop({GUMBO_TAG_SELECT, GUMBO_TAG_OPTION, GUMBO_TAG_OPTGROUP});
}

bool HTMLOpenElements::isTop(std::initializer_list<GumboTag> tags) const {
    return !open_.empty() && !open_.back().foreign &&
           std::find(tags.begin(), tags.end(), open_.back().tag) != tags.end();
}

bool HTMLOpenElements::holdsTableParts(const Element& element) {
    return !element.foreign && (element.tag == GUMBO_TAG_TABLE || element.tag == GUMBO_TAG_TEMPLATE);
}

bool HTMLOpenElements::push(const Element& element) {
    if (!hasRoom() || (element.foreign && foreignCount_ >= kForeignDepthLimit)) {
        ++refused_[element.tag];
        return false;
    }
    open_.push_back(element);
    if (element.foreign) {
        ++foreignCount_;
        return true;
    }
    ++count_[element.tag];
    if (hasTrait(element.tag, kTagHasMarker)) formatting_.push_back({element, true, true});
    return true;
}

void HTMLOpenElements::pop() {
    const Element element = open_.back();
    open_.pop_back();
    if (element.foreign) {
        --foreignCount_;
        return;
    }
    --count_[element.tag];
    if (hasTrait(element.tag, kTagHasMarker)) {
        formatting_.erase(formatting_.begin() + std::ptrdiff_t(afterMarker()), formatting_.end());
        if (!formatting_.empty()) formatting_.pop_back();
    } else if (hasTrait(element.tag, kTagIsFormatting)) {
        // Its entry stands behind the last marker: elements with markers inside of it are closed by now.
        for (size_t i = formatting_.size(); i-- > 0 && !formatting_[i].marker;) {
            if (!formatting_[i].open || formatting_[i].element.identity != element.identity) continue;
            formatting_[i].open = false;
            return;
        }
    }
}

void HTMLOpenElements::popTo(size_t size) {
    while (open_.size() > size) pop();
}

bool HTMLOpenElements::isInScope(GumboTag tag) const {
    if (count_[tag] == 0) return false;
    for (size_t i = open_.size(); i-- > 0;) {
        if (open_[i].foreign) return false;
        if (open_[i].tag == tag) return true;
        if (hasTrait(open_[i].tag, kTagIsScopeBorder)) return false;
    }
    return false;
}

// Closes the innermost element of the tag if no scope's border, nor one of two more, is in between.
bool HTMLOpenElements::popThrough(GumboTag tag, GumboTag border1, GumboTag border2) {
    if (count_[tag] == 0) return false;
    for (size_t i = open_.size(); i-- > 0;) {
        const Element& element = open_[i];
        if (element.foreign) return false;
        if (element.tag == tag) {
            popTo(i);
            return true;
        }
        if (hasTrait(element.tag, kTagIsScopeBorder) || element.tag == border1 || element.tag == border2) {
            return false;
        }
    }
    return false;
}

bool HTMLOpenElements::popThroughInTable(GumboTag tag) {
    if (count_[tag] == 0) return false;
    for (size_t i = open_.size(); i-- > 0;) {
        const Element& element = open_[i];
        if (!element.foreign && element.tag == tag) {
            popTo(i);
            return true;
        }
        if (holdsTableParts(element)) return false;
    }
    return false;
}

// Takes an element off that leaves those inside it open.
void HTMLOpenElements::remove(size_t index) {
    --count_[open_[index].tag];
    open_.erase(open_.begin() + std::ptrdiff_t(index));
}

size_t HTMLOpenElements::afterMarker() const {
    size_t index = formatting_.size();
    while (index > 0 && !formatting_[index - 1].marker) --index;
    return index;
}

void HTMLOpenElements::eraseFormatting(size_t index) {
    formatting_.erase(formatting_.begin() + std::ptrdiff_t(index));
}

void HTMLOpenElements::text() {
    if (formatting_.empty() || formatting_.back().open || inForeignContent() || inSelect()) return;
    size_t first = formatting_.size();
    while (first > 0 && !formatting_[first - 1].open) --first;
    for (size_t i = first; i < formatting_.size(); ++i) {
        formatting_[i].open = true;
        open_.push_back(formatting_[i].element);
        ++count_[formatting_[i].element.tag];
        ++reopened_;
    }
}

std::optional<GumboTag> HTMLOpenElements::takeSurplusFormatting() {
    if (reopened_ < reopenLimit_ || formatting_.empty() || formatting_.back().marker) return std::nullopt;
    const GumboTag tag = formatting_.back().element.tag;
    const size_t size = formatting_.size();
    endFormatting(tag);
    // What the end tag could not reach would be asked for again and again.
    if (formatting_.size() == size) formatting_.pop_back();
    return tag;
}

// Of formatting elements that are alike, the parser keeps the last three.
void HTMLOpenElements::keepThreeAlike(uint32_t identity) {
    size_t alike = 0, oldest = 0;
    for (size_t i = formatting_.size(); i-- > 0 && !formatting_[i].marker;) {
        if (formatting_[i].element.identity != identity) continue;
        ++alike;
        oldest = i;
    }
    if (alike >= 3) eraseFormatting(oldest);
}

bool HTMLOpenElements::startFormatting(GumboTag tag, std::string_view source) {
    if (tag == GUMBO_TAG_A || tag == GUMBO_TAG_NOBR) {
        const bool waiting =
            std::any_of(formatting_.begin() + std::ptrdiff_t(afterMarker()), formatting_.end(),
                        [tag](const Formatting& entry) { return entry.element.tag == tag; });
        if (waiting) endFormatting(tag);
    }
    text();
    Element element(tag);
    element.identity = identityOf(source);
    if (reopened_ >= reopenLimit_ || formatting_.size() - afterMarker() >= kFormattingLimit) {
        ++refused_[tag];
        return false;
    }
    if (!push(element)) return false;
    keepThreeAlike(element.identity);
    formatting_.push_back({element, false, true});
    return true;
}

void HTMLOpenElements::endFormatting(GumboTag tag) {
    const size_t first = afterMarker();
    size_t index = formatting_.size();
    while (index > first && formatting_[index - 1].element.tag != tag) --index;
    if (index == first) {
        if (count_[tag] > 0) endOther(tag, {});
        return;
    }
    const Formatting entry = formatting_[--index];
    if (!entry.open) {
        eraseFormatting(index);
        return;
    }
    size_t blocks = 0;
    for (size_t i = open_.size(); i-- > 0;) {
        const Element& element = open_[i];
        if (!element.foreign && element.tag == tag && element.identity == entry.element.identity) {
            if (blocks > kAdoptionRounds) return;
            eraseFormatting(index);
            if (blocks == 0)
                popTo(i);
            else
                remove(i);
            return;
        }
        if (element.foreign || hasTrait(element.tag, kTagIsScopeBorder)) return;
        if (hasTrait(element.tag, kTagIsSpecial)) ++blocks;
    }
    eraseFormatting(index);
}
