// SPDX-License-Identifier: Apache-2.0
//
// The search library: indexes in memory, to which documents of any kind are added through importers, and
// whose terms can be read back. Every function takes handles that are nothing and answers failure for them.
#pragma once

#include "Platform/Foundation/NSArray.h"
#include "Platform/Foundation/NSDictionary.h"
#include "Platform/Foundation/NSString.h"
#include "Platform/Foundation/NSURL.h"

#include <cstdint>
#include <memory>
#include <string>

// A growable buffer of bytes.
using CFMutableDataRef = std::shared_ptr<std::string>;

using SKIndexRef = std::shared_ptr<class SearchIndex>;
using SKDocumentRef = std::shared_ptr<const struct SearchDocument>;
using SKDocumentID = int64_t; // kCFNotFound for none

inline constexpr int64_t kCFNotFound = -1;

enum SKIndexType { kSKIndexInverted = 1 };

// Creation properties. Positions are recorded when the first is true. The second is the largest number of
// terms of a document, 0 for no bound.
inline constexpr const char16_t* kSKProximityIndexing = u"kSKProximityIndexing";
inline constexpr const char16_t* kSKMaximumTerms = u"kSKMaximumTerms";

// Looks up the importers that people and programs have installed; the built-in ones are always there.
void SKLoadDefaultExtractorPlugIns();

// Nothing, and a line in the log, when the library that breaks text into words cannot be loaded; nothing for
// another type than the inverted index. The name may be nil.
SKIndexRef SKIndexCreateWithMutableData(const CFMutableDataRef& data, const NSString& name, SKIndexType type,
                                        const NSDictionary& properties);

// Nothing for a URL that is none of a file.
SKDocumentRef SKDocumentCreateWithURL(const NSURL& url);

// Reads the document and adds its words. A document of a kind that no importer knows has none, and so has one
// whose importer fails, which the log tells. False when the document cannot be opened, the reader that the
// tool brings for its kind cannot be loaded, or it is in the index and may not be replaced. The hint is a
// MIME type that is believed, or nil.
bool SKIndexAddDocument(const SKIndexRef& index, const SKDocumentRef& document, const NSString& mimeTypeHint,
                        bool canReplace);

// Commits what was added since the last time: only then it can be read.
bool SKIndexFlush(const SKIndexRef& index);

SKDocumentID SKIndexGetDocumentID(const SKIndexRef& index, const SKDocumentRef& document);

// Numbers, ascending; nil for a document that is not in the index.
NSArray SKIndexCopyTermIDArrayForDocumentID(const SKIndexRef& index, SKDocumentID document);

// nil for a number that is none of the index's.
NSString SKIndexCopyTermStringForTermID(const SKIndexRef& index, int64_t term);

// Lets go of an index or a document.
template <class Object>
void CFRelease(std::shared_ptr<Object>& object) {
    object.reset();
}
