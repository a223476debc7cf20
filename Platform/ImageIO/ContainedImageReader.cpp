// SPDX-License-Identifier: Apache-2.0
#include "Platform/ImageIO/ContainedImageReader.h"

#include "Platform/Foundation/ByteRecord.h"
#include "Platform/Foundation/Containment.h"
#include "Platform/Foundation/Module.h"

namespace {

void addField(ByteRecordWriter& record, const ImageField& field) {
    record.add(field.dictionary);
    record.add(field.key);
    record.add(uint64_t(field.isArray));
    record.add(field.values.size());
    for (const std::u16string& value : field.values) record.add(value);
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

// The status, then the reason or the fields.
std::string recordOfImage(int file) {
    ByteRecordWriter record;
    NSString why;
    const auto read = reinterpret_cast<ImageReader>(moduleEntry("ImageIO", &why));
    std::vector<ImageField> fields;
    if (!read) {
        record.add(uint64_t(ImageStatus::noReader));
        record.add(why.text());
    } else if (!read(file, fields)) {
        record.add(uint64_t(ImageStatus::noImage));
    } else {
        record.add(uint64_t(ImageStatus::read));
        for (const ImageField& field : fields) addField(record, field);
    }
    return record.take();
}

} // namespace

ImageStatus readImageContained(int file, std::vector<ImageField>& fields, NSString& why) {
    std::string answer;
    if (!runContained([file] { return recordOfImage(file); }, answer)) return ImageStatus::noImage;
    ByteRecordReader record(answer);
    const auto status = ImageStatus(record.number());
    if (status == ImageStatus::noReader) why = NSString(record.wideString());
    while (status == ImageStatus::read && !record.atEnd()) fields.push_back(takeField(record));
    return status;
}
