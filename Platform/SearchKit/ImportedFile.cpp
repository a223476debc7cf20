// SPDX-License-Identifier: Apache-2.0
#include "Platform/SearchKit/ImportedFile.h"

#include "Platform/Foundation/ByteSource.h"
#include "Platform/Foundation/FileDescriptor.h"
#include "Platform/Foundation/NSPathUtilities.h"

#include <sys/stat.h>

ImportedFile::ImportedFile(const NSString& path) : path_(path) {
    const std::string name = fileSystemRepresentation(path);
    struct stat info {};
    if (stat(name.c_str(), &info) != 0) return;
    isFolder_ = S_ISDIR(info.st_mode);
    if (S_ISREG(info.st_mode)) readStart(name);
}

ImportedFile::ImportedFile(const NSString& path, std::string bytes)
    : path_(path), isFile_(true), start_(bytes.substr(0, kStartSize)), data_(std::move(bytes)) {}

void ImportedFile::readStart(const std::string& name) {
    const FileDescriptor file = openForReading(name);
    if (!file) return;
    isFile_ = true;
    start_ = FileSource(file.get()).bytes(0, kStartSize);
}

const NSData& ImportedFile::data() {
    if (!data_) data_ = NSData::dataWithContentsOfFile(path_, NSDataReadingUncached, nullptr);
    return data_;
}
