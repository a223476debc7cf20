// SPDX-License-Identifier: Apache-2.0
//
// The names of metadata: formats, key spaces and, for each space, the keys that are read. In keys of four
// characters "@" stands for the byte A9 of the file.
#pragma once

inline constexpr const char16_t* AVMetadataKeySpaceCommon = u"comn";
inline constexpr const char16_t* AVMetadataKeySpaceiTunes = u"itsk";
inline constexpr const char16_t* AVMetadataKeySpaceQuickTimeMetadata = u"mdta";
inline constexpr const char16_t* AVMetadataKeySpaceQuickTimeUserData = u"udta";
inline constexpr const char16_t* AVMetadataKeySpaceISOUserData = u"uiso";
inline constexpr const char16_t* AVMetadataKeySpaceID3 = u"org.id3";

inline constexpr const char16_t* AVMetadataFormatiTunesMetadata = u"com.apple.itunes";
inline constexpr const char16_t* AVMetadataFormatQuickTimeMetadata = u"com.apple.quicktime.mdta";
inline constexpr const char16_t* AVMetadataFormatQuickTimeUserData = u"com.apple.quicktime.udta";
inline constexpr const char16_t* AVMetadataFormatISOUserData = u"org.mp4ra";
inline constexpr const char16_t* AVMetadataFormatID3Metadata = u"org.id3";

// Common to all formats.
inline constexpr const char16_t* AVMetadataCommonKeyTitle = u"title";
inline constexpr const char16_t* AVMetadataCommonKeyCreator = u"creator";
inline constexpr const char16_t* AVMetadataCommonKeySubject = u"subject";
inline constexpr const char16_t* AVMetadataCommonKeyDescription = u"description";
inline constexpr const char16_t* AVMetadataCommonKeyPublisher = u"publisher";
inline constexpr const char16_t* AVMetadataCommonKeyContributor = u"contributor";
inline constexpr const char16_t* AVMetadataCommonKeySource = u"source";
inline constexpr const char16_t* AVMetadataCommonKeyLocation = u"location";
inline constexpr const char16_t* AVMetadataCommonKeyCopyrights = u"copyrights";
inline constexpr const char16_t* AVMetadataCommonKeyAlbumName = u"albumName";
inline constexpr const char16_t* AVMetadataCommonKeyAuthor = u"author";
inline constexpr const char16_t* AVMetadataCommonKeyArtist = u"artist";
inline constexpr const char16_t* AVMetadataCommonKeyArtwork = u"artwork";

// iTunes metadata.
inline constexpr const char16_t* AVMetadataiTunesMetadataKeyAlbum = u"@alb";
inline constexpr const char16_t* AVMetadataiTunesMetadataKeyArtist = u"@ART";
inline constexpr const char16_t* AVMetadataiTunesMetadataKeyUserComment = u"@cmt";
inline constexpr const char16_t* AVMetadataiTunesMetadataKeySongName = u"@nam";
inline constexpr const char16_t* AVMetadataiTunesMetadataKeyTrackSubTitle = u"@st3";
inline constexpr const char16_t* AVMetadataiTunesMetadataKeyComposer = u"@wrt";
inline constexpr const char16_t* AVMetadataiTunesMetadataKeyAlbumArtist = u"aART";
inline constexpr const char16_t* AVMetadataiTunesMetadataKeyArtDirector = u"@ard";
inline constexpr const char16_t* AVMetadataiTunesMetadataKeyArranger = u"@arg";
inline constexpr const char16_t* AVMetadataiTunesMetadataKeyAuthor = u"@aut";
inline constexpr const char16_t* AVMetadataiTunesMetadataKeyLyrics = u"@lyr";
inline constexpr const char16_t* AVMetadataiTunesMetadataKeyAcknowledgement = u"@cak";
inline constexpr const char16_t* AVMetadataiTunesMetadataKeyConductor = u"@con";
inline constexpr const char16_t* AVMetadataiTunesMetadataKeyDescription = u"@des";
inline constexpr const char16_t* AVMetadataiTunesMetadataKeyDirector = u"@dir";
inline constexpr const char16_t* AVMetadataiTunesMetadataKeyLinerNotes = u"@lnt";
inline constexpr const char16_t* AVMetadataiTunesMetadataKeyRecordCompany = u"@mak";
inline constexpr const char16_t* AVMetadataiTunesMetadataKeyOriginalArtist = u"@ope";
inline constexpr const char16_t* AVMetadataiTunesMetadataKeyProducer = u"@prd";
inline constexpr const char16_t* AVMetadataiTunesMetadataKeyPerformer = u"@prf";
inline constexpr const char16_t* AVMetadataiTunesMetadataKeyPublisher = u"@pub";
inline constexpr const char16_t* AVMetadataiTunesMetadataKeySoundEngineer = u"@sne";
inline constexpr const char16_t* AVMetadataiTunesMetadataKeySoloist = u"@sol";
inline constexpr const char16_t* AVMetadataiTunesMetadataKeyCredits = u"@src";
inline constexpr const char16_t* AVMetadataiTunesMetadataKeyThanks = u"@thx";
inline constexpr const char16_t* AVMetadataiTunesMetadataKeyExecProducer = u"@xpd";

// QuickTime metadata.
inline constexpr const char16_t* AVMetadataQuickTimeMetadataKeyAuthor = u"com.apple.quicktime.author";
inline constexpr const char16_t* AVMetadataQuickTimeMetadataKeyComment = u"com.apple.quicktime.comment";
inline constexpr const char16_t* AVMetadataQuickTimeMetadataKeyCopyright = u"com.apple.quicktime.copyright";
inline constexpr const char16_t* AVMetadataQuickTimeMetadataKeyDirector = u"com.apple.quicktime.director";
inline constexpr const char16_t* AVMetadataQuickTimeMetadataKeyDisplayName =
    u"com.apple.quicktime.displayname";
inline constexpr const char16_t* AVMetadataQuickTimeMetadataKeyInformation =
    u"com.apple.quicktime.information";
inline constexpr const char16_t* AVMetadataQuickTimeMetadataKeyKeywords = u"com.apple.quicktime.keywords";
inline constexpr const char16_t* AVMetadataQuickTimeMetadataKeyProducer = u"com.apple.quicktime.producer";
inline constexpr const char16_t* AVMetadataQuickTimeMetadataKeyPublisher = u"com.apple.quicktime.publisher";
inline constexpr const char16_t* AVMetadataQuickTimeMetadataKeyAlbum = u"com.apple.quicktime.album";
inline constexpr const char16_t* AVMetadataQuickTimeMetadataKeyArtist = u"com.apple.quicktime.artist";
inline constexpr const char16_t* AVMetadataQuickTimeMetadataKeyDescription =
    u"com.apple.quicktime.description";
inline constexpr const char16_t* AVMetadataQuickTimeMetadataKeySoftware = u"com.apple.quicktime.software";
inline constexpr const char16_t* AVMetadataQuickTimeMetadataKeyGenre = u"com.apple.quicktime.genre";
inline constexpr const char16_t* AVMetadataQuickTimeMetadataKeyArranger = u"com.apple.quicktime.arranger";
inline constexpr const char16_t* AVMetadataQuickTimeMetadataKeyOriginalArtist =
    u"com.apple.quicktime.originalartist";
inline constexpr const char16_t* AVMetadataQuickTimeMetadataKeyPerformer = u"com.apple.quicktime.performer";
inline constexpr const char16_t* AVMetadataQuickTimeMetadataKeyComposer = u"com.apple.quicktime.composer";
inline constexpr const char16_t* AVMetadataQuickTimeMetadataKeyCredits = u"com.apple.quicktime.credits";
inline constexpr const char16_t* AVMetadataQuickTimeMetadataKeyTitle = u"com.apple.quicktime.title";
inline constexpr const char16_t* AVMetadataQuickTimeMetadataKeyCollectionUser =
    u"com.apple.quicktime.collection.user";
inline constexpr const char16_t* AVMetadataQuickTimeMetadataKeyLocationName =
    u"com.apple.quicktime.location.name";
inline constexpr const char16_t* AVMetadataQuickTimeMetadataKeyLocationBody =
    u"com.apple.quicktime.location.body";
inline constexpr const char16_t* AVMetadataQuickTimeMetadataKeyLocationNote =
    u"com.apple.quicktime.location.note";
inline constexpr const char16_t* AVMetadataQuickTimeMetadataKeyLocationRole =
    u"com.apple.quicktime.location.role";

// QuickTime user data. Original source and credits are one key in the file.
inline constexpr const char16_t* AVMetadataQuickTimeUserDataKeyAlbum = u"@alb";
inline constexpr const char16_t* AVMetadataQuickTimeUserDataKeyArranger = u"@arg";
inline constexpr const char16_t* AVMetadataQuickTimeUserDataKeyArtist = u"@ART";
inline constexpr const char16_t* AVMetadataQuickTimeUserDataKeyAuthor = u"@aut";
inline constexpr const char16_t* AVMetadataQuickTimeUserDataKeyChapter = u"@chp";
inline constexpr const char16_t* AVMetadataQuickTimeUserDataKeyComment = u"@cmt";
inline constexpr const char16_t* AVMetadataQuickTimeUserDataKeyComposer = u"@com";
inline constexpr const char16_t* AVMetadataQuickTimeUserDataKeyCopyright = u"@cpy";
inline constexpr const char16_t* AVMetadataQuickTimeUserDataKeyDescription = u"@des";
inline constexpr const char16_t* AVMetadataQuickTimeUserDataKeyDirector = u"@dir";
inline constexpr const char16_t* AVMetadataQuickTimeUserDataKeyDisclaimer = u"@dis";
inline constexpr const char16_t* AVMetadataQuickTimeUserDataKeyFullName = u"@nam";
inline constexpr const char16_t* AVMetadataQuickTimeUserDataKeyGenre = u"@gen";
inline constexpr const char16_t* AVMetadataQuickTimeUserDataKeyInformation = u"@inf";
inline constexpr const char16_t* AVMetadataQuickTimeUserDataKeyKeywords = u"@key";
inline constexpr const char16_t* AVMetadataQuickTimeUserDataKeyOriginalArtist = u"@ope";
inline constexpr const char16_t* AVMetadataQuickTimeUserDataKeyOriginalFormat = u"@fmt";
inline constexpr const char16_t* AVMetadataQuickTimeUserDataKeyOriginalSource = u"@src";
inline constexpr const char16_t* AVMetadataQuickTimeUserDataKeyPerformers = u"@prf";
inline constexpr const char16_t* AVMetadataQuickTimeUserDataKeyProducer = u"@prd";
inline constexpr const char16_t* AVMetadataQuickTimeUserDataKeyPublisher = u"@pub";
inline constexpr const char16_t* AVMetadataQuickTimeUserDataKeyTrack = u"@trk";
inline constexpr const char16_t* AVMetadataQuickTimeUserDataKeyWarning = u"@wrn";
inline constexpr const char16_t* AVMetadataQuickTimeUserDataKeyWriter = u"@wrt";
inline constexpr const char16_t* AVMetadataQuickTimeUserDataKeyURLLink = u"@url";
inline constexpr const char16_t* AVMetadataQuickTimeUserDataKeyTrackName = u"tnam";
inline constexpr const char16_t* AVMetadataQuickTimeUserDataKeyCredits = u"@src";
