// SPDX-License-Identifier: Apache-2.0
//
// An archive's main resource as the engine takes it.
#pragma once

#include "Platform/WebKit/WebResource.h"

#include <glib.h>
#include <string>

class MainDocument {
public:
    explicit MainDocument(const WebResource& resource);
    ~MainDocument() { g_bytes_unref(bytes_); }
    MainDocument(const MainDocument&) = delete;
    MainDocument& operator=(const MainDocument&) = delete;

    GBytes* bytes() const { return bytes_; }
    const char* type() const { return type_.c_str(); }
    const char* encoding() const { return encoding_.c_str(); }

private:
    GBytes* bytes_;
    std::string type_, encoding_;
};
