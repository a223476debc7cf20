// SPDX-License-Identifier: Apache-2.0
#include "Platform/Foundation/Unicode/Folding.h"
#include "Platform/Foundation/Unicode/UnicodeModule.h"

#include <algorithm>
#include <optional>
#include <vector>

namespace {

// A long text is folded and searched in pieces, so that its folded form is never whole in memory.
constexpr size_t kPiece = 1 << 16;

// A folded part of a text, and where its characters begin and end in both forms.
class Piece {
public:
    Piece(std::u16string_view text, Folder& folder) : text_(text), folder_(folder) {}

    // Folds from `start` until there are at least `length` folded units or the text ends.
    void fill(size_t start, size_t length) {
        folded_.clear();
        bounds_.assign(1, {0, start});
        while (bounds_.back().original < text_.size() && folded_.size() < length) {
            const size_t end = folder_.appendCharacter(folded_, text_, bounds_.back().original);
            bounds_.push_back({folded_.size(), end});
        }
    }

    bool reachesEnd() const { return bounds_.back().original == text_.size(); }

    std::optional<UnicodeRange> find(std::u16string_view pattern, bool anchored) const {
        const std::u16string_view looked =
            std::u16string_view(folded_).substr(0, anchored ? pattern.size() : folded_.size());
        for (size_t at = looked.find(pattern); at != looked.npos; at = looked.find(pattern, at + 1)) {
            const Bound *start = boundAt(at), *end = boundAt(at + pattern.size());
            if (start && end) return UnicodeRange{start->original, end->original};
        }
        return std::nullopt;
    }

    // Where a match can begin that `find` could not see whole.
    size_t restart(size_t patternLength) const {
        return atOrAfter(folded_.size() - patternLength + 1)->original;
    }

private:
    struct Bound {
        size_t folded, original;
    };

    std::vector<Bound>::const_iterator atOrAfter(size_t folded) const {
        return std::lower_bound(bounds_.begin(), bounds_.end(), folded,
                                [](const Bound& bound, size_t place) { return bound.folded < place; });
    }

    const Bound* boundAt(size_t folded) const {
        const auto bound = atOrAfter(folded);
        return bound != bounds_.end() && bound->folded == folded ? &*bound : nullptr;
    }

    const std::u16string_view text_;
    Folder& folder_;
    std::u16string folded_;
    std::vector<Bound> bounds_; // the first is the start of the piece
};

} // namespace

UnicodeRange findFolded(std::u16string_view text, std::u16string_view wanted, unsigned options) {
    Folder folder(options);
    const std::u16string pattern = folded(wanted, options);
    if (pattern.empty()) return {}; // nothing but accents that do not count
    const bool anchored = options & NSAnchoredSearch;
    const size_t length = anchored ? pattern.size() + 1 : std::max(kPiece, 4 * pattern.size());

    Piece piece(text, folder);
    for (size_t start = 0;; start = piece.restart(pattern.size())) {
        piece.fill(start, length);
        if (const auto range = piece.find(pattern, anchored)) return *range;
        if (anchored || piece.reachesEnd()) return {};
    }
}
