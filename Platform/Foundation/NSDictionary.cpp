// SPDX-License-Identifier: Apache-2.0
#include "Platform/Foundation/NSDictionary.h"

#include "Platform/Foundation/ContainerText.h"
#include "Platform/Foundation/NSException.h"
#include "Platform/Foundation/StringFormat.h"

#include <algorithm>

class DictionaryBody final : public ObjectBody {
public:
    explicit DictionaryBody(NSMutableDictionary contents)
        : ObjectBody(NSKind::dictionary), contents(std::move(contents)) {}

    std::string_view className() const override { return "NSDictionary"; }

    bool isEqual(const ObjectBody& object) const override {
        const auto& other = static_cast<const DictionaryBody&>(object);
        return entries().size() == other.entries().size() &&
               std::all_of(entries().begin(), entries().end(), [&](const NSDictionary::Entry& entry) {
                   NSObject theirs = other.contents.objectForKey(entry.first);
                   return theirs && theirs == entry.second;
               });
    }

    size_t hash() const override { return entries().size(); }
    std::u16string description(unsigned level) const override;

    const std::vector<NSDictionary::Entry>& entries() const { return contents.entries_; }

    const NSMutableDictionary contents;
};

std::u16string DictionaryBody::description(unsigned level) const {
    std::vector<const NSDictionary::Entry*> ordered;
    ordered.reserve(entries().size());
    for (const NSDictionary::Entry& entry : entries()) ordered.push_back(&entry);
    if (std::all_of(ordered.begin(), ordered.end(), [](auto* entry) { return is<NSString>(entry->first); })) {
        std::sort(ordered.begin(), ordered.end(), [](auto* a, auto* b) {
            return as<NSString>(a->first).text() < as<NSString>(b->first).text();
        });
    }
    std::u16string out = u"{\n";
    for (const NSDictionary::Entry* entry : ordered) {
        appendIndent(out, level + 1);
        appendElementText(out, entry->first, level);
        out += u" = ";
        appendElementText(out, entry->second, level);
        out += u";\n";
    }
    appendIndent(out, level);
    out.push_back(u'}');
    return out;
}

NSDictionary::NSDictionary(std::initializer_list<Entry> entries) {
    NSMutableDictionary contents;
    for (const auto& [key, object] : entries) contents.setObject(object, key);
    *this = std::move(contents).copy();
}

NSDictionary NSDictionary::dictionary() { return NSMutableDictionary().copy(); }

NSObject NSDictionary::objectForKey(const NSObject& key) const {
    return body() ? static_cast<const DictionaryBody*>(body())->contents.objectForKey(key) : NSObject();
}

const std::vector<NSDictionary::Entry>& NSDictionary::entries() const {
    static const std::vector<Entry> none;
    return body() ? static_cast<const DictionaryBody*>(body())->entries() : none;
}

NSMutableDictionary::NSMutableDictionary(const NSDictionary& entries) { addEntriesFromDictionary(entries); }

void NSMutableDictionary::setObject(const NSObject& object, const NSObject& key) {
    if (!key) {
        NSException(NSInvalidArgumentException,
                    u"*** -[__NSDictionaryM setObject:forKey:]: key cannot be nil")
            .raise();
    }
    if (!object) {
        NSException(
            NSInvalidArgumentException,
            stringWithFormat("*** -[__NSDictionaryM setObject:forKey:]: object cannot be nil (key: %@)", key))
            .raise();
    }
    auto [place, isNew] = index_.try_emplace(key, entries_.size());
    if (isNew) {
        entries_.emplace_back(key, object);
    } else {
        entries_[place->second].second = object;
    }
}

void NSMutableDictionary::removeObjectForKey(const NSObject& key) {
    auto place = index_.find(key);
    if (place == index_.end()) return;
    size_t removed = place->second;
    index_.erase(place);
    entries_.erase(entries_.begin() + ptrdiff_t(removed));
    for (auto& [_, position] : index_) {
        if (position > removed) --position;
    }
}

void NSMutableDictionary::addEntriesFromDictionary(const NSDictionary& entries) {
    for (const auto& [key, object] : entries) setObject(object, key);
}

NSObject NSMutableDictionary::objectForKey(const NSObject& key) const {
    auto place = index_.find(key);
    return place == index_.end() ? NSObject() : entries_[place->second].second;
}

NSDictionary NSMutableDictionary::copy() const& { return NSDictionary(new DictionaryBody(*this)); }

NSDictionary NSMutableDictionary::copy() && { return NSDictionary(new DictionaryBody(std::move(*this))); }
