// SPDX-License-Identifier: Apache-2.0
//
// The HTML reader: bytes to UTF-8, past the guard, through the parser, and the tree to text. Any bytes are
// HTML.
#include "Platform/AppKit/DocumentReader.h"
#include "Platform/AppKit/HTML/HTMLEncoding.h"
#include "Platform/AppKit/HTML/HTMLHead.h"
#include "Platform/AppKit/HTML/HTMLSourceGuard.h"
#include "Platform/AppKit/HTML/HTMLStyleSheet.h"
#include "Platform/AppKit/HTML/HTMLTextWriter.h"
#include "Platform/AppKit/HTML/HTMLTree.h"
#include "Platform/AppKit/HTML/HTMLWalker.h"

namespace {

// HTML has no pages of its own: US Letter with the platform's margins, in points.
void setPage(DocumentInfo& info) {
    info.paperSize = DocumentSize{612, 792};
    info.leftMargin = info.rightMargin = 90;
    info.topMargin = info.bottomMargin = 72;
}

} // namespace

ReadStatus readHTML(std::string_view bytes, Deadline& deadline, DocumentContents& contents) {
    std::string converted, rewritten;
    const std::string_view source = guardedSource(htmlAsUTF8(bytes, converted), rewritten);
    const HTMLTree tree(source, deadline);

    // The text of what the parser had built when the time was up is still wanted, and takes a fraction of
    // that time.
    Deadline none;
    Deadline& end = tree.isWhole() ? deadline : none;

    HTMLStyleSheet sheet;
    setPage(contents.info);
    readHead(*tree.document(), end, contents.info, sheet);
    // Text of the platform's own making is what it was; all other has been converted, with possible losses.
    if (!contents.info.cocoaVersion) contents.info.converted = -1;

    HTMLTextWriter writer;
    writer.reserve(source.size() / 4);
    HTMLWalker(sheet, writer, end).walk(*tree.document());
    contents.text = std::move(writer).finish();
    return ReadStatus::read;
}
