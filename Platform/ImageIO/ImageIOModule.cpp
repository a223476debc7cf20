// SPDX-License-Identifier: Apache-2.0
//
// The entry of the module for images. The module links exiv2, which is under the GPL, version 2 or later;
// what is built with it and given out is under the GPL, version 3 or later, which admits the licence of this
// file.
#include "Platform/Foundation/Module.h"
#include "Platform/ImageIO/ReadImage.h"

extern "C" __attribute__((visibility("default"))) bool MODULE_ENTRY(int file,
                                                                    std::vector<ImageField>& fields) {
    return readImageFile(file, fields);
}
