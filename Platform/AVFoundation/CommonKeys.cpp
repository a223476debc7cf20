// SPDX-License-Identifier: Apache-2.0
#include "Platform/AVFoundation/CommonKeys.h"

#include "Platform/AVFoundation/AVMetadataKeys.h"

#include <algorithm>
#include <iterator>

namespace {

struct CommonKey {
    const char16_t* common;
    // In iTunes metadata, QuickTime metadata (after "com.apple.quicktime."), QuickTime user data, ISO user
    // data and ID3; "" where the space has no such key.
    std::string_view keys[5];
};

constexpr CommonKey kCommonKeys[] = {
    {AVMetadataCommonKeyTitle, {"@nam", "title", "@nam", "titl", "TIT2"}},
    {AVMetadataCommonKeyCreator, {"@wrt", "", "", "", "TCOM"}},
    {AVMetadataCommonKeySubject, {"", "", "", "", "TIT1"}},
    {AVMetadataCommonKeyDescription, {"", "description", "@des", "dscp", "TIT3"}},
    {AVMetadataCommonKeyPublisher, {"@pub", "publisher", "@pub", "", "TPUB"}},
    {AVMetadataCommonKeyContributor, {"", "", "", "", "TOPE"}},
    {AVMetadataCommonKeySource, {"", "", "@src", "", ""}},
    {AVMetadataCommonKeyLocation, {"", "location.ISO6709", "@xyz", "loci", ""}},
    {AVMetadataCommonKeyCopyrights, {"cprt", "copyright", "@cpy", "cprt", "TCOP"}},
    {AVMetadataCommonKeyAlbumName, {"@alb", "album", "@alb", "albm", "TALB"}},
    {AVMetadataCommonKeyAuthor, {"@aut", "author", "@aut", "auth", "TEXT"}},
    {AVMetadataCommonKeyArtist, {"@ART", "artist", "@ART", "perf", "TPE1"}},
    {AVMetadataCommonKeyArtwork, {"covr", "artwork", "", "", "APIC"}},
};

struct FieldName {
    std::string_view name;
    const char16_t* common;
};

constexpr FieldName kFieldNames[] = {
    {"TITLE", AVMetadataCommonKeyTitle},
    {"COMPOSER", AVMetadataCommonKeyCreator},
    {"GROUPING", AVMetadataCommonKeySubject},
    {"CONTENTGROUP", AVMetadataCommonKeySubject},
    {"SUBJECT", AVMetadataCommonKeySubject},
    {"DESCRIPTION", AVMetadataCommonKeyDescription},
    {"SUBTITLE", AVMetadataCommonKeyDescription},
    {"LABEL", AVMetadataCommonKeyPublisher},
    {"PUBLISHER", AVMetadataCommonKeyPublisher},
    {"ORGANIZATION", AVMetadataCommonKeyPublisher},
    {"ORIGINALARTIST", AVMetadataCommonKeyContributor},
    {"SOURCE", AVMetadataCommonKeySource},
    {"LOCATION", AVMetadataCommonKeyLocation},
    {"COPYRIGHT", AVMetadataCommonKeyCopyrights},
    {"ALBUM", AVMetadataCommonKeyAlbumName},
    {"LYRICIST", AVMetadataCommonKeyAuthor},
    {"AUTHOR", AVMetadataCommonKeyAuthor},
    {"ARTIST", AVMetadataCommonKeyArtist},
};

const char16_t* commonKeyForFieldName(std::string_view name) {
    const auto* row = std::find_if(std::begin(kFieldNames), std::end(kFieldNames),
                                   [&](const FieldName& candidate) { return candidate.name == name; });
    return row == std::end(kFieldNames) ? nullptr : row->common;
}

} // namespace

const char16_t* commonKeyForKey(MediaKeySpace space, std::string_view key) {
    if (space == MediaKeySpace::fieldName) return commonKeyForFieldName(key);
    if (space == MediaKeySpace::quickTimeMetadata) {
        constexpr std::string_view prefix = "com.apple.quicktime.";
        if (key.substr(0, prefix.size()) != prefix) return nullptr;
        key.remove_prefix(prefix.size());
    }
    if (key.empty()) return nullptr;
    const size_t column = size_t(space) - size_t(MediaKeySpace::iTunes);
    const auto* row = std::find_if(std::begin(kCommonKeys), std::end(kCommonKeys),
                                   [&](const CommonKey& candidate) { return candidate.keys[column] == key; });
    return row == std::end(kCommonKeys) ? nullptr : row->common;
}
