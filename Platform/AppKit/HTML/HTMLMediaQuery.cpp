// SPDX-License-Identifier: Apache-2.0
#include "Platform/AppKit/HTML/HTMLMediaQuery.h"

#include "Platform/AppKit/HTML/HTMLCharacters.h"

#include <algorithm>
#include <charconv>
#include <optional>

namespace {

// A page is thought to lie in a window of this width, in CSS pixels.
constexpr double kViewportWidth = 800;
constexpr double kPixelsPerEm = 16;

// Whether a condition such as "(min-width: 40em)" holds, if it is one that is known.
std::optional<bool> featureHolds(std::string_view feature) {
    const size_t colon = feature.find(':');
    if (colon == std::string_view::npos) return std::nullopt;
    const std::string_view name = trimmed(feature.substr(0, colon));
    const std::string_view value = trimmed(feature.substr(colon + 1));
    double length = 0;
    const auto [end, error] = std::from_chars(value.data(), value.data() + value.size(), length);
    if (error != std::errc()) return std::nullopt;
    const std::string_view unit = value.substr(size_t(end - value.data()));
    if (equalIgnoringCase(unit, "em") || equalIgnoringCase(unit, "rem"))
        length *= kPixelsPerEm;
    else if (!equalIgnoringCase(unit, "px") && length != 0)
        return std::nullopt;
    if (equalIgnoringCase(name, "min-width")) return kViewportWidth >= length;
    if (equalIgnoringCase(name, "max-width")) return kViewportWidth <= length;
    return std::nullopt;
}

// One of the queries of a list: "screen and (max-width: 600px)".
bool queryHolds(std::string_view query) {
    bool negated = false;
    bool holds = true;
    query = trimmed(query);
    while (!query.empty()) {
        if (query.front() == '(') {
            const size_t end = std::min(query.find(')'), query.size() - 1);
            const auto feature = featureHolds(query.substr(1, end - 1));
            if (!feature) return false;
            holds = holds && *feature;
            query = trimmed(query.substr(end + 1));
            continue;
        }
        const std::string_view word = takeStyleName(query);
        if (word.empty()) return false;
        query = trimmed(query);
        if (equalIgnoringCase(word, "only") || equalIgnoringCase(word, "and")) continue;
        if (equalIgnoringCase(word, "not"))
            negated = true;
        else if (!equalIgnoringCase(word, "screen") && !equalIgnoringCase(word, "all"))
            holds = false;
    }
    return holds != negated;
}

} // namespace

bool mediaQueriesHold(std::string_view queries) {
    if (trimmed(queries).empty()) return true;
    while (true) {
        const size_t comma = queries.find(',');
        if (queryHolds(queries.substr(0, comma))) return true;
        if (comma == std::string_view::npos) return false;
        queries.remove_prefix(comma + 1);
    }
}
