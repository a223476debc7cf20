// SPDX-License-Identifier: Apache-2.0
//
// Announcements within the process: who posts one does not know who listens.
#pragma once

#include "Platform/Foundation/NSString.h"

#include <functional>
#include <vector>

struct NSNotification {
    NSString name;
    const void* object = nullptr; // who posts; only its identity counts
};

// Of the main thread.
class NSNotificationCenter {
public:
    static NSNotificationCenter& defaultCenter();

    // The observer is an identity, for removeObserver. A null object listens to everybody.
    void addObserver(const void* observer, std::function<void(const NSNotification&)> handler,
                     const NSString& name, const void* object);
    void removeObserver(const void* observer);
    void postNotification(const NSNotification& notification) const;

private:
    struct Entry {
        const void* observer;
        std::function<void(const NSNotification&)> handler;
        NSString name;
        const void* object;
    };
    std::vector<Entry> entries_;
};
