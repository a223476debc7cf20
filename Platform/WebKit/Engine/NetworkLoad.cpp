// SPDX-License-Identifier: Apache-2.0
#include "Platform/WebKit/Engine/NetworkLoad.h"

NetworkLoad::NetworkLoad(SoupSession* session, const std::string& url, Client& client)
    : client_(client), message_(soup_message_new(SOUP_METHOD_GET, url.c_str())),
      cancellable_(g_cancellable_new()) {
    if (!message_) return;
    soup_message_add_flags(message_.get(), SOUP_MESSAGE_NO_REDIRECT);
    authentication_ = g_signal_connect(message_.get(), "authenticate", G_CALLBACK(authenticate), this);
    soup_session_send_async(session, message_.get(), G_PRIORITY_DEFAULT, cancellable_.get(), sent, this);
}

NetworkLoad::~NetworkLoad() {
    if (!message_) return;
    g_signal_handler_disconnect(message_.get(), authentication_);
    g_cancellable_cancel(cancellable_.get());
}

void NetworkLoad::sent(GObject* session, GAsyncResult* result, gpointer self) {
    GError* error = nullptr;
    const GObjectPointer<GInputStream> body(soup_session_send_finish(SOUP_SESSION(session), result, &error));
    if (!error) {
        auto& load = *static_cast<NetworkLoad*>(self);
        const GObjectPointer<SoupMessage> message = retained(load.message_.get());
        load.client_.networkDidRespond(message.get(), body.get());
        return;
    }
    // A cancelled load has gone already.
    if (!g_error_matches(error, G_IO_ERROR, G_IO_ERROR_CANCELLED))
        static_cast<NetworkLoad*>(self)->client_.networkDidFail(errorOf(*error));
    g_error_free(error);
}

gboolean NetworkLoad::authenticate(SoupMessage*, SoupAuth* auth, gboolean, gpointer self) {
    soup_auth_cancel(auth);
    static_cast<NetworkLoad*>(self)->client_.networkWasChallenged();
    return TRUE;
}

GObjectPointer<SoupSession> makeSession(const char* userAgent) {
    return GObjectPointer<SoupSession>(soup_session_new_with_options("user-agent", userAgent, nullptr));
}

NSError errorOf(const GError& error) {
    return NSError(NSURLErrorDomain, NSURLErrorCannotConnectToHost,
                   {{NSString(NSLocalizedDescriptionKey), NSString::fromUTF8(error.message)}});
}

NSError urlError(int64_t code, const std::string& url) {
    return NSError(NSURLErrorDomain, code,
                   {{NSString(NSURLErrorFailingURLStringErrorKey), NSString::fromUTF8(url)}});
}
