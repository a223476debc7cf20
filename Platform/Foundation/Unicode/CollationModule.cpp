// SPDX-License-Identifier: Apache-2.0
//
// Sorting by the rules of a language. A module of its own: its library is as large as everything else that
// comparing text needs.
#include "Platform/Foundation/Collation.h"
#include "Platform/Foundation/Module.h"

#include <algorithm>
#include <memory>
#include <new>
#include <string>
#include <unicode/ucol.h>

namespace {

struct CloseCollator {
    void operator()(UCollator* collator) const { ucol_close(collator); }
};

std::unique_ptr<UCollator, CloseCollator> open(const std::string& locale) {
    UErrorCode status = U_ZERO_ERROR;
    std::unique_ptr<UCollator, CloseCollator> collator(ucol_open(locale.c_str(), &status));
    if (U_FAILURE(status)) return nullptr;
    ucol_setStrength(collator.get(), UCOL_SECONDARY); // accents count, case does not
    ucol_setAttribute(collator.get(), UCOL_NUMERIC_COLLATION, UCOL_ON, &status);
    return collator;
}

// Opening one takes far longer than comparing; each thread keeps that of the last locale.
const UCollator* collatorFor(const std::string& locale) {
    thread_local std::string opened;
    thread_local std::unique_ptr<UCollator, CloseCollator> collator;
    if (!collator || opened != locale) {
        collator = open(locale);
        opened = locale;
    }
    return collator.get();
}

int32_t shortLength(std::u16string_view text) { return int32_t(std::min<size_t>(text.size(), INT32_MAX)); }

} // namespace

extern "C" __attribute__((visibility("default"))) int
MODULE_ENTRY(std::u16string_view a, std::u16string_view b, const char* locale) noexcept {
    const UCollator* collator = nullptr;
    try {
        collator = collatorFor(*locale ? locale : "root");
    } catch (const std::bad_alloc&) { // as when the library cannot open one
    }
    if (!collator) return a.compare(b);
    return ucol_strcoll(collator, a.data(), shortLength(a), b.data(), shortLength(b));
}
