// SPDX-License-Identifier: Apache-2.0
//
// An inverted index in memory: the words of documents, each with its places. Words are broken and folded by
// the Unicode library: "Straße" is the term "strasse", and terms have no bound on length or number.
#pragma once

#include "Platform/Foundation/NSString.h"

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

class SearchIndex {
public:
    // Terms go to `data` when they are committed. `mostTerms` bounds the distinct terms of one document, 0
    // for no bound.
    SearchIndex(std::shared_ptr<std::string> data, bool recordsPositions, uint64_t mostTerms)
        : data_(std::move(data)), recordsPositions_(recordsPositions), mostTerms_(mostTerms) {}

    // The number of a document, or -1.
    int64_t documentID(const NSString& url) const;

    // Adds a document with its text, in place of what it had before. False when there is no memory.
    bool addDocument(const NSString& url, std::u16string_view text);

    // Gives all terms their numbers, in the order of their UTF-8 bytes, and writes them to the data.
    void commit();

    // Both know only what is committed. The terms of a document ascend.
    std::vector<int64_t> termIDs(int64_t document) const;
    // nil for a number of no term.
    NSString term(int64_t termID) const;
    // Where in the document the term's words stand, counted in words from 0; none when they are not recorded.
    std::vector<uint32_t> positions(int64_t termID, int64_t document) const;

private:
    struct Posting {
        uint32_t document, position;
    };
    using Postings = std::vector<Posting>;
    struct Hash {
        using is_transparent = void;
        size_t operator()(std::u16string_view text) const { return std::hash<std::u16string_view>()(text); }
    };
    struct Committed {
        size_t offset; // of the term's bytes in the data
        const Postings* postings;
    };

    bool addWord(std::u16string_view word);
    uint32_t numberFor(const NSString& url);

    const std::shared_ptr<std::string> data_;
    const bool recordsPositions_;
    const uint64_t mostTerms_;
    std::vector<NSString> documents_;
    std::unordered_map<std::u16string, Postings, Hash, std::equal_to<>> terms_;
    std::vector<Committed> committed_;

    // The document that is being added, its words so far and its distinct terms.
    uint32_t current_ = 0, words_ = 0;
    uint64_t distinct_ = 0;
};
