// SPDX-License-Identifier: Apache-2.0
//
// The journal of the system, where it has one: log entries that are fields, by which people find them.
#pragma once

#include <map>
#include <string>

// Opens the way there, once. False when there is no journal here.
bool openJournal();

// Sends one entry, its fields by their names: capital letters, digits and underscores. Values are bytes.
// False when it was not taken: there is no journal here, or the entry is too long for it.
bool sendToJournal(const std::map<std::string, std::string>& fields);
