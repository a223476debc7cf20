// SPDX-License-Identifier: Apache-2.0
//
// A folder for one test, gone with everything in it afterwards; and whole files in one call.
#pragma once

#include <string>
#include <string_view>

class TemporaryFolder {
public:
    TemporaryFolder();
    // In another place than the system's for temporary files.
    explicit TemporaryFolder(const std::string& parent);
    ~TemporaryFolder();
    TemporaryFolder(const TemporaryFolder&) = delete;
    TemporaryFolder& operator=(const TemporaryFolder&) = delete;

    const std::string& path() const { return path_; }

private:
    std::string path_;
};

void writeFile(const std::string& path, std::string_view bytes);
std::string readFile(const std::string& path);
