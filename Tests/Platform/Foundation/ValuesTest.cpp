// SPDX-License-Identifier: Apache-2.0
#include "Platform/Foundation/NSArray.h"
#include "Platform/Foundation/NSDate.h"
#include "Platform/Foundation/NSDictionary.h"
#include "Platform/Foundation/NSException.h"
#include "Platform/Foundation/NSGeometry.h"
#include "Platform/Foundation/NSNull.h"
#include "Platform/Foundation/NSNumber.h"
#include "Platform/Foundation/NSString.h"
#include "Platform/Foundation/NSURL.h"

#include <cmath>
#include <gtest/gtest.h>

namespace {

NSString key(const char16_t* text) { return text; }

TEST(Values, NilAnswersEverythingWithNothing) {
    EXPECT_FALSE(NSObject());
    EXPECT_EQ(NSString().length(), 0u);
    EXPECT_EQ(NSNumber().integerValue(), 0);
    EXPECT_EQ(NSArray().count(), 0u);
    EXPECT_FALSE(NSDictionary().objectForKey(key(u"k")));
    EXPECT_FALSE(NSURL().path());
    EXPECT_EQ(NSObject().className(), "");
    EXPECT_TRUE(NSObject() == NSObject());
    EXPECT_FALSE(NSObject() == NSObject(NSNull::null()));
    EXPECT_FALSE(NSString().isEqualToString(NSString()));
}

TEST(Values, NullHandleOfEveryClassIsNil) {
    EXPECT_FALSE(NSNull());
    EXPECT_TRUE(NSNull::null());
    EXPECT_EQ(NSNull::null().className(), "NSNull");
}

TEST(Values, AsAnswersNilForAnotherClass) {
    NSObject number = NSNumber::withInt(1);
    EXPECT_FALSE(as<NSString>(number));
    EXPECT_TRUE(as<NSNumber>(number));
    EXPECT_FALSE(is<NSString>(NSObject()));
}

TEST(Values, StringsKeepNulAndLoneSurrogates) {
    std::u16string text(u"a\0b\xD800", 4);
    NSString string(text);
    EXPECT_EQ(string.length(), 4u);
    EXPECT_EQ(string.text(), text);
}

TEST(Values, NumbersAreEqualByValue) {
    EXPECT_EQ(NSObject(NSNumber::withInt(1)), NSObject(NSNumber::withDouble(1)));
    EXPECT_EQ(NSObject(NSNumber::withBool(true)), NSObject(NSNumber::withInteger(1)));
    EXPECT_FALSE(NSNumber::withInteger(-1) == NSNumber::withUnsignedInteger(UINT64_MAX));
    EXPECT_FALSE(NSNumber::withDouble(NAN) == NSNumber::withDouble(NAN));
}

TEST(Values, NumbersRememberTheirType) {
    EXPECT_EQ(NSNumber::withBool(true).objCType(), 'c');
    EXPECT_EQ(NSNumber::withChar(1).objCType(), 'c');
    EXPECT_FALSE(NSNumber::withChar(1).isBoolean());
    EXPECT_EQ(NSNumber::withShort(1).objCType(), 's');
    EXPECT_EQ(NSNumber::withInt(1).objCType(), 'i');
    EXPECT_EQ(NSNumber::withInteger(1).objCType(), 'q');
    EXPECT_EQ(NSNumber::withUnsignedInteger(1).objCType(), 'q');
    EXPECT_EQ(NSNumber::withUnsignedInteger(UINT64_MAX).objCType(), 'Q');
    EXPECT_EQ(NSNumber::withFloat(1).objCType(), 'f');
    EXPECT_EQ(NSNumber::withDouble(1).objCType(), 'd');
}

TEST(Values, FloatingNumbersSaturateAsIntegers) {
    EXPECT_EQ(NSNumber::withDouble(-2.9).integerValue(), -2);
    EXPECT_EQ(NSNumber::withDouble(1e30).integerValue(), INT64_MAX);
    EXPECT_EQ(NSNumber::withDouble(-1e30).integerValue(), INT64_MIN);
    EXPECT_EQ(NSNumber::withDouble(NAN).integerValue(), 0);
}

TEST(Values, DictionariesEnumerateInOrderOfFirstSetting) {
    NSMutableDictionary d;
    d.setObject(NSNumber::withInt(1), key(u"z"));
    d.setObject(NSNumber::withInt(2), key(u"a"));
    d.setObject(NSNumber::withInt(3), key(u"z"));
    NSDictionary copy = d.copy();
    ASSERT_EQ(copy.count(), 2u);
    EXPECT_EQ(as<NSString>(copy.entries()[0].first).utf8(), "z");
    EXPECT_EQ(as<NSNumber>(copy.entries()[0].second).integerValue(), 3);
    d.removeObjectForKey(key(u"z"));
    EXPECT_EQ(as<NSNumber>(d.objectForKey(key(u"a"))).integerValue(), 2);
    EXPECT_FALSE(d.objectForKey(key(u"z")));
    d.removeObjectForKey(key(u"missing"));
    EXPECT_EQ(d.count(), 1u);
    EXPECT_EQ(copy.count(), 2u);
}

TEST(Values, DictionariesAreEqualWhateverTheirOrder) {
    NSDictionary a{{key(u"x"), NSNumber::withInt(1)}, {key(u"y"), NSNumber::withInt(2)}};
    NSDictionary b{{key(u"y"), NSNumber::withInt(2)}, {key(u"x"), NSNumber::withInt(1)}};
    EXPECT_EQ(NSObject(a), NSObject(b));
    EXPECT_FALSE(a == NSDictionary::dictionary());
}

template <class Raise>
NSString nameRaisedBy(const Raise& raise) {
    try {
        raise();
    } catch (const NSException& exception) {
        return exception.name();
    }
    return nullptr;
}

TEST(Values, NilInACollectionRaises) {
    NSMutableDictionary d;
    EXPECT_EQ(nameRaisedBy([&] { d.setObject(nullptr, key(u"k")); }).utf8(), "NSInvalidArgumentException");
    EXPECT_EQ(nameRaisedBy([&] { d.setObject(key(u"v"), nullptr); }).utf8(), "NSInvalidArgumentException");
    EXPECT_EQ(nameRaisedBy([&] { NSArray a{key(u"v"), NSObject()}; }).utf8(), "NSInvalidArgumentException");
    EXPECT_EQ(nameRaisedBy([&] { (void)NSArray{key(u"v")}.objectAtIndex(1); }).utf8(), "NSRangeException");
}

TEST(Values, TypedReadingsOfText) {
    EXPECT_TRUE(NSString(u"YES").boolValue());
    EXPECT_TRUE(NSString(u"  -007").boolValue());
    EXPECT_TRUE(NSString(u"true").boolValue());
    EXPECT_FALSE(NSString(u"000").boolValue());
    EXPECT_FALSE(NSString(u"no").boolValue());
    EXPECT_EQ(NSString(u" 42 apples").integerValue(), 42);
    EXPECT_EQ(NSString(u"-99999999999999999999").integerValue(), INT64_MIN);
    EXPECT_EQ(NSString(u"99999999999999999999").integerValue(), INT64_MAX);
    EXPECT_EQ(NSString(u"x").integerValue(), 0);
    EXPECT_EQ(NSString(u" 2.5e1x").doubleValue(), 25);
    EXPECT_EQ(NSString(u"+1.5").doubleValue(), 1.5);
    EXPECT_EQ(NSString(u"nan").doubleValue(), 0);
    EXPECT_EQ(NSString(u"1e999").doubleValue(), std::numeric_limits<double>::infinity());
    EXPECT_EQ(NSString(u"1e-999").doubleValue(), 0);
}

TEST(Geometry, TextsReadBack) {
    EXPECT_EQ(NSStringFromPoint({1e20, 0.1}).utf8(), "{1e+20, 0.10000000000000001}");
    EXPECT_EQ(NSStringFromSize({1.0 / 3, -0.0}).utf8(), "{0.33333333333333331, -0}");
    EXPECT_EQ(NSStringFromPoint({NAN, INFINITY}).utf8(), "{nan, inf}");
    EXPECT_EQ(NSStringFromRange({1, 2}).utf8(), "{1, 2}");
    struct {
        const char16_t* text;
        NSSize size;
    } cases[] = {{u"{1.5,2}", {1.5, 2}}, {u"1 2 3 4", {1, 2}}, {u"1,2", {1, 2}}, {u"  -3.5e1 7", {-35, 7}},
                 {u"", {0, 0}},          {u"x", {0, 0}},       {u"5", {5, 0}},   {u"{.5, -.5}", {.5, -.5}}};
    for (const auto& c : cases) EXPECT_EQ(NSSizeFromString(c.text), c.size) << NSString(c.text).utf8();
    EXPECT_EQ(NSSizeFromString(nullptr), NSSize());
}

TEST(URLs, ResolveAgainstTheirBase) {
    NSURL base = NSURL::URLWithString(u"http://h/a/b/c?q#f");
    struct {
        const char16_t* relative;
        const char* absolute;
    } cases[] = {{u"d", "http://h/a/b/d"},    {u"../d", "http://h/a/d"},     {u"/d/./e/../f", "http://h/d/f"},
                 {u"?x", "http://h/a/b/c?x"}, {u"#x", "http://h/a/b/c?q#x"}, {u"//o/p", "http://o/p"},
                 {u"", "http://h/a/b/c?q"},   {u"mailto:me", "mailto:me"},   {u"../../../../d", "http://h/d"},
                 {u"./", "http://h/a/b/"}};
    for (const auto& c : cases) {
        EXPECT_EQ(NSURL::URLWithString(c.relative, base).absoluteString().utf8(), c.absolute)
            << NSString(c.relative).utf8();
    }
}

TEST(URLs, FilePathsGoBothWays) {
    for (const char16_t* path : {u"/tmp/none/a b?c#d%e", u"/tmp/none/\u00e9;x", u"/tmp/none/\xDCFF\xDC80"}) {
        NSURL url = NSURL::fileURLWithPath(path);
        EXPECT_TRUE(url.isFileURL());
        EXPECT_EQ(url.path().text(), path);
    }
    EXPECT_EQ(NSURL::fileURLWithPath(u"/tmp/none/a b;c").absoluteString().utf8(),
              "file:///tmp/none/a%20b%3Bc");
    EXPECT_EQ(NSURL::fileURLWithPath(u"/usr").absoluteString().utf8(), "file:///usr/");
    EXPECT_EQ(NSURL::fileURLWithPath(u"/usr").path().utf8(), "/usr");
    EXPECT_FALSE(NSURL::URLWithString(u"mailto:a@b").path());
    EXPECT_EQ(NSURL::URLWithString(u"http://h").path().utf8(), "");
}

TEST(Dates, AreOrderedByTime) {
    EXPECT_EQ(NSDate(1).compare(NSDate(2)), NSOrderedAscending);
    EXPECT_EQ(NSDate(2).compare(NSDate(1)), NSOrderedDescending);
    EXPECT_EQ(NSDate(-0.5).compare(NSDate(-0.5)), NSOrderedSame);
}

} // namespace
