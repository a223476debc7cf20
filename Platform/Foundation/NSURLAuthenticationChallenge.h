// SPDX-License-Identifier: Apache-2.0
//
// A server's question for a name and a password.
#pragma once

struct NSURLAuthenticationChallenge;

class NSURLAuthenticationChallengeSender {
public:
    virtual ~NSURLAuthenticationChallengeSender() = default;
    virtual void cancelAuthenticationChallenge(const NSURLAuthenticationChallenge& challenge) = 0;
};

struct NSURLAuthenticationChallenge {
    NSURLAuthenticationChallengeSender& sender;
};
