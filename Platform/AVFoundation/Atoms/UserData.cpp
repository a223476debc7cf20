// SPDX-License-Identifier: Apache-2.0
#include "Platform/AVFoundation/Atoms/UserData.h"

#include "Platform/AVFoundation/Atoms/AtomText.h"
#include "Platform/AVFoundation/Atoms/ItemList.h"
#include "Platform/Foundation/NSStringEncoding.h"

#include <algorithm>
#include <optional>

namespace {

constexpr unsigned char kInternational = 0xA9;

// Text from the start to the first U+0000.
std::string_view upToNull(std::string_view bytes) { return bytes.substr(0, bytes.find('\0')); }

unsigned number16(std::string_view bytes, size_t at) {
    return unsigned(static_cast<unsigned char>(bytes[at])) << 8 | static_cast<unsigned char>(bytes[at + 1]);
}

// One of the texts in several languages: length, language, text.
struct LanguageText {
    unsigned language;
    std::string_view text;
};

// Takes the first text off; nothing when there is no such list, or no more of it.
std::optional<LanguageText> takeText(std::string_view& list) {
    if (list.size() < 4) return std::nullopt;
    size_t length = number16(list, 0);
    // Some writers count the four bytes in front.
    if (length > list.size() - 4 && length >= 4 && length <= list.size()) length -= 4;
    if (length > list.size() - 4) return std::nullopt;
    const LanguageText first{number16(list, 2), list.substr(4, length)};
    list.remove_prefix(4 + length);
    return first;
}

// The text of a 3GP or ISO atom: version and flags, language, text to a null; or, by some writers, text only.
std::u16string textOfISOAtom(std::string_view body) {
    if (body.size() < 6 || body.substr(0, 4) != std::string_view("\0\0\0\0", 4))
        return textOfUTF8(upToNull(body));
    body.remove_prefix(6);
    if (!isMarkedUTF16(body)) return textOfUTF8(upToNull(body));
    std::u16string text = textOfUTF16(body);
    return text.substr(0, text.find(u'\0'));
}

class UserDataReader {
public:
    UserDataReader(ByteSource& source, AtomAllowance& allowance, std::vector<MediaItem>& items)
        : source_(source), allowance_(allowance), items_(items) {}

    void read(const Atom& atom) {
        if (atom.type == atomType("meta")) {
            readItemList(source_, atom.body, allowance_, items_);
        } else if (atom.type >> 24 == kInternational) {
            readInternationalText(atom);
        } else if (isISOText(atom.type)) {
            add(MediaKeySpace::isoUserData, atom.type, textOfISOAtom(body(atom)));
        } else if (atom.type == atomType("tnam")) {
            add(MediaKeySpace::quickTimeUserData, atom.type, textOfISOAtom(body(atom)));
        }
    }

private:
    static bool isISOText(AtomType type) {
        constexpr AtomType types[] = {atomType("titl"), atomType("auth"), atomType("perf"),
                                      atomType("dscp"), atomType("cprt"), atomType("gnre"),
                                      atomType("albm"), atomType("coll"), atomType("loci")};
        return std::find(std::begin(types), std::end(types), type) != std::end(types);
    }

    std::string body(const Atom& atom) const { return allowance_.values.take(source_, atom.body); }

    void add(MediaKeySpace space, AtomType type, MediaValue value) {
        const std::string key = keyOfAtomType(type);
        if (!key.empty()) items_.push_back({space, key, std::move(value)});
    }

    // The atom holds texts in several languages, or by some writers a `data` atom or nothing but text.
    void readInternationalText(const Atom& atom) {
        const std::string bytes = body(atom);
        std::string_view list = bytes;
        if (list.size() >= 8 && list.substr(4, 4) == "data") {
            const MediaValue value = valueOfDataAtom(source_, atom.body.part(8), true, allowance_);
            add(MediaKeySpace::quickTimeUserData, atom.type, value);
            return;
        }
        std::optional<LanguageText> text = takeText(list);
        if (!text) add(MediaKeySpace::quickTimeUserData, atom.type, textOfUTF8(bytes));
        for (; text; text = takeText(list)) {
            add(MediaKeySpace::quickTimeUserData, atom.type, textInLanguage(text->text, text->language));
        }
    }

    ByteSource& source_;
    AtomAllowance& allowance_;
    std::vector<MediaItem>& items_;
};

} // namespace

void readUserData(ByteSource& source, ByteRange userData, AtomAllowance& allowance,
                  std::vector<MediaItem>& items) {
    UserDataReader reader(source, allowance, items);
    AtomList atoms(source, userData, allowance);
    for (Atom atom; atoms.next(atom);) reader.read(atom);
}
