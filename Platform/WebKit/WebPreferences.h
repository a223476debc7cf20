// SPDX-License-Identifier: Apache-2.0
//
// What web content may do, for the readers and views that show it.
#pragma once

#include "Platform/Foundation/NSObject.h"

class WebPreferences : public NSObject {
public:
    WebPreferences() = default;

    // Shared by the whole process: changes stay in force for everybody. Everything is on at first.
    static WebPreferences standardPreferences();

    // New ones, for one view. Everything is on at first.
    static WebPreferences preferences();

    void setAutosaves(bool flag) const;
    void setLoadsImagesAutomatically(bool flag) const;
    void setPlugInsEnabled(bool flag) const;
    void setJavaScriptCanOpenWindowsAutomatically(bool flag) const;
    void setJavaEnabled(bool flag) const;
    void setJavaScriptEnabled(bool flag) const;

    bool autosaves() const;
    bool loadsImagesAutomatically() const;
    bool plugInsEnabled() const;
    bool javaScriptCanOpenWindowsAutomatically() const;
    bool javaEnabled() const;
    bool javaScriptEnabled() const;

private:
    struct Body;
    explicit WebPreferences(const ObjectBody* body) : NSObject(body) {}
    const Body& flags() const;
};
