// SPDX-License-Identifier: Apache-2.0
#include "Tests/Support/ImageWriter.h"

#include "Tests/Support/MediaWriter.h"

#include <zlib.h>

namespace {

using namespace std::string_literals;

std::string segment(unsigned char marker, const std::string& body) {
    return "\xFF"s + char(marker) + bigEndian(body.size() + 2, 2) + body;
}

std::string chunk(const std::string& type, const std::string& body) {
    const std::string content = type + body;
    const auto sum = crc32(0, reinterpret_cast<const Bytef*>(content.data()), uInt(content.size()));
    return bigEndian(body.size(), 4) + content + bigEndian(sum, 4);
}

} // namespace

std::string iptcDataset(unsigned record, unsigned dataset, std::string_view value) {
    return "\x1C" + bigEndian(record, 1) + bigEndian(dataset, 1) + bigEndian(value.size(), 2) +
           std::string(value);
}

std::string tiffFile(const std::vector<std::pair<uint16_t, std::string>>& texts) {
    std::string directory = littleEndian(texts.size(), 2), values;
    const size_t start = 8 + 2 + 12 * texts.size() + 4;
    for (const auto& [tag, text] : texts) {
        std::string value = text + '\0';
        directory += littleEndian(tag, 2) + littleEndian(2, 2) + littleEndian(value.size(), 4);
        if (value.size() <= 4) {
            value.resize(4);
            directory += value;
            continue;
        }
        directory += littleEndian(start + values.size(), 4);
        values += value + std::string(value.size() & 1, '\0');
    }
    return "II*\0"s + littleEndian(8, 4) + directory + littleEndian(0, 4) + values;
}

std::string xmpPacket(std::string_view properties) {
    return "<?xpacket begin=\"\xEF\xBB\xBF\" id=\"W5M0MpCehiHzreSzNTczkc9d\"?><x:xmpmeta "
           "xmlns:x=\"adobe:ns:meta/\">"
           "<rdf:RDF xmlns:rdf=\"http://www.w3.org/1999/02/22-rdf-syntax-ns#\"><rdf:Description "
           "rdf:about=\"\" "
           "xmlns:dc=\"http://purl.org/dc/elements/1.1/\" "
           "xmlns:photoshop=\"http://ns.adobe.com/photoshop/1.0/\" "
           "xmlns:tiff=\"http://ns.adobe.com/tiff/1.0/\">" +
           std::string(properties) + "</rdf:Description></rdf:RDF></x:xmpmeta><?xpacket end=\"w\"?>";
}

std::string jpegFile(std::string_view iptc, std::string_view tiff, std::string_view xmp) {
    std::string file = "\xFF\xD8" + segment(0xE0, "JFIF\0\1\1\0\0\1\0\1\0\0"s);
    if (!tiff.empty()) file += segment(0xE1, "Exif\0\0"s + std::string(tiff));
    if (!xmp.empty()) file += segment(0xE1, "http://ns.adobe.com/xap/1.0/\0"s + std::string(xmp));
    if (!iptc.empty()) {
        const std::string padded = std::string(iptc) + std::string(iptc.size() & 1, '\0');
        file += segment(0xED, "Photoshop 3.0\0"s + "8BIM" + bigEndian(0x0404, 2) + "\0\0"s +
                                  bigEndian(iptc.size(), 4) + padded);
    }
    return file + "\xFF\xD9";
}

std::string pngFile(std::string_view xmp) {
    return "\x89PNG\r\n\x1A\n" + chunk("IHDR", bigEndian(1, 4) + bigEndian(1, 4) + "\x08\0\0\0\0"s) +
           chunk("iTXt", "XML:com.adobe.xmp\0\0\0\0\0"s + std::string(xmp)) + chunk("IDAT", "") +
           chunk("IEND", "");
}

std::string gifFile(std::string_view xmp) {
    std::string ramp = "\x01";
    for (int i = 255; i >= 0; --i) ramp.push_back(char(i));
    const std::string palette(6, '\0'), control = "\x21\xF9\x04\0\0\0\0\0"s;
    return "GIF89a\1\0\1\0\x80\0\0"s + palette + control + "\x21\xFF\x0BXMP DataXMP" + std::string(xmp) +
           ramp + "\0"s + ",\0\0\0\0\1\0\1\0\0\2\2D\1\0;"s;
}
