// SPDX-License-Identifier: Apache-2.0
//
// Makes OpenDocument files of a few elements and reads them, for the tests of the reader.
#pragma once

#include "Platform/AppKit/DocumentReader.h"
#include "Tests/Support/ZipWriter.h"

#include <gtest/gtest.h>
#include <string>
#include <string_view>

namespace OpenDocumentTesting {

constexpr std::string_view kTextType = "application/vnd.oasis.opendocument.text";

// The root element of a part, with the prefixes that writers use.
inline std::string rooted(std::string_view name, std::string_view inside) {
    std::string xml = "<?xml version=\"1.0\" encoding=\"UTF-8\"?><office:";
    xml += name;
    for (std::string_view prefix : {"office", "text", "style", "table", "meta"}) {
        xml.append(" xmlns:").append(prefix).append("=\"urn:oasis:names:tc:opendocument:xmlns:");
        xml.append(prefix).append(":1.0\"");
    }
    xml += " xmlns:draw=\"urn:oasis:names:tc:opendocument:xmlns:drawing:1.0\""
           " xmlns:fo=\"urn:oasis:names:tc:opendocument:xmlns:xsl-fo-compatible:1.0\""
           " xmlns:svg=\"urn:oasis:names:tc:opendocument:xmlns:svg-compatible:1.0\""
           " xmlns:dc=\"http://purl.org/dc/elements/1.1/\" xmlns:math=\"http://www.w3.org/1998/Math/MathML\""
           " office:version=\"1.2\">";
    return xml.append(inside).append("</office:").append(name).append(">");
}

inline std::string body(std::string_view text) {
    return "<office:body><office:text>" + std::string(text) + "</office:text></office:body>";
}

inline std::string automaticStyles(std::string_view styles) {
    return "<office:automatic-styles>" + std::string(styles) + "</office:automatic-styles>";
}

// A whole document as one XML file.
inline std::string flat(std::string_view text, std::string_view sections = {}) {
    return rooted("document", std::string(sections) + body(text));
}

inline std::string package(std::string_view content, std::string_view styles = {}, std::string_view meta = {},
                           std::string_view type = kTextType) {
    ZipWriter zip;
    ZipWriter::Options stored;
    stored.deflate = false;
    if (!type.empty()) zip.add("mimetype", type, stored);
    zip.add("content.xml", content);
    if (!styles.empty()) zip.add("styles.xml", styles);
    if (!meta.empty()) zip.add("meta.xml", meta);
    zip.add("META-INF/manifest.xml", "<manifest/>");
    return zip.finish();
}

inline ReadStatus read(std::string_view bytes, DocumentContents& contents) {
    Deadline deadline;
    return readOpenDocument(bytes, deadline, contents);
}

inline DocumentContents contentsOf(std::string_view bytes) {
    DocumentContents contents;
    EXPECT_EQ(read(bytes, contents), ReadStatus::read) << bytes.substr(0, 200);
    return contents;
}

inline std::u16string textOf(std::string_view text, std::string_view sections = {}) {
    return contentsOf(flat(text, sections)).text;
}

struct TextCase {
    const char* name;
    std::string_view body;
    std::u16string_view text;
};

template <size_t count>
void expectTexts(const TextCase (&cases)[count], std::string_view sections = {}) {
    for (const TextCase& c : cases) EXPECT_EQ(textOf(c.body, sections), c.text) << c.name << ": " << c.body;
}

} // namespace OpenDocumentTesting
