// SPDX-License-Identifier: Apache-2.0
#include "Platform/SearchKit/TermTable.h"

#include <cstring>
#include <limits>
#include <stdexcept>
#include <sys/auxv.h>

namespace {

constexpr size_t kFirstSize = 1024; // a power of two

uint64_t processSeed() {
    uint64_t seed = 0;
    if (const auto random = reinterpret_cast<const void*>(getauxval(AT_RANDOM)))
        std::memcpy(&seed, random, sizeof seed);
    return seed;
}

} // namespace

TermTable::TermTable() : seed_(processSeed()), slots_(kFirstSize) {}

uint32_t TermTable::hash(std::u16string_view term) const {
    uint64_t value = seed_;
    for (const char16_t unit : term) {
        value = (value ^ unit) * 0x9E3779B97F4A7C15;
        value ^= value >> 32;
    }
    return uint32_t(value);
}

std::u16string_view TermTable::term(uint32_t number) const {
    const size_t begin = number > 0 ? ends_[number - 1] : 0;
    return std::u16string_view(texts_).substr(begin, ends_[number] - begin);
}

TermTable::Slot& TermTable::slotFor(std::u16string_view wanted, uint32_t hash) {
    for (size_t at = hash;; ++at) {
        Slot& slot = slots_[at & (slots_.size() - 1)];
        if (slot.next == 0 || (slot.hash == hash && term(slot.next - 1) == wanted)) return slot;
    }
}

uint32_t TermTable::number(std::u16string_view wanted) {
    const uint32_t code = hash(wanted);
    if (const Slot& slot = slotFor(wanted, code); slot.next > 0) return slot.next - 1;
    if (ends_.size() + 1 >= std::numeric_limits<uint32_t>::max()) throw std::length_error("terms");
    if (2 * (ends_.size() + 1) > slots_.size()) grow();
    texts_ += wanted;
    ends_.push_back(texts_.size());
    slotFor(wanted, code) = {code, uint32_t(ends_.size())};
    return uint32_t(ends_.size() - 1);
}

void TermTable::grow() {
    std::vector<Slot> larger(2 * slots_.size());
    for (const Slot& slot : slots_) {
        if (slot.next == 0) continue;
        size_t at = slot.hash;
        while (larger[at & (larger.size() - 1)].next > 0) ++at;
        larger[at & (larger.size() - 1)] = slot;
    }
    slots_.swap(larger);
}
