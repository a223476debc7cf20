// SPDX-License-Identifier: Apache-2.0
//
// PDF documents in pages. The engine shows none, so their text stands in for them.
#pragma once

#include "Platform/Foundation/NSData.h"
#include "Platform/Foundation/NSString.h"

bool isPDF(const NSString& MIMEType);

// The text of all pages in UTF-8, each page's beginning on a line of its own. Nothing for what cannot be
// opened; that the reader of such documents is not there is logged.
NSData textOfPDF(const NSData& data);
