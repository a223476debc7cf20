// SPDX-License-Identifier: Apache-2.0
#include "Platform/WebKit/WebPreferences.h"

struct WebPreferences::Body final : ObjectBody {
    Body() : ObjectBody(NSKind::other) {}

    std::string_view className() const override { return "WebPreferences"; }
    std::u16string description(unsigned) const override { return u"<WebPreferences>"; }

    mutable bool autosaves = true;
    mutable bool loadsImagesAutomatically = true;
    mutable bool plugInsEnabled = true;
    mutable bool javaScriptCanOpenWindowsAutomatically = true;
    mutable bool javaEnabled = true;
    mutable bool javaScriptEnabled = true;
};

WebPreferences WebPreferences::standardPreferences() {
    static const WebPreferences shared(new Body);
    return shared;
}

WebPreferences WebPreferences::preferences() { return WebPreferences(new Body); }

const WebPreferences::Body& WebPreferences::flags() const {
    static const Body defaults;
    return body() ? *static_cast<const Body*>(body()) : defaults;
}

void WebPreferences::setAutosaves(bool flag) const { flags().autosaves = flag; }
void WebPreferences::setLoadsImagesAutomatically(bool flag) const { flags().loadsImagesAutomatically = flag; }
void WebPreferences::setPlugInsEnabled(bool flag) const { flags().plugInsEnabled = flag; }
void WebPreferences::setJavaScriptCanOpenWindowsAutomatically(bool flag) const {
    flags().javaScriptCanOpenWindowsAutomatically = flag;
}
void WebPreferences::setJavaEnabled(bool flag) const { flags().javaEnabled = flag; }
void WebPreferences::setJavaScriptEnabled(bool flag) const { flags().javaScriptEnabled = flag; }

bool WebPreferences::autosaves() const { return flags().autosaves; }
bool WebPreferences::loadsImagesAutomatically() const { return flags().loadsImagesAutomatically; }
bool WebPreferences::plugInsEnabled() const { return flags().plugInsEnabled; }
bool WebPreferences::javaScriptCanOpenWindowsAutomatically() const {
    return flags().javaScriptCanOpenWindowsAutomatically;
}
bool WebPreferences::javaEnabled() const { return flags().javaEnabled; }
bool WebPreferences::javaScriptEnabled() const { return flags().javaScriptEnabled; }
