// SPDX-License-Identifier: Apache-2.0
//
// The atoms of a QuickTime or ISO media file: a length, four characters for the type, a body.
#pragma once

#include "Platform/Foundation/ByteSource.h"

#include <string>

using AtomType = uint32_t;

constexpr AtomType atomType(const char (&name)[5]) {
    AtomType type = 0;
    for (int i = 0; i < 4; ++i) type = type << 8 | static_cast<unsigned char>(name[i]);
    return type;
}

// The type as a key: "@" for the byte A9; "" when another byte is not printable ASCII.
std::string keyOfAtomType(AtomType type);

struct Atom {
    AtomType type = 0;
    ByteRange body;
};

// What the reading of one file may still cost.
struct AtomAllowance {
    uint32_t atoms = 100'000;
    ByteAllowance values{64 << 20};
    bool mayInflate = true; // one compressed movie
};

// Goes through the atoms that lie one after the other in a range. An atom that claims more than the range has
// is cut to it; what cannot be an atom ends the list.
class AtomList {
public:
    // `source` and `allowance` must outlive the list.
    AtomList(ByteSource& source, ByteRange range, AtomAllowance& allowance)
        : source_(source), rest_(range), allowance_(allowance) {}

    // False at the end.
    bool next(Atom& atom);

private:
    ByteSource& source_;
    ByteRange rest_;
    AtomAllowance& allowance_;
};
