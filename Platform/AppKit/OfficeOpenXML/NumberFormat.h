// SPDX-License-Identifier: Apache-2.0
//
// The ways to write the number of a list item: digits and letters of several scripts, Roman numerals, words.
#pragma once

#include <string>
#include <string_view>

namespace OfficeOpenXML {

// A way to write numbers, by the name that the format has for it; unknown names are "decimal".
class NumberFormat {
public:
    explicit NumberFormat(std::string_view name = "decimal");

    // The level's text stands without numbers.
    bool isBullet() const { return kind_ == Kind::bullet; }

    // Numbers that the format cannot write come in plain digits.
    void append(std::u16string& out, int number) const;

private:
    enum class Kind {
        decimal,
        bullet,
        none,
        latin,
        digits,
        alphabet,
        table,
        padded,
        ordinal,
        words,
        counting
    };
    struct Named;

    bool appendSpecial(std::u16string& out, int number) const;

    Kind kind_ = Kind::decimal;
    std::u16string_view symbols_; // what the kind builds numbers from
};

} // namespace OfficeOpenXML
