// SPDX-License-Identifier: Apache-2.0
//
// The control words that bear on a document's text and information. All others are formatting, which is
// passed over, or unknown.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>

enum class RTFAction : uint8_t {
    none, // known, and without effect on the text: what stands behind `\*` and such a word is read

    character,       // writes the unit `value`
    paragraphEnd,    // ends a paragraph
    paragraphFormat, // a property of paragraphs: `value` is an RTFParagraphFormat
    paragraphPlain,  // paragraph formatting begins anew
    rowEnd,          // ends a paragraph that the last cell has left open
    unicode,         // writes the unit of its parameter
    unicodeFallback, // tells how many characters follow each \u for readers that do not know it
    hidden,          // text that is not shown, or is deleted: `value` is an RTFHidden
    plain,           // character formatting begins anew

    font,
    defaultFont,
    documentCodePage, // of `value`, or of the parameter when `value` is 0
    fontCharset,
    fontCodePage,

    number,    // of the document: `value` is an RTFNumber
    timeField, // `value` is an RTFTimeField

    // Destinations: what kind of text the group holds.
    skipped,     // text that is not the document's, with all that lies in it
    container,   // as `skipped`, but destinations inside it count
    info,        // the information group
    infoString,  // `value` is an RTFInfoString
    time,        // `value` is an RTFTime
    fontTable,   //
    listMarker,  // the stored number or bullet of a list item
    note,        // a footnote or an endnote
    textBox,     //
    result,      // what an embedded object looks like
    variants,    // two forms of the same text, the second in Unicode
    unicodeText, // that second form
    attachment,  // the name of a file beside the text
    background,  // the shape that fills the pages
    shapeProperty,
    shapePropertyPart, // `value` is an RTFShapePropertyPart
};

enum RTFHidden : uint16_t { kRTFHiddenText = 1, kRTFDeletedText = 2, kRTFMovedText = 4 };

enum RTFParagraphFormat : uint16_t { kRTFPageBreakBefore = 1, kRTFInTable = 2 };

enum RTFShapePropertyPart : uint16_t { kRTFPropertyName, kRTFPropertyValue };

enum RTFNumber : uint16_t {
    kRTFPaperWidth,
    kRTFPaperHeight,
    kRTFLeftMargin,
    kRTFRightMargin,
    kRTFTopMargin,
    kRTFBottomMargin,
    kRTFDefaultTab,
    kRTFHyphenation,
    kRTFHyphenationFactor,
    kRTFCocoaVersion,
    kRTFViewWidth,
    kRTFViewHeight,
    kRTFViewScale,
    kRTFViewKind,
    kRTFReadOnly,
    kRTFNumberCount
};

enum RTFTimeField : uint16_t {
    kRTFYear,
    kRTFMonth,
    kRTFDay,
    kRTFHour,
    kRTFMinute,
    kRTFSecond,
    kRTFTimeFieldCount
};

enum RTFTime : uint16_t { kRTFCreationTime, kRTFModificationTime };

enum RTFInfoString : uint16_t {
    kRTFTitle,
    kRTFAuthor,
    kRTFSubject,
    kRTFComment,         // by the document's maker to whoever reads the file's source
    kRTFDocumentComment, // of the document's summary
    kRTFKeywords,
    kRTFCompany,
    kRTFManager,
    kRTFCategory,
    kRTFCopyright,
    kRTFOperator,
};

struct RTFControlWord {
    static constexpr size_t kNameLimit = 20;

    char name[kNameLimit]; // in the table itself, which so needs no relocation when the program starts
    RTFAction action;
    uint16_t value = 0;
};

// The word of this name, without its backslash, or null. Names are case-sensitive.
const RTFControlWord* findRTFControlWord(std::string_view name);
