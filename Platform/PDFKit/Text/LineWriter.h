// SPDX-License-Identifier: Apache-2.0
//
// Writes a line: blanks of every kind as one space, none at its ends and never two.
#pragma once

#include "Platform/PDFKit/Text/CharacterClasses.h"

#include <string>
#include <string_view>

class LineWriter {
public:
    explicit LineWriter(std::u16string& out) : out_(out) {}

    void addBlank() { blank_ = true; }

    void add(char16_t unit) {
        if (isBlank(unit)) {
            blank_ = true;
            return;
        }
        if (any_ && blank_) out_ += u' ';
        out_ += unit;
        blank_ = false;
        any_ = true;
    }

    void add(std::u16string_view text) {
        for (char16_t unit : text) add(unit);
    }

    // True when anything but blanks was written.
    bool any() const { return any_; }

private:
    std::u16string& out_;
    bool blank_ = false, any_ = false;
};
