// SPDX-License-Identifier: Apache-2.0
//
// One request over HTTP: no cookies, nothing stored, redirects left to the one who asked.
#pragma once

#include "Platform/Foundation/NSError.h"
#include "Platform/WebKit/Engine/GObjectPointer.h"

#include <libsoup/soup.h>
#include <string>

inline constexpr auto kHTTPFlags = GUriFlags(SOUP_HTTP_URI_FLAGS);

class NetworkLoad {
public:
    class Client {
    public:
        virtual ~Client() = default;
        // The body streams in; the message holds status and headers. Nothing more follows.
        virtual void networkDidRespond(SoupMessage* message, GInputStream* body) = 0;
        virtual void networkDidFail(const NSError& error) = 0;
        // A server asks for a password; the load then fails as such.
        virtual void networkWasChallenged() = 0;
    };

    // Starts at once; one answer comes while the run loop runs, and none after the load has gone. The client
    // outlives it. A URL that is none never has an answer: see isValid.
    NetworkLoad(SoupSession* session, const std::string& url, Client& client);
    ~NetworkLoad();

    static bool isValid(const std::string& url) { return g_uri_is_valid(url.c_str(), kHTTPFlags, nullptr); }

    NetworkLoad(const NetworkLoad&) = delete;
    NetworkLoad& operator=(const NetworkLoad&) = delete;

private:
    static void sent(GObject* session, GAsyncResult* result, gpointer self);
    static gboolean authenticate(SoupMessage* message, SoupAuth* auth, gboolean isRetry, gpointer self);

    Client& client_;
    GObjectPointer<SoupMessage> message_;
    GObjectPointer<GCancellable> cancellable_;
    gulong authentication_ = 0;
};

// A session for all loads of a view.
GObjectPointer<SoupSession> makeSession(const char* userAgent);

// The toolkit's error in the platform's terms.
NSError errorOf(const GError& error);

// An error of the URL domain.
NSError urlError(int64_t code, const std::string& url);
