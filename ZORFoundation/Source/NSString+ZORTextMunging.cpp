// SPDX-License-Identifier: Apache-2.0
#include "ZORFoundation/Source/NSString+ZORTextMunging.h"

#include "Platform/Foundation/NSStringCompare.h"
#include "Platform/Foundation/UnitScan.h"
#include "ZORFoundation/Source/ZORPrecondition.h"

#include <algorithm>
#include <array>
#include <cstring>

namespace {

using View = std::u16string_view;

bool isNul(char16_t c) { return c == 0; }

// Copies the units that are not 0 and returns their end.
char16_t* copyWithoutNuls(char16_t* to, View units) {
    for (; !units.empty(); units.remove_prefix(std::min(kScanBlock, units.size()))) {
        const View block = units.substr(0, kScanBlock);
        if (block.size() == kScanBlock && !blockHas(block.data(), isNul)) {
            std::memcpy(to, block.data(), kScanBlock * sizeof(char16_t));
            to += kScanBlock;
            continue;
        }
        for (char16_t c : block) {
            *to = c;
            to += c != 0;
        }
    }
    return to;
}

// Gathers the units on the stack first: the string is not filled with zeros beforehand, and grows by whole
// chunks.
std::u16string withoutNuls(View text) {
    std::array<char16_t, 2048> chunk;
    std::u16string kept;
    kept.reserve(text.size());
    for (; !text.empty(); text.remove_prefix(std::min(chunk.size(), text.size()))) {
        kept.append(chunk.data(), copyWithoutNuls(chunk.data(), text.substr(0, chunk.size())));
    }
    return kept;
}

NSString replacing(View text, View wanted, View replacement, size_t atMost) {
    std::u16string out;
    size_t start = 0;
    for (size_t at = text.find(wanted); at != View::npos && atMost > 0; at = text.find(wanted, start)) {
        out.append(text, start, at - start).append(replacement);
        start = at + wanted.size();
        --atMost;
    }
    out.append(text, start);
    return out;
}

} // namespace

NSString zorStringByTrimmingNulls(const NSString& text) {
    // Values are immutable: a text without any is its own copy.
    return findUnit(text.text(), 0, isNul) == text.length() ? text : NSString(withoutNuls(text.text()));
}

NSString zorStringByStripping(const NSString& text) {
    const NSCharacterSet space = NSCharacterSet::whitespaceAndNewlineCharacterSet();
    View rest = text.text();
    while (!rest.empty() && space.characterIsMember(rest.front())) rest.remove_prefix(1);
    while (!rest.empty() && space.characterIsMember(rest.back())) rest.remove_suffix(1);
    return rest.size() == text.length() ? text : NSString(rest);
}

NSString zorStringByKeepingCharactersInSet(const NSString& text, const NSCharacterSet& set) {
    std::u16string kept;
    std::copy_if(text.text().begin(), text.text().end(), std::back_inserter(kept),
                 [&set](char16_t c) { return set.characterIsMember(c); });
    return kept;
}

NSString zorStringByReplacingString(const NSString& text, const NSString& wanted,
                                    const NSString& replacement) {
    if (wanted.isEmpty() || text.text().find(wanted.text()) == View::npos) return text;
    return replacing(text.text(), wanted.text(), replacement.text(), SIZE_MAX);
}

NSString zorStringByReplacingFirstOccurrenceOfString(const NSString& text, const NSString& wanted,
                                                     const NSString& replacement) {
    if (wanted.isEmpty() || text.text().find(wanted.text()) == View::npos) return text;
    return replacing(text.text(), wanted.text(), replacement.text(), 1);
}

NSString zorStringByExpandingKeysInDictionary(const NSString& text, const NSDictionary& values) {
    NSString expanded = text;
    for (const auto& [key, value] : values) {
        expanded = zorStringByReplacingString(expanded, as<NSString>(key), as<NSString>(value));
    }
    return expanded;
}

NSString zorJoin(const NSString& separator, const NSArray& elements) {
    std::u16string out;
    for (size_t i = 0; i < elements.count(); ++i) {
        if (i > 0) out += separator.text();
        out += elements.objects()[i].description().text();
    }
    return out;
}

NSString zorStringByEnsuringSuffix(const NSString& text, const NSString& suffix) {
    return text.text().ends_with(suffix.text()) ? text : text + suffix;
}

NSString zorStringByChunking(const NSString& text, unsigned length, const NSString& separator) {
    if (length == 0 && text.length() >= 2) {
        ZORFunctions::assertionFailedForFile(
            "ZORFoundation/Source/NSString+ZORBasics", __LINE__, {ZORReceiver::Kind::instance},
            "zorStringByChunking:with:", "Precondition Failed: %s", "length >= 1");
    }
    const View units = text.text();
    std::u16string out(units.substr(0, std::max(length, 1u)));
    for (size_t i = out.size(); i < units.size(); i += length) {
        out.append(separator.text()).append(units.substr(i, length));
    }
    return out;
}

NSString zorSubstringToIndex(const NSString& text, size_t index) {
    return index >= text.length() ? text : NSString(View(text.text()).substr(0, index));
}

NSString zorSubstringFromIndex(const NSString& text, size_t index) {
    return View(text.text()).substr(std::min(index, text.length()));
}

NSString zorSubstringToString(const NSString& text, const NSString& wanted) {
    const NSRange found = rangeOfString(text, wanted);
    return found.location == NSNotFound ? NSString(u"") : zorSubstringToIndex(text, found.location);
}

NSString zorSubstringFromString(const NSString& text, const NSString& wanted) {
    const NSRange found = rangeOfString(text, wanted);
    return found.location == NSNotFound ? NSString(u"")
                                        : zorSubstringFromIndex(text, found.location + found.length);
}

NSString zorFirstSpaceComponent(const NSString& text) {
    return zorSubstringToIndex(text, text.text().find(u' '));
}

NSString zorLastSpaceComponent(const NSString& text) {
    const size_t space = text.text().rfind(u' ');
    return space == View::npos ? text : zorSubstringFromIndex(text, space + 1);
}

NSString zorStringByChopping(const NSString& text) {
    return text.isEmpty() ? NSString(u"") : zorSubstringToIndex(text, text.length() - 1);
}
