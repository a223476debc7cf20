// SPDX-License-Identifier: Apache-2.0
#include "Platform/AppKit/DocumentKinds.h"

#include "Platform/AppKit/NSDocumentAttributes.h"
#include "Platform/Foundation/ASCII.h"
#include "Platform/Foundation/Module.h"
#include "Platform/Foundation/NSStringEncoding.h"

#include <algorithm>

namespace {

constexpr DocumentKind kPlainText = {NSPlainTextDocumentType, u"public.plain-text", readPlainText, nullptr};
constexpr DocumentKind kRTF = {NSRTFTextDocumentType, u"public.rtf", readRTF, nullptr};
constexpr DocumentKind kRTFD = {NSRTFDTextDocumentType, u"com.apple.rtfd", readRTFDText, nullptr};
constexpr DocumentKind kDocFormat = {NSDocFormatTextDocumentType, u"com.microsoft.word.doc", readDocFormat,
                                     nullptr};
constexpr DocumentKind kOfficeOpenXML = {
    NSOfficeOpenXMLTextDocumentType, u"org.openxmlformats.wordprocessingml.document", nullptr, "OpenPackage"};
constexpr DocumentKind kOpenDocument = {NSOpenDocumentTextDocumentType, u"org.oasis-open.opendocument.text",
                                        nullptr, "OpenPackage"};
constexpr DocumentKind kHTML = {NSHTMLTextDocumentType, u"public.html", nullptr, "HTML"};

constexpr const DocumentKind* kKinds[] = {&kPlainText,     &kRTF,          &kRTFD, &kDocFormat,
                                          &kOfficeOpenXML, &kOpenDocument, &kHTML};

std::string_view withoutLeadingBlanks(std::string_view bytes) {
    if (const ByteOrderMark mark = byteOrderMark(bytes); mark.encoding == NSUTF8StringEncoding)
        bytes.remove_prefix(mark.size);
    size_t start = std::min(bytes.find_first_not_of(std::string_view(" \t\r\n\f\0", 6)), bytes.size());
    return bytes.substr(start);
}

// Skips what may stand before the first tag of a page or a flat document.
std::string_view withoutProlog(std::string_view bytes) {
    for (;;) {
        bytes = withoutLeadingBlanks(bytes);
        std::string_view end = bytes.substr(0, 4) == "<!--" ? "-->" : bytes.substr(0, 2) == "<?" ? "?>" : "";
        size_t found = end.empty() ? std::string_view::npos : bytes.find(end);
        if (found == std::string_view::npos) return bytes;
        bytes.remove_prefix(found + end.size());
    }
}

bool isHTML(std::string_view start) {
    return startsWithIgnoringCase(start, "<html") || startsWithIgnoringCase(start, "<!doctype html") ||
           startsWithIgnoringCase(start, "<head");
}

bool isPackage(std::string_view bytes) {
    return bytes.substr(0, 4) == "PK\x03\x04" || bytes.substr(0, 4) == "PK\x05\x06";
}

// An OpenDocument package says its type in its first entry, uncompressed; one whose writer forgot to has no
// table of content types, as Office Open XML packages do. Names stand uncompressed in every package.
bool saysOpenDocument(std::string_view package) {
    constexpr auto none = std::string_view::npos;
    return package.substr(0, 256).find("mimetypeapplication/vnd.") != none ||
           (package.find("[Content_Types].xml") == none && package.find("content.xml") != none);
}

} // namespace

const DocumentKind* documentKindOfType(const NSString& documentType) {
    for (const DocumentKind* kind : kKinds) {
        if (documentType.text() == kind->documentType) return kind;
    }
    return nullptr;
}

const DocumentKind* documentKindOfBytes(std::string_view bytes) {
    if (bytes.substr(0, 4) == "rtfd") return &kRTFD;
    if (bytes.substr(0, 7) == "bplist0") return nullptr;
    if (withoutLeadingBlanks(bytes).substr(0, 4) == "{\\rt") return &kRTF;
    if (isPackage(bytes)) return saysOpenDocument(bytes) ? &kOpenDocument : &kOfficeOpenXML;
    if (bytes.substr(0, 8) == "\xD0\xCF\x11\xE0\xA1\xB1\x1A\xE1") return &kDocFormat;
    std::string_view start = withoutProlog(bytes);
    if (isHTML(start)) return &kHTML;
    if (start.substr(0, 16) == "<office:document") return &kOpenDocument;
    return &kPlainText;
}

DocumentReader readerOfKind(const DocumentKind& kind, NSString* why) {
    if (kind.reader) return kind.reader;
    auto entry = reinterpret_cast<ReaderModuleEntry>(moduleEntry(kind.module, why));
    return entry ? entry(NSString(kind.documentType).utf8()) : nullptr;
}
