// SPDX-License-Identifier: Apache-2.0
#include "Platform/AppKit/HTML/HTMLTree.h"

#include <algorithm>
#include <csetjmp>
#include <new>

namespace {

constexpr size_t kAlignment = alignof(void*);
constexpr size_t kSmallestBlock = size_t(64) << 10;
constexpr size_t kLargestBlock = size_t(4) << 20;

// Pages take about seven bytes for each of their own; a source of nothing but the shortest tags takes 60.
constexpr size_t kUsualGrowth = 7;
constexpr size_t kLargestGrowth = 96;
constexpr size_t kLimitBase = size_t(16) << 20;
constexpr size_t kLimit = size_t(2) << 30;

// The time for the parser, a hundred times what it takes for pages that nobody made to keep it busy.
std::chrono::duration<double> timeFor(size_t bytes) {
    return std::chrono::duration<double>(1 + 2e-6 * double(bytes));
}

// What the parsing library's memory functions work on. They are called from C, which no exception may pass; a
// jump back over the parser, which owns nothing but arena memory, is the way to stop it.
struct Parse {
    HTMLArena& arena;
    Deadline& deadline;
    Deadline ownDeadline;
    GumboOutput* output = nullptr; // the first thing that the parser asks memory for
    std::jmp_buf stop;
};

bool stopped(Parse& parse) {
    const bool late = parse.deadline.passed() || parse.ownDeadline.passed();
    return late && parse.output && parse.output->document;
}

void* allocate(void* context, size_t size) {
    Parse& parse = *static_cast<Parse*>(context);
    void* memory = stopped(parse) ? nullptr : parse.arena.allocate(size);
    if (!memory) std::longjmp(parse.stop, 1);
    if (!parse.output) {
        parse.output = static_cast<GumboOutput*>(memory);
        parse.output->document = nullptr;
    }
    return memory;
}

void release(void* context, void* memory) { static_cast<Parse*>(context)->arena.release(memory); }

// False when the parser was stopped. What changes between the mark and the jump lies outside of this
// function.
bool run(Parse& parse, std::string_view utf8) {
    GumboOptions options = kGumboDefaultOptions;
    options.allocator = allocate;
    options.deallocator = release;
    options.userdata = &parse;
    options.max_errors = 0;
    if (setjmp(parse.stop) != 0) return false;
    gumbo_parse_with_options(&options, utf8.data(), utf8.size());
    return true;
}

} // namespace

void* HTMLArena::allocate(size_t size) {
    if (size > left_) return nullptr;
    size = (std::max(size, size_t(1)) + kAlignment - 1) & ~(kAlignment - 1);
    if (size > size_t(end_ - free_)) {
        const size_t blockSize = std::max(nextBlock_, size);
        if (blocks_.size() == blocks_.capacity()) {
            try {
                blocks_.reserve(blocks_.size() * 2 + 8);
            } catch (const std::bad_alloc&) {
                return nullptr;
            }
        }
        // The pages of a block stay untouched until they are used.
        std::byte* block = new (std::nothrow) std::byte[blockSize];
        if (!block) return nullptr;
        blocks_.emplace_back(block);
        free_ = block;
        end_ = block + blockSize;
        nextBlock_ = std::min(nextBlock_ * 2, kLargestBlock);
    }
    left_ -= std::min(left_, size);
    last_ = free_;
    free_ += size;
    return last_;
}

void HTMLArena::release(void* memory) {
    if (!memory || memory != last_) return;
    left_ += size_t(free_ - last_);
    free_ = last_;
    last_ = nullptr;
}

HTMLTree::HTMLTree(std::string_view utf8, Deadline& deadline)
    : arena_(std::clamp(utf8.size() * kUsualGrowth, kSmallestBlock, kLargestBlock),
             std::min(kLimitBase + utf8.size() * kLargestGrowth, kLimit)) {
    Parse parse{arena_, deadline, Deadline(timeFor(utf8.size())), nullptr, {}};
    whole_ = run(parse, utf8);
    if (!parse.output || !parse.output->document) throw std::bad_alloc();
    document_ = parse.output->document;
}
