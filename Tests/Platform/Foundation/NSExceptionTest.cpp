// SPDX-License-Identifier: Apache-2.0
#include "Platform/Foundation/NSException.h"
#include "Platform/Foundation/NSURL.h"

#include <gtest/gtest.h>

namespace {

TEST(UnrecognizedSelector, RaisesWithTheReceiversClassAndAddress) {
    const NSURL url = NSURL::URLWithString(u"file:///a");
    try {
        doesNotRecognizeSelector(url, "noSuchMethod:");
    } catch (const NSException& exception) {
        EXPECT_EQ(exception.name().utf8(), "NSInvalidArgumentException");
        char expected[128];
        snprintf(expected, sizeof expected,
                 "-[NSURL noSuchMethod:]: unrecognized selector sent to instance %p",
                 static_cast<const void*>(url.body()));
        EXPECT_EQ(exception.reason().utf8(), expected);
    }
}

TEST(UnrecognizedSelector, IsAnInvalidArgument) {
    EXPECT_THROW(doesNotRecognizeSelector(NSString(u""), "x"), NSException);
}

} // namespace
