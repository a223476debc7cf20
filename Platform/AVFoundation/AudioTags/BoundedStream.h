// SPDX-License-Identifier: Apache-2.0
//
// A file that ends for the library after so many bytes have been read: the library looks for marks that are
// not where they should be through all of a file.
#pragma once

#include <tfilestream.h>

class BoundedStream : public TagLib::FileStream {
public:
    // Reads through a descriptor of its own.
    explicit BoundedStream(int file);

    TagLib::ByteVector readBlock(unsigned long length) override;

private:
    unsigned long allowance_ = 16 << 20; // bytes: covers are part of tags
    unsigned blocks_ = 4096;             // pieces, however small
};
