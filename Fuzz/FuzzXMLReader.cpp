// SPDX-License-Identifier: Apache-2.0
//
// XML fed at once and in pieces, whose size the first byte gives: a complete document must read the same.
#include "Platform/AppKit/Package/XMLReader.h"

#include <cstdint>
#include <cstdlib>
#include <string>

namespace {

constexpr XMLNamespace kNamespaces[] = {{"urn:a", 1}, {"urn:b", 2}, {"urn:c", 1}};

class Recorder : public XMLHandler {
public:
    void startElement(int space, std::string_view name, const XMLAttributes& attributes) override {
        log.append("<").append(std::to_string(space)).append(name);
        for (int s = 0; s <= 2; ++s) log.append(" ").append(attributes.value(s, "a"));
    }
    void endElement(int space, std::string_view name) override {
        log.append(">").append(std::to_string(space)).append(name);
    }
    void characters(std::string_view utf8) override { log += utf8; }

    std::string log;
};

bool read(std::string_view xml, size_t piece, Recorder& recorder) {
    XMLReader reader(kNamespaces, recorder);
    bool fed = true;
    for (; fed && !xml.empty(); xml.remove_prefix(piece < xml.size() ? piece : xml.size())) {
        fed = reader.feed(xml.substr(0, piece));
    }
    return reader.finish() && fed;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    if (size == 0) return 0;
    std::string_view xml(reinterpret_cast<const char*>(data + 1), size - 1);
    Recorder whole, pieces;
    bool isComplete = read(xml, xml.size() + 1, whole);
    if (read(xml, size_t(data[0]) + 1, pieces) != isComplete) abort();
    if (isComplete && whole.log != pieces.log) abort();
    return 0;
}
