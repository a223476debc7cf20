// SPDX-License-Identifier: Apache-2.0
#include "Platform/Foundation/Journal.h"

#include "Platform/Foundation/FileDescriptor.h"

#include <cstring>
#include <sys/socket.h>
#include <sys/un.h>
#include <utility>

namespace {

constexpr char kJournal[] = "/run/systemd/journal/socket";

// A value with a line feed is preceded by its length, in 64 bits, little-endian.
void appendField(std::string& entry, const std::string& name, const std::string& value) {
    entry += name;
    if (value.find('\n') == std::string::npos) {
        entry.push_back('=');
    } else {
        entry.push_back('\n');
        for (unsigned shift = 0; shift < 64; shift += 8)
            entry.push_back(char(uint64_t(value.size()) >> shift));
    }
    entry += value;
    entry.push_back('\n');
}

FileDescriptor connectedJournal() {
    FileDescriptor journal(socket(AF_UNIX, SOCK_DGRAM | SOCK_CLOEXEC, 0));
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    memcpy(address.sun_path, kJournal, sizeof kJournal);
    const bool isThere =
        connect(journal.get(), reinterpret_cast<const sockaddr*>(&address), sizeof address) == 0;
    return isThere ? std::move(journal) : FileDescriptor();
}

// Never closed: threads may log to the very end.
const FileDescriptor& journal() {
    static const auto& socket = *new FileDescriptor(connectedJournal());
    return socket;
}

} // namespace

bool openJournal() { return bool(journal()); }

bool sendToJournal(const std::map<std::string, std::string>& fields) {
    if (!openJournal()) return false;
    std::string entry;
    for (const auto& [name, value] : fields) appendField(entry, name, value);

    return send(journal().get(), entry.data(), entry.size(), MSG_NOSIGNAL) == ssize_t(entry.size());
}
