// SPDX-License-Identifier: Apache-2.0
//
// A document that is being imported. Its start is read at once and the whole of it when that is first asked
// for: nobody reads a film to see that it is one.
#pragma once

#include "Platform/Foundation/NSData.h"
#include "Platform/Foundation/NSString.h"

#include <string>
#include <string_view>

class ImportedFile {
public:
    static constexpr size_t kStartSize = 16 << 10; // bytes, more than any kind is told by

    // Follows links. Pipes, sockets and devices are never opened.
    explicit ImportedFile(const NSString& path);

    // A document that lay inside of another. At its path there is nothing, and only its name counts.
    ImportedFile(const NSString& path, std::string bytes);

    const NSString& path() const { return path_; }
    bool isFolder() const { return isFolder_; }
    // False when there is nothing to read, or no leave to.
    bool isReadable() const { return isFolder_ || isFile_; }

    std::string_view start() const { return start_; }
    // nil when the file cannot be read to its end.
    const NSData& data();

private:
    void readStart(const std::string& name);

    NSString path_;
    bool isFolder_ = false, isFile_ = false;
    std::string start_;
    NSData data_;
};
