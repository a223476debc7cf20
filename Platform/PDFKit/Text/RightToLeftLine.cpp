// SPDX-License-Identifier: Apache-2.0
//
// Pages hold glyphs, not the order in which they are read. For a line with letters that are written from
// right to left the glyphs are put in the order in which they stand, from left to right, and then turned
// round: the whole line or single runs, and within them Latin words and numbers back again.
#include "Platform/PDFKit/Text/CharacterClasses.h"
#include "Platform/PDFKit/Text/LineWriter.h"
#include "Platform/PDFKit/Text/TextLine.h"

#include <algorithm>
#include <cmath>

namespace {

enum class Class : uint8_t { rightToLeft, leftToRight, number, blank, other };

// What stays together when a line is turned round: a glyph with its marks, or a blank.
struct Item {
    std::u16string text;
    Class kind;
    bool turned = false;
};

using Items = std::vector<Item>;

constexpr double kBlankGap = 0.15;  // ems
constexpr double kWidestMark = 0.6; // ems

bool isLetter(char32_t c) {
    if (c < 0xC0)
        return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z') || c == 0xAA || c == 0xB5 || c == 0xBA;
    bool sign = c == 0xD7 || c == 0xF7 || c == 0x060C || c == 0x066B || c == 0x066C ||
                (c >= 0x2000 && c <= 0x2BFF) || (c >= 0x3000 && c <= 0x3004) || (c >= 0x3008 && c <= 0x3020);
    return !sign;
}

Class classOf(char32_t c) {
    if (isBlank(c)) return Class::blank;
    if (isWrittenDigit(c)) return Class::number;
    if (isRightToLeft(c)) return Class::rightToLeft;
    return isLetter(c) ? Class::leftToRight : Class::other;
}

bool isLoneMark(const PlacedGlyph& glyph) {
    return isMark(glyph.character) && glyph.end - glyph.start < kWidestMark * glyph.em;
}

double distance(const PlacedGlyph& glyph, double position) {
    return std::max({glyph.start - position, position - glyph.end, 0.0});
}

// The place, among glyphs sorted by their middles, of the one that a mark at `position` belongs to.
size_t nearestTo(const std::vector<PlacedGlyph>& glyphs, double position) {
    auto after =
        std::lower_bound(glyphs.begin(), glyphs.end(), position,
                         [](const PlacedGlyph& glyph, double p) { return glyph.start + glyph.end < 2 * p; });
    size_t best = after == glyphs.end() ? glyphs.size() - 1 : size_t(after - glyphs.begin());
    if (best > 0 && distance(glyphs[best - 1], position) <= distance(glyphs[best], position)) --best;
    return best;
}

// The line's glyphs from left to right; each mark behind the glyph that it stands at.
Items itemsOf(const TextLine& line) {
    std::vector<PlacedGlyph> bases, marks;
    for (const PlacedGlyph& glyph : line.glyphs) (isLoneMark(glyph) ? marks : bases).push_back(glyph);
    if (bases.empty()) bases.swap(marks);
    std::stable_sort(bases.begin(), bases.end(), [](const PlacedGlyph& a, const PlacedGlyph& b) {
        return a.start + a.end < b.start + b.end;
    });
    std::vector<std::u16string> markTexts(bases.size());
    for (const PlacedGlyph& mark : marks)
        markTexts[nearestTo(bases, (mark.start + mark.end) / 2)] += line.textOf(mark);

    Items items;
    for (size_t i = 0; i < bases.size(); ++i) {
        const PlacedGlyph& glyph = bases[i];
        if (i > 0 && glyph.start - bases[i - 1].end > kBlankGap * glyph.em)
            items.push_back({u" ", Class::blank});
        items.push_back({std::u16string(line.textOf(glyph)) + markTexts[i], classOf(glyph.character)});
    }
    return items;
}

void turn(Items::iterator first, Items::iterator last) {
    std::reverse(first, last);
    for (auto item = first; item != last; ++item) item->turned = !item->turned;
}

bool joinsNumbers(const Item& item) {
    return item.text.size() == 1 &&
           std::u16string_view(u".,:/-+%\u066B\u066C").find(item.text[0]) != std::u16string_view::npos;
}

// The end of a number that starts at `first`: digits, and single signs between them.
Items::iterator endOfNumber(Items::iterator first, Items::iterator last) {
    auto end = first;
    while (end != last && end->kind == Class::number) {
        ++end;
        if (end != last && joinsNumbers(*end) && end + 1 != last && (end + 1)->kind == Class::number) ++end;
    }
    return end;
}

bool isWord(const Item& item) { return item.kind == Class::leftToRight || item.kind == Class::number; }

// Turns back, of items without letters that are written from right to left, the words from the first to the
// last; where there are no letters at all, each number by itself.
void turnWordsBackBetween(Items::iterator first, Items::iterator last) {
    first = std::find_if(first, last, isWord);
    while (last != first && !isWord(*(last - 1))) --last;
    if (std::any_of(first, last, [](const Item& item) { return item.kind == Class::leftToRight; })) {
        turn(first, last);
        return;
    }
    while (first != last) {
        auto end = endOfNumber(first, last);
        turn(first, end);
        first = std::find_if(end, last, isWord);
    }
}

// Turns words and numbers back within what has been turned.
void turnWordsBack(Items::iterator first, Items::iterator last) {
    auto isLetter = [](const Item& item) { return item.kind == Class::rightToLeft; };
    while (first != last) {
        auto end = std::find_if(first, last, isLetter);
        turnWordsBackBetween(first, end);
        first = std::find_if_not(end, last, isLetter);
    }
}

// Turns each run between letters that are written from right to left, without Latin letters in between.
void turnRuns(Items& items) {
    for (auto item = items.begin(); item != items.end();) {
        auto end = item + 1;
        if (item->kind == Class::rightToLeft) {
            for (auto next = end; next != items.end() && next->kind != Class::leftToRight; ++next) {
                if (next->kind == Class::rightToLeft) end = next + 1;
            }
            turn(item, end);
            turnWordsBack(item, end);
        }
        item = end;
    }
}

} // namespace

bool appendRightToLeftLine(const TextLine& line, std::u16string& out) {
    Items items = itemsOf(line);
    auto count = [&](Class kind) {
        return std::count_if(items.begin(), items.end(), [=](const Item& item) { return item.kind == kind; });
    };
    if (count(Class::rightToLeft) > count(Class::leftToRight)) {
        turn(items.begin(), items.end());
        turnWordsBack(items.begin(), items.end());
    } else {
        turnRuns(items);
    }
    LineWriter writer(out);
    for (const Item& item : items) {
        if (item.turned && item.text.size() == 1) {
            writer.add(mirrored(item.text[0]));
        } else {
            writer.add(item.text);
        }
    }
    return writer.any();
}
