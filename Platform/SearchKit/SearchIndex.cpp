// SPDX-License-Identifier: Apache-2.0
#include "Platform/SearchKit/SearchIndex.h"

#include "Platform/Foundation/Unicode.h"
#include "Platform/Foundation/UnicodeText.h"

#include <algorithm>
#include <new>
#include <stdexcept>
#include <utility>

int64_t SearchIndex::documentID(const NSString& url) const {
    const auto found = std::find_if(documents_.begin(), documents_.end(),
                                    [&](const Document& known) { return known.url.isEqualToString(url); });
    return found == documents_.end() ? -1 : found - documents_.begin();
}

SearchIndex::Document& SearchIndex::documentFor(const NSString& url) {
    const int64_t known = documentID(url);
    if (known >= 0) return documents_[size_t(known)];
    documents_.push_back({url, {}});
    return documents_.back();
}

bool SearchIndex::addDocument(const NSString& url, std::u16string_view text) {
    order_.clear();
    current_ = &documentFor(url);
    current_->words.clear();
    seen_.assign(terms_.count(), false);
    distinct_ = 0;
    const auto add = [](void* index, std::u16string_view word) noexcept {
        try {
            return static_cast<SearchIndex*>(index)->addWord(word);
        } catch (const std::bad_alloc&) {
            return false;
        } catch (const std::length_error&) {
            return false;
        }
    };
    return unicodeFunctions().words(text, add, this);
}

bool SearchIndex::addWord(std::u16string_view word) {
    const uint32_t term = terms_.number(word);
    const bool isCounted = mostTerms_ > 0 || !recordsPositions_;
    if (isCounted) {
        const bool isNew = isNewInDocument(term);
        if (isNew && mostTerms_ > 0 && distinct_ == mostTerms_) return true;
        if (!isNew && !recordsPositions_) return true;
        seen_[term] = true;
        distinct_ += isNew ? 1 : 0;
    }
    current_->words.push_back(term);
    return true;
}

bool SearchIndex::isNewInDocument(uint32_t term) {
    if (seen_.size() <= term) seen_.resize(terms_.count(), false);
    return !seen_[term];
}

void SearchIndex::commit() {
    std::vector<bool> isUsed(terms_.count(), false);
    for (const Document& document : documents_) {
        for (const uint32_t term : document.words) isUsed[term] = true;
    }
    std::vector<std::pair<std::string, uint32_t>> sorted;
    for (uint32_t term = 0; term < isUsed.size(); ++term) {
        if (isUsed[term]) sorted.emplace_back(toUTF8(terms_.term(term)), term);
    }
    std::sort(sorted.begin(), sorted.end());
    data_->clear();
    order_.clear();
    offsets_.clear();
    places_.assign(terms_.count(), 0);
    for (const auto& [text, term] : sorted) {
        places_[term] = uint32_t(order_.size());
        order_.push_back(term);
        offsets_.push_back(data_->size());
        *data_ += text;
    }
}

std::vector<int64_t> SearchIndex::termIDs(int64_t document) const {
    std::vector<bool> has(order_.size(), false);
    if (order_.empty() || document < 0 || uint64_t(document) >= documents_.size()) return {};
    for (const uint32_t term : documents_[size_t(document)].words) has[places_[term]] = true;
    std::vector<int64_t> found;
    for (size_t place = 0; place < has.size(); ++place) {
        if (has[place]) found.push_back(int64_t(place));
    }
    return found;
}

NSString SearchIndex::term(int64_t termID) const {
    if (termID < 0 || uint64_t(termID) >= order_.size()) return nullptr;
    const size_t place = size_t(termID), begin = offsets_[place];
    const size_t end = place + 1 < offsets_.size() ? offsets_[place + 1] : data_->size();
    return NSString::fromUTF8(std::string_view(*data_).substr(begin, end - begin));
}

std::vector<uint32_t> SearchIndex::positions(int64_t termID, int64_t document) const {
    std::vector<uint32_t> found;
    const bool isKnown = termID >= 0 && uint64_t(termID) < order_.size() && document >= 0 &&
                         uint64_t(document) < documents_.size();
    if (!recordsPositions_ || !isKnown) return found;
    const std::vector<uint32_t>& words = documents_[size_t(document)].words;
    for (size_t i = 0; i < words.size(); ++i) {
        if (words[i] == order_[size_t(termID)]) found.push_back(uint32_t(i));
    }
    return found;
}
