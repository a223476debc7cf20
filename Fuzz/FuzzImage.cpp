// SPDX-License-Identifier: Apache-2.0
//
// Reads any bytes as an image, with what is looked at before the library is.
#include "Platform/Foundation/ByteSource.h"
#include "Platform/ImageIO/FieldText.h"
#include "Platform/ImageIO/ImageKind.h"
#include "Platform/ImageIO/ReadImage.h"

#include <cstddef>
#include <cstdlib>

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    const std::string_view bytes(reinterpret_cast<const char*>(data), size);
    MemorySource source(bytes);
    if (xmpOfGIF(source).size() > size || textOfField(bytes).size() > size) std::abort();
    std::vector<ImageField> fields;
    if (!readImageBytes(bytes, fields) && !fields.empty()) std::abort();
    for (const ImageField& field : fields) {
        if (field.values.empty() || (!field.isArray && field.values.size() != 1)) std::abort();
    }
    return 0;
}
