// SPDX-License-Identifier: Apache-2.0
#include "Platform/SearchKit/BuiltinImporters.h"

#include "Platform/AVFoundation/AVAsset.h"
#include "Platform/AppKit/DocumentKinds.h"
#include "Platform/AppKit/NSDocumentAttributes.h"
#include "Platform/AppKit/XMLText/XMLTextReaders.h"
#include "Platform/Foundation/CharacterSet.h"
#include "Platform/Foundation/NSException.h"
#include "Platform/Foundation/NSPathUtilities.h"
#include "Platform/ImageIO/CGImageProperties.h"
#include "Platform/ImageIO/CGImageSource.h"
#include "Platform/PDFKit/PDFDocument.h"
#include "Platform/SearchKit/CompressedFile.h"
#include "Platform/SearchKit/Mail.h"
#include "Platform/SearchKit/OutlookMessage.h"
#include "Platform/SearchKit/SavedArchive.h"
#include "Platform/SearchKit/StructuredText.h"
#include "Platform/SearchKit/TextLines.h"

namespace {

constexpr std::chrono::seconds kTimeout{30};

ImportStatus outcomeOf(ReadStatus status, NSString& why) {
    switch (status) {
    case ReadStatus::read: return ImportStatus::read;
    case ReadStatus::wrongKind: return importFailed(why, kOfAnotherKind);
    case ReadStatus::locked: return importFailed(why, u"it is protected by a password");
    case ReadStatus::outOfMemory: break;
    }
    return importFailed(why, kOutOfMemory);
}

// Kinds of which nothing but the words is ever wanted.
constexpr DocumentKind kWordKinds[] = {{kXMLTextType, u"public.xml", nullptr, "OpenPackage"},
                                       {kPackageTextType, u"public.zip-archive", nullptr, "OpenPackage"}};

const DocumentKind& kindOfType(const NSString& documentType) {
    for (const DocumentKind& kind : kWordKinds) {
        if (documentType.text() == kind.documentType) return kind;
    }
    return *documentKindOfType(documentType);
}

template <const char16_t* const& type>
ImportStatus importText(ImportedFile& file, std::u16string& text, NSString& why) {
    return importData(type, file.data(), text, why);
}

// Other than a document that says of itself to be plain text, a file of any kind can be in any encoding.
ImportStatus importPlainText(ImportedFile& file, std::u16string& text, NSString& why) {
    if (!file.data()) return importFailed(why, kCannotBeRead);
    const std::string_view bytes = file.data().bytes();
    const NSStringEncoding encoding = likelyEncoding(bytes);
    const bool isMarked = encoding == NSUTF8StringEncoding && byteOrderMark(bytes).encoding == encoding;
    appendDecoded(text, bytes.substr(isMarked ? byteOrderMark(bytes).size : 0), encoding);
    return ImportStatus::read;
}

template <std::u16string (*textOf)(std::u16string_view)>
ImportStatus importStructured(ImportedFile& file, std::u16string& text, NSString& why) {
    std::u16string plain;
    const ImportStatus status = importPlainText(file, plain, why);
    text += textOf(plain);
    return status;
}

// A folder with its text in it.
ImportStatus importRTFD(ImportedFile& file, std::u16string& text, NSString& why) {
    ImportedFile inner(stringByAppendingPathComponent(file.path(), u"TXT.rtf"));
    return importData(NSRTFDTextDocumentType, inner.data(), text, why);
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
    // Names of fields in some kinds of files belong to no format.
    for (const AVMetadataItem& item : asset.commonMetadata()) appendStrings(item.value, text);
    return ImportStatus::read;
}

constexpr struct {
    std::string_view name;
    BuiltinImporter importer;
    std::string_view types;
} kImporters[] = {
    {"text", importPlainText, "text/plain"},
    {"html", importText<NSHTMLTextDocumentType>, "text/html;application/xhtml+xml"},
    {"rtf", importText<NSRTFTextDocumentType>,
     "application/rtf;"
     "text/rtf"},
    {"rtfd", importRTFD, ""},
    {"doc", importText<NSDocFormatTextDocumentType>,
     "application/msword;"
     "application/msword-template"},
    {"docx", importText<NSOfficeOpenXMLTextDocumentType>,
     "application/vnd.openxmlformats-officedocument.wordprocessingml.document;"
     "application/vnd.openxmlformats-officedocument.wordprocessingml.template;"
     "application/vnd.ms-word.document.macroEnabled.12;"
     "application/vnd.ms-word.template.macroEnabled.12"},
    {"odt", importText<NSOpenDocumentTextDocumentType>,
     "application/vnd.oasis.opendocument.text;"
     "application/vnd.oasis.opendocument.text-template;"
     "application/vnd.oasis.opendocument.text-master;"
     "application/vnd.oasis.opendocument.text-web;"
     "application/vnd.oasis.opendocument.text-flat-xml"},
    {"pdf", importPDF, "application/pdf"},
    {"xml", importText<kXMLTextType>, "application/xml;text/xml;image/svg+xml;application/x-fictionbook+xml"},
    {"mail", importMessage, "message/rfc822"},
    {"outlook", importOutlookMessage, "application/vnd.ms-outlook"},
    {"mailbox", importMailbox, "application/mbox"},
    {"webarchive", importWebArchive, "application/x-webarchive"},
    {"savedpage", importSavedPage, "application/x-mimearchive;multipart/related"},
    {"package", importText<kPackageTextType>,
     "application/vnd.openxmlformats-officedocument.spreadsheetml.sheet;"
     "application/vnd.openxmlformats-officedocument.spreadsheetml.template;"
     "application/vnd.openxmlformats-officedocument.presentationml.presentation;"
     "application/vnd.openxmlformats-officedocument.presentationml.slideshow;"
     "application/vnd.openxmlformats-officedocument.presentationml.slide;"
     "application/vnd.openxmlformats-officedocument.presentationml.template;"
     "application/vnd.oasis.opendocument.spreadsheet;"
     "application/vnd.oasis.opendocument.spreadsheet-template;"
     "application/vnd.oasis.opendocument.presentation;"
     "application/vnd.oasis.opendocument.presentation-template;"
     "application/vnd.oasis.opendocument.graphics;"
     "application/vnd.oasis.opendocument.graphics-template;"
     "application/vnd.oasis.opendocument.chart;"
     "application/vnd.sun.xml.calc;application/vnd.sun.xml.impress;application/vnd.sun.xml.draw;"
     "application/epub+zip;application/x-zip-compressed-fb2"},
    {"json", importStructured<textOfJSON>, "application/json"},
    {"table", importStructured<textOfTable>, "text/csv"},
    {"subtitles", importStructured<textOfSubtitles>, "application/x-subrip;text/vtt;text/x-ssa"},
    {"compressed", importCompressed,
     "application/gzip;application/x-bzip;application/x-xz;application/x-lzma;application/zstd;"
     "image/svg+xml-compressed"},
    {"image", importImage, "image/*"},
    {"media", importMedia,
     "audio/*;"
     "video/*;"
     "application/ogg"},
};

} // namespace

BuiltinImporter builtinImporterNamed(std::string_view name) {
    for (const auto& known : kImporters) {
        if (known.name == name) return known.importer;
    }
    return nullptr;
}

std::vector<ImporterDescriptor> builtinImporters() {
    std::vector<ImporterDescriptor> descriptors;
    for (const auto& known : kImporters) {
        ImporterDescriptor descriptor;
        descriptor.name = descriptor.reader = known.name;
        for (std::string_view rest = known.types; !rest.empty();)
            descriptor.mimeTypes.emplace_back(takePart(rest, ';'));
        descriptors.push_back(std::move(descriptor));
    }
    return descriptors;
}

ImportStatus importFailed(NSString& why, const char16_t* reason) {
    why = NSString(reason);
    return ImportStatus::failed;
}

ImportStatus importData(const NSString& documentType, const NSData& data, std::u16string& text,
                        NSString& why) {
    if (!data) return importFailed(why, kCannotBeRead);
    const DocumentReader reader = readerOfKind(kindOfType(documentType), &why);
    if (!reader) return ImportStatus::missingReader;
    DocumentContents contents;
    Deadline deadline(kTimeout);
    const ReadStatus status = readGuarded(reader, data.bytes(), deadline, contents);
    text += contents.text;
    return outcomeOf(status, why);
}
