// SPDX-License-Identifier: Apache-2.0
//
// A reader that the document has taken over: it does what each line says and answers what came of it.
#include "Platform/AppKit/DocumentKinds.h"
#include "Platform/Foundation/Module.h"
#include "Tests/EndToEnd/Hostile/Attempts.h"

#include <sstream>

namespace {

ReadStatus obey(std::string_view bytes, Deadline&, DocumentContents& contents) {
    std::istringstream lines{std::string(bytes)};
    for (std::string line; std::getline(lines, line);) {
        for (char c : attempt(line) + "\n") contents.text.push_back(char16_t(c));
    }
    return ReadStatus::read;
}

ReadStatus hostile(std::string_view bytes, Deadline& deadline, DocumentContents& contents) {
    return readGuarded(obey, bytes, deadline, contents);
}

} // namespace

extern "C" __attribute__((visibility("default"))) DocumentReader MODULE_ENTRY(std::string_view) {
    return hostile;
}
