// SPDX-License-Identifier: Apache-2.0
#include "Platform/AppKit/OfficeOpenXML/LinkedText.h"

#include "Platform/AppKit/DocumentKinds.h"
#include "Platform/AppKit/NSDocumentAttributes.h"
#include "Platform/AppKit/StoryBuilder.h"
#include "Platform/Foundation/UnicodeText.h"

#include <utility>

namespace OfficeOpenXML {

namespace {

constexpr size_t kLargestChunk = 16 << 20; // bytes
constexpr size_t kMostParts = 256;

struct ChunkKind {
    std::string_view extension;
    const char16_t* documentType;
};

constexpr ChunkKind kChunkKinds[] = {{".htm", NSHTMLTextDocumentType},
                                     {".html", NSHTMLTextDocumentType},
                                     {".xhtml", NSHTMLTextDocumentType},
                                     {".rtf", NSRTFTextDocumentType},
                                     {".txt", NSPlainTextDocumentType}};

// Null for kinds that are not read here.
const DocumentKind* chunkKind(std::string_view part) {
    for (const ChunkKind& kind : kChunkKinds) {
        if (part.ends_with(kind.extension)) return documentKindOfType(NSString(kind.documentType));
    }
    return nullptr;
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
    bool isNew = !part.empty() && taken_.size() < kMostParts && taken_.insert(part).second;
    return isNew ? part : std::string();
}

std::u16string LinkedText::takeChunk(std::string_view id) {
    std::string part = takePart(id);
    const DocumentKind* kind = chunkKind(part);
    NSString whyNot;
    DocumentReader reader = kind != nullptr ? readerOfKind(*kind, &whyNot) : nullptr;
    if (reader == nullptr) return {};
    DocumentContents contents;
    reader(package_.contents(part, deadline_, kLargestChunk), deadline_, contents);
    return std::move(contents.text);
}

std::u16string LinkedText::takeDiagram(std::string_view id) {
    DiagramHandler handler;
    readPart(package_, takePart(id), deadline_, handler);
    return std::move(handler).finish();
}

} // namespace OfficeOpenXML
