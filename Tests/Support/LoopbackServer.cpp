// SPDX-License-Identifier: Apache-2.0
#include "Tests/Support/LoopbackServer.h"

#include <arpa/inet.h>
#include <gtest/gtest.h>
#include <netinet/in.h>
#include <sys/socket.h>
#include <unistd.h>

LoopbackServer::LoopbackServer(std::map<std::string, std::string> responses)
    : socket_(socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0)), responses_(std::move(responses)) {
    sockaddr_in address{};
    address.sin_family = AF_INET;
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    socklen_t length = sizeof address;
    EXPECT_EQ(bind(socket_, reinterpret_cast<sockaddr*>(&address), length), 0);
    EXPECT_EQ(listen(socket_, 32), 0);
    EXPECT_EQ(getsockname(socket_, reinterpret_cast<sockaddr*>(&address), &length), 0);
    port_ = ntohs(address.sin_port);
    thread_ = std::thread([this] { serve(); });
}

LoopbackServer::~LoopbackServer() {
    shutdown(socket_, SHUT_RDWR);
    thread_.join();
    for (int connection : open_) close(connection);
    close(socket_);
}

std::string LoopbackServer::url(const std::string& path) const {
    return "http://127.0.0.1:" + std::to_string(port_) + path;
}

std::vector<std::string> LoopbackServer::requests() const {
    const std::lock_guard lock(mutex_);
    return requests_;
}

void LoopbackServer::serve() {
    for (int connection; (connection = accept4(socket_, nullptr, nullptr, SOCK_CLOEXEC)) >= 0;)
        answer(connection);
}

void LoopbackServer::answer(int connection) {
    std::string request;
    char bytes[4096];
    while (request.find("\r\n\r\n") == std::string::npos) {
        const ssize_t length = recv(connection, bytes, sizeof bytes, 0);
        if (length <= 0) break;
        request.append(bytes, size_t(length));
    }
    const size_t begin = request.find(' ') + 1;
    const std::string path = request.substr(begin, request.find(' ', begin) - begin);
    {
        const std::lock_guard lock(mutex_);
        requests_.push_back(request);
    }
    const auto response = responses_.find(path);
    if (response == responses_.end()) {
        open_.push_back(connection);
        return;
    }
    send(connection, response->second.data(), response->second.size(), MSG_NOSIGNAL);
    close(connection);
}

std::string httpResponse(const std::string& type, const std::string& body, const std::string& status,
                         const std::string& headers) {
    return "HTTP/1.1 " + status + "\r\nContent-Type: " + type + "\r\nConnection: close\r\n" + headers +
           "Content-Length: " + std::to_string(body.size()) + "\r\n\r\n" + body;
}
