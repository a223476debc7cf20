// SPDX-License-Identifier: Apache-2.0
//
// What a load says of its bytes before they come.
#pragma once

#include "Platform/Foundation/NSURL.h"

#include <cstdint>

// A plain response, of no particular protocol. What is not known is nil.
struct NSURLResponse {
    NSURL URL;
    NSString MIMEType;
    int64_t expectedContentLength = -1; // -1 when it is not known
    NSString textEncodingName;
};
