// SPDX-License-Identifier: Apache-2.0
//
// ConvertPropertyLists FOLDER
//
// Reads every file NAME.in of the folder as a property list, and writes it to NAME.binary and NAME.xml.
#include "Platform/Foundation/NSPropertyListSerialization.h"

#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>

namespace {

namespace fs = std::filesystem;

[[noreturn]] void fail(const fs::path& file, const char* what) {
    fprintf(stderr, "%s: %s\n", file.c_str(), what);
    std::exit(1);
}

std::string contentsOf(const fs::path& file) {
    std::ifstream stream(file, std::ios::binary);
    return {std::istreambuf_iterator<char>(stream), {}};
}

void write(const NSObject& list, NSPropertyListFormat format, fs::path file, const char* extension) {
    const NSData data = dataFromPropertyList(list, format, nullptr);
    if (!data) fail(file, "cannot be written");
    std::ofstream(file.replace_extension(extension), std::ios::binary) << data.bytes();
}

} // namespace

int main(int count, char** arguments) {
    if (count != 2) fail("usage", "ConvertPropertyLists FOLDER");
    for (const fs::directory_entry& entry : fs::directory_iterator(arguments[1])) {
        if (entry.path().extension() != ".in") continue;
        const NSObject list = propertyListWithData(contentsOf(entry.path()), nullptr, nullptr);
        if (!list) fail(entry.path(), "cannot be read");
        write(list, NSPropertyListBinaryFormat_v1_0, entry.path(), ".binary");
        write(list, NSPropertyListXMLFormat_v1_0, entry.path(), ".xml");
    }
    return 0;
}
