// SPDX-License-Identifier: Apache-2.0
#include "Platform/Foundation/UnicodeText.h"

#include <array>
#include <cstddef>
#include <cstring>

namespace {

using Byte = unsigned char;

constexpr size_t kBlock = 16;

// Gathers units on the stack: the string grows by whole chunks and is never filled with zeros first.
template <typename Unit>
class Chunk {
public:
    explicit Chunk(std::basic_string<Unit>& out) : out_(out) {}
    ~Chunk() = default;
    Chunk(const Chunk&) = delete;
    Chunk& operator=(const Chunk&) = delete;

    // Room for at most kBlock units, to be taken by `used`.
    Unit* room() {
        if (count_ + kBlock > units_.size()) flush();
        return units_.data() + count_;
    }
    void used(size_t count) { count_ += count; }
    void push(Unit unit) {
        *room() = unit;
        used(1);
    }
    void flush() {
        out_.append(units_.data(), count_);
        count_ = 0;
    }

private:
    std::basic_string<Unit>& out_;
    size_t count_ = 0;
    std::array<Unit, 4096 / sizeof(Unit)> units_;
};

using UnitChunk = Chunk<char16_t>;
using ByteChunk = Chunk<char>;

bool isASCIIBlock(const Byte* bytes) {
    std::array<uint64_t, kBlock / 8> words;
    std::memcpy(words.data(), bytes, kBlock);
    return ((words[0] | words[1]) & 0x8080808080808080u) == 0;
}

bool isASCIIBlock(const char16_t* units) {
    std::array<uint64_t, kBlock / 4> words;
    std::memcpy(words.data(), units, sizeof words);
    return ((words[0] | words[1] | words[2] | words[3]) & 0xFF80FF80FF80FF80u) == 0;
}

// Copies a block through a local of its own, which tells the compiler that source and target are apart.
template <typename To, typename From>
void convertBlock(To* to, const From* from) {
    std::array<From, kBlock> block;
    std::memcpy(block.data(), from, sizeof block);
    for (size_t i = 0; i < kBlock; ++i) to[i] = To(block[i]);
}

// Takes the ASCII run at `p` and returns its end.
template <typename To, typename From>
const From* appendASCIIRun(Chunk<To>& chunk, const From* p, const From* end) {
    while (size_t(end - p) >= kBlock && isASCIIBlock(p)) {
        convertBlock(chunk.room(), p);
        chunk.used(kBlock);
        p += kBlock;
    }
    while (p < end && *p < 0x80) chunk.push(To(*p++));
    return p;
}

struct Sequence {
    char32_t codePoint;
    unsigned length; // of the sequence, or of the maximal ill-formed part
    bool wellFormed;
};

bool isTrail(Byte byte) { return (byte & 0xC0) == 0x80; }

// The maximal ill-formed part at `p`, or the sequence where it is rare enough to be read byte by byte.
Sequence decodeStepwise(const Byte* p, const Byte* end, bool surrogatesToo) {
    const Byte lead = *p;
    if (lead < 0xC2 || lead > 0xF4) return {kReplacementCharacter, 1, false};

    // Overlong forms, surrogates and values above U+10FFFF all show in the range of the second byte.
    Byte low = 0x80, high = 0xBF;
    if (lead == 0xE0) low = 0xA0;
    if (lead == 0xED && !surrogatesToo) high = 0x9F;
    if (lead == 0xF0) low = 0x90;
    if (lead == 0xF4) high = 0x8F;

    const unsigned length = lead < 0xE0 ? 2 : lead < 0xF0 ? 3 : 4;
    char32_t codePoint = lead & (0x7Fu >> length);
    for (unsigned i = 1; i < length; ++i) {
        if (p + i == end || p[i] < low || p[i] > high) return {kReplacementCharacter, i, false};
        codePoint = codePoint << 6 | (p[i] & 0x3Fu);
        low = 0x80;
        high = 0xBF;
    }
    return {codePoint, length, true};
}

// The sequence at `p`, whose first byte is 0x80 or above. Two and three good bytes are most of all text.
inline Sequence decodeSequence(const Byte* p, const Byte* end, bool surrogatesToo) {
    if (end - p >= 3 && isTrail(p[1])) {
        if (p[0] >= 0xC2 && p[0] < 0xE0) return {char32_t(p[0] & 0x1F) << 6 | (p[1] & 0x3Fu), 2, true};
        if ((p[0] & 0xF0) == 0xE0 && isTrail(p[2])) {
            const char32_t codePoint =
                char32_t(p[0] & 0x0F) << 12 | char32_t(p[1] & 0x3F) << 6 | (p[2] & 0x3Fu);
            if (codePoint >= 0x800 && !isSurrogate(codePoint)) return {codePoint, 3, true};
        }
    }
    return decodeStepwise(p, end, surrogatesToo);
}

// Writes the units of a code point and returns how many there are.
size_t putUnits(char16_t* to, char32_t codePoint) {
    if (codePoint < 0x10000) {
        to[0] = char16_t(codePoint);
        return 1;
    }
    codePoint -= 0x10000;
    to[0] = char16_t(0xD800 + (codePoint >> 10));
    to[1] = char16_t(0xDC00 + (codePoint & 0x3FF));
    return 2;
}

// Writes the bytes of a code point and returns how many there are.
size_t putBytes(char* to, char32_t codePoint) {
    auto trail = [codePoint](unsigned shift) { return char(0x80 | (codePoint >> shift & 0x3F)); };
    if (codePoint < 0x80) {
        to[0] = char(codePoint);
        return 1;
    }
    if (codePoint < 0x800) {
        to[0] = char(0xC0 | codePoint >> 6);
        to[1] = trail(0);
        return 2;
    }
    if (codePoint < 0x10000) {
        to[0] = char(0xE0 | codePoint >> 12);
        to[1] = trail(6);
        to[2] = trail(0);
        return 3;
    }
    to[0] = char(0xF0 | codePoint >> 18);
    to[1] = trail(12);
    to[2] = trail(6);
    to[3] = trail(0);
    return 4;
}

size_t putLoneSurrogate(char* to, char16_t surrogate, LoneSurrogates lone) {
    if (lone == LoneSurrogates::byteUnescaped && surrogate >= 0xDC80 && surrogate <= 0xDCFF) {
        to[0] = char(surrogate & 0xFF);
        return 1;
    }
    return putBytes(to, lone == LoneSurrogates::replaced ? kReplacementCharacter : surrogate);
}

const Byte* asBytes(std::string_view bytes) { return reinterpret_cast<const Byte*>(bytes.data()); }

} // namespace

void appendCodePoint(std::u16string& out, char32_t codePoint) {
    char16_t units[2];
    const size_t count = putUnits(units, codePoint > 0x10FFFF ? kReplacementCharacter : codePoint);
    out.append(units, count);
}

bool appendUTF8(std::u16string& out, std::string_view bytes, Malformed malformed) {
    const Byte* p = asBytes(bytes);
    const Byte* const end = p + bytes.size();
    bool wellFormed = true;
    // No byte gives more than one unit.
    out.reserve(out.size() + bytes.size());
    UnitChunk chunk(out);
    while (p < end) {
        if (*p < 0x80) {
            p = appendASCIIRun(chunk, p, end);
            continue;
        }
        const Sequence sequence = decodeSequence(p, end, malformed == Malformed::surrogatesKept);
        if (!sequence.wellFormed) wellFormed = false;
        if (!sequence.wellFormed && malformed == Malformed::byteEscaped) {
            for (unsigned i = 0; i < sequence.length; ++i) chunk.push(char16_t(0xDC00 + p[i]));
        } else {
            chunk.used(putUnits(chunk.room(), sequence.codePoint));
        }
        p += sequence.length;
    }
    chunk.flush();
    return wellFormed;
}

std::u16string fromUTF8(std::string_view bytes, Malformed malformed) {
    std::u16string text;
    appendUTF8(text, bytes, malformed);
    return text;
}

std::string toUTF8(std::u16string_view text, LoneSurrogates lone) {
    std::string bytes;
    bytes.reserve(text.size());
    ByteChunk chunk(bytes);
    const char16_t* p = text.data();
    const char16_t* const end = p + text.size();
    while (p < end) {
        if (*p < 0x80) {
            p = appendASCIIRun(chunk, p, end);
            continue;
        }
        const char16_t unit = *p++;
        if (!isSurrogate(unit)) {
            chunk.used(putBytes(chunk.room(), unit));
        } else if (isHighSurrogate(unit) && p < end && isLowSurrogate(*p)) {
            chunk.used(putBytes(chunk.room(), joinSurrogates(unit, *p++)));
        } else {
            chunk.used(putLoneSurrogate(chunk.room(), unit, lone));
        }
    }
    chunk.flush();
    return bytes;
}

bool hasLoneSurrogate(std::u16string_view text) {
    for (size_t i = 0; i < text.size(); ++i) {
        if (!isSurrogate(text[i])) continue;
        if (!isHighSurrogate(text[i]) || i + 1 == text.size() || !isLowSurrogate(text[i + 1])) return true;
        ++i;
    }
    return false;
}

bool isUTF8(std::string_view bytes) {
    const Byte* p = asBytes(bytes);
    const Byte* const end = p + bytes.size();
    while (p < end) {
        if (size_t(end - p) >= kBlock && isASCIIBlock(p)) {
            p += kBlock;
        } else if (*p < 0x80) {
            ++p;
        } else {
            const Sequence sequence = decodeSequence(p, end, false);
            if (!sequence.wellFormed) return false;
            p += sequence.length;
        }
    }
    return true;
}
