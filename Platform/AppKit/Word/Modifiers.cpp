// SPDX-License-Identifier: Apache-2.0
#include "Platform/AppKit/Word/Modifiers.h"

#include "Platform/AppKit/Word/OldModifierCodes.h"
#include "Platform/Foundation/LittleEndian.h"

namespace Word {

namespace {

enum Code : uint16_t {
    kDeleted = 0x0800,
    kHidden = 0x083C,
    kCharacterStyle = 0x4A30,
    kFont = 0x4A4F,
    kPlain = 0x2A33,
    kSymbol = 0x6A09,

    kBeginsPage = 0x2407,
    kInTable = 0x2416,
    kEndsRow = 0x2417,
    kEndsInnerRow = 0x244C,
    kList = 0x460B,
    kListLevel = 0x260A,
    kFarModifiers = 0x6645,
    kFarModifiersToo = 0x6646,
    kChangeTabs = 0xC615,
    kDefineTable = 0xD608,

    kPageWidth = 0xB01F,
    kPageHeight = 0xB020,
    kLeftMargin = 0xB021,
    kRightMargin = 0xB022,
    kTopMargin = 0x9023,
    kBottomMargin = 0x9024,
};

// The operand of a modifier and the whole length behind the code; the view's data() is null when it is cut
// off.
std::string_view takeOperand(std::string_view& rest, size_t prefix, size_t length) {
    if (!holds(rest, prefix, length)) return {};
    std::string_view operand = rest.substr(prefix, length);
    rest.remove_prefix(prefix + length);
    return operand;
}

Toggle toggle(uint8_t operand) {
    switch (operand) {
    case 0: return Toggle::off;
    case 0x80: return Toggle::asStyle;
    case 0x81: return Toggle::oppositeOfStyle;
    default: return Toggle::on;
    }
}

// The tabs operand is longer than its length byte can say when that is 255: two counted lists follow.
size_t changeTabsLength(std::string_view rest) {
    size_t length = uint8At(rest, 0);
    if (length != 255) return length;
    size_t deleted = uint8At(rest, 1);
    size_t added = uint8At(rest, 2 + 4 * deleted);
    return 2 + 4 * deleted + 3 * added;
}

} // namespace

uint8_t Modifier::byte() const { return uint8At(operand, 0); }

uint16_t Modifier::number() const { return uint16At(operand, 0); }

bool ModifierReader::next(Modifier& modifier) {
    if (isOld_) return nextOld(modifier);
    if (rest_.size() < 3) return false;
    modifier.code = uint16At(rest_, 0);
    rest_.remove_prefix(2);
    constexpr uint8_t kLengths[8] = {1, 1, 2, 4, 2, 2, 0, 3}; // by the top bits; 0: the length comes first
    size_t length = kLengths[modifier.code >> 13];
    if (length > 0) {
        modifier.operand = takeOperand(rest_, 0, length);
    } else if (modifier.code == kDefineTable) {
        size_t counted = uint16At(rest_, 0);
        modifier.operand = takeOperand(rest_, 2, counted > 0 ? counted - 1 : 0);
    } else if (modifier.code == kChangeTabs) {
        modifier.operand = takeOperand(rest_, 1, changeTabsLength(rest_));
    } else {
        modifier.operand = takeOperand(rest_, 1, uint8At(rest_, 0));
    }
    return modifier.operand.data() != nullptr;
}

bool ModifierReader::nextOld(Modifier& modifier) {
    if (rest_.empty()) return false;
    OldModifier old = oldModifier(uint8At(rest_, 0));
    rest_.remove_prefix(1);
    modifier.code = old.code;
    switch (old.length) {
    case OldModifier::kUnknown: return false;
    case OldModifier::kLengthByte: modifier.operand = takeOperand(rest_, 1, uint8At(rest_, 0)); break;
    case OldModifier::kTabs: modifier.operand = takeOperand(rest_, 1, changeTabsLength(rest_)); break;
    case OldModifier::kLengthWord: {
        size_t counted = uint16At(rest_, 0);
        modifier.operand = takeOperand(rest_, 2, counted > 0 ? counted - 1 : 0);
        break;
    }
    default: modifier.operand = takeOperand(rest_, 0, old.length);
    }
    return modifier.operand.data() != nullptr;
}

void CharacterModifiers::apply(std::string_view list, bool isOld) {
    ModifierReader reader(list, isOld);
    for (Modifier modifier; reader.next(modifier);) {
        switch (modifier.code) {
        case kDeleted: deleted = toggle(modifier.byte()); break;
        case kHidden: hidden = toggle(modifier.byte()); break;
        case kCharacterStyle: style = modifier.number(); break;
        case kFont: font = modifier.number(); break;
        case kPlain:
            hidden = Toggle::asStyle;
            font.reset();
            break;
        case kSymbol:
            symbolFont = modifier.number();
            symbol = isOld ? char16_t(0xF000 | uint8At(modifier.operand, 2)) : uint16At(modifier.operand, 2);
            break;
        default: break;
        }
    }
}

void ListMembership::add(const ListMembership& other) {
    if (other.list) list = other.list;
    if (other.level) level = other.level;
    if (other.oldLevel) oldLevel = other.oldLevel;
    if (!other.oldDescription.empty()) oldDescription = other.oldDescription;
}

void ParagraphModifiers::apply(std::string_view list, bool isOld) {
    ModifierReader reader(list, isOld);
    for (Modifier modifier; reader.next(modifier);) {
        switch (modifier.code) {
        case kBeginsPage: beginsPage = modifier.byte() != 0; break;
        case kInTable: isInTable = modifier.byte() != 0; break;
        case kEndsRow: endsRow = modifier.byte() != 0; break;
        case kEndsInnerRow: endsInnerRow = modifier.byte() != 0; break;
        case kList: membership.list = modifier.number(); break;
        case kListLevel: membership.level = modifier.byte(); break;
        case kFarModifiers:
        case kFarModifiersToo: farOffset = uint32At(modifier.operand, 0); break;
        case kOldNumberingLevel: membership.oldLevel = modifier.byte(); break;
        case kOldNumbering: membership.oldDescription = modifier.operand; break;
        default: break;
        }
    }
}

void SectionModifiers::apply(std::string_view list, bool isOld) {
    ModifierReader reader(list, isOld);
    for (Modifier modifier; reader.next(modifier);) {
        switch (modifier.code) {
        case kPageWidth: pageWidth = modifier.number(); break;
        case kPageHeight: pageHeight = modifier.number(); break;
        case kLeftMargin: leftMargin = modifier.number(); break;
        case kRightMargin: rightMargin = modifier.number(); break;
        case kTopMargin: topMargin = int16_t(modifier.number()); break;
        case kBottomMargin: bottomMargin = int16_t(modifier.number()); break;
        default: break;
        }
    }
}

} // namespace Word
