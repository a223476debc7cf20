// SPDX-License-Identifier: Apache-2.0
//
// What a host reads of the tool's answer. The tool writes one property list for a document: its text and what
// it says of itself, or the error that kept it from being read. Hosts read the record with this class instead
// of taking the list apart themselves:
//
//     NSError why;
//     std::optional<ZORResultRecord> record = ZORResultRecord::recordWithData(output, &why);
//     if (!record) {
//         report(why); // the tool ended without an answer, or what it wrote is damaged
//     } else if (record->kind == ZORResultRecord::Kind::success) {
//         index(record->string, record->title);
//     } else {
//         report(record->text()); // one sentence for people, of an error or a fallback
//     }
//
// The bytes are not trusted: they may come from a process that a hostile document has taken over. Reading
// them is bounded in time, memory and nesting, and never raises. A record is a value; it owns what it holds.
#pragma once

#include "Platform/Foundation/NSDictionary.h"
#include "Platform/Foundation/NSError.h"
#include "Platform/Foundation/NSString.h"

#include <cstdint>
#include <optional>
#include <string_view>

struct ZORResultRecord {
    enum class Kind {
        success,  // string, title, author, partsCount, url, otherAttributes
        error,    // error, errorData's problem, errorString
        fallback, // fallbackText: the tool had an answer that no property list can hold
    };

    Kind kind = Kind::fallback;

    // Of success. Strings are never nil: a document without a title has the title "". A missing key, or a
    // value of another class, counts as that emptiness, but for "string", without which a list is no success.
    NSString string; // the document's plain text, with U+0000 and lone surrogates as they came
    NSString title, author, url;
    int32_t partsCount = 0; // 0 where nothing is counted
    NSDictionary otherAttributes;

    // Of error. The error is nil when the tool reported none, and when its archive cannot be read; then
    // errorProblem says why not (Cocoa 4864). errorString stands for the error in any case.
    NSError error, errorProblem;
    NSString errorString;

    // Of fallback: why the tool's answer could not be written.
    NSString fallbackText;

    // What a list of the user's failures shows: "" for success, the error's sentence or the fallback's text
    // otherwise.
    NSString text() const;

    // The record that the bytes hold, in whatever form of property list. Empty, and an error, when they hold
    // none: no bytes at all, which is how the tool ends after an exception, and bytes that are no property
    // list are Cocoa 3840; a list that is no record is Cocoa 259. Debug descriptions say more.
    static std::optional<ZORResultRecord> recordWithData(std::string_view bytes, NSError* error);
};
