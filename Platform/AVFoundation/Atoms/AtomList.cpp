// SPDX-License-Identifier: Apache-2.0
#include "Platform/AVFoundation/Atoms/AtomList.h"

std::string keyOfAtomType(AtomType type) {
    std::string key;
    for (int shift = 24; shift >= 0; shift -= 8) {
        const unsigned char byte = type >> shift & 0xFF;
        if (byte != 0xA9 && (byte < 0x20 || byte > 0x7E)) return {};
        key.push_back(byte == 0xA9 ? '@' : char(byte));
    }
    return key;
}

bool AtomList::next(Atom& atom) {
    if (rest_.length() < 8 || allowance_.atoms == 0) return false;
    --allowance_.atoms;
    uint64_t length = source_.bigEndian(rest_.begin, 4);
    atom.type = AtomType(source_.bigEndian(rest_.begin + 4, 4));
    uint64_t header = 8;
    if (length == 1) {
        header = 16;
        length = source_.bigEndian(rest_.begin + 8, 8);
    } else if (length == 0 && atom.type != 0 && rest_.end == source_.size()) {
        length = rest_.length(); // the last one of the file may leave its length open
    }
    if (length < header || rest_.length() < header) return false;
    const ByteRange whole = rest_.part(0, length);
    atom.body = whole.part(header);
    rest_ = rest_.part(length);
    return true;
}
