// SPDX-License-Identifier: Apache-2.0
//
// How long a record with a very long text takes in its binary and its XML form, beside a plain copy of as
// many bytes; and how long a short record takes. The best of several rounds each.
#include "Platform/Foundation/NSDictionary.h"
#include "Platform/Foundation/NSNumber.h"
#include "Platform/Foundation/NSPropertyListSerialization.h"

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <string>

namespace {

using Clock = std::chrono::steady_clock;

constexpr size_t kUnits = 100'000'000;
constexpr int kRounds = 7;

NSDictionary recordOf(const NSString& text) {
    return NSDictionary{
        {NSString(u"string"), text},          {NSString(u"title"), NSString(u"A title")},
        {NSString(u"author"), NSString(u"")}, {NSString(u"partsCount"), NSNumber::withInt(3)},
        {NSString(u"url"), NSString(u"")},    {NSString(u"otherAttributes"), NSDictionary::dictionary()}};
}

template <class Work>
double bestSeconds(Work work) {
    double best = 1e9;
    for (int round = 0; round < kRounds; ++round) {
        const auto start = Clock::now();
        work();
        best = std::min(best, std::chrono::duration<double>(Clock::now() - start).count());
    }
    return best;
}

void report(const char* what, size_t bytes, double seconds) {
    printf("%-28s %7.2f ms  %6.2f GB/s\n", what, seconds * 1e3, double(bytes) / seconds / 1e9);
}

void longText(const char* name, char16_t unit, NSPropertyListFormat format) {
    const NSDictionary record = recordOf(NSString(std::u16string(kUnits, unit)));
    const NSData written = dataFromPropertyList(record, format, nullptr);
    printf("%s, %zu bytes\n", name, written.length());
    report("  copy into new memory", written.length(), bestSeconds([&] {
               std::string copy(written.bytes());
               if (copy.size() != written.length()) abort();
           }));
    report("  write", written.length(), bestSeconds([&] {
               if (!dataFromPropertyList(record, format, nullptr)) abort();
           }));
    report("  read", written.length(), bestSeconds([&] {
               if (!propertyListWithData(written.bytes(), nullptr, nullptr)) abort();
           }));
}

void shortText() {
    constexpr int times = 1000;
    const NSDictionary record = recordOf(NSString(u"A short text."));
    const NSData written = dataFromPropertyList(record, NSPropertyListBinaryFormat_v1_0, nullptr);
    const double writing = bestSeconds([&] {
        for (int i = 0; i < times; ++i)
            dataFromPropertyList(record, NSPropertyListBinaryFormat_v1_0, nullptr);
    });
    const double reading = bestSeconds([&] {
        for (int i = 0; i < times; ++i) propertyListWithData(written.bytes(), nullptr, nullptr);
    });
    printf("short record, %zu bytes: write %.2f us, read %.2f us\n", written.length(), writing / times * 1e6,
           reading / times * 1e6);
}

} // namespace

int main() {
    longText("binary, ASCII", u'a', NSPropertyListBinaryFormat_v1_0);
    longText("binary, UTF-16", u'\u4E00', NSPropertyListBinaryFormat_v1_0);
    longText("XML, ASCII", u'a', NSPropertyListXMLFormat_v1_0);
    longText("XML, three bytes a unit", u'\u4E00', NSPropertyListXMLFormat_v1_0);
    shortText();
}
