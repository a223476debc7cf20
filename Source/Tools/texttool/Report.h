// SPDX-License-Identifier: Apache-2.0
//
// The tool's only answer: a result record, written as a binary property list to the file that the environment
// names under OutPath, or else to standard output, which is then closed.
//
//   success   {string, title, author, partsCount, url, otherAttributes}
//   failure   {errorData, errorString}
//   fallback  {error}, when one of the others cannot be serialised
#pragma once

#include "Platform/Foundation/NSData.h"
#include "Platform/Foundation/NSDictionary.h"
#include "Platform/Foundation/NSError.h"

#include <cstdint>

// Strings may be nil, title and author also the null object; url must be a string or nil, else the fallback
// goes out. The file's keywords join the other attributes when there are any attributes.
void reportSuccess(const NSString& path, const NSString& text, const NSObject& title, const NSObject& author,
                   int32_t partsCount, const NSObject& url, const NSDictionary& otherAttributes);

// The error may be nil. Raises when its user information holds what cannot be archived.
void reportError(const NSError& error);

// What reportError writes.
NSData errorRecord(const NSError& error);

// The error of a document that is not there.
void reportMissingFile(const NSString& path);
// The error of a document that is not of its kind.
void reportCorruptFile(const NSString& path);

// The dictionary with every value that is no string, data, date or number replaced by its description.
NSDictionary plistifyDictionary(const NSDictionary& dictionary);

// Serialises and writes; what cannot be serialised is replaced by the fallback record.
void doOutput(const NSObject& propertyList);

void finishWithData(const NSData& data);

// The file that the environment names for the record; nil for standard output.
NSString outputPath();

// Whether a record is on its way out, or out. May be asked by a signal handler.
bool hasBegunAnswer();

// The archive of the error with only those entries of its user information that any host knows.
NSData archiveError(const NSError& error);

// The list in XML, or nil.
NSData dataFromPropertyList(const NSObject& propertyList);
