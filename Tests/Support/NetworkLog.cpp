// SPDX-License-Identifier: Apache-2.0
#include "Tests/Support/NetworkLog.h"

#include "Tests/Support/TemporaryFolder.h"

#include <arpa/inet.h>
#include <cstdlib>
#include <fstream>
#include <linux/if_ether.h>
#include <linux/if_packet.h>
#include <netinet/in.h>
#include <sched.h>
#include <set>
#include <sys/socket.h>
#include <sys/wait.h>
#include <unistd.h>

namespace {

// The neighbour's address is known beforehand: else nothing but the question for it would be sent.
constexpr const char* kWire = "PATH=/usr/sbin:/usr/bin:/sbin:/bin; set -e;"
                              "for v in all default; do"
                              "  echo 1 >/proc/sys/net/ipv6/conf/$v/disable_ipv6; done;"
                              "ip link set lo up;"
                              "ip link add d0 type veth peer name d1;"
                              "ip addr add 10.1.2.3/24 dev d0;"
                              "ip link set d0 up; ip link set d1 up;"
                              "ip neigh add 10.1.2.4 lladdr 02:00:00:00:00:01 dev d0;"
                              "ip route add default via 10.1.2.4";

bool leaveNetwork() {
    const uid_t user = geteuid();
    if (unshare(user == 0 ? CLONE_NEWNET : CLONE_NEWNET | CLONE_NEWUSER) != 0) return false;
    if (user == 0) return true;
    std::ofstream("/proc/self/uid_map") << "0 " << user << " 1";
    return geteuid() == 0;
}

uint16_t numberAt(const std::string& packet, size_t at) {
    return at + 2 <= packet.size() ? uint16_t(uint8_t(packet[at]) << 8 | uint8_t(packet[at + 1])) : 0;
}

std::string nameAskedFor(const std::string& packet, size_t at) {
    std::string name;
    while (at < packet.size() && packet[at] != 0) {
        const size_t length = uint8_t(packet[at]);
        name += (name.empty() ? "" : ".") + packet.substr(at + 1, length);
        at += length + 1;
    }
    return name;
}

std::string describe(const std::string& packet) {
    constexpr size_t kAddress = 16, kShortestHeader = 20;
    if (packet.size() < kShortestHeader) return "short packet";
    const size_t header = size_t(packet[0] & 0xF) * 4;
    char address[INET_ADDRSTRLEN] = {};
    inet_ntop(AF_INET, packet.data() + kAddress, address, sizeof address);
    const uint16_t port = numberAt(packet, header + 2);
    const std::string target = std::string(address) + ":" + std::to_string(port);
    switch (const int protocol = uint8_t(packet[9])) {
    case IPPROTO_TCP: return "TCP " + target;
    case IPPROTO_UDP: return port == 53 ? "DNS " + nameAskedFor(packet, header + 20) : "UDP " + target;
    default: return "IP protocol " + std::to_string(protocol) + " " + address;
    }
}

std::set<std::string> packetsOf(int wire) {
    std::set<std::string> packets;
    std::string packet(65536, '\0');
    sockaddr_ll from{};
    for (socklen_t length = sizeof from;; length = sizeof from) {
        const ssize_t size = recvfrom(wire, packet.data(), packet.size(), MSG_DONTWAIT,
                                      reinterpret_cast<sockaddr*>(&from), &length);
        if (size < 0) return packets;
        if (from.sll_pkttype != PACKET_OUTGOING) continue;
        const int type = ntohs(from.sll_protocol);
        packets.insert(type == ETH_P_IP ? describe(packet.substr(0, size_t(size)))
                                        : "frame of type " + std::to_string(type));
    }
}

// In a process of its own. A file takes the answer, whose presence says that there was a network.
void logPackets(const ToolCommand& command, const std::string& answer) {
    constexpr int kRoom = 1 << 22;
    if (!leaveNetwork()) return;
    const int wire = socket(AF_PACKET, SOCK_DGRAM | SOCK_CLOEXEC, htons(ETH_P_ALL));
    setsockopt(wire, SOL_SOCKET, SO_RCVBUF, &kRoom, sizeof kRoom);
    if (wire < 0 || system(kWire) != 0) return;
    packetsOf(wire); // what the interfaces had to say
    runTool(command);
    std::ofstream file(answer);
    for (const std::string& packet : packetsOf(wire)) file << packet << '\n';
}

} // namespace

std::optional<std::vector<std::string>> packetsSentBy(const ToolCommand& command) {
    const TemporaryFolder folder;
    const std::string answer = folder.path() + "/packets";
    const pid_t child = fork();
    if (child == 0) {
        logPackets(command, answer);
        _exit(0);
    }
    waitpid(child, nullptr, 0);
    std::ifstream file(answer);
    if (!file) return std::nullopt;
    std::vector<std::string> packets;
    for (std::string line; std::getline(file, line);) packets.push_back(line);
    return packets;
}
