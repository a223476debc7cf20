// SPDX-License-Identifier: Apache-2.0
#include "ZORFoundation/Source/ZORFunctions.h"

#include "Platform/Foundation/NSClass.h"
#include "Platform/Foundation/NSGeometry.h"
#include "Platform/Foundation/NSNumber.h"
#include "ZORFoundation/Source/ZORException.h"
#include "ZORFoundation/Source/ZORPrecondition.h"

#include <gtest/gtest.h>

namespace {

constexpr ZORReceiver kInstance{ZORReceiver::Kind::instance}, kClass{ZORReceiver::Kind::classObject}, kNone{};

class Recorder : public ZORLoggingDelegate {
public:
    Recorder() { ZORFunctions::setLoggingDelegate(this); }
    ~Recorder() override { ZORFunctions::setLoggingDelegate(nullptr); }
    void logString(const NSString& text) override { lines.push_back(text.utf8()); }

    std::vector<std::string> lines;
};

template <class Raise>
ZORException raisedBy(const Raise& raise) {
    try {
        raise();
    } catch (const ZORException& exception) {
        return exception;
    }
    ADD_FAILURE() << "nothing was raised";
    return ZORException(nullptr, nullptr);
}

TEST(Location, NamesFileLineAndMethod) {
    EXPECT_EQ((ZORFunctions::Location{"/a/b/File.cpp", 21, kInstance, "do:it:"}.text().utf8()),
              "File.cpp:21 -do:it:");
    EXPECT_EQ((ZORFunctions::Location{"File.cpp", 1, kClass, "make"}.text().utf8()), "File.cpp:1 +make");
    EXPECT_EQ((ZORFunctions::Location{"File.cpp", 1, kNone, "make"}.text().utf8()), "File.cpp:1 ");
    EXPECT_EQ((ZORFunctions::Location{"File.cpp", 1, kInstance, nullptr}.text().utf8()), "File.cpp:1 ");
}

TEST(Assertions, OfAFailedPreconditionAreLoggedThenRaised) {
    Recorder log;
    NSString key;
    ZORException e = raisedBy([&] { ZORPrecondition(key, "dir/Unit.mm", kInstance, "valueForKey:"); });
    ASSERT_EQ(log.lines.size(), 1u);
    EXPECT_TRUE(log.lines[0].starts_with("Unit.mm:")) << log.lines[0];
    EXPECT_TRUE(log.lines[0].ends_with(" -valueForKey:: Assertion Failed: Precondition Failed: key"))
        << log.lines[0];
    EXPECT_EQ(e.name().utf8(), "ZORAssertionFailedException");
    std::string location = log.lines[0].substr(0, log.lines[0].find(": Assertion"));
    EXPECT_EQ(e.reason().utf8(), "Precondition Failed: key at " + location);
    EXPECT_EQ(e.zorReason().utf8(), "Precondition Failed: key");
}

TEST(Assertions, ThatHoldDoNothing) {
    Recorder log;
    ZORPrecondition(true, "Unit.mm", kNone, nullptr);
    EXPECT_TRUE(log.lines.empty());
}

TEST(Assertions, DoNotReadPercentSignsTwice) {
    Recorder log;
    ZORException e =
        raisedBy([] { ZORFunctions::assertionFailedForFile("F", 1, kNone, nullptr, "%s", "100%@ %d"); });
    EXPECT_EQ(e.zorReason().utf8(), "100%@ %d");
    EXPECT_EQ(log.lines[0], "F:1 : Assertion Failed: 100%@ %d");
}

TEST(Raising, WithoutANameNamesTheException) {
    ZORException e =
        raisedBy([] { ZORFunctions::raiseFile("F", 7, kNone, nullptr, nullptr, nullptr, "%d", 42); });
    EXPECT_EQ(e.name().utf8(), "ZORException");
    EXPECT_EQ(e.reason().utf8(), "42 at F:7 ");
}

TEST(Raising, KeepsTheUserInformation) {
    ZORException e = raisedBy([] {
        ZORFunctions::raiseFile("F", 7, kNone, nullptr, u"Name", {{NSString(u"k"), NSString(u"v")}}, "r");
    });
    EXPECT_EQ(e.name().utf8(), "Name");
    EXPECT_EQ(e.userInfo().get<NSString>(NSString(u"k")).utf8(), "v");
    EXPECT_EQ(e.userInfo().get<NSString>(NSString(u"ZORExceptionLocation")).utf8(), "F:7 ");
}

TEST(Reason, WithoutALocationEndsInNull) {
    ZORException e(u"N", u"why");
    EXPECT_EQ(e.reason().utf8(), "why at (null)");
    EXPECT_EQ(e.zorReason().utf8(), "why");
}

TEST(Raising, IsCaughtAsAPlatformException) {
    try {
        ZORFunctions::raiseFile("F", 1, kNone, nullptr, nullptr, nullptr, "r");
    } catch (const NSException& e) {
        EXPECT_EQ(e.reason().utf8(), "r at F:1 ");
    }
}

TEST(Logging, GoesToTheDelegateAlone) {
    Recorder log;
    testing::internal::CaptureStderr();
    ZORFunctions::logFile("/d/F.cpp", 3, kInstance, "m", "%@ and %d", NSString(u"text"), 4);
    ZORFunctions::logFunction("f", "%s", "x");
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "");
    EXPECT_EQ(log.lines, (std::vector<std::string>{"F.cpp:3 -m] text and 4", "f x"}));
}

TEST(Logging, GoesToTheSystemLogWithoutADelegate) {
    testing::internal::CaptureStderr();
    ZORFunctions::logString(u"50% %@ done");
    std::string line = testing::internal::GetCapturedStderr();
    EXPECT_TRUE(line.ends_with("] 50% %@ done\n")) << line;
    EXPECT_NE(line.find(std::string(program_invocation_short_name) + "["), std::string::npos) << line;
}

template <class T>
std::string text(const T& value, const char* encoding) {
    return ZORFunctions::stringFromPointer(&value, encoding).utf8();
}

TEST(StringFromPointer, KnowsEveryEncoding) {
    EXPECT_EQ(text<signed char>(1, "c"), "YES");
    EXPECT_EQ(text<signed char>(0, "c"), "NO");
    EXPECT_EQ(text<signed char>(65, "c"), "'A'");
    EXPECT_EQ(text<short>(-3, "s"), "-3");
    EXPECT_EQ(text<unsigned short>(65535, "S"), "65535");
    EXPECT_EQ(text<int>(-3, "i"), "-3");
    EXPECT_EQ(text<unsigned>(4294967295U, "I"), "4294967295");
    EXPECT_EQ(text<int64_t>(INT64_MIN, "q"), "-9223372036854775808");
    EXPECT_EQ(text<uint64_t>(UINT64_MAX, "Q"), "18446744073709551615");
    EXPECT_EQ(text<float>(1.5F, "f"), "1.500000");
    EXPECT_EQ(text<double>(-1.5, "d"), "-1.500000");
    EXPECT_EQ(text<long double>(2.5L, "D"), "2.500000");
    EXPECT_EQ(text(ZORSelector{"do:it:"}, ":"), "do:it:");
    EXPECT_EQ(text(NSClass("NSData"), "#"), "NSData");
    EXPECT_EQ(text<void*>(reinterpret_cast<void*>(0x10), "^v"), "0x10");
    EXPECT_EQ(text<const char*>("chars", "*"), "chars");
    EXPECT_EQ(text<const char*>("chars", "r*"), "chars");
    EXPECT_EQ(ZORFunctions::stringFromPointer("in place", "[16c]").utf8(), "in place");
    EXPECT_EQ(text(NSRange{1, 2}, "{_NSRange=QQ}"), "{1, 2}");
    EXPECT_EQ(text(NSPoint{1, 2}, "{CGPoint=dd}"), "{1, 2}");
    EXPECT_EQ(text(NSSize{1, 2}, "{CGSize=dd}"), "{1, 2}");
    EXPECT_EQ(text(NSRect{{1, 2}, {3, 4}}, "{CGRect={CGPoint=dd}{CGSize=dd}}"), "{{1, 2}, {3, 4}}");
    for (const char* encoding : {"@", "^{__CFString=}", "r^{__CFString=}"}) {
        EXPECT_EQ(text<NSObject>(NSNumber::withInt(5), encoding), "5");
        EXPECT_EQ(text(NSObject(), encoding), "(null)");
    }
}

TEST(StringFromPointer, RaisesForAnUnknownEncoding) {
    Recorder log;
    int value = 0;
    for (const char* encoding : {"Z", "", "[c]", "[1xc]", "[16i]"}) {
        ZORException e = raisedBy([&] { (void)ZORFunctions::stringFromPointer(&value, encoding); });
        EXPECT_EQ(e.zorReason().utf8(), std::string("Unhandled type encoding: ") + encoding);
    }
    EXPECT_EQ(log.lines.size(), 5u);
}

} // namespace
