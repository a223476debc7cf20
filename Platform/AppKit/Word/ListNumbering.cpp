// SPDX-License-Identifier: Apache-2.0
#include "Platform/AppKit/Word/ListNumbering.h"

#include "Platform/AppKit/Word/NumberCode.h"
#include "Platform/Foundation/LittleEndian.h"

namespace Word {

namespace {

constexpr size_t kMarkerLimit = 64; // characters from which on nothing is added
constexpr char16_t kBullet = u'\u2022';

char16_t markerCharacter(char16_t unit, SymbolFont font) {
    if (!isSymbolCode(unit)) return unit;
    char16_t sign = characterOf(font, uint8_t(unit));
    return isSymbolCode(sign) ? kBullet : sign;
}

} // namespace

void ListNumbering::readLists() {
    lists_.emplace(information_, tableStream_);
    counters_.resize(lists_->listCount());
    startsApplied_.resize(lists_->overrideCount());
}

const ListLevel* ListNumbering::levelOf(const ListOverride& chosen, size_t level) const {
    const ListOverride::Level* change = chosen.find(level);
    return change && change->format ? &*change->format : lists_->level(chosen.list, level);
}

uint32_t ListNumbering::startOf(const ListOverride& chosen, size_t level) const {
    const ListLevel* format = levelOf(chosen, level);
    return format ? format->start : 1;
}

std::u16string ListNumbering::nextMarker(const ListMembership& membership) {
    if (information_.isOld) return nextOldMarker(membership);
    uint16_t number = membership.list.value_or(0);
    uint8_t level = membership.level.value_or(0);
    if (number == 0 || level >= kListLevels) return {};
    if (!lists_) readLists();
    const ListOverride* chosen = lists_->findOverride(number);
    const ListLevel* format = chosen ? levelOf(*chosen, level) : nullptr;
    if (!format) return {};
    count(number, *chosen, level);
    return marker(*chosen, *format);
}

void ListNumbering::count(uint16_t number, const ListOverride& chosen, size_t level) {
    Counters& counters = counters_[chosen.list];
    uint16_t& applied = startsApplied_[number - 1u];
    const ListOverride::Level* change = chosen.find(level);
    if (change && change->start && !(applied >> level & 1)) {
        counters.numbers[level] = *change->start;
        applied = uint16_t(applied | 1 << level);
    } else if (counters.started[level]) {
        ++counters.numbers[level];
    } else {
        counters.numbers[level] = startOf(chosen, level);
    }
    counters.started[level] = true;
    for (size_t above = 0; above < level; ++above) {
        if (counters.started[above]) continue;
        counters.started[above] = true;
        counters.numbers[above] = startOf(chosen, above);
    }
    for (size_t below = level + 1; below < kListLevels; ++below) {
        const ListLevel* format = levelOf(chosen, below);
        if (format && level < format->restartLimit) counters.started[below] = false;
    }
}

std::u16string ListNumbering::marker(const ListOverride& chosen, const ListLevel& format) {
    CharacterModifiers characters;
    characters.apply(format.characters, false);
    SymbolFont font = characters.font ? fonts_.symbolFont(*characters.font) : SymbolFont::none;
    std::u16string marker;
    std::string_view text = slice(format.text, 0, 2 * kMarkerLimit);
    for (size_t i = 0; i + 1 < text.size() && marker.size() < kMarkerLimit; i += 2) {
        char16_t unit = uint16At(text, i);
        if (unit >= kListLevels || format.format == NumberCode::bullet) {
            if (unit >= u' ') marker.push_back(markerCharacter(unit, font));
            continue;
        }
        const ListLevel* shown = levelOf(chosen, unit);
        uint8_t style = shown ? shown->format : uint8_t(NumberCode::decimal);
        if (format.isLegal && style != NumberCode::none) style = NumberCode::decimal;
        appendNumber(marker, counters_[chosen.list].numbers[unit], numberFormatOf(style));
    }
    return marker;
}

// Old documents describe the marker in each paragraph, and number those that follow each other.
std::u16string ListNumbering::nextOldMarker(const ListMembership& membership) {
    constexpr uint8_t kNumbered = 10, kBulleted = 11;
    constexpr size_t kTextOffset = 20, kTextSize = 32;
    uint8_t level = membership.oldLevel.value_or(0);
    oldNumber_ = level == kNumbered ? oldNumber_ + 1 : 0;
    if (level != kNumbered && level != kBulleted) return {};

    std::string_view description = membership.oldDescription;
    uint16_t font = uint16At(description, 6);
    size_t before = uint8At(description, 1), after = uint8At(description, 2);
    std::string_view text = slice(description, kTextOffset, kTextSize);
    std::u16string marker;
    auto append = [&](std::string_view bytes) {
        if (SymbolFont symbols = fonts_.symbolFont(font); symbols != SymbolFont::none) {
            for (char byte : bytes)
                marker.push_back(markerCharacter(char16_t(0xF000 | uint8_t(byte)), symbols));
        } else {
            appendDecoded(marker, bytes, fonts_.encoding(font));
        }
    };
    append(slice(text, 0, before));
    if (level == kNumbered) {
        // Damage may wrap the number round; it stays one of 32 bits.
        const uint32_t number = uint16At(description, 10) + oldNumber_ - 1;
        appendNumber(marker, number, numberFormatOf(uint8At(description, 0)));
        append(slice(text, before, after));
    }
    return marker;
}

} // namespace Word
