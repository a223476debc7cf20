// SPDX-License-Identifier: Apache-2.0
#include "ZORFoundation/Source/NSData+ZOR.h"

#include "ZORFoundation/Source/ZORFailure.h"

bool zorWriteToURL(const NSData& data, const NSURL& url, NSError* error) {
    const bool isWritten = data ? data.writeToURL(url, NSDataWritingAtomic, error)
                                : fail(error, zorRequirementFailedError(u"data"));
    if (!isWritten) addFrame(error, {"-[NSData(ZOR) zorWriteToURL:error:]", __LINE__});
    return isWritten;
}
