// SPDX-License-Identifier: Apache-2.0
#include "Platform/AppKit/DocumentAttributes.h"

#include "Platform/AppKit/NSColor.h"
#include "Platform/AppKit/NSDocumentAttributes.h"
#include "Platform/Foundation/NSArray.h"
#include "Platform/Foundation/NSDate.h"
#include "Platform/Foundation/NSGeometry.h"
#include "Platform/Foundation/NSNumber.h"

namespace {

class Attributes {
public:
    void text(const char16_t* key, const std::u16string& value) {
        if (!value.empty()) set(key, NSString(value));
    }
    void number(const char16_t* key, const std::optional<double>& value) {
        if (value) set(key, NSNumber::withDouble(*value));
    }
    void integer(const char16_t* key, const std::optional<int>& value) {
        if (value) set(key, NSNumber::withInteger(*value));
    }
    void date(const char16_t* key, const std::optional<DocumentTime>& value) {
        if (value) set(key, NSDate(*value));
    }
    void size(const char16_t* key, const std::optional<DocumentSize>& value) {
        if (value) set(key, NSValue(NSSize{value->width, value->height}));
    }
    void color(const char16_t* key, const std::optional<DocumentColor>& value) {
        constexpr double kFull = 255;
        if (value) set(key, NSColor(value->red / kFull, value->green / kFull, value->blue / kFull));
    }
    void words(const char16_t* key, const std::vector<std::u16string>& values) {
        if (values.empty()) return;
        std::vector<NSObject> strings;
        strings.reserve(values.size());
        for (const std::u16string& value : values) strings.push_back(NSString(value));
        set(key, NSArray(std::move(strings)));
    }
    void set(const char16_t* key, const NSObject& value) { attributes_.setObject(value, NSString(key)); }

    NSDictionary copy() && { return std::move(attributes_).copy(); }

private:
    NSMutableDictionary attributes_;
};

void addDescription(Attributes& a, const DocumentInfo& info) {
    a.text(NSTitleDocumentAttribute, info.title);
    a.text(NSAuthorDocumentAttribute, info.author);
    a.text(NSSubjectDocumentAttribute, info.subject);
    a.words(NSKeywordsDocumentAttribute, info.keywords);
    a.text(NSCommentDocumentAttribute, info.comment);
    a.text(NSCompanyDocumentAttribute, info.company);
    a.text(NSManagerDocumentAttribute, info.manager);
    a.text(NSCategoryDocumentAttribute, info.category);
    a.text(NSCopyrightDocumentAttribute, info.copyright);
    a.text(NSEditorDocumentAttribute, info.editor);
    a.date(NSCreationTimeDocumentAttribute, info.creationTime);
    a.date(NSModificationTimeDocumentAttribute, info.modificationTime);
}

void addLayout(Attributes& a, const DocumentInfo& info) {
    a.number(NSCocoaVersionDocumentAttribute, info.cocoaVersion);
    a.integer(NSConvertedDocumentAttribute, info.converted);
    a.size(NSPaperSizeDocumentAttribute, info.paperSize);
    a.number(NSLeftMarginDocumentAttribute, info.leftMargin);
    a.number(NSRightMarginDocumentAttribute, info.rightMargin);
    a.number(NSTopMarginDocumentAttribute, info.topMargin);
    a.number(NSBottomMarginDocumentAttribute, info.bottomMargin);
    a.number(NSDefaultTabIntervalDocumentAttribute, info.defaultTabInterval);
    a.number(NSHyphenationFactorDocumentAttribute, info.hyphenationFactor);
    a.size(NSViewSizeDocumentAttribute, info.viewSize);
    a.number(NSViewZoomDocumentAttribute, info.viewZoom);
    a.integer(NSViewModeDocumentAttribute, info.viewMode);
    a.integer(NSReadOnlyDocumentAttribute, info.readOnly);
    a.color(NSBackgroundColorDocumentAttribute, info.backgroundColor);
}

} // namespace

NSDictionary documentAttributes(const DocumentInfo& info, const NSString& documentType,
                                const NSString& fileType) {
    Attributes attributes;
    attributes.set(NSDocumentTypeDocumentAttribute, documentType);
    attributes.set(NSFileTypeDocumentAttribute, fileType);
    addDescription(attributes, info);
    addLayout(attributes, info);
    if (info.characterEncoding) {
        attributes.set(NSCharacterEncodingDocumentAttribute,
                       NSNumber::withUnsignedInteger(*info.characterEncoding));
    }
    if (documentType == NSString(NSRTFTextDocumentType) || documentType == NSString(NSRTFDTextDocumentType)) {
        attributes.set(NSTextScalingDocumentAttribute, NSNumber::withInteger(0));
        attributes.set(NSUsesScreenFontsDocumentAttribute, NSNumber::withInteger(0));
    }
    return std::move(attributes).copy();
}
