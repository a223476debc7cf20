// SPDX-License-Identifier: Apache-2.0
//
// The entry of the module for images. The library reads in a process of its own: a damaged image may make it
// crash or search for ever. The module links exiv2, which is under the GPL, version 2 or later: what is built
// of this file and given out is under that licence.
#include "Platform/Foundation/ByteRecord.h"
#include "Platform/Foundation/Containment.h"
#include "Platform/Foundation/Module.h"
#include "Platform/ImageIO/ReadImage.h"

namespace {

// Empty when the file is not an image.
std::string recordOfImage(int file) {
    std::vector<ImageField> fields;
    if (!readImageFile(file, fields)) return {};
    ByteRecordWriter record;
    record.add(fields.size());
    for (const ImageField& field : fields) {
        record.add(std::u16string_view(field.dictionary));
        record.add(std::u16string_view(field.key));
        record.add(uint64_t(field.isArray));
        record.add(field.values.size());
        for (const std::u16string& value : field.values) record.add(std::u16string_view(value));
    }
    return record.take();
}

ImageField takeField(ByteRecordReader& record) {
    ImageField field;
    field.dictionary = record.wideString();
    field.key = record.wideString();
    field.isArray = record.number() != 0;
    for (uint64_t count = record.number(); count > 0 && !record.atEnd(); --count)
        field.values.push_back(record.wideString());
    return field;
}

} // namespace

extern "C" __attribute__((visibility("default"))) bool MODULE_ENTRY(int file,
                                                                    std::vector<ImageField>& fields) {
    std::string answer;
    if (!runContained([file] { return recordOfImage(file); }, answer) || answer.empty()) return false;
    ByteRecordReader record(answer);
    for (uint64_t count = record.number(); count > 0 && !record.atEnd(); --count)
        fields.push_back(takeField(record));
    return true;
}
