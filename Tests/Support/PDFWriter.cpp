// SPDX-License-Identifier: Apache-2.0
#include "Tests/Support/PDFWriter.h"

#include <cstdio>

namespace {

constexpr const char* kFontResources = "/Resources<</Font<</F 3 0 R>>>>";

std::string offsetLine(size_t offset) {
    char line[32];
    snprintf(line, sizeof line, "%010zu 00000 n \n", offset);
    return line;
}

std::string number(double value) {
    char text[32];
    snprintf(text, sizeof text, "%g", value);
    return text;
}

} // namespace

std::string reference(int number) { return std::to_string(number) + " 0 R"; }

std::string textAt(double x, double y, const std::string& text, double size) {
    return "BT /F " + number(size) + " Tf " + number(x) + " " + number(y) + " Td (" + text + ") Tj ET\n";
}

PDFWriter::PDFWriter() {
    objects_.resize(2);
    add("<</Type/Font/Subtype/Type1/BaseFont/Courier/Encoding/WinAnsiEncoding>>");
}

int PDFWriter::add(const std::string& object) {
    objects_.push_back(object);
    return int(objects_.size());
}

int PDFWriter::addStream(std::string_view data, const std::string& entries) {
    return add("<<" + entries + "/Length " + std::to_string(data.size()) + ">>stream\n" + std::string(data) +
               "\nendstream");
}

int PDFWriter::addPage(std::string_view content, const std::string& entries) {
    bool hasResources = entries.find("/Resources") != std::string::npos;
    int stream = addStream(content);
    kids_.push_back(add("<</Type/Page/Parent 2 0 R/MediaBox[0 0 600 800]/Contents " + reference(stream) +
                        (hasResources ? "" : kFontResources) + entries + ">>"));
    return kids_.back();
}

std::string PDFWriter::write() const {
    std::string kids;
    for (int kid : kids_) kids += reference(kid) + " ";
    std::vector<std::string> objects = objects_;
    if (objects[0].empty()) objects[0] = "<</Type/Catalog/Pages 2 0 R" + catalog + ">>";
    std::string told = std::to_string(count < 0 ? (long long)kids_.size() : count);
    if (objects[1].empty()) objects[1] = "<</Type/Pages/Kids[" + kids + "]/Count " + told + pages + ">>";

    std::string file = "%PDF-1.7\n%\xE2\xE3\xCF\xD3\n", offsets = "0000000000 65535 f \n";
    for (size_t i = 0; i < objects.size(); ++i) {
        offsets += offsetLine(file.size());
        file += std::to_string(i + 1) + " 0 obj\n" + objects[i] + "\nendobj\n";
    }
    std::string size = std::to_string(objects.size() + 1), start = std::to_string(file.size());
    return file + "xref\n0 " + size + "\n" + offsets + "trailer\n<</Size " + size + "/Root 1 0 R" + trailer +
           ">>\nstartxref\n" + start + "\n%%EOF\n";
}

std::string pdfOfPages(const std::vector<std::string>& contents) {
    PDFWriter writer;
    for (const std::string& content : contents) writer.addPage(content);
    return writer.write();
}
