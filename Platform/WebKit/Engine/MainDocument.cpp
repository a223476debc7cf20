// SPDX-License-Identifier: Apache-2.0
#include "Platform/WebKit/Engine/MainDocument.h"

#include "Platform/AppKit/HTML/HTMLEncoding.h"
#include "Platform/Foundation/UnicodeText.h"

namespace {

bool isXML(const std::string& type) {
    return type.ends_with("+xml") || type == "text/xml" || type == "application/xml";
}

bool isText(const std::string& type) { return type.starts_with("text/") || isXML(type); }

} // namespace

MainDocument::MainDocument(const WebResource& resource) : type_(resource.MIMEType().utf8()) {
    std::string_view bytes = resource.data().bytes();
    std::string converted;
    encoding_ = resource.textEncodingName().utf8();
    if (bytes.empty()) {
        // The engine never starts to load nothing at all.
        bytes = "<!DOCTYPE html>";
        type_ = "text/html";
    } else if (encoding_.empty() && isText(type_)) {
        // Without a name the engine takes the bytes for UTF-8, whatever they say of themselves.
        if (!isXML(type_) || !isUTF8(bytes)) bytes = htmlAsUTF8(bytes, converted);
        encoding_ = "UTF-8";
    }
    bytes_ = g_bytes_new(bytes.data(), bytes.size());
}
