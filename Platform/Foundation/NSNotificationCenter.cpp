// SPDX-License-Identifier: Apache-2.0
#include "Platform/Foundation/NSNotificationCenter.h"

#include <utility>

NSNotificationCenter& NSNotificationCenter::defaultCenter() {
    static NSNotificationCenter center;
    return center;
}

void NSNotificationCenter::addObserver(const void* observer,
                                       std::function<void(const NSNotification&)> handler,
                                       const NSString& name, const void* object) {
    entries_.push_back({observer, std::move(handler), name, object});
}

void NSNotificationCenter::removeObserver(const void* observer) {
    std::erase_if(entries_, [&](const Entry& entry) { return entry.observer == observer; });
}

void NSNotificationCenter::postNotification(const NSNotification& notification) const {
    // A copy: a handler may add and remove observers.
    for (const Entry& entry : std::vector<Entry>(entries_)) {
        const bool isOfObject = !entry.object || entry.object == notification.object;
        if (isOfObject && entry.name.isEqualToString(notification.name)) entry.handler(notification);
    }
}
