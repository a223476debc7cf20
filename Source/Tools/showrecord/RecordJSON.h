// SPDX-License-Identifier: Apache-2.0
//
// A record as JSON (RFC 8259, UTF-8). The form is stable: names and their order stay, new names may join.
//
//     {"record": "success", "string": text, "title": text, "author": text, "partsCount": number, "url": text,
//      "otherAttributes": {name: value, ...}}
//     {"record": "error", "errorString": text, "error": error or null}
//     {"record": "fallback", "error": text}
//
// An error is {"domain": text, "code": number, "description": text, "userInfo": {name: value, ...}}; it is
// null when none was given or its archive cannot be read. Strings, numbers, booleans, arrays, dictionaries
// and the null object are JSON's own; a date, to the second, is {"$date": "2024-05-01T13:05:07Z"}, data
// {"$data": base64}, a URL {"$url": text}, an error inside another {"$error": error}, a number that JSON has
// no form for {"$number": "nan"}; anything else is its description. Strings are exact: lone surrogates,
// controls and separators of lines stand as escapes.
#pragma once

#include "ZORFoundation/Source/ZORResultRecord.h"

#include <string>

std::string jsonOfRecord(const ZORResultRecord& record);
