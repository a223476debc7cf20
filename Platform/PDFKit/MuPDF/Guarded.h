// SPDX-License-Identifier: Apache-2.0
//
// The border to the engine, which leaves a failed function with longjmp: that must skip no destructor, and no
// C++ exception may pass through the engine's functions.
#pragma once

#include <mupdf/fitz.h>
#include <mupdf/pdf.h>

#include <new>
#include <stdexcept>

// Calls `work`, which may call what throws in the engine's way; false when it did. `work` must hold nothing
// with a destructor while it calls the engine. What it captures keeps its value through a failure, since this
// is never inlined.
template <class Work>
[[gnu::noinline]] bool guarded(fz_context* context, const Work& work) {
    volatile bool done = false;
    fz_try(context) {
        try {
            work();
            done = true;
        } catch (const std::bad_alloc&) {
            done = false;
        }
    }
    fz_catch(context) { done = false; }
    return done;
}

// For what the engine calls: does `work`, which may run out of memory and must not call the engine, and has
// the engine give up if it did.
template <class Work>
void contained(fz_context* context, const Work& work) {
    bool done = false;
    try {
        work();
        done = true;
    } catch (const std::bad_alloc&) {
    } catch (const std::length_error&) {
    }
    if (!done) fz_throw(context, FZ_ERROR_ABORT, "out of memory");
}
