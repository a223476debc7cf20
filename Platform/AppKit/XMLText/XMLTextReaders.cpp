// SPDX-License-Identifier: Apache-2.0
#include "Platform/AppKit/XMLText/XMLTextReaders.h"

#include "Platform/AppKit/Package/ZipPackage.h"
#include "Platform/AppKit/XMLText/XMLTextHandler.h"
#include "Platform/Foundation/ASCII.h"

#include <algorithm>
#include <vector>

namespace {

// Of all parts together: the words of far longer texts than any book.
constexpr uint64_t kInflatedLimit = uint64_t(256) << 20; // bytes

bool isXMLUnder(std::string_view name, std::initializer_list<std::string_view> starts) {
    return name.ends_with(".xml") && std::any_of(starts.begin(), starts.end(), [&](std::string_view start) {
               return name.starts_with(start);
           });
}

// By the part's name in small letters.
bool isTextPart(std::string_view name) {
    return name == "content.xml" ||
           isXMLUnder(name,
                      {"xl/sharedstrings", "xl/worksheets/sheet", "xl/comments", "xl/drawings/drawing"}) ||
           isXMLUnder(name, {"ppt/slides/slide", "ppt/notesslides/", "ppt/comments/", "ppt/diagrams/data"}) ||
           name.ends_with(".xhtml") || name.ends_with(".html") || name.ends_with(".htm") ||
           name.ends_with(".opf") || name.ends_with(".fb2");
}

std::vector<std::string> textParts(const ZipPackage& package) {
    std::vector<std::string> parts;
    package.findName([&](std::string_view name) {
        if (isTextPart(lowered(name))) parts.emplace_back(name);
        return false;
    });
    return parts;
}

} // namespace

ReadStatus readXMLText(std::string_view bytes, Deadline& deadline, DocumentContents& contents) {
    constexpr size_t kPiece = 64 << 10;
    contents = {};
    XMLTextHandler handler(contents.text);
    XMLReader reader({}, handler);
    while (!bytes.empty() && !deadline.passed() && reader.feed(bytes.substr(0, kPiece)))
        bytes.remove_prefix(std::min(kPiece, bytes.size()));
    if (bytes.empty()) reader.finish();
    return handler.hasRoot() ? ReadStatus::read : ReadStatus::wrongKind;
}

ReadStatus readPackageText(std::string_view bytes, Deadline& deadline, DocumentContents& contents) {
    contents = {};
    const auto package = ZipPackage::open(bytes, kInflatedLimit);
    if (!package) return ReadStatus::wrongKind;
    for (const std::string& part : textParts(*package)) {
        XMLTextHandler handler(contents.text);
        XMLReader reader({}, handler);
        package->read(part, deadline, [&](std::string_view piece) { return reader.feed(piece); });
        reader.finish();
        contents.text += u'\n';
    }
    return ReadStatus::read;
}
