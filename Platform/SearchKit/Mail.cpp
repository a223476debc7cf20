// SPDX-License-Identifier: Apache-2.0
#include "Platform/SearchKit/Mail.h"

#include "Platform/AppKit/MIME/EncodedWords.h"
#include "Platform/AppKit/MIME/MIMEEntity.h"
#include "Platform/AppKit/NSDocumentAttributes.h"
#include "Platform/Foundation/NSStringEncoding.h"
#include "Platform/Foundation/UnicodeText.h"

#include <algorithm>

namespace {

// Of parts in one another. No mail program nests so deeply.
constexpr int kDeepest = 16;

class MessageReader {
public:
    MessageReader(std::u16string& text, NSString& why) : text_(text), why_(why) {}

    void readMessage(std::string_view bytes, int depth = 0) {
        const MIMEEntity message(bytes);
        for (const char* name : {"Subject", "From", "To", "Cc", "Bcc", "Reply-To", "Date", "Keywords"})
            appendLine(textOfHeaderValue(message.field(name)));
        readEntity(message, depth);
    }

    // The page of a web page that was saved with all that it uses.
    void readPage(std::string_view bytes) {
        if (const auto page = MIMEEntity(bytes).find("text/html")) readText(*page, true);
    }

    ImportStatus status() const { return status_; }

private:
    void appendLine(const std::u16string& line) {
        if (!line.empty()) text_ += line + u'\n';
    }

    void readEntity(const MIMEEntity& entity, int depth) {
        if (depth == kDeepest) return;
        appendAttachmentName(entity);
        const std::string type = entity.mediaType();
        if (type.starts_with("multipart/")) {
            for (const MIMEEntity& part : entity.parts()) readEntity(part, depth + 1);
        } else if (type == "message/rfc822") {
            readMessage(entity.contents(), depth + 1);
        } else if (type.starts_with("text/")) {
            readText(entity, type == "text/html");
        }
    }

    void appendAttachmentName(const MIMEEntity& entity) {
        for (const auto& [field, name] :
             {std::pair("Content-Disposition", "filename"), {"Content-Type", "name"}}) {
            const std::string extended = entity.parameter(field, std::string(name) + "*");
            appendLine(extended.empty() ? textOfHeaderValue(entity.parameter(field, name))
                                        : textOfExtendedParameter(extended));
        }
    }

    void readText(const MIMEEntity& entity, bool isHTML) {
        std::string bytes = entity.contents();
        const NSStringEncoding encoding = encodingForIANAName(entity.parameter("charset"));
        if (encoding != NSNoStringEncoding) bytes = asMarkedUTF8(bytes, encoding);
        const ImportStatus status = importData(isHTML ? NSHTMLTextDocumentType : NSPlainTextDocumentType,
                                               NSData(std::move(bytes)), text_, why_);
        if (status == ImportStatus::missingReader) status_ = status;
        text_ += u'\n';
    }

    // What the message says of a part's encoding goes before what the part says itself.
    static std::string asMarkedUTF8(std::string_view bytes, NSStringEncoding encoding) {
        std::u16string decoded;
        appendDecoded(decoded, bytes, encoding);
        return "\xEF\xBB\xBF" + toUTF8(decoded);
    }

    std::u16string& text_;
    NSString& why_;
    ImportStatus status_ = ImportStatus::read;
};

} // namespace

ImportStatus importMessage(ImportedFile& file, std::u16string& text, NSString& why) {
    if (!file.data()) return importFailed(why, kCannotBeRead);
    MessageReader reader(text, why);
    reader.readMessage(file.data().bytes());
    return reader.status();
}

ImportStatus importMailbox(ImportedFile& file, std::u16string& text, NSString& why) {
    if (!file.data()) return importFailed(why, kCannotBeRead);
    MessageReader reader(text, why);
    std::string_view rest = file.data().bytes();
    while (!rest.empty()) {
        const size_t end = std::min(rest.find("\nFrom "), rest.size());
        std::string_view message = rest.substr(0, end);
        if (message.starts_with("From "))
            message.remove_prefix(std::min(message.find('\n'), message.size() - 1) + 1);
        reader.readMessage(message);
        rest.remove_prefix(std::min(end + 1, rest.size()));
    }
    return reader.status();
}

ImportStatus importSavedPage(ImportedFile& file, std::u16string& text, NSString& why) {
    if (!file.data()) return importFailed(why, kCannotBeRead);
    MessageReader reader(text, why);
    reader.readPage(file.data().bytes());
    return reader.status();
}
