// SPDX-License-Identifier: Apache-2.0
#include "Source/Tools/texttool/Extractors.h"
#include "Source/Tools/texttool/Report.h"
#include "Source/Tools/texttool/TextLoader.h"
#include "ZORFoundation/Source/NSString+ZORFilesBasics.h"

void handleWebArchive() {
    const NSString path = markRequestedDocument(u"WebArchivePath");
    if (!zorFileExists(path)) {
        reportMissingFile(path);
        return;
    }
    const WebArchive archive = WebArchive::initWithData(dataFromPath(path));
    if (!archive) {
        // A file that could not be read has been reported before: on standard output that stands.
        reportCorruptFile(path);
        return;
    }
    TextLoader loader;
    NSError error;
    if (!loader.init(WebView::initWithFrame, &error)) {
        reportError(withPathOfDocument(error, path));
        return;
    }
    loader.loadWebArchive(archive);
    const NSString text = loader.text();
    reportSuccess(path, text, loader.pageTitle(), NSString(u""), 0,
                  archive.mainResource().URL().description(), NSDictionary::dictionary());
}
