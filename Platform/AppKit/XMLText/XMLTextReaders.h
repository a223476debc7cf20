// SPDX-License-Identifier: Apache-2.0
//
// Readers of documents of which only the words are wanted: XML of any kind, and packages of it, which are
// sheets, presentations, drawings and books. See DocumentReader.h.
#pragma once

#include "Platform/AppKit/DocumentReader.h"

// Drawings in SVG, flat OpenDocument documents, books in FictionBook, and whatever else is XML.
ReadStatus readXMLText(std::string_view bytes, Deadline& deadline, DocumentContents& contents);

// Office Open XML and OpenDocument packages of all kinds, and EPUB.
ReadStatus readPackageText(std::string_view bytes, Deadline& deadline, DocumentContents& contents);

// The types under which the module of these readers knows them.
inline constexpr const char16_t* kXMLTextType = u"XMLText";
inline constexpr const char16_t* kPackageTextType = u"PackageText";
