// SPDX-License-Identifier: Apache-2.0
#include "Tests/Support/TemporaryFolder.h"

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <iterator>

TemporaryFolder::TemporaryFolder() : TemporaryFolder(std::filesystem::temp_directory_path().string()) {}

TemporaryFolder::TemporaryFolder(const std::string& parent) : path_(parent + "/texttool-test-XXXXXX") {
    if (!mkdtemp(path_.data())) ADD_FAILURE() << "no temporary folder";
}

TemporaryFolder::~TemporaryFolder() {
    std::error_code ignored;
    std::filesystem::remove_all(path_, ignored);
}

void writeFile(const std::string& path, std::string_view bytes) {
    std::ofstream stream(path, std::ios::binary);
    stream.write(bytes.data(), std::streamsize(bytes.size()));
    ASSERT_TRUE(stream.good()) << path;
}

std::string readFile(const std::string& path) {
    std::ifstream stream(path, std::ios::binary);
    EXPECT_TRUE(stream.good()) << path;
    return std::string((std::istreambuf_iterator<char>(stream)), std::istreambuf_iterator<char>());
}
