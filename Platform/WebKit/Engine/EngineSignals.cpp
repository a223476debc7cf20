// SPDX-License-Identifier: Apache-2.0
//
// From the engine's signals to the view's methods; what a page may ask a user is refused, there is none.
#include "Platform/WebKit/Engine/EngineView.h"
#include "Platform/WebKit/Engine/PrivateSchemes.h"

namespace {

// Signals whose default would be to show something: TRUE says that it has been seen to.
gboolean refuse() { return TRUE; }

gboolean refusePermission(WebKitWebView*, WebKitPermissionRequest* request) {
    webkit_permission_request_deny(request);
    return TRUE;
}

gboolean refuseAuthentication(WebKitWebView*, WebKitAuthenticationRequest* request) {
    webkit_authentication_request_cancel(request);
    return TRUE;
}

WebKitWebView* refuseWindow() { return nullptr; }

void refuseDownload(WebKitWebContext*, WebKitDownload* download) { webkit_download_cancel(download); }

} // namespace

void EngineView::connectSignals() {
    const auto self = [](gpointer data) -> EngineView& { return *static_cast<EngineView*>(data); };
    static const auto view = self;
    auto connect = [this](const char* signal, GCallback handler) {
        g_signal_connect(view_, signal, handler, this);
    };

    connect("load-changed", G_CALLBACK(+[](WebKitWebView*, WebKitLoadEvent event, gpointer data) {
                view(data).loadChanged(event);
            }));
    connect("load-failed", G_CALLBACK(+[](WebKitWebView*, WebKitLoadEvent event, char*, GError* error,
                                          gpointer data) -> gboolean {
                view(data).loadFailed(event, *error);
                return TRUE; // no page that tells of the error
            }));
    connect("decide-policy",
            G_CALLBACK(+[](WebKitWebView*, WebKitPolicyDecision* decision, WebKitPolicyDecisionType type,
                           gpointer data) -> gboolean { return view(data).decidePolicy(decision, type); }));
    connect("resource-load-started",
            G_CALLBACK(+[](WebKitWebView*, WebKitWebResource* resource, WebKitURIRequest*, gpointer data) {
                view(data).resourceStarted(resource);
                auto ended =
                    +[](WebKitWebResource* ending, gpointer owner) { view(owner).resourceEnded(ending); };
                g_signal_connect(resource, "finished", G_CALLBACK(ended), data);
            }));
    connect("web-process-terminated", G_CALLBACK(+[](WebKitWebView*, WebKitWebProcessTerminationReason,
                                                     gpointer data) { view(data).processGone(); }));

    for (const char* signal : {"script-dialog", "print", "run-file-chooser", "show-notification",
                               "enter-fullscreen", "run-color-chooser", "show-option-menu"}) {
        connect(signal, G_CALLBACK(refuse));
    }
    connect("permission-request", G_CALLBACK(refusePermission));
    connect("authenticate", G_CALLBACK(refuseAuthentication));
    connect("create", G_CALLBACK(refuseWindow));
    g_signal_connect(context_.get(), "download-started", G_CALLBACK(refuseDownload), this);
    g_signal_connect(context_.get(), "initialize-web-extensions",
                     G_CALLBACK(+[](WebKitWebContext* context, gpointer data) {
                         const gboolean scripts = view(data).preferences().javaScriptEnabled();
                         webkit_web_context_set_web_extensions_initialization_user_data(
                             context, g_variant_new("(sb)", view(data).page_.url.c_str(), scripts));
                     }),
                     this);
}

void EngineView::connectSchemes() {
    auto came = +[](WebKitURISchemeRequest* request, gpointer data) {
        static_cast<EngineView*>(data)->requestCame(request);
    };
    WebKitSecurityManager* security = webkit_web_context_get_security_manager(context_.get());
    auto serve = [&](const std::string& scheme) {
        webkit_web_context_register_uri_scheme(context_.get(), scheme.c_str(), came, this, nullptr);
        webkit_security_manager_register_uri_scheme_as_secure(security, scheme.c_str());
        webkit_security_manager_register_uri_scheme_as_cors_enabled(security, scheme.c_str());
    };
    for (const char* scheme : PrivateSchemes::kServed) serve(std::string(PrivateSchemes::kPrefix) + scheme);
    serve(std::string(PrivateSchemes::schemeOf(PrivateSchemes::kOther)));
}
