// SPDX-License-Identifier: Apache-2.0
//
// How long the removal of NULs and the finding of lines take in a very long text, beside a plain copy of it.
// The best of several rounds each.
#include "ZORFoundation/Source/NSString+ZORTextMunging.h"

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <string>

namespace {

using Clock = std::chrono::steady_clock;

constexpr size_t kUnits = 50'000'000;
constexpr int kRounds = 7;

// `every`th units are `unit`, all others letters.
std::u16string textWith(char16_t unit, size_t every) {
    std::u16string text(kUnits, u'x');
    for (size_t i = every - 1; i < text.size(); i += every) text[i] = unit;
    return text;
}

template <class Work>
void measure(const char* what, Work work) {
    double best = 1e9;
    for (int round = 0; round < kRounds; ++round) {
        const auto start = Clock::now();
        work();
        best = std::min(best, std::chrono::duration<double>(Clock::now() - start).count());
    }
    printf("%-36s %8.2f ms  %6.2f GB/s\n", what, best * 1e3, double(kUnits) * 2 / best / 1e9);
}

void require(bool condition) {
    if (!condition) abort();
}

void measureNuls(const char* what, const NSString& text) {
    const size_t nuls = size_t(std::count(text.text().begin(), text.text().end(), u'\0'));
    measure(what, [&] { require(zorStringByTrimmingNulls(text).length() == kUnits - nuls); });
}

void measureLines(const char* what, const NSString& text, size_t lines) {
    measure(what, [&] { require(zorComponentsSeparatedByLineSeparators(text).count() == lines); });
}

} // namespace

int main() {
    const NSString plain = textWith(u'x', 1);
    printf("A text of %zu bytes\n", kUnits * 2);
    measure("copy into new memory", [&] { require(NSString(plain.text()).length() == kUnits); });
    measureNuls("trim NULs: none", plain);
    measureNuls("trim NULs: every 1000th unit", textWith(0, 1000));
    measureNuls("trim NULs: every second unit", textWith(0, 2));
    measureLines("lines: one", plain, 1);
    measureLines("lines: of 1000 units", textWith(u'\n', 1000), kUnits / 1000);
    measureLines("lines: of 80 units", textWith(u'\n', 80), kUnits / 80);
    measure("normalize line breaks: none",
            [&] { require(zorStringByNormalizingLineBreaks(plain).length()); });
    const NSString breaks = textWith(u'\r', 80);
    measure("normalize line breaks: every 80th",
            [&] { require(zorStringByNormalizingLineBreaks(breaks).length() == kUnits); });
}
