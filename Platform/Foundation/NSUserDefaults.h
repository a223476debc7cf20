// SPDX-License-Identifier: Apache-2.0
//
// Settings by key, looked up in the arguments of the command line (`-Key value`), the stored preferences of
// this program's own domain, the global ones, and registered defaults, in this order.
#pragma once

#include "Platform/Foundation/NSDictionary.h"
#include "Platform/Foundation/NSString.h"

#include <vector>

class NSUserDefaults {
public:
    // The process's own: its command line, and the domain that setDomain gave.
    static NSUserDefaults& standardUserDefaults();

    NSUserDefaults(const std::vector<NSString>& arguments, const NSString& domain);

    void registerDefaults(const NSDictionary& defaults);
    void setDomain(const NSString& domain) { domain_ = domain; }

    NSObject objectForKey(const NSString& key) const;
    // Numbers as their text; nil for other classes and absent keys.
    NSString stringForKey(const NSString& key) const;
    // YES, true or 1 in any case, or a number that is not zero.
    bool boolForKey(const NSString& key) const;

    // The argument domain of a command line: a word that begins with "-" is a key when a word that does not
    // begin so follows, its value. Values that look like a property list and read as one are that list.
    static NSDictionary argumentDomain(const std::vector<NSString>& arguments);

private:
    NSDictionary arguments_;
    NSString domain_;
    NSDictionary registered_;
};
