// SPDX-License-Identifier: Apache-2.0
#include "Source/Tools/texttool/Image.h"

#include "Platform/Foundation/NSDebug.h"
#include "Platform/ImageIO/CGImageProperties.h"
#include "Platform/ImageIO/CGImageSource.h"
#include "Source/Tools/texttool/Extractors.h"
#include "Source/Tools/texttool/Lines.h"
#include "Source/Tools/texttool/MediaMetadata.h"
#include "Source/Tools/texttool/Report.h"
#include "ZORFoundation/Source/NSString+ZORFilesBasics.h"

namespace {

NSArray iptcKeys() {
    return {
        NSString(kCGImagePropertyIPTCObjectName),
        NSString(kCGImagePropertyIPTCSubjectReference),
        NSString(kCGImagePropertyIPTCCategory),
        NSString(kCGImagePropertyIPTCSupplementalCategory),
        NSString(kCGImagePropertyIPTCContentLocationName),
        NSString(kCGImagePropertyIPTCByline),
        NSString(kCGImagePropertyIPTCBylineTitle),
        NSString(kCGImagePropertyIPTCCity),
        NSString(kCGImagePropertyIPTCSubLocation),
        NSString(kCGImagePropertyIPTCProvinceState),
        NSString(kCGImagePropertyIPTCKeywords),
        NSString(kCGImagePropertyIPTCCountryPrimaryLocationName),
        NSString(kCGImagePropertyIPTCHeadline),
        NSString(kCGImagePropertyIPTCCredit),
        NSString(kCGImagePropertyIPTCSource),
        NSString(kCGImagePropertyIPTCCopyrightNotice),
        NSString(kCGImagePropertyIPTCContact),
        NSString(kCGImagePropertyIPTCCaptionAbstract),
    };
}

NSArray tiffKeys() {
    return {
        NSString(kCGImagePropertyTIFFDocumentName),
        NSString(kCGImagePropertyTIFFImageDescription),
        NSString(kCGImagePropertyTIFFArtist),
        NSString(kCGImagePropertyTIFFCopyright),
    };
}

// The properties of the file's first image; nil when it is none.
NSDictionary propertiesOfImage(const NSString& path) {
    CGImageSource source = CGImageSourceCreateWithURL(NSURL::fileURLWithPath(path));
    if (!source) return nullptr;
    NSDictionary properties = CGImageSourceCopyPropertiesAtIndex(source, 0);
    if (properties) debugLog("Properties for %@: %@", path, properties);
    return properties;
}

} // namespace

void addPropertiesWithKeys(std::vector<NSString>& lines, const NSDictionary& dictionary,
                           const NSArray& keys) {
    for (const NSObject& key : keys) {
        const NSObject value = dictionary.objectForKey(key);
        if (is<NSString>(value)) lines.push_back(as<NSString>(value));
        for (const NSObject& element : as<NSArray>(value)) {
            if (is<NSString>(element)) lines.push_back(as<NSString>(element));
        }
    }
}

void handleImage() {
    NSString path = markRequestedDocument(u"ImagePath");
    if (!zorFileExists(path)) {
        reportMissingFile(path);
        return;
    }
    std::vector<NSString> lines;
    NSString title, author;
    const NSDictionary properties = propertiesOfImage(path);
    if (NSDictionary iptc = properties.get<NSDictionary>(NSString(kCGImagePropertyIPTCDictionary))) {
        addPropertiesWithKeys(lines, iptc, iptcKeys());
        title = firstValueForKeys(
            iptc, {NSString(kCGImagePropertyIPTCHeadline), NSString(kCGImagePropertyIPTCObjectName)});
        author = firstValueForKeys(
            iptc, {NSString(kCGImagePropertyIPTCByline), NSString(kCGImagePropertyIPTCCredit)});
    }
    if (NSDictionary tiff = properties.get<NSDictionary>(NSString(kCGImagePropertyTIFFDictionary)))
        addPropertiesWithKeys(lines, tiff, tiffKeys());
    reportSuccess(path, joinedLines(lines), title, author, 0, nullptr, nullptr);
}
