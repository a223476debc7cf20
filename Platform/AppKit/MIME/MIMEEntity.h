// SPDX-License-Identifier: Apache-2.0
//
// A message in the format of mail and of saved web pages, or a part of one: fields of a header, an empty
// line, and a body, which can hold further parts. The bytes must outlive the entity and its parts.
//
// Any bytes are an entity; damaged ones give what can be told. Names and media types are compared without
// case.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

class MIMEEntity {
public:
    // Parts past this number are left out.
    static constexpr size_t kMostParts = 1024;

    explicit MIMEEntity(std::string_view bytes);

    // The value of a field, on one line and without blanks at its ends; of several the first's, or "".
    std::string field(std::string_view name) const;

    // What the field Content-Type says: "text/html", in small letters; "text/plain" when there is none.
    std::string mediaType() const;
    // A parameter of it, such as "charset"; or "".
    std::string parameter(std::string_view name) const { return parameter("Content-Type", name); }
    // One of another field, such as "filename" of Content-Disposition; or "".
    std::string parameter(std::string_view fieldName, std::string_view name) const;

    // The body, decoded from base64 or quoted-printable when it is in one of these.
    std::string contents() const;

    // The parts of a multipart body; none of another.
    std::vector<MIMEEntity> parts() const;

    // The first entity of a media type, this one or one in it. Of parts that belong together the one that the
    // message says to begin with comes first.
    std::optional<MIMEEntity> find(std::string_view mediaType) const { return find(mediaType, kDeepest); }

private:
    static constexpr int kDeepest = 8;

    std::optional<MIMEEntity> find(std::string_view mediaType, int depth) const;

    std::string_view header_, body_;
};

// True of bytes that begin as a message with such parts does.
bool startsAsMIME(std::string_view bytes);
