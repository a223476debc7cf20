// SPDX-License-Identifier: Apache-2.0
#include "Platform/AppKit/MIME/MIMEEntity.h"

#include "Platform/AppKit/MIME/TransferEncoding.h"
#include "Platform/Foundation/ASCII.h"

#include <algorithm>

namespace {

// The next line, without its end, which is taken off too.
std::string_view takeLine(std::string_view& bytes) {
    const size_t end = bytes.find('\n');
    std::string_view line = bytes.substr(0, end);
    bytes.remove_prefix(end == bytes.npos ? bytes.size() : end + 1);
    if (line.ends_with('\r')) line.remove_suffix(1);
    return line;
}

// The line end before a delimiter belongs to the delimiter.
std::string_view withoutLineEnd(std::string_view part) {
    if (part.ends_with('\n')) part.remove_suffix(1);
    if (part.ends_with('\r')) part.remove_suffix(1);
    return part;
}

bool isBlank(char32_t c) { return c == U' ' || c == U'\t'; }

// "name: value" and the lines that continue it.
struct Field {
    std::string_view name;
    std::string value;
};

// False at the end of the header.
bool takeField(std::string_view& header, Field& field) {
    if (header.empty()) return false;
    const std::string_view line = takeLine(header);
    const size_t colon = std::min(line.find(':'), line.size());
    field.name = trimmed(line.substr(0, colon), isBlank);
    field.value = line.substr(std::min(colon + 1, line.size()));
    while (!header.empty() && isBlank(char32_t(header.front()))) field.value += takeLine(header);
    field.value = trimmed(field.value, isBlank);
    return true;
}

// A value in quotes, in which a backslash stands before a character that means itself, or one without.
std::string takeParameterValue(std::string_view& text) {
    std::string value;
    if (!text.starts_with('"')) {
        const size_t end = std::min(text.find(';'), text.size());
        value = trimmed(text.substr(0, end), isBlank);
        text.remove_prefix(end);
        return value;
    }
    text.remove_prefix(1);
    while (!text.empty() && text.front() != '"') {
        if (text.front() == '\\' && text.size() > 1) text.remove_prefix(1);
        value += text.front();
        text.remove_prefix(1);
    }
    text.remove_prefix(std::min(text.find(';'), text.size()));
    return value;
}

} // namespace

MIMEEntity::MIMEEntity(std::string_view bytes) : body_(bytes) {
    while (!body_.empty() && !takeLine(body_).empty()) {
    }
    header_ = bytes.substr(0, bytes.size() - body_.size());
}

std::string MIMEEntity::field(std::string_view name) const {
    Field field;
    for (std::string_view rest = header_; takeField(rest, field);) {
        if (equalIgnoringCase(field.name, name)) return field.value;
    }
    return {};
}

std::string MIMEEntity::mediaType() const {
    const std::string type = field("Content-Type");
    const std::string_view name = trimmed(std::string_view(type).substr(0, type.find(';')), isBlank);
    return name.empty() ? "text/plain" : lowered(name);
}

std::string MIMEEntity::parameter(std::string_view fieldName, std::string_view name) const {
    const std::string value = field(fieldName);
    std::string_view rest = value;
    for (;;) {
        const size_t semicolon = rest.find(';');
        if (semicolon == rest.npos) return {};
        rest.remove_prefix(semicolon + 1);
        const size_t equals = rest.find('=');
        if (equals == rest.npos) return {};
        const std::string_view found = trimmed(rest.substr(0, equals), isBlank);
        rest.remove_prefix(equals + 1);
        while (!rest.empty() && isBlank(char32_t(rest.front()))) rest.remove_prefix(1);
        std::string foundValue = takeParameterValue(rest);
        if (equalIgnoringCase(found, name)) return foundValue;
    }
}

std::string MIMEEntity::contents() const {
    const std::string encoding = field("Content-Transfer-Encoding");
    if (equalIgnoringCase(encoding, "base64")) return decodedBase64(body_);
    if (equalIgnoringCase(encoding, "quoted-printable")) return decodedQuotedPrintable(body_);
    return std::string(body_);
}

std::vector<MIMEEntity> MIMEEntity::parts() const {
    std::vector<MIMEEntity> parts;
    const std::string delimiter = "--" + parameter("boundary");
    if (delimiter.size() == 2 || !mediaType().starts_with("multipart/")) return parts;

    std::optional<size_t> begin;
    for (std::string_view rest = body_; !rest.empty() && parts.size() < kMostParts;) {
        const size_t at = body_.size() - rest.size();
        const std::string_view line = takeLine(rest);
        if (!line.starts_with(delimiter)) continue;
        const std::string_view behind = trimmed(line.substr(delimiter.size()), isBlank);
        if (!behind.empty() && behind != "--") continue;
        if (begin) parts.emplace_back(withoutLineEnd(body_.substr(*begin, at - *begin)));
        begin = body_.size() - rest.size();
        if (!behind.empty()) return parts;
    }
    if (begin && parts.size() < kMostParts) parts.emplace_back(body_.substr(*begin));
    return parts;
}

std::optional<MIMEEntity> MIMEEntity::find(std::string_view wanted, int depth) const {
    if (mediaType() == wanted) return *this;
    if (depth == 0) return std::nullopt;
    std::vector<MIMEEntity> all = parts();
    if (const std::string start = parameter("start"); !start.empty()) {
        std::stable_partition(all.begin(), all.end(),
                              [&](const MIMEEntity& part) { return part.field("Content-ID") == start; });
    }
    for (const MIMEEntity& part : all) {
        if (auto found = part.find(wanted, depth - 1)) return found;
    }
    return std::nullopt;
}

bool startsAsMIME(std::string_view bytes) {
    constexpr size_t kLongestHeader = 16 << 10;
    bytes = bytes.substr(0, kLongestHeader);
    bytes = bytes.substr(std::min(bytes.find_first_not_of("\r\n"), bytes.size()));
    Field field;
    while (takeField(bytes, field)) {
        const bool isName =
            !field.name.empty() && std::all_of(field.name.begin(), field.name.end(),
                                               [](char c) { return c > ' ' && c < '\x7F' && c != '<'; });
        if (!isName) return false;
        if (equalIgnoringCase(field.name, "MIME-Version")) return true;
    }
    return false;
}
