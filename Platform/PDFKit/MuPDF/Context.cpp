// SPDX-License-Identifier: Apache-2.0
#include "Platform/PDFKit/MuPDF/Context.h"

#include <cstdlib>
#include <malloc.h>

namespace {

constexpr size_t kBudget = size_t(96) << 20; // bytes, whatever the document's size
constexpr size_t kBudgetPerByte = 8;         // of the document
constexpr size_t kStore = size_t(4) << 20;   // bytes of fonts and tables that are kept for later pages

bool take(size_t& left, void* block) {
    size_t size = malloc_usable_size(block);
    if (size > left) return false;
    left -= size;
    return true;
}

void* allocate(void* user, size_t size) {
    size_t& left = *static_cast<size_t*>(user);
    if (size > left) return nullptr;
    void* block = malloc(size);
    if (block && !take(left, block)) {
        free(block);
        return nullptr;
    }
    return block;
}

void release(void* user, void* block) {
    *static_cast<size_t*>(user) += malloc_usable_size(block);
    free(block);
}

void* reallocate(void* user, void* block, size_t size) {
    size_t& left = *static_cast<size_t*>(user);
    size_t old = malloc_usable_size(block);
    if (size > old && size - old > left) return nullptr;
    void* moved = realloc(block, size);
    if (!moved) return nullptr;
    size_t now = malloc_usable_size(moved);
    left = left + old > now ? left + old - now : 0;
    return moved;
}

void ignoreMessage(void*, const char*) {}

} // namespace

Context::Context(size_t documentSize)
    : left_(kBudget + kBudgetPerByte * documentSize), allocator_{&left_, allocate, reallocate, release},
      context_(fz_new_context(&allocator_, nullptr, kStore)) {
    if (!context_) return;
    fz_set_warning_callback(context_, ignoreMessage, nullptr);
    fz_set_error_callback(context_, ignoreMessage, nullptr);
}

Context::~Context() { fz_drop_context(context_); }
