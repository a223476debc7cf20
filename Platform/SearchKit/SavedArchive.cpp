// SPDX-License-Identifier: Apache-2.0
#include "Platform/SearchKit/SavedArchive.h"

#include "Platform/AppKit/NSDocumentAttributes.h"
#include "Platform/Foundation/ASCII.h"
#include "Platform/Foundation/NSStringEncoding.h"
#include "Platform/Foundation/UnicodeText.h"
#include "Platform/WebKit/WebArchive.h"

namespace {

// What the archive says of a resource's encoding goes before what the resource says itself.
NSData inUTF8(const WebResource& resource) {
    const NSStringEncoding encoding = encodingForIANAName(resource.textEncodingName().utf8());
    if (encoding == NSNoStringEncoding) return resource.data();
    std::u16string text;
    appendDecoded(text, resource.data().bytes(), encoding);
    return NSData("\xEF\xBB\xBF" + toUTF8(text));
}

ImportStatus importResource(const WebResource& resource, std::u16string& text, NSString& why) {
    const std::string type = lowered(resource.MIMEType().utf8());
    const bool isPage = type == "text/html" || type == "application/xhtml+xml";
    if (!isPage && type != "text/plain") return ImportStatus::read;
    const ImportStatus status =
        importData(isPage ? NSHTMLTextDocumentType : NSPlainTextDocumentType, inUTF8(resource), text, why);
    text += u'\n';
    return status;
}

// Archives lie in one another no deeper than their reader allows.
ImportStatus importArchive(const WebArchive& archive, std::u16string& text, NSString& why) {
    ImportStatus status = importResource(archive.mainResource(), text, why);
    for (const WebArchive& frame : archive.subframeArchives()) {
        if (status != ImportStatus::missingReader) status = importArchive(frame, text, why);
    }
    return status;
}

} // namespace

ImportStatus importWebArchive(ImportedFile& file, std::u16string& text, NSString& why) {
    const WebArchive archive = WebArchive::initWithData(file.data());
    if (archive) return importArchive(archive, text, why);
    return importFailed(why, kOfAnotherKind);
}
