// SPDX-License-Identifier: Apache-2.0
//
// What every target that reads property lists demands of a list that was read: it is written in both forms
// and comes back as it was.
#pragma once

#include "Platform/Foundation/NSArray.h"
#include "Platform/Foundation/NSDate.h"
#include "Platform/Foundation/NSDictionary.h"
#include "Platform/Foundation/NSPropertyListSerialization.h"

#include <cstdint>
#include <cstdlib>

struct PropertyListShape {
    size_t room = 20000;      // objects of the list as a tree, which XML writes out in full
    bool hasFarDates = false; // XML reads years of four digits only
    bool isEqualToItself = true;

    // False when the room does not suffice.
    bool look(const NSObject& object) {
        if (room-- == 0) return false;
        if (!is<NSArray>(object) && !is<NSDictionary>(object)) leaf(object);
        for (const NSObject& element : as<NSArray>(object)) {
            if (!look(element)) return false;
        }
        for (const auto& [key, value] : as<NSDictionary>(object)) {
            if (!look(value)) return false;
        }
        return true;
    }

    void leaf(const NSObject& object) {
        if (!object.body()->isEqual(*object.body())) isEqualToItself = false; // not-a-number
        if (!is<NSDate>(object)) return;
        const int64_t year = calendarDate(as<NSDate>(object).timeIntervalSinceReferenceDate()).year;
        if (year < 0 || year > 9999) hasFarDates = true;
    }
};

inline NSObject comesBack(const NSObject& list, NSPropertyListFormat format) {
    const NSData written = dataFromPropertyList(list, format, nullptr);
    if (!written) abort();
    NSPropertyListFormat found{};
    const NSObject again = propertyListWithData(written.bytes(), &found, nullptr);
    if (!again || found != format) abort();
    if (dataFromPropertyList(again, format, nullptr).bytes() != written.bytes()) abort();
    return again;
}

// Aborts when the list does not come back.
inline void checkRoundTrip(const NSObject& list) {
    if (!dataFromPropertyList(list, NSPropertyListBinaryFormat_v1_0, nullptr)) return;
    const NSObject again = comesBack(list, NSPropertyListBinaryFormat_v1_0);
    PropertyListShape shape;
    if (!shape.look(list)) return;
    if (shape.isEqualToItself && !(again == list)) abort();
    if (!shape.hasFarDates)
        comesBack(list, NSPropertyListXMLFormat_v1_0); // equal but for fractions of seconds
}
