// SPDX-License-Identifier: Apache-2.0
//
// Documents read as text. The attributes of the text's runs are not kept: only the text and what the document
// says of itself are.
#pragma once

#include "Platform/Foundation/NSData.h"
#include "Platform/Foundation/NSDictionary.h"
#include "Platform/Foundation/NSError.h"
#include "Platform/Foundation/NSString.h"
#include "Platform/Foundation/NSURL.h"

class NSAttributedString {
public:
    // nil; what the readers return when they fail.
    NSAttributedString() = default;
    explicit NSAttributedString(const NSString& string) : string_(string) {}

    explicit operator bool() const { return bool(string_); }
    const NSString& string() const { return string_; }

    // Reads a document from its bytes. Options: the document type (absent: guessed from the bytes) and the
    // time-out in seconds, past which the reader stops and gives what it has. Errors, all of the Cocoa
    // domain: 259 the bytes do not fit the type, 257 the document is protected by a password, 65806 the type
    // is not known, 3587 the reader's module is missing, 256 no data, or (over POSIX 12) not enough memory.
    static NSAttributedString initWithData(const NSData& data, const NSDictionary& options,
                                           NSDictionary* documentAttributes, NSError* error);

    // The same from a file URL. A directory with a TXT.rtf is an RTFD package: as any other declared type it
    // is error 259. Other directories, pipes, sockets and devices are 256 and are not opened; 260 missing,
    // 262 no file URL.
    static NSAttributedString initWithURL(const NSURL& url, const NSDictionary& options,
                                          NSDictionary* documentAttributes, NSError* error);

private:
    NSString string_;
};
