// SPDX-License-Identifier: Apache-2.0
//
// Makes property sets for tests.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

class PropertySetWriter {
public:
    // 0 writes no code page.
    explicit PropertySetWriter(unsigned codePage = 1252);

    PropertySetWriter& byteString(uint32_t identifier, std::string_view bytes);
    PropertySetWriter& wideString(uint32_t identifier, std::u16string_view text);
    PropertySetWriter& time(uint32_t identifier, uint64_t ticks);
    PropertySetWriter& number(uint32_t identifier, uint32_t value);

    std::string finish() const;

private:
    std::vector<std::pair<uint32_t, std::string>> properties_;
};
