// SPDX-License-Identifier: Apache-2.0
#include "Platform/AVFoundation/AudioTags/BoundedStream.h"

#include <algorithm>
#include <fcntl.h>

BoundedStream::BoundedStream(int file) : FileStream(fcntl(file, F_DUPFD_CLOEXEC, 0), true) {}

TagLib::ByteVector BoundedStream::readBlock(unsigned long length) {
    if (blocks_ == 0 || allowance_ == 0) return {};
    --blocks_;
    TagLib::ByteVector bytes = FileStream::readBlock(std::min(length, allowance_));
    allowance_ -= bytes.size();
    return bytes;
}
