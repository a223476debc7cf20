// SPDX-License-Identifier: Apache-2.0
#include "Platform/WebKit/Engine/EngineContext.h"

#include "Platform/WebKit/Engine/PrivateSchemes.h"

#include <string_view>

namespace {

// What goes past the program, as web sockets and preconnections do, ends here: the kernel connects to no
// address of all machines, and sends nothing.
constexpr const char* kNowhere = "http://255.255.255.255:1";

// Without players the engine would show what pages say to browsers that have none.
constexpr const char* kStyle = "video, audio { display: none !important }";

struct Feature {
    const char* name;
    gboolean isOn;
};

// Archives mix schemes and origins freely, and what a page announces is not to be fetched before it is used.
constexpr Feature kFeatures[] = {{"AllowDisplayOfInsecureContent", TRUE},
                                 {"AllowRunningOfInsecureContent", TRUE},
                                 {"IgnoreIframeEmbeddingProtections", TRUE},
                                 {"UpgradeMixedContent", FALSE},
                                 {"PDFJSViewer", FALSE},
                                 {"LinkPreconnect", FALSE},
                                 {"LinkDNSPrefetch", FALSE},
                                 {"LinkPreload", FALSE},
                                 {"LinkPrefetch", FALSE},
                                 {"LazyIframeLoading", FALSE},
                                 {"LazyImageLoading", FALSE},
                                 // The libraries of voices have been left out.
                                 {"SpeechRecognition", FALSE},
                                 {"SpeechSynthesisAPI", FALSE}};

void setFeatures(WebKitSettings* settings) {
    WebKitFeatureList* all = webkit_settings_get_all_features();
    for (gsize i = 0; i < webkit_feature_list_get_length(all); ++i) {
        WebKitFeature* feature = webkit_feature_list_get(all, i);
        for (const Feature& wanted : kFeatures) {
            if (std::string_view(webkit_feature_get_identifier(feature)) == wanted.name)
                webkit_settings_set_feature_enabled(settings, feature, wanted.isOn);
        }
    }
    webkit_feature_list_unref(all);
}

void closeNetwork(WebKitWebsiteDataManager* data) {
    WebKitNetworkProxySettings* nowhere = webkit_network_proxy_settings_new(kNowhere, nullptr);
    webkit_website_data_manager_set_network_proxy_settings(data, WEBKIT_NETWORK_PROXY_MODE_CUSTOM, nowhere);
    webkit_network_proxy_settings_free(nowhere);
}

} // namespace

GObjectPointer<WebKitWebContext> makeContext(const std::string& extensionFolder, bool hasSandbox) {
    GObjectPointer<WebKitWebContext> context(webkit_web_context_new_ephemeral());
    webkit_web_context_set_cache_model(context.get(), WEBKIT_CACHE_MODEL_DOCUMENT_VIEWER);
    webkit_web_context_set_spell_checking_enabled(context.get(), FALSE);
    webkit_web_context_set_web_extensions_directory(context.get(), extensionFolder.c_str());
    if (hasSandbox) {
        webkit_web_context_set_sandbox_enabled(context.get(), TRUE);
        webkit_web_context_add_path_to_sandbox(context.get(), extensionFolder.c_str(), TRUE);
    }
    webkit_cookie_manager_set_accept_policy(webkit_web_context_get_cookie_manager(context.get()),
                                            WEBKIT_COOKIE_POLICY_ACCEPT_NEVER);
    closeNetwork(webkit_web_context_get_website_data_manager(context.get()));
    return context;
}

GObjectPointer<WebKitSettings> makeSettings() {
    GObjectPointer<WebKitSettings> settings(WEBKIT_SETTINGS(g_object_new(
        WEBKIT_TYPE_SETTINGS, "enable-dns-prefetching", FALSE, "enable-html5-database", FALSE,
        "enable-html5-local-storage", FALSE, "enable-hyperlink-auditing", FALSE,
        "enable-offline-web-application-cache", FALSE, "enable-page-cache", FALSE, "enable-media", FALSE,
        "enable-webaudio", FALSE, "enable-webgl", FALSE, "enable-webrtc", FALSE, "enable-smooth-scrolling",
        FALSE, "javascript-can-open-windows-automatically", FALSE, "hardware-acceleration-policy",
        WEBKIT_HARDWARE_ACCELERATION_POLICY_NEVER, nullptr)));
    setFeatures(settings.get());
    return settings;
}

GObjectPointer<WebKitUserContentManager> makeContent() {
    GObjectPointer<WebKitUserContentManager> content(webkit_user_content_manager_new());
    WebKitUserStyleSheet* sheet = webkit_user_style_sheet_new(kStyle, WEBKIT_USER_CONTENT_INJECT_ALL_FRAMES,
                                                              WEBKIT_USER_STYLE_LEVEL_USER, nullptr, nullptr);
    webkit_user_content_manager_add_style_sheet(content.get(), sheet);
    webkit_user_style_sheet_unref(sheet);
    return content;
}

void applyPreferences(const WebPreferences& preferences, WebKitSettings* settings) {
    const gboolean scripts = preferences.javaScriptEnabled();
    webkit_settings_set_enable_javascript(settings, scripts);
    webkit_settings_set_auto_load_images(settings, preferences.loadsImagesAutomatically());
    // Reading frames of other origins takes that the origins do not count. With scripts they have to.
    webkit_settings_set_disable_web_security(settings, !scripts);
}
