// SPDX-License-Identifier: Apache-2.0
//
// The engine's surroundings for one document: its memory, within a budget, and its messages, which nobody
// reads.
#pragma once

#include <mupdf/fitz.h>

#include <cstddef>

class Context {
public:
    // For a document of so many bytes.
    explicit Context(size_t documentSize);
    ~Context();
    Context(const Context&) = delete;
    Context& operator=(const Context&) = delete;

    // Null when there was no memory.
    fz_context* get() const { return context_; }

    // Bytes of the budget that nobody uses.
    size_t memoryLeft() const { return left_; }

private:
    size_t left_;
    fz_alloc_context allocator_;
    fz_context* context_;
};
