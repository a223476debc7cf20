// SPDX-License-Identifier: Apache-2.0
//
// Reads packages; bytes that are none are taken as the parts of one, in the order of kParts with a zero byte
// between them, so that the parts can be varied without the container.
#include "Platform/AppKit/DocumentReader.h"

#include <algorithm>
#include <string>

namespace {

constexpr std::string_view kParts[] = {"word/document.xml",  "word/styles.xml",
                                       "word/numbering.xml", "word/footnotes.xml",
                                       "docProps/core.xml",  "word/_rels/document.xml.rels"};

std::string little(size_t value, int size) {
    std::string bytes;
    for (int i = 0; i < size; ++i, value >>= 8) bytes.push_back(char(value & 0xFF));
    return bytes;
}

std::string packageOf(std::string_view bytes) {
    std::string package;
    for (std::string_view name : kParts) {
        std::string_view part = bytes.substr(0, bytes.find('\0'));
        package += "PK\3\4" + std::string(14, '\0') + little(part.size(), 4) + little(part.size(), 4) +
                   little(name.size(), 2) + little(0, 2);
        package.append(name).append(part);
        bytes.remove_prefix(std::min(part.size() + 1, bytes.size()));
    }
    return package;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    std::string_view bytes(reinterpret_cast<const char*>(data), size);
    bool isPackage = bytes.starts_with("PK") || bytes.starts_with("\xD0\xCF");
    const std::string package(isPackage ? bytes : packageOf(bytes));
    DocumentContents contents;
    Deadline deadline;
    readOfficeOpenXML(package, deadline, contents);
    return 0;
}
