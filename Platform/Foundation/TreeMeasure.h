// SPDX-License-Identifier: Apache-2.0
//
// The size of an object when it is walked as a tree, shared parts once for every way to them. A few bytes of
// references can describe a tree of any size, and whoever prints, compares or frees an object walks it as
// one.
#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>

struct TreeMeasure {
    uint64_t nodes = 1;
    unsigned height = 0; // 0 for a leaf, one more than the highest part for a container

    // A leaf of that many bytes or units, which counts for more than one node when it is long.
    static TreeMeasure leaf(size_t length) { return {1 + uint64_t(length) / 64, 0}; }
    static TreeMeasure container() { return {1, 1}; }

    void add(const TreeMeasure& part) {
        nodes = std::min(nodes + part.nodes, uint64_t(1) << 62);
        height = std::max(height, part.height + 1);
    }

    // A tree without shared parts always has fewer nodes than the document it comes from has bytes.
    bool fits(size_t documentLength, unsigned heightLimit) const {
        return nodes <= 16'000'000 + uint64_t(documentLength) && height <= heightLimit;
    }
};
