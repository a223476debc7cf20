// SPDX-License-Identifier: Apache-2.0
//
// A server of web pages on this machine's loopback interface, for one test.
#pragma once

#include <map>
#include <mutex>
#include <string>
#include <thread>
#include <vector>

class LoopbackServer {
public:
    // Whole responses by the path that is asked for. A path that is not there is never answered: the
    // connection stays open until the server goes.
    explicit LoopbackServer(std::map<std::string, std::string> responses);
    ~LoopbackServer();
    LoopbackServer(const LoopbackServer&) = delete;
    LoopbackServer& operator=(const LoopbackServer&) = delete;

    // "http://127.0.0.1:PORT" and the path.
    std::string url(const std::string& path) const;

    // The first lines and the headers of what was asked so far.
    std::vector<std::string> requests() const;

private:
    void serve();
    void answer(int connection);

    int socket_ = -1, port_ = 0;
    std::map<std::string, std::string> responses_;
    mutable std::mutex mutex_;
    std::vector<std::string> requests_;
    std::vector<int> open_; // never answered
    std::thread thread_;
};

// A response with a body.
std::string httpResponse(const std::string& type, const std::string& body,
                         const std::string& status = "200 OK", const std::string& headers = "");
