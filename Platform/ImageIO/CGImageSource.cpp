// SPDX-License-Identifier: Apache-2.0
#include "Platform/ImageIO/CGImageSource.h"

#include "Platform/Foundation/FileDescriptor.h"
#include "Platform/Foundation/NSArray.h"
#include "Platform/Foundation/NSLog.h"
#include "Platform/Foundation/NSPathUtilities.h"
#include "Platform/ImageIO/CGImageProperties.h"
#include "Platform/ImageIO/ContainedImageReader.h"

namespace {

NSObject objectOfField(const ImageField& field) {
    if (!field.isArray) return NSString(field.values.front());
    std::vector<NSObject> strings;
    for (const std::u16string& value : field.values) strings.push_back(NSString(value));
    return NSArray(std::move(strings));
}

NSDictionary propertiesOfFields(const std::vector<ImageField>& fields) {
    NSMutableDictionary properties;
    for (const char16_t* name : {kCGImagePropertyIPTCDictionary, kCGImagePropertyTIFFDictionary}) {
        NSMutableDictionary dictionary;
        for (const ImageField& field : fields) {
            if (field.dictionary == name && !field.values.empty())
                dictionary.setObject(objectOfField(field), NSString(field.key));
        }
        if (dictionary.count() != 0) properties.setObject(std::move(dictionary).copy(), NSString(name));
    }
    return std::move(properties).copy();
}

} // namespace

CGImageSource CGImageSourceCreateWithURL(const NSURL& url) {
    CGImageSource source;
    if (!url.isFileURL()) return source;
    const FileDescriptor file = openForReading(fileSystemRepresentation(url.path()));
    std::vector<ImageField> fields;
    NSString why;
    const ImageStatus status = file ? readImageContained(file.get(), fields, why) : ImageStatus::noImage;
    if (status == ImageStatus::noReader) NSLog(why);
    if (status == ImageStatus::read) source.properties_ = propertiesOfFields(fields);
    return source;
}

NSDictionary CGImageSourceCopyPropertiesAtIndex(const CGImageSource& source, size_t index) {
    return index == 0 ? source.properties_ : NSDictionary();
}
