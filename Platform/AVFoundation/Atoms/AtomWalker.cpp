// SPDX-License-Identifier: Apache-2.0
#include "Platform/AVFoundation/Atoms/AtomWalker.h"

#include "Platform/AVFoundation/Atoms/AtomList.h"
#include "Platform/AVFoundation/Atoms/ItemList.h"
#include "Platform/AVFoundation/Atoms/UserData.h"
#include "Platform/AVFoundation/Inflate.h"

#include <algorithm>

namespace {

constexpr size_t kInflatedLimit = 64 << 20; // bytes of a compressed movie

void readAtoms(ByteSource& source, AtomAllowance& allowance, std::vector<MediaItem>& items);

// A movie that was compressed as a whole: the length that it inflates to, and a zlib stream.
void readCompressedMovie(ByteSource& source, ByteRange body, AtomAllowance& allowance,
                         std::vector<MediaItem>& items) {
    AtomList atoms(source, body, allowance);
    for (Atom atom; allowance.mayInflate && atoms.next(atom);) {
        if (atom.type != atomType("cmvd")) continue;
        allowance.mayInflate = false;
        const std::string movie = inflated(allowance.values.take(source, atom.body.part(4)), kInflatedLimit);
        MemorySource memory(movie);
        readAtoms(memory, allowance, items);
    }
}

void readMovie(ByteSource& source, ByteRange movie, AtomAllowance& allowance, std::vector<MediaItem>& items) {
    AtomList atoms(source, movie, allowance);
    for (Atom atom; atoms.next(atom);) {
        switch (atom.type) {
        case atomType("udta"): readUserData(source, atom.body, allowance, items); break;
        case atomType("meta"): readItemList(source, atom.body, allowance, items); break;
        case atomType("cmov"): readCompressedMovie(source, atom.body, allowance, items); break;
        default: break;
        }
    }
}

void readAtoms(ByteSource& source, AtomAllowance& allowance, std::vector<MediaItem>& items) {
    AtomList atoms(source, {0, source.size()}, allowance);
    bool hasMovie = false;
    for (Atom atom; atoms.next(atom);) {
        switch (atom.type) {
        case atomType("moov"):
            readMovie(source, atom.body, allowance, items);
            hasMovie = true;
            break;
        // Behind a movie's first fragment come thousands of others and nothing else.
        case atomType("moof"):
            if (hasMovie) return;
            break;
        case atomType("udta"): readUserData(source, atom.body, allowance, items); break;
        case atomType("meta"): readItemList(source, atom.body, allowance, items); break;
        default: break;
        }
    }
}

} // namespace

bool isAtomFile(ByteSource& source) {
    constexpr AtomType first[] = {atomType("ftyp"), atomType("moov"), atomType("mdat"), atomType("free"),
                                  atomType("skip"), atomType("wide"), atomType("pnot"), atomType("styp"),
                                  atomType("sidx"), atomType("moof"), atomType("uuid"), atomType("meta"),
                                  atomType("udta"), atomType("pdin")};
    const auto type = AtomType(source.bigEndian(4, 4));
    return std::find(std::begin(first), std::end(first), type) != std::end(first);
}

void readAtomFile(ByteSource& source, std::vector<MediaItem>& items) {
    AtomAllowance allowance;
    readAtoms(source, allowance, items);
}
