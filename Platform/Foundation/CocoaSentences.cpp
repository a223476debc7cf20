// SPDX-License-Identifier: Apache-2.0
#include "Platform/Foundation/CocoaSentences.h"

#include "Platform/Foundation/NSError.h"
#include "Platform/Foundation/NSFileManager.h"
#include "Platform/Foundation/NSPathUtilities.h"
#include "Platform/Foundation/NSURL.h"

#include <sys/stat.h>

namespace {

struct Sentence {
    int64_t code;
    const char16_t* withPath; // "%x" the file's name, "%y" its folder's, "%k" file or folder
    const char16_t* withoutPath;
};

constexpr Sentence kDescriptions[] = {
    {4, u"The %k “%x” doesn’t exist.", u"The file doesn’t exist."},
    {256, u"The %k “%x” couldn’t be opened.", u"The file couldn’t be opened."},
    {257, u"The %k “%x” couldn’t be opened because you don’t have permission to view it.",
     u"The file couldn’t be opened because you don’t have permission to view it."},
    {258, u"The %k “%x” couldn’t be opened because the specified file name is invalid.",
     u"The file couldn’t be opened because the specified file name is invalid."},
    {259, u"The %k “%x” couldn’t be opened because it isn’t in the correct format.",
     u"The file couldn’t be opened because it isn’t in the correct format."},
    {260, u"The %k “%x” couldn’t be opened because there is no such file.",
     u"The file couldn’t be opened because there is no such file."},
    {261, u"The %k “%x” couldn’t be opened because the specified text encoding isn’t applicable.",
     u"The file couldn’t be opened because the specified text encoding isn’t applicable."},
    {262, u"The %k “%x” couldn’t be opened because the specified URL type isn’t supported.",
     u"The file couldn’t be opened because the specified URL type isn’t supported."},
    {263, u"The %k “%x” couldn’t be opened because it is too large.",
     u"The file couldn’t be opened because it is too large."},
    {264, u"The %k “%x” couldn’t be opened because the text encoding of its contents can’t be determined.",
     u"The file couldn’t be opened because the text encoding of its contents can’t be determined."},
    {512, u"The %k “%x” couldn’t be saved in the folder “%y”.", u"The file couldn’t be saved."},
    {513, u"You don’t have permission to save the %k “%x” in the folder “%y”.",
     u"You don’t have permission to save the file."},
    {514, u"The %k “%x” couldn’t be saved because the file name is invalid.",
     u"The file couldn’t be saved because the file name is invalid."},
    {516,
     u"The %k “%x” couldn’t be saved in the folder “%y” because a file with the same name already exists.",
     u"The file couldn’t be saved because a file with the same name already exists."},
    {518, u"The %k “%x” couldn’t be saved because the specified URL type isn’t supported.",
     u"The file couldn’t be saved because the specified URL type isn’t supported."},
    {640, u"The %k “%x” couldn’t be saved in the folder “%y” because there isn’t enough space.",
     u"The file couldn’t be saved because there isn’t enough space."},
    {642, u"The %k “%x” couldn’t be saved in the folder “%y” because the volume is read only.",
     u"The file couldn’t be saved because the volume is read only."},
    {3840, nullptr, u"The data couldn’t be read because it isn’t in the correct format."},
    {3851, nullptr,
     u"The data couldn’t be written because an error occurred in the destination of the data."},
    {3852, nullptr, u"The data couldn’t be written because an error occurred in the content of the data."},
};

struct Reason {
    int64_t code;
    const char16_t* text;
};

constexpr Reason kReasons[] = {
    {4, u"The file doesn’t exist."},
    {255, u"The file couldn’t be locked."},
    {257, u"You don’t have permission."},
    {258, u"The file name is invalid."},
    {259, u"The file isn’t in the correct format."},
    {260, u"The file doesn’t exist."},
    {261, u"The specified text encoding isn’t applicable."},
    {262, u"The specified URL type isn’t supported."},
    {263, u"The item is too large."},
    {264, u"The text encoding of the contents couldn’t be determined."},
    {513, u"You don’t have permission."},
    {514, u"The file name is invalid."},
    {516, u"A file with the same name already exists."},
    {517, u"The specified text encoding isn’t applicable."},
    {518, u"The specified URL type isn’t supported."},
    {640, u"There isn’t enough space."},
    {642, u"The volume is read only."},
    {1024, u"The value is invalid."},
    {2048, u"The value is invalid."},
    {3072, u"The operation was cancelled."},
    {3328, u"The requested operation is not supported."},
    {3840, u"The data is not in the correct format."},
    {3841, u"The data is in a format that this application doesn’t understand."},
    {3842, u"An error occurred in the source of the data."},
    {3851, u"An error occurred in the destination for the data."},
    {3852, u"An error occurred in the content of the data."},
};

NSString pathOf(const NSDictionary& userInfo) {
    if (NSString path = userInfo.get<NSString>(NSString(NSFilePathErrorKey))) return path;
    return userInfo.get<NSURL>(NSString(NSURLErrorKey)).path();
}

bool isDirectory(const NSString& path) {
    struct stat info {};
    return path.text().find(u'\0') == std::u16string::npos &&
           stat(fileSystemRepresentation(path).c_str(), &info) == 0 && S_ISDIR(info.st_mode);
}

std::u16string filled(std::u16string_view sentence, const NSString& path) {
    std::u16string out;
    for (size_t i = 0; i < sentence.size(); ++i) {
        if (sentence[i] != u'%') {
            out.push_back(sentence[i]);
            continue;
        }
        switch (sentence[++i]) {
        case u'x': out += lastPathComponent(path).text(); break;
        case u'y': out += displayNameAtPath(stringByDeletingLastPathComponent(path)).text(); break;
        default: out += isDirectory(path) ? u"folder" : u"file"; break;
        }
    }
    return out;
}

} // namespace

NSString cocoaDescription(int64_t code, const NSDictionary& userInfo) {
    for (const Sentence& sentence : kDescriptions) {
        if (sentence.code != code) continue;
        NSString path = pathOf(userInfo);
        return path && sentence.withPath ? NSString(filled(sentence.withPath, path))
                                         : NSString(sentence.withoutPath);
    }
    return nullptr;
}

NSString cocoaFailureReason(int64_t code) {
    for (const Reason& reason : kReasons) {
        if (reason.code == code) return reason.text;
    }
    return nullptr;
}
