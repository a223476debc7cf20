// SPDX-License-Identifier: Apache-2.0
//
// Kinds of documents told by their bytes, for systems without a database of kinds and for names that say
// nothing.
#include "Platform/AppKit/DocumentKinds.h"
#include "Platform/AppKit/NSDocumentAttributes.h"
#include "Platform/Foundation/NSPathUtilities.h"
#include "Platform/Foundation/NSStringEncoding.h"
#include "Platform/SearchKit/BuiltinImporters.h"

#include <algorithm>
#include <unistd.h>

namespace {

bool isTextByte(char c) {
    const auto byte = static_cast<unsigned char>(c);
    return byte >= 0x20 || (byte >= '\a' && byte <= '\r') || byte == 0x1B;
}

bool isText(std::string_view start) {
    if (byteOrderMark(start).encoding != NSNoStringEncoding) return true;
    return std::all_of(start.begin(), start.end(), isTextByte);
}

bool beginsAs(std::string_view start, std::initializer_list<std::string_view> marks) {
    return std::any_of(marks.begin(), marks.end(),
                       [&](std::string_view mark) { return start.substr(0, mark.size()) == mark; });
}

bool isImage(std::string_view start) {
    return beginsAs(start, {"\xFF\xD8\xFF", "\x89PNG", "GIF8", std::string_view("II*\0", 4),
                            std::string_view("MM\0*", 4), "8BPS"}) ||
           (beginsAs(start, {"RIFF"}) && start.substr(8, 4) == "WEBP");
}

std::string_view folderImporter(const NSString& path) {
    const std::string text = fileSystemRepresentation(stringByAppendingPathComponent(path, u"TXT.rtf"));
    return access(text.c_str(), F_OK) == 0 ? "rtfd" : "";
}

std::string_view documentImporter(ImportedFile& file) {
    const DocumentKind* kind = documentKindOfBytes(file.data().bytes());
    const NSString type(kind ? kind->documentType : u"");
    if (type == NSString(NSRTFTextDocumentType)) return "rtf";
    if (type == NSString(NSHTMLTextDocumentType)) return "html";
    if (type == NSString(NSDocFormatTextDocumentType)) return "doc";
    if (type == NSString(NSOfficeOpenXMLTextDocumentType)) return "docx";
    if (type == NSString(NSOpenDocumentTextDocumentType)) return "odt";
    return type == NSString(NSPlainTextDocumentType) ? "text" : "";
}

} // namespace

std::string_view builtinImporterForContent(ImportedFile& file) {
    if (file.isFolder()) return folderImporter(file.path());
    const std::string_view start = file.start();
    if (start.substr(0, 1024).find("%PDF-") != start.npos) return "pdf";
    if (isText(start) || beginsAs(start, {"PK\x03\x04", "PK\x05\x06", "\xD0\xCF\x11\xE0"}))
        return documentImporter(file);
    return isImage(start) ? "image" : "media";
}
