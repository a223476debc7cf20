// SPDX-License-Identifier: Apache-2.0
//
// An inverted index in memory: the words of documents, each with its places. Words are broken and folded by
// the Unicode library: "Straße" is the term "strasse", and terms have no bound on length or number.
#pragma once

#include "Platform/Foundation/NSString.h"
#include "Platform/SearchKit/TermTable.h"

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
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
    // A document is the row of its words: where one stands is where a term's number is.
    struct Document {
        NSString url;
        std::vector<uint32_t> words;
    };

    Document& documentFor(const NSString& url);
    bool addWord(std::u16string_view word);
    bool isNewInDocument(uint32_t term);

    const std::shared_ptr<std::string> data_;
    const bool recordsPositions_;
    const uint64_t mostTerms_;
    std::vector<Document> documents_;
    TermTable terms_;

    // What is committed: the numbers of terms in their order, where each begins in the data, and the way
    // back.
    std::vector<uint32_t> order_, places_;
    std::vector<size_t> offsets_;

    // The document that is being added, and which terms it has.
    Document* current_ = nullptr;
    std::vector<bool> seen_;
    uint64_t distinct_ = 0;
};
