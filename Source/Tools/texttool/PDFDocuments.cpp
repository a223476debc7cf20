// SPDX-License-Identifier: Apache-2.0
#include "Source/Tools/texttool/PDFDocuments.h"

#include "Platform/AppKit/NSDocumentAttributes.h"
#include "Platform/Foundation/NSArray.h"
#include "Platform/Foundation/NSException.h"
#include "Platform/Foundation/NSPathUtilities.h"
#include "Platform/Foundation/NSUserDefaults.h"
#include "Source/Tools/texttool/Extractors.h"
#include "Source/Tools/texttool/Report.h"
#include "Source/Tools/texttool/Settings.h"
#include "ZORFoundation/Source/NSError+ZOR.h"
#include "ZORFoundation/Source/NSString+ZORFilesBasics.h"
#include "ZORFoundation/Source/NSURL+ZORXattr.h"
#include "ZORFoundation/Source/NSUserDefaults+ZOR.h"

#include <algorithm>

namespace {

// Does a piece of the work that may fail by itself.
template <class Work>
void guarded(const Work& work) {
    try {
        work();
    } catch (const NSException&) {
        // What was appended before stays.
    }
}

bool isSkippedName(const NSString& name) {
    NSArray names = as<NSArray>(hostObject(u"TextToolSkippedNames", NSArray(std::vector<NSObject>())));
    return std::any_of(names.begin(), names.end(),
                       [&](const NSObject& skipped) { return as<NSString>(skipped).isEqualToString(name); });
}

bool skipsPages(const NSString& path) {
    return NSUserDefaults::standardUserDefaults().boolForKey(NSString(u"SkipBody")) ||
           isSkippedName(lastPathComponent(path));
}

void reportDocument(const NSString& path, const NSString& text, const PDFDocument& document,
                    const NSDictionary& attributes, const NSDictionary& otherAttributes) {
    reportSuccess(path, text, attributes.objectForKey(NSString(PDFDocumentTitleAttribute)),
                  attributes.objectForKey(NSString(PDFDocumentAuthorAttribute)),
                  int32_t(uint32_t(document.pageCount())), nullptr, otherAttributes);
}

void reportContents(const NSString& path, const PDFDocument& document) {
    std::u16string body, comments;
    if (!skipsPages(path)) appendPages(document, body, comments);
    comments += skimNotesForPDFPath(path).text();
    NSMutableDictionary attributes(document.documentAttributes());
    attributes.setObject(NSString(std::move(comments)), NSString(NSCommentDocumentAttribute));
    NSDictionary all = std::move(attributes).copy();
    reportDocument(path, NSString(std::move(body)), document, all, all);
}

} // namespace

void handlePDF() {
    NSString path = markRequestedDocument(u"PDFPath");
    if (!zorFileExists(path)) {
        reportMissingFile(path);
        return;
    }
    NSError error;
    PDFDocument document = PDFDocument::initWithData(dataFromPath(path), &error);
    if (error) {
        reportError(zorErrorBySettingFilePath(error, path)); // the reader cannot be loaded
    } else if (!document) {
        reportCorruptFile(path);
    } else if (document.isLocked()) {
        reportDocument(path, u"Encrypted", document, document.documentAttributes(),
                       NSDictionary::dictionary());
    } else {
        reportContents(path, document);
    }
}

void appendPages(const PDFDocument& document, std::u16string& body, std::u16string& comments) {
    for (uint32_t i = 0; i < document.pageCount(); ++i) {
        PDFPage page = document.pageAtIndex(i);
        guarded([&] { body += page.string().text(); });
        for (const auto& annotation : page.annotations())
            guarded([&] { appendAnnotationText(*annotation, comments); });
    }
}

void appendAnnotationText(const PDFAnnotation& annotation, std::u16string& text) {
    auto append = [&](const NSString& piece) {
        if (piece) text += piece.text() + u'\n';
    };
    if (annotation.respondsToUserName()) append(annotation.userName());
    append(annotation.contents());
    if (auto link = dynamic_cast<const PDFAnnotationLink*>(&annotation)) append(link->URL().description());
}

NSString skimNotesForPDFPath(const NSString& path) {
    return as<NSString>(zorXattrPropertyListForKey(
        NSURL::fileURLWithPath(path), NSString(u"net_sourceforge_skim-app_text_notes"), nullptr));
}
