// SPDX-License-Identifier: Apache-2.0
#include "Platform/AppKit/HTML/HTMLPage.h"

#include "Platform/AppKit/HTML/HTMLHead.h"
#include "Platform/AppKit/HTML/HTMLSourceGuard.h"
#include "Platform/AppKit/HTML/HTMLStyleSheet.h"
#include "Platform/AppKit/HTML/HTMLTree.h"
#include "Platform/AppKit/HTML/HTMLWalker.h"

#include <string>

void writeHTMLPage(std::string_view utf8, HTMLTextWriter& writer, DocumentInfo& info, Deadline& deadline,
                   size_t depth) {
    std::string rewritten;
    const std::string_view source = guardedSource(utf8, rewritten);
    const HTMLTree tree(source, deadline);

    // The text of what the parser had built when the time was up is still wanted, and takes a fraction of
    // that time.
    Deadline none;
    Deadline& end = tree.isWhole() ? deadline : none;

    HTMLStyleSheet sheet;
    readHead(*tree.document(), end, info, sheet);
    writer.reserve(writer.length() + source.size() / 4);
    HTMLWalker(sheet, writer, end, depth).walk(*tree.document());
}
