// SPDX-License-Identifier: Apache-2.0
//
// The names of image properties: dictionaries, and the fields in them.
#pragma once

inline constexpr const char16_t* kCGImagePropertyIPTCDictionary = u"{IPTC}";
inline constexpr const char16_t* kCGImagePropertyTIFFDictionary = u"{TIFF}";

inline constexpr const char16_t* kCGImagePropertyIPTCObjectName = u"ObjectName";
inline constexpr const char16_t* kCGImagePropertyIPTCSubjectReference = u"SubjectReference";
inline constexpr const char16_t* kCGImagePropertyIPTCCategory = u"Category";
inline constexpr const char16_t* kCGImagePropertyIPTCSupplementalCategory = u"SupplementalCategory";
inline constexpr const char16_t* kCGImagePropertyIPTCContentLocationName = u"ContentLocationName";
inline constexpr const char16_t* kCGImagePropertyIPTCByline = u"Byline";
inline constexpr const char16_t* kCGImagePropertyIPTCBylineTitle = u"BylineTitle";
inline constexpr const char16_t* kCGImagePropertyIPTCCity = u"City";
inline constexpr const char16_t* kCGImagePropertyIPTCSubLocation = u"SubLocation";
inline constexpr const char16_t* kCGImagePropertyIPTCProvinceState = u"Province/State";
inline constexpr const char16_t* kCGImagePropertyIPTCKeywords = u"Keywords";
inline constexpr const char16_t* kCGImagePropertyIPTCCountryPrimaryLocationName =
    u"Country/PrimaryLocationName";
inline constexpr const char16_t* kCGImagePropertyIPTCHeadline = u"Headline";
inline constexpr const char16_t* kCGImagePropertyIPTCCredit = u"Credit";
inline constexpr const char16_t* kCGImagePropertyIPTCSource = u"Source";
inline constexpr const char16_t* kCGImagePropertyIPTCCopyrightNotice = u"CopyrightNotice";
inline constexpr const char16_t* kCGImagePropertyIPTCContact = u"Contact";
inline constexpr const char16_t* kCGImagePropertyIPTCCaptionAbstract = u"Caption/Abstract";

inline constexpr const char16_t* kCGImagePropertyTIFFDocumentName = u"DocumentName";
inline constexpr const char16_t* kCGImagePropertyTIFFImageDescription = u"ImageDescription";
inline constexpr const char16_t* kCGImagePropertyTIFFArtist = u"Artist";
inline constexpr const char16_t* kCGImagePropertyTIFFCopyright = u"Copyright";
