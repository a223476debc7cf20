// SPDX-License-Identifier: Apache-2.0
//
// Folding: the form in which texts are compared. Canonically equivalent texts have the same form, and so have
// texts that differ only in what the options leave out of account.
#pragma once

#include "Platform/Foundation/NSStringCompare.h"

#include <string>
#include <string_view>
#include <unicode/umachine.h>
#include <unicode/unorm2.h>

class Folder {
public:
    // Options are bits of NSStringCompareOptions.
    explicit Folder(unsigned options);

    // Appends the folded form of the character at `start`, a letter with all its marks, and returns its end.
    size_t appendCharacter(std::u16string& out, std::u16string_view text, size_t start);

private:
    void appendWidened(UChar32 c);
    void appendFolded(std::u16string& out, UChar32 c) const;

    const unsigned options_;
    const UNormalizer2 *nfd_, *nfkc_;
    std::u16string character_, decomposed_; // kept for their memory
};
