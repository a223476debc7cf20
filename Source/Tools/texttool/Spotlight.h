// SPDX-License-Identifier: Apache-2.0
//
// The steps of reading a file through the importers, for its extractor and for tests. A step that fails
// reports its error at once and the next ones go on with what there is.
#pragma once

#include "Platform/SearchKit/SearchKit.h"

// Reports an error of the host's domain with the message as its description.
void reportSpotlightError(const NSString& message);

// An empty index in memory, or nothing.
SKIndexRef createIndex();

// Nothing when there can be no reference to a document at the path.
SKDocumentRef createDocument(const NSString& path);

// Adds the document and commits the index.
void addDocument(const SKDocumentRef& document, const SKIndexRef& index);

// The document's distinct terms in the index's order, each with a blank behind it; "" on failure.
NSString extractDocument(const SKDocumentRef& document, const SKIndexRef& index);
