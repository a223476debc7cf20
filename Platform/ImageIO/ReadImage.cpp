// SPDX-License-Identifier: Apache-2.0
#include "Platform/ImageIO/ReadImage.h"

#include "Platform/Foundation/ByteSource.h"
#include "Platform/ImageIO/CGImageProperties.h"
#include "Platform/ImageIO/FieldText.h"
#include "Platform/ImageIO/ImageKind.h"

#include <algorithm>
#include <exiv2/exiv2.hpp>
#include <exiv2/webpimage.hpp>
#include <iterator>

namespace {

struct IPTCField {
    const char16_t* key;
    uint16_t dataset; // of record 2
    bool isRepeatable;
    const char* xmp; // what stands for it where there is no such dataset; "" for nothing
};

constexpr IPTCField kIPTCFields[] = {
    {kCGImagePropertyIPTCObjectName, 5, false, "Xmp.dc.title"},
    {kCGImagePropertyIPTCSubjectReference, 12, true, ""},
    {kCGImagePropertyIPTCCategory, 15, false, "Xmp.photoshop.Category"},
    {kCGImagePropertyIPTCSupplementalCategory, 20, true, "Xmp.photoshop.SupplementalCategories"},
    {kCGImagePropertyIPTCContentLocationName, 27, true, ""},
    {kCGImagePropertyIPTCByline, 80, true, "Xmp.dc.creator"},
    {kCGImagePropertyIPTCBylineTitle, 85, true, "Xmp.photoshop.AuthorsPosition"},
    {kCGImagePropertyIPTCCity, 90, false, "Xmp.photoshop.City"},
    {kCGImagePropertyIPTCSubLocation, 92, false, "Xmp.iptc.Location"},
    {kCGImagePropertyIPTCProvinceState, 95, false, "Xmp.photoshop.State"},
    {kCGImagePropertyIPTCKeywords, 25, true, "Xmp.dc.subject"},
    {kCGImagePropertyIPTCCountryPrimaryLocationName, 101, false, "Xmp.photoshop.Country"},
    {kCGImagePropertyIPTCHeadline, 105, false, "Xmp.photoshop.Headline"},
    {kCGImagePropertyIPTCCredit, 110, false, "Xmp.photoshop.Credit"},
    {kCGImagePropertyIPTCSource, 115, false, "Xmp.photoshop.Source"},
    {kCGImagePropertyIPTCCopyrightNotice, 116, false, "Xmp.dc.rights"},
    {kCGImagePropertyIPTCContact, 118, true, ""},
    {kCGImagePropertyIPTCCaptionAbstract, 120, false, "Xmp.dc.description"},
};

struct TIFFField {
    const char16_t* key;
    uint16_t tag;
    const char* xmp;
};

constexpr uint16_t kCopyrightTag = 0x8298;
constexpr TIFFField kTIFFFields[] = {
    {kCGImagePropertyTIFFDocumentName, 0x010D, ""},
    {kCGImagePropertyTIFFImageDescription, 0x010E, "Xmp.tiff.ImageDescription"},
    {kCGImagePropertyTIFFArtist, 0x013B, "Xmp.tiff.Artist"},
    {kCGImagePropertyTIFFCopyright, kCopyrightTag, "Xmp.tiff.Copyright"},
};

using Texts = std::vector<std::u16string>;

std::string bytesOf(const Exiv2::Value& value) {
    std::string bytes(size_t(std::max(0l, value.size())), '\0');
    value.copy(reinterpret_cast<Exiv2::byte*>(bytes.data()), Exiv2::bigEndian);
    return bytes;
}

bool saysUTF8(const Exiv2::IptcData& iptc) {
    return std::any_of(iptc.begin(), iptc.end(), [](const Exiv2::Iptcdatum& datum) {
        return datum.record() == 1 && datum.tag() == 90 && bytesOf(datum.value()) == "\x1B%G";
    });
}

Texts textsOfDataset(const Exiv2::IptcData& iptc, uint16_t dataset, bool isUTF8Text) {
    Texts texts;
    for (const Exiv2::Iptcdatum& datum : iptc) {
        if (datum.record() == 2 && datum.tag() == dataset)
            texts.push_back(textOfField(bytesOf(datum.value()), isUTF8Text));
    }
    return texts;
}

Texts textsOfXMP(const Exiv2::XmpData& xmp, const char* key) {
    if (!*key) return {};
    const auto found = std::find_if(xmp.begin(), xmp.end(),
                                    [&](const Exiv2::Xmpdatum& datum) { return datum.key() == key; });
    if (found == xmp.end()) return {};
    const Exiv2::Value& value = found->value();
    if (const auto* languages = dynamic_cast<const Exiv2::LangAltValue*>(&value)) {
        if (languages->value_.empty()) return {};
        const auto standard = languages->value_.find("x-default");
        return {textOfField(standard != languages->value_.end() ? standard->second
                                                                : languages->value_.begin()->second)};
    }
    // A plain value counts its characters, and only an array its elements.
    if (!dynamic_cast<const Exiv2::XmpArrayValue*>(&value)) return {textOfField(value.toString())};
    Texts texts;
    for (long i = 0; i < value.count(); ++i) texts.push_back(textOfField(value.toString(i)));
    return texts;
}

// Texts of the main image end at their first null; a copyright has two parts, the photographer's and the
// editor's.
Texts textsOfTag(const Exiv2::ExifData& exif, uint16_t tag) {
    const auto found = std::find_if(exif.begin(), exif.end(), [&](const Exiv2::Exifdatum& datum) {
        return datum.tag() == tag && datum.groupName() == "Image";
    });
    if (found == exif.end()) return {};
    const std::string bytes = bytesOf(found->value());
    const std::string_view first = std::string_view(bytes).substr(0, bytes.find('\0'));
    std::u16string text = textOfField(first);
    if (tag == kCopyrightTag && first.size() < bytes.size()) {
        const std::string_view rest = std::string_view(bytes).substr(first.size() + 1);
        const std::u16string editor = textOfField(rest.substr(0, rest.find('\0')));
        if (!editor.empty()) text += u'\n' + editor;
    }
    return {text};
}

void addField(std::vector<ImageField>& fields, const char16_t* dictionary, const char16_t* key, bool isArray,
              Texts texts) {
    if (!isArray && texts.size() > 1) texts.resize(1);
    if (!texts.empty()) fields.push_back({dictionary, key, isArray, std::move(texts)});
}

void addFields(std::vector<ImageField>& fields, const Exiv2::IptcData& iptc, const Exiv2::ExifData& exif,
               const Exiv2::XmpData& xmp) {
    const bool isUTF8Text = saysUTF8(iptc);
    for (const IPTCField& field : kIPTCFields) {
        Texts texts = textsOfDataset(iptc, field.dataset, isUTF8Text);
        if (texts.empty()) texts = textsOfXMP(xmp, field.xmp);
        addField(fields, kCGImagePropertyIPTCDictionary, field.key, field.isRepeatable, std::move(texts));
    }
    for (const TIFFField& field : kTIFFFields) {
        Texts texts = textsOfTag(exif, field.tag);
        if (texts.empty()) texts = textsOfXMP(xmp, field.xmp);
        addField(fields, kCGImagePropertyTIFFDictionary, field.key, false, std::move(texts));
    }
}

// The library knows other kinds of file too, films among them, which are not for it to read.
bool isImageType(int type) {
    using namespace Exiv2::ImageType;
    // Nikon, Sony, Pentax and Samsung raw files are TIFF files to the library.
    constexpr int types[] = {jpeg, exv, tiff, cr2,  crw,  mrw, raf, orf, rw2,
                             png,  pgf, eps,  webp, bmff, gif, psd, jp2};
    return std::find(std::begin(types), std::end(types), type) != std::end(types);
}

void prepareLibrary() {
    static const bool isReady = [] {
        Exiv2::LogMsg::setLevel(Exiv2::LogMsg::mute);
        Exiv2::enableBMFF(true);
        return Exiv2::XmpParser::initialize();
    }();
    (void)isReady;
}

// `from` names the image to the library: a path, or bytes and their number.
template <class... From>
bool readImage(ByteSource& source, std::vector<ImageField>& fields, const From&... from) {
    if (!mayBeImage(source)) return false;
    try {
        prepareLibrary();
        const int type = Exiv2::ImageFactory::getType(from...);
        if (!isImageType(type)) return false;
        auto image = Exiv2::ImageFactory::open(from...);
        image->readMetadata();
        if (type == Exiv2::ImageType::gif) Exiv2::XmpParser::decode(image->xmpData(), xmpOfGIF(source));
        addFields(fields, image->iptcData(), image->exifData(), image->xmpData());
        return true;
    } catch (const std::exception&) {
        return false;
    }
}

} // namespace

bool readImageFile(int file, std::vector<ImageField>& fields) {
    FileSource source(file);
    // The library takes what looks like an address for one; this cannot.
    return readImage(source, fields, "/proc/self/fd/" + std::to_string(file));
}

bool readImageBytes(std::string_view bytes, std::vector<ImageField>& fields) {
    MemorySource source(bytes);
    return readImage(source, fields, reinterpret_cast<const Exiv2::byte*>(bytes.data()), long(bytes.size()));
}
