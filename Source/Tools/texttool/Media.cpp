// SPDX-License-Identifier: Apache-2.0
#include "Platform/AVFoundation/AVAsset.h"
#include "Platform/AVFoundation/AVMetadataKeys.h"
#include "Platform/Foundation/NSLog.h"
#include "Source/Tools/texttool/Extractors.h"
#include "Source/Tools/texttool/Lines.h"
#include "Source/Tools/texttool/MediaMetadata.h"
#include "Source/Tools/texttool/Report.h"
#include "ZORFoundation/Source/NSProcessInfo+ZOR.h"
#include "ZORFoundation/Source/NSString+ZORFilesBasics.h"

namespace {

// Whether this system has what reads metadata; says so in the log when it has not.
bool canReadMetadata() {
    if (!NSProcessInfoZOR::zorIsLionOrBetter()) return false;
    NSString why;
    if (AVAsset::canReadMetadata(&why)) return true;
    NSLog(why);
    return false;
}

} // namespace

void handleQT() {
    NSString path = markRequestedDocument(u"QTPath");
    if (!zorFileExists(path)) {
        reportMissingFile(path);
        return;
    }
    std::vector<NSString> lines;
    if (!canReadMetadata()) {
        reportSuccess(path, joinedLines(lines), nullptr, nullptr, 0, nullptr, nullptr);
        return;
    }
    AVAsset asset = AVAsset::assetWithURL(NSURL::fileURLWithPath(path));
    asset.availableMetadataFormats(); // makes the asset read its metadata
    const NSDictionary dictionaries[] = {
        metadataDictFromItems(asset.commonMetadata(), commonMetadataKeys(), AVMetadataKeySpaceCommon),
        metadataDictFromItems(asset.metadataForFormat(AVMetadataFormatiTunesMetadata), iTunesMetadataKeys(),
                              AVMetadataKeySpaceiTunes),
        metadataDictFromItems(asset.metadataForFormat(AVMetadataFormatQuickTimeMetadata),
                              quickTimeMetadataKeys(), AVMetadataKeySpaceQuickTimeMetadata),
        metadataDictFromItems(asset.metadataForFormat(AVMetadataFormatQuickTimeUserData),
                              quickTimeUserMetadataKeys(), AVMetadataKeySpaceQuickTimeUserData),
    };
    const NSDictionary& common = dictionaries[0];
    NSString title = firstValueForKeys(common, {NSString(AVMetadataCommonKeyTitle)});
    NSString author =
        firstValueForKeys(common, {NSString(AVMetadataCommonKeyArtist), NSString(AVMetadataCommonKeyAuthor),
                                   NSString(AVMetadataCommonKeyCreator)});
    for (const NSDictionary& dictionary : dictionaries) {
        for (const auto& [key, value] : dictionary) lines.push_back(as<NSString>(value));
    }
    reportSuccess(path, joinedLines(lines), title, author, 0, nullptr, nullptr);
}
