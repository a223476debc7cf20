// SPDX-License-Identifier: Apache-2.0
//
// Office Open XML text documents (.docx, .docm, .dotx ...): finds the parts of the package and reads them in
// turn.
#include "Platform/AppKit/CompoundFile/CompoundFile.h"
#include "Platform/AppKit/DocumentReader.h"
#include "Platform/AppKit/OfficeOpenXML/DocumentHandler.h"
#include "Platform/AppKit/OfficeOpenXML/Package.h"
#include "Platform/AppKit/OfficeOpenXML/PropertiesPart.h"
#include "Platform/AppKit/Package/ZipPackage.h"

#include <algorithm>
#include <initializer_list>
#include <utility>

namespace OfficeOpenXML {

namespace {

// The name of a part that the package has: by its relationship, else where programs put it; or "".
std::string partName(const ZipPackage& package, const RelationshipsPart& relationships,
                     std::initializer_list<std::string_view> kinds, const std::string& usualName) {
    for (std::string_view kind : kinds) {
        std::string name = relationships.partOfKind(kind);
        if (package.contains(name)) return name;
    }
    return package.contains(usualName) ? usualName : std::string();
}

void readInformation(const ZipPackage& package, const RelationshipsPart& relationships, Deadline& deadline,
                     DocumentInfo& info) {
    std::string core = partName(package, relationships, {"core-properties"}, "docProps/core.xml");
    std::string extended =
        partName(package, relationships, {"extended-properties", "extendedProperties"}, "docProps/app.xml");
    readProperties(package, core, deadline, info);
    readProperties(package, extended, deadline, info);
    info.converted = -1;
}

ReadStatus readPackage(const ZipPackage& package, Allowance& allowance, Deadline& deadline,
                       DocumentContents& contents) {
    RelationshipsPart packageRelationships(package, "", deadline);
    std::string main = partName(package, packageRelationships, {"officeDocument"}, "word/document.xml");
    if (main.empty()) return ReadStatus::wrongKind;

    RelationshipsPart relationships(package, main, deadline);
    std::string folder = main.substr(0, main.rfind('/') + 1);
    auto name = [&](std::string_view kind) {
        return partName(package, relationships, {kind}, folder + std::string(kind) + ".xml");
    };
    StylesPart styles(package, name("styles"), deadline);
    NumberingPart lists(package, name("numbering"), styles, deadline);
    NotesPart footnotes(package, name("footnotes"), styles, lists, deadline);
    NotesPart endnotes(package, name("endnotes"), styles, lists, deadline);
    LinkedText linked(package, relationships, allowance, deadline);

    DocumentInfo info;
    readInformation(package, packageRelationships, deadline, info);
    DocumentHandler handler({styles, lists, footnotes, endnotes, linked}, info);
    readPart(package, main, deadline, handler);
    if (!handler.isTextDocument()) return ReadStatus::wrongKind;
    contents.info = std::move(info);
    contents.text = std::move(handler).finish();
    return ReadStatus::read;
}

} // namespace

ReadStatus readDocument(std::string_view bytes, Allowance& allowance, Deadline& deadline,
                        DocumentContents& contents) {
    // Programs put an encrypted package into a compound file.
    if (auto file = CompoundFile::open(bytes))
        return file->contains("EncryptedPackage") ? ReadStatus::locked : ReadStatus::wrongKind;
    auto package = ZipPackage::open(bytes);
    return package ? readPackage(*package, allowance, deadline, contents) : ReadStatus::wrongKind;
}

ReadStatus readInnerDocument(std::string_view bytes, Allowance& allowance, Deadline& deadline,
                             DocumentContents& contents) {
    if (allowance.depth == 0) return ReadStatus::wrongKind;
    auto package = ZipPackage::open(bytes, allowance.inflatedBytes);
    if (!package) return ReadStatus::wrongKind;
    const uint64_t before = package->budget();
    --allowance.depth;
    ReadStatus status = readPackage(*package, allowance, deadline, contents);
    ++allowance.depth;
    allowance.inflatedBytes -= std::min(allowance.inflatedBytes, before - package->budget());
    return status;
}

} // namespace OfficeOpenXML

ReadStatus readOfficeOpenXML(std::string_view bytes, Deadline& deadline, DocumentContents& contents) {
    OfficeOpenXML::Allowance allowance;
    return OfficeOpenXML::readDocument(bytes, allowance, deadline, contents);
}
