// SPDX-License-Identifier: Apache-2.0
#include "Platform/WebKit/PDFText.h"

#include "Platform/Foundation/NSException.h"
#include "Platform/Foundation/NSLog.h"
#include "Platform/PDFKit/PDFDocument.h"

namespace {

std::string textOfPage(const PDFPage& page) {
    try {
        return page.string().utf8();
    } catch (const NSException&) {
        return {}; // the other pages can still be read
    }
}

} // namespace

bool isPDF(const NSString& MIMEType) {
    return MIMEType.isEqualToString(u"application/pdf") || MIMEType.isEqualToString(u"text/pdf");
}

NSData textOfPDF(const NSData& data) {
    NSError error;
    const PDFDocument document = PDFDocument::initWithData(data, &error);
    if (error) NSLog(error.localizedDescription());
    std::string text;
    for (size_t i = 0; !document.isLocked() && i < document.pageCount(); ++i) {
        if (i > 0) text += '\n';
        text += textOfPage(document.pageAtIndex(i));
    }
    return NSData(std::move(text));
}
