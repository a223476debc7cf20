// SPDX-License-Identifier: Apache-2.0
//
// The part of the engine's module that runs in the page's process: it gives every request a private scheme,
// so that the program answers it, and reads the page when it is asked to.
#include "Platform/WebKit/Engine/GObjectPointer.h"
#include "Platform/WebKit/Engine/PrivateSchemes.h"
#include "Platform/WebKit/PageExtension/MemoryWatch.h"
#include "Platform/WebKit/PageExtension/PageScript.h"

#include <string>
#include <vector>
#include <webkit2/webkit-web-extension.h>

namespace {

struct Page {
    std::string mainURL;      // of the page that the program shows
    bool mainHasCome = false; // its request has gone by
    bool runsScripts = false; // then frames of other origins are closed to each other
    WebKitScriptWorld* world = nullptr;
    std::vector<WebKitFrame*> frames; // as far as they announced themselves
};

gboolean sendRequest(WebKitWebPage*, WebKitURIRequest* request, WebKitURIResponse*, gpointer data) {
    auto& page = *static_cast<Page*>(data);
    const std::string url = webkit_uri_request_get_uri(request);
    // The program gives the main resource's bytes with the request; under a private scheme the page would
    // lose its URL.
    if (!page.mainHasCome && url == page.mainURL) {
        page.mainHasCome = true;
    } else if (!PrivateSchemes::isInternal(url) && !PrivateSchemes::isPrivate(url)) {
        webkit_uri_request_set_uri(request, PrivateSchemes::privateURL(url).c_str());
    }
    return FALSE;
}

// Appends what the script says of a frame, or of all frames, which it reaches where it may.
void appendFrames(const Page& page, WebKitFrame* frame, const char* mode, std::string& fields) {
    G_GNUC_BEGIN_IGNORE_DEPRECATIONS
    JSCContext* context = webkit_frame_get_js_context_for_script_world(frame, page.world);
    G_GNUC_END_IGNORE_DEPRECATIONS
    if (!context) return;
    const std::string call = std::string(kPageScript) + "(\"" + mode + "\")";
    JSCValue* value = jsc_context_evaluate(context, call.data(), gssize(call.size()));
    if (JSCException* exception = jsc_context_get_exception(context)) {
        g_warning("reading a page: %s", jsc_exception_get_message(exception));
    } else if (jsc_value_is_string(value)) {
        GBytes* bytes = jsc_value_to_string_as_bytes(value);
        gsize length = 0;
        auto text = static_cast<const char*>(g_bytes_get_data(bytes, &length));
        if (length) fields.append(text, length);
        g_bytes_unref(bytes);
    }
    g_object_unref(value);
    g_object_unref(context);
}

gboolean messageReceived(WebKitWebPage* webPage, WebKitUserMessage* message, gpointer data) {
    auto& page = *static_cast<Page*>(data);
    std::string fields;
    if (page.runsScripts) {
        // Looking at one frame can make others announce themselves.
        std::vector<GObjectPointer<WebKitFrame>> frames;
        for (WebKitFrame* frame : page.frames) frames.push_back(retained(frame));
        for (const auto& frame : frames) appendFrames(page, frame.get(), "one", fields);
    } else {
        G_GNUC_BEGIN_IGNORE_DEPRECATIONS
        appendFrames(page, webkit_web_page_get_main_frame(webPage), "all", fields);
        G_GNUC_END_IGNORE_DEPRECATIONS
    }
    GBytes* bytes = g_bytes_new(fields.data(), fields.size());
    GVariant* answer = g_variant_new_from_bytes(G_VARIANT_TYPE_BYTESTRING, bytes, TRUE);
    g_bytes_unref(bytes);
    webkit_user_message_send_reply(message,
                                   webkit_user_message_new(webkit_user_message_get_name(message), answer));
    return TRUE;
}

void frameGone(gpointer data, GObject* frame) {
    std::erase(static_cast<Page*>(data)->frames, reinterpret_cast<WebKitFrame*>(frame));
}

void windowObjectCleared(WebKitScriptWorld*, WebKitWebPage*, WebKitFrame* frame, gpointer data) {
    auto& page = *static_cast<Page*>(data);
    for (WebKitFrame* known : page.frames) {
        if (known == frame) return;
    }
    page.frames.push_back(frame);
    g_object_weak_ref(G_OBJECT(frame), frameGone, data);
}

// Standard error belongs to the program; what it wants to know of a page it asks for.
GLogWriterOutput dropMessage(GLogLevelFlags, const GLogField*, gsize, gpointer) {
    return G_LOG_WRITER_HANDLED;
}

void pageCreated(WebKitWebExtension*, WebKitWebPage* webPage, gpointer data) {
    g_signal_connect(webPage, "send-request", G_CALLBACK(sendRequest), data);
    g_signal_connect(webPage, "user-message-received", G_CALLBACK(messageReceived), data);
}

} // namespace

extern "C" G_MODULE_EXPORT void webkit_web_extension_initialize_with_user_data(WebKitWebExtension* extension,
                                                                               const GVariant* data) {
    static Page page; // the process shows one page
    g_log_set_writer_func(dropMessage, nullptr, nullptr);
    MemoryWatch::start();
    const char* mainURL = "";
    gboolean runsScripts = FALSE;
    g_variant_get(const_cast<GVariant*>(data), "(&sb)", &mainURL, &runsScripts);
    WebKitURIRequest* request = webkit_uri_request_new(mainURL);
    page.mainURL = webkit_uri_request_get_uri(request); // as requests have it
    g_object_unref(request);
    page.runsScripts = runsScripts;
    page.world = webkit_script_world_new();
    if (runsScripts) {
        g_signal_connect(page.world, "window-object-cleared", G_CALLBACK(windowObjectCleared), &page);
    }
    g_signal_connect(extension, "page-created", G_CALLBACK(pageCreated), &page);
}
