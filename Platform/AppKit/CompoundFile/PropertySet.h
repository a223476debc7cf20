// SPDX-License-Identifier: Apache-2.0
//
// A property set of OLE2, as the summary information streams of a document hold them: numbered properties of
// several types, of which texts and times are read here.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

class PropertySet {
public:
    // Reads the first section of the stream. What is missing or damaged is a property that is not there.
    // `stream` must outlive the set.
    explicit PropertySet(std::string_view stream);

    // The text of a property, "" when there is none. Byte strings are in the set's own code page.
    std::u16string text(uint32_t identifier) const;

    // Seconds since 2001-01-01 00:00:00 UTC.
    std::optional<double> time(uint32_t identifier) const;

private:
    // The property's type and value, from its type to the end of the stream; empty when there is none.
    std::string_view property(uint32_t identifier) const;

    std::string_view stream_;
    size_t section_ = 0; // offset in the stream
    uint32_t count_ = 0;
    unsigned codePage_ = 1252;
};

// The properties of the stream "\5SummaryInformation".
namespace SummaryProperty {
enum : uint32_t {
    title = 2,
    subject = 3,
    author = 4,
    keywords = 5,
    comments = 6,
    lastAuthor = 8,
    creationTime = 12,
    lastSavedTime = 13,
};
}

// The properties of the stream "\5DocumentSummaryInformation".
namespace DocumentSummaryProperty {
enum : uint32_t { category = 2, manager = 14, company = 15 };
}
