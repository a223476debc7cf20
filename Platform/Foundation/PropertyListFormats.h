// SPDX-License-Identifier: Apache-2.0
//
// The single forms of property lists, below NSPropertyListSerialization, which checks a list before it is
// written and chooses the form when one is read.
//
// Writers expect a valid list, whose nesting is bounded. Readers expect anything; a list that is nil was not
// read. `problem` is then a text for the debug description of an error, with a line number from 1.
#pragma once

#include "Platform/Foundation/NSObject.h"
#include "Platform/Foundation/NSString.h"

#include <string>
#include <string_view>

// Containers in containers, the outermost one counted. Nothing is written that would not be read again.
constexpr unsigned kPropertyListDepthLimit = 512;

// The key of a dictionary that is a keyed archiver's identifier in disguise, for forms that know no
// identifiers.
inline constexpr const char16_t* kUIDKey = u"CF$UID";

// Equal strings, dates, data and numbers are written once, numbers by their written form: 1 and 1.0 are two.
// An array or a dictionary is written once for all its handles.
std::string binaryPropertyList(const NSObject& list);

// UTF-8. Dictionaries are sorted by key; lone surrogates become U+FFFD, since strict readers refuse the whole
// file for one.
std::string XMLPropertyList(const NSObject& list);

// Objects that a list shares are one object afterwards too. A list that would be unreasonably large or deep
// when walked as a tree is not read.
NSObject readBinaryPropertyList(std::string_view bytes);

// The text of the two text forms: UTF-8, UTF-16 or UTF-32 by byte order mark or zeros, else the encoding that
// an XML declaration names, else UTF-8, in which the three-byte forms of surrogates are taken as surrogates.
// False when the bytes are no text in that encoding.
bool decodePropertyListText(std::u16string& text, std::string_view bytes, NSString& problem);

NSObject readXMLPropertyList(std::u16string_view text, NSString& problem);

// Text without anything but white space and comments is an empty dictionary.
NSObject readOldStylePropertyList(std::u16string_view text, NSString& problem);

// The line of `position`, counted from 1.
size_t lineNumber(std::u16string_view text, size_t position);

// "Unexpected character b at line 1", or that the text ended.
NSString unexpectedCharacter(std::u16string_view text, size_t position);
