// SPDX-License-Identifier: Apache-2.0
//
// Dictionaries from property-list files.
#pragma once

#include "Platform/Foundation/NSDictionary.h"
#include "Platform/Foundation/NSError.h"
#include "Platform/Foundation/NSURL.h"

namespace NSDictionaryZORPropertyListSerialization {

// nil, and the error of reading or one that names the expected class, when the file holds no dictionary. The
// mutable class reads through this too: NSMutableDictionary(zorReadURL(url, &error)).
NSDictionary zorReadURL(const NSURL& url, NSError* error);

} // namespace NSDictionaryZORPropertyListSerialization
