// SPDX-License-Identifier: Apache-2.0
//
// OpenDocument text: packages (.odt, .ott ...), flat XML (.fodt), and the packages of the format's
// predecessor
// (.sxw).
#include "Platform/AppKit/DocumentReader.h"
#include "Platform/AppKit/OpenDocument/BodySection.h"
#include "Platform/AppKit/OpenDocument/MetaSection.h"
#include "Platform/AppKit/OpenDocument/StyleSection.h"
#include "Platform/AppKit/Package/XMLValues.h"
#include "Platform/AppKit/Package/ZipPackage.h"
#include "Platform/Foundation/ASCII.h"

#include <algorithm>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace OpenDocument {

namespace {

enum class Kind { text, foreign, unknown };

Kind kindOfMediaType(std::string_view type) {
    auto starts = [&](std::string_view prefix) { return type.starts_with(prefix); };
    type = trimmed(type, isXMLSpace);
    if (starts("application/vnd.oasis.opendocument.text") || starts("application/vnd.sun.xml.writer"))
        return Kind::text;
    if (starts("application/vnd.oasis.opendocument.") || starts("application/vnd.sun.xml."))
        return Kind::foreign;
    return Kind::unknown;
}

// Hands each section of an XML document to the one who reads it; a null section is passed over.
class Document : public XMLHandler {
public:
    struct Sections {
        MetaSection* meta = nullptr;
        StyleSection* styles = nullptr;
        BodySection* body = nullptr;
    };

    explicit Document(const Sections& sections) : sections_(sections), reader_(namespaces(), *this) {}

    bool feed(std::string_view bytes) { return reader_.feed(bytes); }
    void finish() { reader_.finish(); }
    // The bytes hold the beginning of an OpenDocument document at least.
    bool hasRoot() const { return hasRoot_; }

    void startElement(int space, std::string_view name, const XMLAttributes& attributes) override;
    void endElement(int space, std::string_view name) override;
    void characters(std::string_view utf8) override;

private:
    bool start(Element element, const XMLAttributes& attributes);
    bool startRoot(Element element, const XMLAttributes& attributes);
    bool startSection(Element element);

    Sections sections_;
    XMLReader reader_;
    std::vector<Element> open_; // the root, the section and what is open in it
    Section* section_ = nullptr;
    size_t passedOver_ = 0; // open elements from the one on that is passed over
    bool hasRoot_ = false;
};

void Document::startElement(int space, std::string_view name, const XMLAttributes& attributes) {
    if (passedOver_ > 0) {
        ++passedOver_;
        return;
    }
    Element element = elementNamed(space, name);
    if (start(element, attributes)) {
        open_.push_back(element);
    } else {
        passedOver_ = 1;
    }
    if (sections_.body != nullptr && sections_.body->isForeign()) reader_.stop();
}

bool Document::start(Element element, const XMLAttributes& attributes) {
    if (open_.empty()) return startRoot(element, attributes);
    if (open_.size() == 1) return startSection(element);
    return section_->start(element, attributes);
}

bool Document::startRoot(Element element, const XMLAttributes& attributes) {
    hasRoot_ = element == Element::document || element == Element::documentPart;
    if (!hasRoot_) reader_.stop();
    std::string_view oldKind = attributes.value(kOffice, "class");
    if (!oldKind.empty() && sections_.body != nullptr) sections_.body->setIsText(oldKind == "text");
    return hasRoot_;
}

bool Document::startSection(Element element) {
    section_ = nullptr;
    if (element == Element::metaSection) section_ = sections_.meta;
    if (element == Element::stylesSection) section_ = sections_.styles;
    if (element == Element::bodySection) section_ = sections_.body;
    return section_ != nullptr;
}

void Document::endElement(int, std::string_view) {
    if (passedOver_ > 0) {
        --passedOver_;
        return;
    }
    Element element = open_.back();
    open_.pop_back();
    if (open_.size() > 1) section_->end(element);
}

void Document::characters(std::string_view utf8) {
    if (passedOver_ == 0 && open_.size() > 1) section_->characters(utf8);
}

// All that is read of a document, in whatever parts it comes.
class Contents {
public:
    Contents() : meta_(info_), styles_(book_), body_(book_) {}

    Document::Sections metaOnly() { return {&meta_, nullptr, nullptr}; }
    Document::Sections stylesOnly() { return {nullptr, &styles_, nullptr}; }
    Document::Sections content() { return {nullptr, &styles_, &body_}; }
    Document::Sections all() { return {&meta_, &styles_, &body_}; }

    const BodySection& body() const { return body_; }

    void finish(DocumentContents& contents) {
        info_.converted = -1;
        if (const PageLayout* page = book_.pageLayout(body_.firstMasterPage())) {
            if (page->width && page->height) info_.paperSize = DocumentSize{*page->width, *page->height};
            info_.leftMargin = page->left;
            info_.rightMargin = page->right;
            info_.topMargin = page->top;
            info_.bottomMargin = page->bottom;
        }
        contents.info = std::move(info_);
        contents.text = std::move(body_).finish();
    }

private:
    DocumentInfo info_;
    StyleBook book_;
    MetaSection meta_;
    StyleSection styles_;
    BodySection body_;
};

// True when the part is, as far as it can be read, OpenDocument.
bool readPart(const ZipPackage& package, std::string_view name, const Document::Sections& sections,
              Deadline& deadline) {
    Document document(sections);
    package.read(name, deadline, [&](std::string_view piece) { return document.feed(piece); });
    document.finish();
    return document.hasRoot();
}

ReadStatus readPackage(const ZipPackage& package, Deadline& deadline, DocumentContents& contents) {
    Kind kind = kindOfMediaType(package.contents("mimetype", deadline, 256));
    if (kind == Kind::foreign || (kind == Kind::unknown && !package.contains("content.xml")))
        return ReadStatus::wrongKind;

    Contents document;
    readPart(package, "meta.xml", document.metaOnly(), deadline);
    readPart(package, "styles.xml", document.stylesOnly(), deadline);
    bool isReadable = readPart(package, "content.xml", document.content(), deadline);
    // Encrypted parts are no XML, and the manifest stays in the clear.
    if (!isReadable &&
        package.contents("META-INF/manifest.xml", deadline).find("encryption-data") != std::string::npos) {
        return ReadStatus::locked;
    }
    if (document.body().isForeign() || (kind == Kind::unknown && !document.body().isText()))
        return ReadStatus::wrongKind;
    document.finish(contents);
    return ReadStatus::read;
}

ReadStatus readFlat(std::string_view bytes, Deadline& deadline, DocumentContents& contents) {
    constexpr size_t kPiece = 64 << 10;
    Contents document;
    Document flat(document.all());
    while (!bytes.empty() && !deadline.passed() && flat.feed(bytes.substr(0, kPiece))) {
        bytes.remove_prefix(std::min(kPiece, bytes.size()));
    }
    flat.finish();
    if (!document.body().isText()) return ReadStatus::wrongKind;
    document.finish(contents);
    return ReadStatus::read;
}

} // namespace

} // namespace OpenDocument

ReadStatus readOpenDocument(std::string_view bytes, Deadline& deadline, DocumentContents& contents) {
    auto package = ZipPackage::open(bytes);
    return package ? OpenDocument::readPackage(*package, deadline, contents)
                   : OpenDocument::readFlat(bytes, deadline, contents);
}
