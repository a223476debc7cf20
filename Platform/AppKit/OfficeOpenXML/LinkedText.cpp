// SPDX-License-Identifier: Apache-2.0
#include "Platform/AppKit/OfficeOpenXML/LinkedText.h"

#include "Platform/AppKit/DocumentKinds.h"
#include "Platform/AppKit/MIME/MIMEEntity.h"
#include "Platform/AppKit/NSDocumentAttributes.h"
#include "Platform/AppKit/StoryBuilder.h"
#include "Platform/Foundation/ASCII.h"
#include "Platform/Foundation/NSStringEncoding.h"
#include "Platform/Foundation/UnicodeText.h"

#include <utility>

namespace OfficeOpenXML {

namespace {

constexpr size_t kLargestChunk = 16 << 20; // bytes

// What a media type or the end of a name says.
struct KindName {
    std::string_view name;
    const char16_t* documentType;
};

constexpr KindName kMediaTypes[] = {{"text/html", NSHTMLTextDocumentType},
                                    {"application/xhtml+xml", NSHTMLTextDocumentType},
                                    {"text/rtf", NSRTFTextDocumentType},
                                    {"application/rtf", NSRTFTextDocumentType},
                                    {"text/plain", NSPlainTextDocumentType}};

constexpr KindName kExtensions[] = {{".htm", NSHTMLTextDocumentType},
                                    {".html", NSHTMLTextDocumentType},
                                    {".xhtml", NSHTMLTextDocumentType},
                                    {".txt", NSPlainTextDocumentType}};

bool isOfType(const DocumentKind& kind, const char16_t* documentType) {
    return std::u16string_view(kind.documentType) == documentType;
}

const DocumentKind* kindOfMediaType(std::string_view type) {
    for (const KindName& known : kMediaTypes) {
        if (type == known.name) return documentKindOfType(NSString(known.documentType));
    }
    return nullptr;
}

// Null for what only may be plain text.
const DocumentKind* tellingKindOfBytes(std::string_view bytes) {
    const DocumentKind* kind = documentKindOfBytes(bytes);
    return kind != nullptr && isOfType(*kind, NSPlainTextDocumentType) ? nullptr : kind;
}

const DocumentKind* kindOfName(std::string_view part) {
    const std::string name = lowered(part);
    for (const KindName& known : kExtensions) {
        if (name.ends_with(known.name)) return documentKindOfType(NSString(known.documentType));
    }
    return nullptr;
}

// The page of a web page saved as a message, or its plain text, as UTF-8 if it says its encoding; "" if there
// is neither.
std::string pageOfMessage(std::string_view bytes, bool& isPage) {
    const MIMEEntity message(bytes);
    std::optional<MIMEEntity> shown = message.find("text/html");
    isPage = shown.has_value();
    if (!shown) shown = message.find("text/plain");
    if (!shown) return {};
    std::string contents = shown->contents();
    const NSStringEncoding encoding = encodingForIANAName(shown->parameter("charset"));
    if (encoding == NSNoStringEncoding) return contents;
    constexpr std::string_view kMark = "\xEF\xBB\xBF";
    std::u16string text;
    appendDecoded(text, contents, encoding);
    return std::string(kMark) + toUTF8(text);
}

// The paragraphs of the points of a diagram's data.
class DiagramHandler : public PartHandler {
public:
    void characters(std::string_view utf8) override {
        if (inText_ && !isPassingOver()) appendUTF8(text_, utf8);
    }
    std::u16string finish() && { return std::move(text_); }

protected:
    bool start(Element element, const XMLAttributes&) override {
        if (element == Element::text) inText_ = true;
        return true;
    }
    void end(Element element) override {
        if (element == Element::text) inText_ = false;
        if (element == Element::drawingParagraph && !text_.empty() && text_.back() != kParagraphEnd)
            text_ += kParagraphEnd;
    }

private:
    bool inText_ = false;
    std::u16string text_;
};

} // namespace

std::string LinkedText::takePart(std::string_view id) {
    std::string part = relationships_.partWithID(id);
    if (part.empty() || allowance_.parts == 0 || !taken_.insert(part).second) return {};
    --allowance_.parts;
    return part;
}

std::u16string LinkedText::takeChunk(std::string_view id) {
    const std::string part = takePart(id);
    if (part.empty()) return {};
    if (!contentTypes_) contentTypes_.emplace(package_, deadline_);
    const std::string type = contentTypes_->typeOf(part);
    const std::string bytes = package_.contents(part, deadline_, kLargestChunk);

    if (type == "message/rfc822" || type == "multipart/related" || startsAsMIME(bytes)) {
        bool isPage = false;
        const std::string page = pageOfMessage(bytes, isPage);
        return readChunk(page, kindOfMediaType(isPage ? "text/html" : "text/plain"));
    }
    const DocumentKind* kind = kindOfMediaType(type);
    if (kind == nullptr || isOfType(*kind, NSRTFTextDocumentType)) {
        if (const DocumentKind* telling = tellingKindOfBytes(bytes)) kind = telling;
    }
    return readChunk(bytes, kind != nullptr ? kind : kindOfName(part));
}

std::u16string LinkedText::readChunk(std::string_view bytes, const DocumentKind* kind) {
    DocumentContents contents;
    if (kind == nullptr) return {};
    if (isOfType(*kind, NSOfficeOpenXMLTextDocumentType)) {
        readInnerDocument(bytes, allowance_, deadline_, contents);
        return std::move(contents.text);
    }
    NSString whyNot;
    DocumentReader reader = readerOfKind(*kind, &whyNot);
    if (reader != nullptr) reader(bytes, deadline_, contents);
    return std::move(contents.text);
}

std::u16string LinkedText::takeDiagram(std::string_view id) {
    DiagramHandler handler;
    readPart(package_, takePart(id), deadline_, handler);
    return std::move(handler).finish();
}

} // namespace OfficeOpenXML
