// SPDX-License-Identifier: Apache-2.0
#include "Tests/Support/DocxWriter.h"

#include <string_view>

namespace {

constexpr std::string_view kDeclaration = "<?xml version=\"1.0\" encoding=\"UTF-8\" standalone=\"yes\"?>\n";

std::string word(bool strict) {
    return strict ? "http://purl.oclc.org/ooxml/wordprocessingml/main"
                  : "http://schemas.openxmlformats.org/wordprocessingml/2006/main";
}

std::string relationshipType(bool strict) {
    return strict ? "http://purl.oclc.org/ooxml/officeDocument/relationships/"
                  : "http://schemas.openxmlformats.org/officeDocument/2006/relationships/";
}

std::string part(bool strict, const std::string& root, const std::string& content) {
    return std::string(kDeclaration) + "<w:" + root + " xmlns:w=\"" + word(strict) +
           "\" xmlns:r=\"http://schemas.openxmlformats.org/officeDocument/2006/relationships\""
           " xmlns:mc=\"http://schemas.openxmlformats.org/markup-compatibility/2006\""
           " xmlns:m=\"http://schemas.openxmlformats.org/officeDocument/2006/math\""
           " xmlns:a=\"http://schemas.openxmlformats.org/drawingml/2006/main\""
           " xmlns:dgm=\"http://schemas.openxmlformats.org/drawingml/2006/diagram\""
           " xmlns:o=\"urn:other\">" +
           content + "</w:" + root + ">";
}

std::string relationship(const std::string& id, const std::string& type, const std::string& target) {
    return "<Relationship Id=\"" + id + "\" Type=\"" + type + "\" Target=\"" + target + "\"/>";
}

std::string relationships(const std::string& content) {
    return std::string(kDeclaration) +
           "<Relationships xmlns=\"http://schemas.openxmlformats.org/package/2006/relationships\">" +
           content + "</Relationships>";
}

} // namespace

std::string DocxWriter::documentXML() const {
    return part(strict, "document", "<w:body>" + body + "</w:body>");
}

std::string DocxWriter::finish(const ZipWriter::Options& options) const {
    const std::string type = relationshipType(strict);
    const std::string metadata = "http://schemas.openxmlformats.org/package/2006/relationships/metadata/";
    std::string folder = mainPart.substr(0, mainPart.rfind('/') + 1), file = mainPart.substr(folder.size());
    std::string ofPackage = relationship("rId1", type + "officeDocument", mainPart),
                ofMain = otherRelationships;

    ZipWriter zip;
    auto add = [&](const std::string& name, const std::string& content) {
        if (content.empty()) return;
        zip.add(folder + name + ".xml", part(strict, name, content), options);
        ofMain += relationship("id-" + name, type + name, name + ".xml");
    };
    if (!core.empty()) {
        zip.add(
            "docProps/core.xml",
            "<cp:coreProperties"
            " xmlns:cp=\"http://schemas.openxmlformats.org/package/2006/metadata/core-properties\""
            " xmlns:dc=\"http://purl.org/dc/elements/1.1/\" xmlns:dcterms=\"http://purl.org/dc/terms/\">" +
                core + "</cp:coreProperties>",
            options);
        ofPackage += relationship("rId2", metadata + "core-properties", "docProps/core.xml");
    }
    if (!extended.empty()) {
        zip.add("docProps/app.xml",
                "<Properties "
                "xmlns=\"http://schemas.openxmlformats.org/officeDocument/2006/extended-properties\">" +
                    extended + "</Properties>",
                options);
        ofPackage += relationship("rId3", type + "extended-properties", "docProps/app.xml");
    }
    zip.add("_rels/.rels", relationships(ofPackage), options);
    add("styles", styles);
    add("numbering", numbering);
    add("footnotes", footnotes);
    add("endnotes", endnotes);
    zip.add(folder + "_rels/" + file + ".rels", relationships(ofMain), options);
    for (const auto& [name, content] : others) zip.add(name, content, options);
    zip.add(mainPart, documentXML(), options);
    return zip.finish();
}

std::string paragraphs(std::initializer_list<std::string> texts) {
    std::string all;
    for (const std::string& text : texts) all += paragraph(run(text));
    return all;
}

std::string paragraph(const std::string& content, const std::string& properties) {
    return "<w:p>" + (properties.empty() ? "" : "<w:pPr>" + properties + "</w:pPr>") + content + "</w:p>";
}

std::string run(const std::string& text, const std::string& properties) {
    return "<w:r>" + (properties.empty() ? "" : "<w:rPr>" + properties + "</w:rPr>") +
           "<w:t xml:space=\"preserve\">" + text + "</w:t></w:r>";
}
