// SPDX-License-Identifier: Apache-2.0
//
// One extractor a kind of document. Each marks the document, checks that it is there, reads it and reports.
#pragma once

#include "Platform/AppKit/NSAttributedString.h"
#include "Platform/Foundation/NSData.h"
#include "Platform/Foundation/NSDictionary.h"
#include "Platform/Foundation/NSError.h"
#include "Platform/Foundation/NSString.h"

// Text documents of a declared type; a nil type is an error of its own.
void handlePath(const NSString& path, const NSString& documentType);

// The others read their path from the request themselves.
void handleWebArchive();
void handlePDF();
void handleQT();
void handleImage();
void handleSpotlight();
void handleEML();

// Reads a text document, once more without the type when its content does not fit it. nil and an error on
// failure. Past the time-out of 10 seconds (none when `immediate`) the text is what has been read.
NSAttributedString readDocument(const NSString& path, const NSString& documentType,
                                NSDictionary* documentAttributes, NSError* error, bool immediate);

// The file's bytes, or nil after the error has been reported.
NSData dataFromPath(const NSString& path);

// The error with the document's path where it tells of a module that is missing; any other as it is.
NSError withPathOfDocument(const NSError& error, const NSString& path);

// The path of the request under its key, after the document has been marked.
NSString markRequestedDocument(const char16_t* requestKey);
