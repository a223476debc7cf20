// SPDX-License-Identifier: Apache-2.0
#include "Platform/Foundation/SevenBitForm.h"

#include "Platform/Foundation/ASCII.h"

#include <algorithm>
#include <iterator>

namespace {

constexpr char kMalformed = '\xFF';
constexpr char kEscape = '\x1B';
constexpr char kShiftOut = '\x0E';
constexpr char kShiftIn = '\x0F';

bool isGraphic(char byte) { return byte >= 0x21 && byte <= 0x7E; }
char highByte(char byte) { return char(byte | 0x80); }

// Takes `prefix` from the front of `bytes` if it is there.
bool take(std::string_view& bytes, std::string_view prefix) {
    if (!bytes.starts_with(prefix)) return false;
    bytes.remove_prefix(prefix.size());
    return true;
}

// Takes a two-byte character, of which the first byte is known to be graphic.
void takePair(std::string& out, std::string_view& bytes) {
    if (bytes.size() >= 2 && isGraphic(bytes[1])) {
        out += {highByte(bytes[0]), highByte(bytes[1])};
        bytes.remove_prefix(2);
    } else {
        out += kMalformed;
        bytes.remove_prefix(1);
    }
}

enum class JapaneseSet { latin, katakana, kanji, supplement };

// Backslash and tilde of JIS X 0201 Latin are read as those of ASCII: hardly a writer told the two sets
// apart.
constexpr struct {
    std::string_view escape;
    JapaneseSet set;
} kJapaneseSets[] = {
    {"\x1B(B", JapaneseSet::latin},  {"\x1B(J", JapaneseSet::latin},       {"\x1B(I", JapaneseSet::katakana},
    {"\x1B$@", JapaneseSet::kanji},  {"\x1B$B", JapaneseSet::kanji},       {"\x1B$(@", JapaneseSet::kanji},
    {"\x1B$(B", JapaneseSet::kanji}, {"\x1B$(D", JapaneseSet::supplement},
};

void takeJapaneseCharacter(std::string& out, std::string_view& bytes, JapaneseSet set) {
    if (set == JapaneseSet::katakana) {
        // JIS X 0201 ends at 5F; the single-shift byte leads it in EUC-JP.
        if (bytes[0] <= 0x5F) {
            out += {'\x8E', highByte(bytes[0])};
        } else {
            out += kMalformed;
        }
        bytes.remove_prefix(1);
        return;
    }
    if (set == JapaneseSet::supplement && bytes.size() >= 2 && isGraphic(bytes[1])) out += '\x8F';
    takePair(out, bytes);
}

std::string fromISO2022JP(std::string_view bytes) {
    std::string out;
    out.reserve(bytes.size());
    JapaneseSet set = JapaneseSet::latin;
    while (!bytes.empty()) {
        if (bytes[0] == kEscape) {
            const auto* row = std::find_if(std::begin(kJapaneseSets), std::end(kJapaneseSets),
                                           [&](const auto& entry) { return take(bytes, entry.escape); });
            if (row != std::end(kJapaneseSets)) {
                set = row->set;
                continue;
            }
        }
        if (set != JapaneseSet::latin && isGraphic(bytes[0])) {
            takeJapaneseCharacter(out, bytes, set);
        } else {
            // Eight-bit bytes have no place here, nor has an escape that leads to no set.
            out += isASCII(bytes[0]) && bytes[0] != kEscape ? bytes[0] : kMalformed;
            bytes.remove_prefix(1);
        }
    }
    return out;
}

std::string fromISO2022KR(std::string_view bytes) {
    std::string out;
    out.reserve(bytes.size());
    bool korean = false;
    while (!bytes.empty()) {
        if (take(bytes, "\x1B$)C")) continue; // the header, which only announces the one set there is
        const char byte = bytes[0];
        if (byte == kShiftOut || byte == kShiftIn) {
            korean = byte == kShiftOut;
            bytes.remove_prefix(1);
        } else if (korean && isGraphic(byte)) {
            takePair(out, bytes);
        } else {
            out += isASCII(byte) && byte != kEscape ? byte : kMalformed;
            bytes.remove_prefix(1);
        }
    }
    return out;
}

std::string fromHZ(std::string_view bytes) {
    std::string out;
    out.reserve(bytes.size());
    bool chinese = false;
    while (!bytes.empty()) {
        if (take(bytes, "~{")) {
            chinese = true;
        } else if (take(bytes, "~}")) {
            chinese = false;
        } else if (take(bytes, "~\n")) {
            // A line continued.
        } else if (!chinese && take(bytes, "~~")) {
            out += '~';
        } else if (chinese && isGraphic(bytes[0])) {
            takePair(out, bytes);
        } else {
            out += isASCII(bytes[0]) && bytes[0] != '~' ? bytes[0] : kMalformed;
            bytes.remove_prefix(1);
        }
    }
    return out;
}

} // namespace

std::string eightBitForm(std::string_view bytes, NSStringEncoding encoding) {
    switch (encoding) {
    case NSISO2022JPStringEncoding: return fromISO2022JP(bytes);
    case kEncodingISO2022KR: return fromISO2022KR(bytes);
    default: return fromHZ(bytes);
    }
}
