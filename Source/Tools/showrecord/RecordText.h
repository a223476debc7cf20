// SPDX-License-Identifier: Apache-2.0
//
// A record for people: its fields, one a line, names and values each in a column; then an empty line and the
// text. An underlying error stands indented below its name.
//
//     record               success
//     title                Minutes
//     author               A. Writer
//     partsCount           0
//     url
//     otherAttributes
//       DocumentType       NSRTF
//       SpotlightKeywords  (
//                          )
//     string               23 UTF-16 units
//
//     Present: all of us.
//
// Coloured, names and the kind of the record stand out, by the escapes that every terminal with colours
// knows.
#pragma once

#include "ZORFoundation/Source/ZORResultRecord.h"

#include <string>

std::string textOfRecord(const ZORResultRecord& record, bool coloured);
