// SPDX-License-Identifier: Apache-2.0
//
// A document's information in the platform's keys and types.
#pragma once

#include "Platform/AppKit/DocumentReader.h"
#include "Platform/Foundation/NSDictionary.h"

// `documentType` and `fileType` are what the document was read as, for example "NSRTF" and "public.rtf".
NSDictionary documentAttributes(const DocumentInfo& info, const NSString& documentType,
                                const NSString& fileType);
