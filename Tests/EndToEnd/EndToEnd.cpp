// SPDX-License-Identifier: Apache-2.0
#include "Tests/EndToEnd/EndToEnd.h"

#include "Platform/Foundation/NSArchiver.h"
#include "Platform/Foundation/NSData.h"
#include "Platform/Foundation/NSPathUtilities.h"
#include "Platform/Foundation/NSPropertyListSerialization.h"

namespace {

std::string utf8Or(const NSString& string) { return string ? string.utf8() : "(nil)"; }

} // namespace

std::string EndToEnd::write(const std::string& name, std::string_view bytes) const {
    writeFile(path(name), bytes);
    return path(name);
}

ToolResult EndToEnd::request(const std::string& key, const std::string& value,
                             const std::map<std::string, std::string>& environment) const {
    ToolResult result = runTool({.arguments = {"-" + key, value}, .environment = environment});
    EXPECT_EQ(result.status, 0) << key << " " << value << ": signal " << result.signal << "\n"
                                << result.errors;
    return result;
}

NSDictionary recordOf(std::string_view bytes) {
    NSPropertyListFormat format{};
    NSError error;
    NSObject list = propertyListWithData(bytes, &format, &error);
    EXPECT_EQ(format, NSPropertyListBinaryFormat_v1_0) << error.description().utf8();
    return as<NSDictionary>(list);
}

std::string stringIn(const NSDictionary& record, const char16_t* key) {
    return utf8Or(record.get<NSString>(NSString(key)));
}

std::string attributeIn(const NSDictionary& record, const char16_t* key) {
    return stringIn(record.get<NSDictionary>(NSString(u"otherAttributes")), key);
}

NSError errorOf(std::string_view bytes) {
    NSData archive = recordOf(bytes).get<NSData>(NSString(u"errorData"));
    return as<NSError>(NSUnarchiver::unarchiveObjectWithData(archive.bytes(), nullptr));
}

NSError cocoaError(int64_t code, const NSDictionary& userInfo) {
    return NSError(NSCocoaErrorDomain, code, userInfo);
}

NSError missingFile(const std::string& path) {
    return cocoaError(NSFileNoSuchFileError,
                      {{NSString(NSFilePathErrorKey), stringWithFileSystemRepresentation(path)}});
}
