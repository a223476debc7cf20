// SPDX-License-Identifier: Apache-2.0
#include "Platform/SearchKit/SearchIndex.h"

#include "Platform/Foundation/Unicode.h"
#include "Platform/Foundation/UnicodeText.h"

#include <algorithm>
#include <new>

int64_t SearchIndex::documentID(const NSString& url) const {
    const auto found = std::find_if(documents_.begin(), documents_.end(),
                                    [&](const NSString& known) { return known.isEqualToString(url); });
    return found == documents_.end() ? -1 : found - documents_.begin();
}

uint32_t SearchIndex::numberFor(const NSString& url) {
    const int64_t known = documentID(url);
    if (known < 0) {
        documents_.push_back(url);
        return uint32_t(documents_.size() - 1);
    }
    for (auto& [term, postings] : terms_)
        std::erase_if(postings, [&](const Posting& posting) { return posting.document == known; });
    return uint32_t(known);
}

bool SearchIndex::addDocument(const NSString& url, std::u16string_view text) {
    committed_.clear();
    current_ = numberFor(url);
    words_ = 0;
    distinct_ = 0;
    const auto add = [](void* index, std::u16string_view word) noexcept {
        try {
            return static_cast<SearchIndex*>(index)->addWord(word);
        } catch (const std::bad_alloc&) {
            return false;
        }
    };
    return unicodeFunctions().words(text, add, this);
}

bool SearchIndex::addWord(std::u16string_view word) {
    auto found = terms_.find(word);
    const bool isNew =
        found == terms_.end() || found->second.empty() || found->second.back().document != current_;
    if (isNew && mostTerms_ > 0 && distinct_ == mostTerms_) return true;
    if (found == terms_.end()) found = terms_.emplace(word, Postings()).first;
    if (isNew) ++distinct_;
    if (isNew || recordsPositions_) found->second.push_back({current_, words_});
    ++words_;
    return true;
}

void SearchIndex::commit() {
    std::vector<std::pair<std::string, const Postings*>> sorted;
    sorted.reserve(terms_.size());
    for (const auto& [term, postings] : terms_) {
        if (!postings.empty()) sorted.emplace_back(toUTF8(term), &postings);
    }
    std::sort(sorted.begin(), sorted.end(), [](const auto& a, const auto& b) { return a.first < b.first; });
    data_->clear();
    committed_.clear();
    committed_.reserve(sorted.size());
    for (const auto& [term, postings] : sorted) {
        committed_.push_back({data_->size(), postings});
        *data_ += term;
    }
}

std::vector<int64_t> SearchIndex::termIDs(int64_t document) const {
    std::vector<int64_t> found;
    for (size_t i = 0; i < committed_.size(); ++i) {
        const Postings& postings = *committed_[i].postings;
        if (std::any_of(postings.begin(), postings.end(),
                        [&](const Posting& posting) { return posting.document == document; }))
            found.push_back(int64_t(i));
    }
    return found;
}

NSString SearchIndex::term(int64_t termID) const {
    if (termID < 0 || uint64_t(termID) >= committed_.size()) return nullptr;
    const size_t next = size_t(termID) + 1, begin = committed_[size_t(termID)].offset;
    const size_t end = next < committed_.size() ? committed_[next].offset : data_->size();
    return NSString::fromUTF8(std::string_view(*data_).substr(begin, end - begin));
}

std::vector<uint32_t> SearchIndex::positions(int64_t termID, int64_t document) const {
    std::vector<uint32_t> found;
    if (!recordsPositions_ || termID < 0 || uint64_t(termID) >= committed_.size()) return found;
    for (const Posting& posting : *committed_[size_t(termID)].postings) {
        if (posting.document == document) found.push_back(posting.position);
    }
    return found;
}
