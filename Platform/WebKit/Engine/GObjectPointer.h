// SPDX-License-Identifier: Apache-2.0
//
// Ownership of the toolkit's objects.
#pragma once

#include <glib-object.h>
#include <memory>

struct GObjectRelease {
    void operator()(gpointer object) const { g_object_unref(object); }
};

// Owns one reference.
template <class T>
using GObjectPointer = std::unique_ptr<T, GObjectRelease>;

// One more reference to an object that somebody else owns.
template <class T>
GObjectPointer<T> retained(T* object) {
    return GObjectPointer<T>(static_cast<T*>(g_object_ref(object)));
}
