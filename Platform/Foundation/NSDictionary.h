// SPDX-License-Identifier: Apache-2.0
//
// Values by key. A dictionary enumerates in the order in which its keys were first set, so that the same
// document gives the same bytes on every run. Keys are nearly always strings; other values can be keys too.
#pragma once

#include "Platform/Foundation/NSObject.h"
#include "Platform/Foundation/NSString.h"

#include <initializer_list>
#include <unordered_map>
#include <utility>
#include <vector>

class NSDictionary : public NSObject {
public:
    static constexpr NSKind kKind = NSKind::dictionary;
    using Entry = std::pair<NSObject, NSObject>;

    NSDictionary() = default;
    NSDictionary(std::nullptr_t) {}
    NSDictionary(std::initializer_list<Entry> entries);
    explicit NSDictionary(const ObjectBody* body) : NSObject(body) {}

    // A dictionary without entries, which is not nil.
    static NSDictionary dictionary();

    NSObject objectForKey(const NSObject& key) const;
    const std::vector<Entry>& entries() const;
    size_t count() const { return entries().size(); }

    auto begin() const { return entries().begin(); }
    auto end() const { return entries().end(); }

    // nil when the key is missing or its value of another class.
    template <class T>
    T get(const NSObject& key) const {
        return as<T>(objectForKey(key));
    }

private:
    friend class NSMutableDictionary;
};

// A dictionary in the making. Not a value itself: `copy` makes one of it.
class NSMutableDictionary {
public:
    NSMutableDictionary() = default;
    explicit NSMutableDictionary(const NSDictionary& entries);

    // Replaces the value of a key that is there, which keeps its place. Raises an invalid-argument exception
    // when key or object is nil.
    void setObject(const NSObject& object, const NSObject& key);
    // Nothing happens when the key is not there. Takes time in proportion to the number of entries.
    void removeObjectForKey(const NSObject& key);
    void addEntriesFromDictionary(const NSDictionary& entries);
    NSObject objectForKey(const NSObject& key) const;
    size_t count() const { return entries_.size(); }

    NSDictionary copy() const&;
    NSDictionary copy() &&;

private:
    struct KeyHash {
        size_t operator()(const NSObject& key) const { return key.hash(); }
    };
    using Index = std::unordered_map<NSObject, size_t, KeyHash>;
    friend class DictionaryBody;

    std::vector<NSDictionary::Entry> entries_;
    Index index_; // places in entries_
};
