// SPDX-License-Identifier: Apache-2.0
//
// The names of document types, reader options and document attributes, as the host reads them.
#pragma once

inline constexpr const char16_t* NSPlainTextDocumentType = u"NSPlainText";
inline constexpr const char16_t* NSRTFTextDocumentType = u"NSRTF";
inline constexpr const char16_t* NSRTFDTextDocumentType = u"NSRTFD";
inline constexpr const char16_t* NSHTMLTextDocumentType = u"NSHTML";
inline constexpr const char16_t* NSDocFormatTextDocumentType = u"NSDocFormat";
inline constexpr const char16_t* NSOfficeOpenXMLTextDocumentType = u"NSOfficeOpenXML";
inline constexpr const char16_t* NSOpenDocumentTextDocumentType = u"NSOpenDocument";

inline constexpr const char16_t* NSDocumentTypeDocumentOption = u"DocumentType";
inline constexpr const char16_t* NSTimeoutDocumentOption = u"Timeout"; // number, seconds; 0 is none
// WebPreferences. No reader asks for them, as none loads or runs anything that a page names: the option is
// here for what the host hands on.
inline constexpr const char16_t* NSWebPreferencesDocumentOption = u"WebPreferences";

inline constexpr const char16_t* NSDocumentTypeDocumentAttribute = u"DocumentType"; // string
inline constexpr const char16_t* NSFileTypeDocumentAttribute = u"UTI";              // string
inline constexpr const char16_t* NSTitleDocumentAttribute = u"Title";
inline constexpr const char16_t* NSAuthorDocumentAttribute = u"Author";
inline constexpr const char16_t* NSSubjectDocumentAttribute = u"Subject";
inline constexpr const char16_t* NSCommentDocumentAttribute = u"Comment";
inline constexpr const char16_t* NSKeywordsDocumentAttribute = u"Keywords"; // array of strings
inline constexpr const char16_t* NSCompanyDocumentAttribute = u"Company";
inline constexpr const char16_t* NSCopyrightDocumentAttribute = u"Copyright";
inline constexpr const char16_t* NSEditorDocumentAttribute = u"Editor";
inline constexpr const char16_t* NSManagerDocumentAttribute = u"Manager";
inline constexpr const char16_t* NSCategoryDocumentAttribute = u"Category";
inline constexpr const char16_t* NSCreationTimeDocumentAttribute = u"CreationTime";         // date
inline constexpr const char16_t* NSModificationTimeDocumentAttribute = u"ModificationTime"; // date
inline constexpr const char16_t* NSPaperSizeDocumentAttribute = u"PaperSize";               // size, points
inline constexpr const char16_t* NSLeftMarginDocumentAttribute = u"LeftMargin";             // points
inline constexpr const char16_t* NSRightMarginDocumentAttribute = u"RightMargin";
inline constexpr const char16_t* NSTopMarginDocumentAttribute = u"TopMargin";
inline constexpr const char16_t* NSBottomMarginDocumentAttribute = u"BottomMargin";
inline constexpr const char16_t* NSViewSizeDocumentAttribute = u"ViewSize"; // size, points
inline constexpr const char16_t* NSViewZoomDocumentAttribute = u"ViewZoom"; // percent
inline constexpr const char16_t* NSViewModeDocumentAttribute = u"ViewMode"; // 0 normal, 1 page layout
inline constexpr const char16_t* NSBackgroundColorDocumentAttribute = u"BackgroundColor"; // color
inline constexpr const char16_t* NSReadOnlyDocumentAttribute = u"ReadOnly";
inline constexpr const char16_t* NSHyphenationFactorDocumentAttribute = u"HyphenationFactor";
inline constexpr const char16_t* NSDefaultTabIntervalDocumentAttribute = u"DefaultTabInterval"; // points
inline constexpr const char16_t* NSConvertedDocumentAttribute = u"Converted"; // negative: perhaps lossy
inline constexpr const char16_t* NSCocoaVersionDocumentAttribute = u"CocoaRTFVersion";
inline constexpr const char16_t* NSCharacterEncodingDocumentAttribute = u"CharacterEncoding";
inline constexpr const char16_t* NSTextScalingDocumentAttribute = u"TextScaling";
inline constexpr const char16_t* NSUsesScreenFontsDocumentAttribute = u"UsesScreenFonts";
