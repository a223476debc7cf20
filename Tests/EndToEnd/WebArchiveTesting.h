// SPDX-License-Identifier: Apache-2.0
//
// What the end-to-end tests of web archives share.
#pragma once

#include "Platform/WebKit/WebArchive.h"
#include "Tests/EndToEnd/EndToEnd.h"

#include <chrono>
#include <thread>

inline WebResource webResource(const std::string& url, const std::string& bytes,
                               const char16_t* type = u"text/html", const char16_t* encoding = u"UTF-8") {
    return WebResource(NSData(bytes), NSURL::URLWithString(NSString::fromUTF8(url)), type,
                       encoding ? NSString(encoding) : NSString(), u"");
}

class WebArchives : public EndToEnd {
protected:
    // The file's path.
    std::string writeArchive(const WebArchive& archive) const {
        return write("page.webarchive", archive.data().bytes());
    }
    // Of a page at http://site.test/.
    std::string writePage(const std::string& html, std::vector<WebResource> subresources = {},
                          std::vector<WebArchive> frames = {}) const {
        return writeArchive(
            WebArchive(webResource("http://site.test/", html), std::move(subresources), std::move(frames)));
    }

    // Variables that set the host's preferences to an old-style property list.
    std::map<std::string, std::string> preferences(const std::string& list) const {
        write("org.larkspur.Larkspur.plist", list);
        return {{"XDG_CONFIG_HOME", folder.path()}};
    }

    std::string textOf(const ToolResult& result) const {
        return stringIn(recordOf(result.output), u"string");
    }
    std::string textOf(const std::string& archive,
                       const std::map<std::string, std::string>& environment = {}) {
        return textOf(request("WebArchivePath", archive, environment));
    }
};

// The running processes, of the name if one is given, that have the variable in their environments.
std::vector<pid_t> processesWith(const std::string& variable, const std::string& name = "");

// Waits until it is so, for ten seconds at most.
template <class Condition>
bool comesTrue(const Condition& condition) {
    const auto end = std::chrono::steady_clock::now() + std::chrono::seconds(10);
    while (!condition()) {
        if (std::chrono::steady_clock::now() > end) return false;
        std::this_thread::sleep_for(std::chrono::milliseconds(20));
    }
    return true;
}
