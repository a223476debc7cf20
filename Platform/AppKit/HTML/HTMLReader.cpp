// SPDX-License-Identifier: Apache-2.0
//
// The HTML reader: bytes to UTF-8, past the guard, through the parser, and the tree to text. Any bytes are
// HTML.
#include "Platform/AppKit/DocumentReader.h"
#include "Platform/AppKit/HTML/HTMLEncoding.h"
#include "Platform/AppKit/HTML/HTMLPage.h"

#include <utility>

namespace {

// HTML has no pages of its own: US Letter with the platform's margins, in points.
void setPage(DocumentInfo& info) {
    info.paperSize = DocumentSize{612, 792};
    info.leftMargin = info.rightMargin = 90;
    info.topMargin = info.bottomMargin = 72;
}

} // namespace

ReadStatus readHTML(std::string_view bytes, Deadline& deadline, DocumentContents& contents) {
    std::string converted;
    HTMLTextWriter writer;
    setPage(contents.info);
    writeHTMLPage(htmlAsUTF8(bytes, converted), writer, contents.info, deadline, 0);
    // Text of the platform's own making is what it was; all other has been converted, with possible losses.
    if (!contents.info.cocoaVersion) contents.info.converted = -1;
    contents.text = std::move(writer).finish();
    return ReadStatus::read;
}
