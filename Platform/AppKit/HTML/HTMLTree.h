// SPDX-License-Identifier: Apache-2.0
//
// The element tree of an HTML document, built by the parsing library in one arena that is dropped as a whole:
// no node is freed by itself, and none of the library's walks over the tree happens at the end.
//
// The arena is also the valve: when it has grown out of proportion to the source, when the system gives no
// more memory, or when the deadline has passed, the parser is stopped where it stands and the tree is what it
// had built until then. Throws std::bad_alloc when not even the first piece of memory can be had.
#pragma once

#include "Platform/Foundation/Deadline.h"

#include <cstddef>
#include <gumbo.h>
#include <memory>
#include <string_view>
#include <vector>

class HTMLArena {
public:
    // `limit` is in bytes.
    HTMLArena(size_t firstBlock, size_t limit) : nextBlock_(firstBlock), left_(limit) {}

    // Null when the limit or the system's memory is used up. Aligned for pointers and for what is smaller.
    void* allocate(size_t size);

    // Takes memory back only when it is what was given last, as the library's growing buffers often are.
    void release(void* memory);

private:
    std::vector<std::unique_ptr<std::byte[]>> blocks_;
    std::byte* free_ = nullptr;
    std::byte* end_ = nullptr;
    std::byte* last_ = nullptr;
    size_t nextBlock_, left_;
};

class HTMLTree {
public:
    // `utf8` must outlive the tree.
    HTMLTree(std::string_view utf8, Deadline& deadline);
    HTMLTree(const HTMLTree&) = delete;
    HTMLTree& operator=(const HTMLTree&) = delete;

    // The document node.
    const GumboNode* document() const { return document_; }

    // False when the parser was stopped.
    bool isWhole() const { return whole_; }

private:
    HTMLArena arena_;
    const GumboNode* document_ = nullptr;
    bool whole_ = false;
};

// The children of a node, none for a text.
inline const GumboVector* childrenOf(const GumboNode* node) {
    switch (node->type) {
    case GUMBO_NODE_DOCUMENT: return &node->v.document.children;
    case GUMBO_NODE_ELEMENT:
    case GUMBO_NODE_TEMPLATE: return &node->v.element.children;
    default: return nullptr;
    }
}
