// SPDX-License-Identifier: Apache-2.0
#include "Platform/WebKit/Engine/MainDocument.h"

#include "Platform/AppKit/HTML/HTMLEncoding.h"
#include "Platform/Foundation/UnicodeText.h"
#include "Platform/WebKit/PDFText.h"

#include <algorithm>

namespace {

bool isXML(const std::string& type) {
    return type.ends_with("+xml") || type == "text/xml" || type == "application/xml";
}

bool isText(const std::string& type) { return type.starts_with("text/") || isXML(type); }

// Where the word, in lower case, stands in the bytes in any case; npos for nowhere.
size_t find(std::string_view bytes, std::string_view word, size_t from = 0) {
    auto equal = [](char a, char b) { return (a >= 'A' && a <= 'Z' ? a + ('a' - 'A') : a) == b; };
    const auto found = std::search(bytes.begin() + long(from), bytes.end(), word.begin(), word.end(), equal);
    return found == bytes.end() ? std::string_view::npos : size_t(found - bytes.begin());
}

bool saysItsEncoding(std::string_view bytes) {
    if (bytes.starts_with("<?xml")) return true;
    for (size_t at = 0; (at = find(bytes, "<meta", at)) != std::string_view::npos; ++at) {
        const std::string_view tag = bytes.substr(at, bytes.find('>', at) - at);
        if (find(tag, "charset") != std::string_view::npos) return true;
    }
    return false;
}

// Bytes that say nothing of their encoding and are well-formed UTF-8 are nothing else.
bool isUTF8WithoutSayingSo(std::string_view bytes) { return isUTF8(bytes) && !saysItsEncoding(bytes); }

} // namespace

MainDocument::MainDocument(const WebResource& resource) : type_(resource.MIMEType().utf8()) {
    NSData shown = resource.data();
    encoding_ = resource.textEncodingName().utf8();
    if (isPDF(resource.MIMEType())) {
        shown = textOfPDF(shown);
        type_ = "text/plain";
        encoding_ = "UTF-8";
    }
    std::string_view bytes = shown.bytes();
    std::string converted;
    if (bytes.empty()) {
        // The engine never starts to load nothing at all.
        bytes = "<!DOCTYPE html>";
        type_ = "text/html";
    } else if (encoding_.empty() && isText(type_)) {
        // Without a name the engine takes the bytes for UTF-8, whatever they say of themselves.
        const bool isReady = isXML(type_) ? isUTF8(bytes) : isUTF8WithoutSayingSo(bytes);
        if (!isReady) bytes = htmlAsUTF8(bytes, converted);
        encoding_ = "UTF-8";
    }
    bytes_ = g_bytes_new(bytes.data(), bytes.size());
}
