// SPDX-License-Identifier: Apache-2.0
#include "Platform/SearchKit/BuiltinImporters.h"

#include "Platform/AVFoundation/AVAsset.h"
#include "Platform/AppKit/DocumentKinds.h"
#include "Platform/AppKit/NSDocumentAttributes.h"
#include "Platform/Foundation/NSException.h"
#include "Platform/Foundation/NSPathUtilities.h"
#include "Platform/ImageIO/CGImageProperties.h"
#include "Platform/ImageIO/CGImageSource.h"
#include "Platform/PDFKit/PDFDocument.h"

namespace {

constexpr std::chrono::seconds kTimeout{30};

ImportStatus failed(NSString& why, const char16_t* reason) {
    why = NSString(reason);
    return ImportStatus::failed;
}

ImportStatus outcomeOf(ReadStatus status, NSString& why) {
    switch (status) {
    case ReadStatus::read: return ImportStatus::read;
    case ReadStatus::wrongKind: return failed(why, u"it is damaged or of another kind");
    case ReadStatus::locked: return failed(why, u"it is protected by a password");
    default: return failed(why, u"there is not enough memory");
    }
}

ImportStatus readAs(const char16_t* type, const NSData& data, std::u16string& text, NSString& why) {
    if (!data) return failed(why, u"it cannot be read");
    const DocumentReader reader = readerOfKind(*documentKindOfType(type), &why);
    if (!reader) return ImportStatus::missingReader;
    DocumentContents contents;
    Deadline deadline(kTimeout);
    const ReadStatus status = readGuarded(reader, data.bytes(), deadline, contents);
    text += contents.text;
    return outcomeOf(status, why);
}

template <const char16_t* const& type>
ImportStatus importText(ImportedFile& file, std::u16string& text, NSString& why) {
    return readAs(type, file.data(), text, why);
}

// A folder with its text in it.
ImportStatus importRTFD(ImportedFile& file, std::u16string& text, NSString& why) {
    ImportedFile inner(stringByAppendingPathComponent(file.path(), u"TXT.rtf"));
    return readAs(NSRTFDTextDocumentType, inner.data(), text, why);
}

ImportStatus importPDF(ImportedFile& file, std::u16string& text, NSString& why) {
    NSError error;
    const PDFDocument document = PDFDocument::initWithData(file.data(), &error);
    if (error) {
        why = error.localizedDescription();
        return ImportStatus::missingReader;
    }
    if (!document) return outcomeOf(ReadStatus::wrongKind, why);
    if (document.isLocked()) return outcomeOf(ReadStatus::locked, why);
    for (size_t i = 0; i < document.pageCount(); ++i) {
        try {
            text += document.pageAtIndex(i).string().text() + u'\n';
        } catch (const NSException&) {
            // A page that cannot be read costs only itself.
        }
    }
    return ImportStatus::read;
}

void appendStrings(const NSObject& value, std::u16string& text) {
    if (is<NSString>(value)) text += as<NSString>(value).text() + u'\n';
    for (const NSObject& element : as<NSArray>(value)) appendStrings(element, text);
}

ImportStatus importImage(ImportedFile& file, std::u16string& text, NSString&) {
    const CGImageSource source = CGImageSourceCreateWithURL(NSURL::fileURLWithPath(file.path()));
    const NSDictionary properties = CGImageSourceCopyPropertiesAtIndex(source, 0);
    for (const char16_t* name : {kCGImagePropertyIPTCDictionary, kCGImagePropertyTIFFDictionary}) {
        for (const auto& [key, value] : properties.get<NSDictionary>(NSString(name)))
            appendStrings(value, text);
    }
    return ImportStatus::read;
}

ImportStatus importMedia(ImportedFile& file, std::u16string& text, NSString& why) {
    if (!AVAsset::canReadMetadata(&why)) return ImportStatus::missingReader;
    AVAsset asset = AVAsset::assetWithURL(NSURL::fileURLWithPath(file.path()));
    for (const NSObject& format : asset.availableMetadataFormats()) {
        for (const AVMetadataItem& item : asset.metadataForFormat(as<NSString>(format)))
            appendStrings(item.value, text);
    }
    return ImportStatus::read;
}

constexpr struct {
    std::string_view name;
    BuiltinImporter importer;
} kImporters[] = {
    {"text", importText<NSPlainTextDocumentType>},
    {"html", importText<NSHTMLTextDocumentType>},
    {"rtf", importText<NSRTFTextDocumentType>},
    {"rtfd", importRTFD},
    {"doc", importText<NSDocFormatTextDocumentType>},
    {"docx", importText<NSOfficeOpenXMLTextDocumentType>},
    {"odt", importText<NSOpenDocumentTextDocumentType>},
    {"pdf", importPDF},
    {"image", importImage},
    {"media", importMedia},
};

} // namespace

BuiltinImporter builtinImporterNamed(std::string_view name) {
    for (const auto& known : kImporters) {
        if (known.name == name) return known.importer;
    }
    return nullptr;
}
