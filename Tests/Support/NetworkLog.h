// SPDX-License-Identifier: Apache-2.0
//
// What a program sends when it has a network of its own, from which nothing comes back: a wire to nowhere,
// with a default route, and the loopback interface.
#pragma once

#include "Tests/Support/RunTool.h"

#include <optional>
#include <string>
#include <vector>

// Every packet on every interface: "TCP 9.8.7.6:80" for the first of a connection, "DNS name" for a question
// to a name server, other kinds by their numbers. Nothing when this system gives no network of one's own.
std::optional<std::vector<std::string>> packetsSentBy(const ToolCommand& command);
