// SPDX-License-Identifier: Apache-2.0
#include "Platform/SearchKit/SearchKit.h"

#include "Platform/Foundation/NSException.h"
#include "Platform/Foundation/NSLog.h"
#include "Platform/Foundation/NSNumber.h"
#include "Platform/Foundation/Unicode.h"
#include "Platform/SearchKit/Importing.h"
#include "Platform/SearchKit/SearchIndex.h"

#include <new>
#include <stdexcept>

struct SearchDocument {
    NSURL url;
};

namespace {

bool canBreakWords() {
    try {
        unicodeFunctions();
        return true;
    } catch (const NSException& exception) {
        NSLog(exception.reason());
        return false;
    }
}

// What memory cannot be had for has failed.
template <class Work>
bool withMemory(const Work& work) {
    try {
        return work();
    } catch (const std::bad_alloc&) {
        return false;
    } catch (const std::length_error&) {
        return false;
    }
}

} // namespace

void SKLoadDefaultExtractorPlugIns() { loadImporters(); }

SKIndexRef SKIndexCreateWithMutableData(const CFMutableDataRef& data, const NSString&, SKIndexType type,
                                        const NSDictionary& properties) {
    if (!data || type != kSKIndexInverted || !canBreakWords()) return nullptr;
    const int64_t most = properties.get<NSNumber>(NSString(kSKMaximumTerms)).integerValue();
    return std::make_shared<SearchIndex>(data,
                                         properties.get<NSNumber>(NSString(kSKProximityIndexing)).boolValue(),
                                         uint64_t(most < 0 ? 0 : most));
}

SKDocumentRef SKDocumentCreateWithURL(const NSURL& url) {
    if (!url.isFileURL() || !url.path()) return nullptr;
    return std::make_shared<const SearchDocument>(SearchDocument{url});
}

bool SKIndexAddDocument(const SKIndexRef& index, const SKDocumentRef& document, const NSString& mimeTypeHint,
                        bool canReplace) {
    if (!index || !document) return false;
    const NSString url = document->url.absoluteString();
    if (!canReplace && index->documentID(url) >= 0) return false;
    return withMemory([&] {
        std::u16string text;
        return importDocument(document->url.path(), mimeTypeHint, text) && index->addDocument(url, text);
    });
}

bool SKIndexFlush(const SKIndexRef& index) {
    return index && withMemory([&] {
               index->commit();
               return true;
           });
}

SKDocumentID SKIndexGetDocumentID(const SKIndexRef& index, const SKDocumentRef& document) {
    return index && document ? index->documentID(document->url.absoluteString()) : kCFNotFound;
}

NSArray SKIndexCopyTermIDArrayForDocumentID(const SKIndexRef& index, SKDocumentID document) {
    if (!index || document == kCFNotFound) return NSArray();
    std::vector<NSObject> numbers;
    for (const int64_t term : index->termIDs(document)) numbers.push_back(NSNumber::withInteger(term));
    return NSArray(std::move(numbers));
}

NSString SKIndexCopyTermStringForTermID(const SKIndexRef& index, int64_t term) {
    return index ? index->term(term) : NSString();
}
