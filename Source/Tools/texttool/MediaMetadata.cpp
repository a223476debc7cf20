// SPDX-License-Identifier: Apache-2.0
#include "Source/Tools/texttool/MediaMetadata.h"

#include "Platform/AVFoundation/AVMetadataKeys.h"

namespace {

template <size_t count>
NSArray arrayOf(const char16_t* const (&keys)[count]) {
    std::vector<NSObject> objects;
    for (const char16_t* key : keys) objects.push_back(NSString(key));
    return NSArray(std::move(objects));
}

} // namespace

NSArray commonMetadataKeys() {
    return arrayOf({
        AVMetadataCommonKeyTitle,
        AVMetadataCommonKeyCreator,
        AVMetadataCommonKeySubject,
        AVMetadataCommonKeyDescription,
        AVMetadataCommonKeyPublisher,
        AVMetadataCommonKeyContributor,
        AVMetadataCommonKeySource,
        AVMetadataCommonKeyLocation,
        AVMetadataCommonKeyCopyrights,
        AVMetadataCommonKeyAlbumName,
        AVMetadataCommonKeyAuthor,
        AVMetadataCommonKeyArtist,
        AVMetadataCommonKeyArtwork,
    });
}

NSArray iTunesMetadataKeys() {
    return arrayOf({
        AVMetadataiTunesMetadataKeyAlbum,         AVMetadataiTunesMetadataKeyArtist,
        AVMetadataiTunesMetadataKeyUserComment,   AVMetadataiTunesMetadataKeySongName,
        AVMetadataiTunesMetadataKeyTrackSubTitle, AVMetadataiTunesMetadataKeyComposer,
        AVMetadataiTunesMetadataKeyAlbumArtist,   AVMetadataiTunesMetadataKeyArtDirector,
        AVMetadataiTunesMetadataKeyArranger,      AVMetadataiTunesMetadataKeyAuthor,
        AVMetadataiTunesMetadataKeyLyrics,        AVMetadataiTunesMetadataKeyAcknowledgement,
        AVMetadataiTunesMetadataKeyConductor,     AVMetadataiTunesMetadataKeyDescription,
        AVMetadataiTunesMetadataKeyDirector,      AVMetadataiTunesMetadataKeyLinerNotes,
        AVMetadataiTunesMetadataKeyRecordCompany, AVMetadataiTunesMetadataKeyOriginalArtist,
        AVMetadataiTunesMetadataKeyProducer,      AVMetadataiTunesMetadataKeyPerformer,
        AVMetadataiTunesMetadataKeyPublisher,     AVMetadataiTunesMetadataKeySoundEngineer,
        AVMetadataiTunesMetadataKeySoloist,       AVMetadataiTunesMetadataKeyCredits,
        AVMetadataiTunesMetadataKeyThanks,        AVMetadataiTunesMetadataKeyExecProducer,
    });
}

NSArray quickTimeMetadataKeys() {
    return arrayOf({
        AVMetadataQuickTimeMetadataKeyAuthor,         AVMetadataQuickTimeMetadataKeyComment,
        AVMetadataQuickTimeMetadataKeyCopyright,      AVMetadataQuickTimeMetadataKeyDirector,
        AVMetadataQuickTimeMetadataKeyDisplayName,    AVMetadataQuickTimeMetadataKeyInformation,
        AVMetadataQuickTimeMetadataKeyKeywords,       AVMetadataQuickTimeMetadataKeyProducer,
        AVMetadataQuickTimeMetadataKeyPublisher,      AVMetadataQuickTimeMetadataKeyAlbum,
        AVMetadataQuickTimeMetadataKeyArtist,         AVMetadataQuickTimeMetadataKeyDescription,
        AVMetadataQuickTimeMetadataKeySoftware,       AVMetadataQuickTimeMetadataKeyGenre,
        AVMetadataQuickTimeMetadataKeyArranger,       AVMetadataQuickTimeMetadataKeyOriginalArtist,
        AVMetadataQuickTimeMetadataKeyPerformer,      AVMetadataQuickTimeMetadataKeyComposer,
        AVMetadataQuickTimeMetadataKeyCredits,        AVMetadataQuickTimeMetadataKeyTitle,
        AVMetadataQuickTimeMetadataKeyCollectionUser, AVMetadataQuickTimeMetadataKeyLocationName,
        AVMetadataQuickTimeMetadataKeyLocationBody,   AVMetadataQuickTimeMetadataKeyLocationNote,
        AVMetadataQuickTimeMetadataKeyLocationRole,
    });
}

NSArray quickTimeUserMetadataKeys() {
    return arrayOf({
        AVMetadataQuickTimeUserDataKeyAlbum,          AVMetadataQuickTimeUserDataKeyArranger,
        AVMetadataQuickTimeUserDataKeyArtist,         AVMetadataQuickTimeUserDataKeyAuthor,
        AVMetadataQuickTimeUserDataKeyChapter,        AVMetadataQuickTimeUserDataKeyComment,
        AVMetadataQuickTimeUserDataKeyComposer,       AVMetadataQuickTimeUserDataKeyCopyright,
        AVMetadataQuickTimeUserDataKeyDescription,    AVMetadataQuickTimeUserDataKeyDirector,
        AVMetadataQuickTimeUserDataKeyDisclaimer,     AVMetadataQuickTimeUserDataKeyFullName,
        AVMetadataQuickTimeUserDataKeyGenre,          AVMetadataQuickTimeUserDataKeyInformation,
        AVMetadataQuickTimeUserDataKeyKeywords,       AVMetadataQuickTimeUserDataKeyOriginalArtist,
        AVMetadataQuickTimeUserDataKeyOriginalFormat, AVMetadataQuickTimeUserDataKeyOriginalSource,
        AVMetadataQuickTimeUserDataKeyPerformers,     AVMetadataQuickTimeUserDataKeyProducer,
        AVMetadataQuickTimeUserDataKeyPublisher,      AVMetadataQuickTimeUserDataKeyTrack,
        AVMetadataQuickTimeUserDataKeyWarning,        AVMetadataQuickTimeUserDataKeyWriter,
        AVMetadataQuickTimeUserDataKeyURLLink,        AVMetadataQuickTimeUserDataKeyTrackName,
        AVMetadataQuickTimeUserDataKeyCredits,
    });
}

NSDictionary metadataDictFromItems(const std::vector<AVMetadataItem>& items, const NSArray& keys,
                                   const NSString& keySpace) {
    NSMutableDictionary strings;
    for (const NSObject& object : keys) {
        const NSString key = as<NSString>(object);
        for (const AVMetadataItem& item : AVMetadataItem::metadataItemsFromArray(items, key, keySpace)) {
            if (is<NSString>(item.value)) strings.setObject(item.value, key);
        }
    }
    return std::move(strings).copy();
}

NSString firstValueForKeys(const NSDictionary& dictionary, const NSArray& keys) {
    if (keys.count() == 0) return nullptr;
    const NSObject value = dictionary.objectForKey(keys.objectAtIndex(0));
    if (is<NSString>(value)) return as<NSString>(value);
    for (const NSObject& element : as<NSArray>(value)) {
        if (is<NSString>(element)) return as<NSString>(element);
    }
    return nullptr;
}
