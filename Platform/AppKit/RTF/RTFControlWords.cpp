// SPDX-License-Identifier: Apache-2.0
#include "Platform/AppKit/RTF/RTFControlWords.h"

#include "Platform/AppKit/StoryBuilder.h"

#include <array>
#include <iterator>

namespace {

using enum RTFAction;

constexpr RTFControlWord kWords[] = {
    // Characters and breaks.
    {"tab", character, kTab},
    {"line", character, kLineBreak},
    {"page", character, kPageBreak},
    {"column", character, kPageBreak},
    {"sect", character, kPageBreak},
    {"bullet", character, u'\u2022'},
    {"emdash", character, u'\u2014'},
    {"endash", character, u'\u2013'},
    {"lquote", character, u'\u2018'},
    {"rquote", character, u'\u2019'},
    {"ldblquote", character, u'\u201C'},
    {"rdblquote", character, u'\u201D'},
    {"emspace", character, u'\u2003'},
    {"enspace", character, u'\u2002'},
    {"qmspace", character, u'\u2005'},
    {"zwbo", character, u'\u200B'},
    {"zwnbo", character, u'\u2060'},
    {"zwj", character, u'\u200D'},
    {"zwnj", character, u'\u200C'},
    {"ltrmark", character, u'\u200E'},
    {"rtlmark", character, u'\u200F'},
    {"par", paragraphEnd},
    {"cell", paragraphEnd},
    {"nestcell", paragraphEnd},
    {"row", rowEnd},
    {"pagebb", paragraphFormat, kRTFPageBreakBefore},
    {"intbl", paragraphFormat, kRTFInTable},
    {"pard", paragraphPlain},
    {"u", unicode},
    {"uc", unicodeFallback},

    // Character formatting that decides what is read, and how.
    {"v", hidden, kRTFHiddenText},
    {"deleted", hidden, kRTFDeletedText},
    {"mvf", hidden, kRTFMovedText},
    {"plain", plain},
    {"f", font},
    {"cs", none},
    {"ds", none},
    {"ts", none},

    // Encodings.
    {"deff", defaultFont},
    {"ansi", documentCodePage, 1252},
    {"mac", documentCodePage, 10000},
    {"pc", documentCodePage, 437},
    {"pca", documentCodePage, 850},
    {"ansicpg", documentCodePage},
    {"fonttbl", fontTable},
    {"fcharset", fontCharset},
    {"cpg", fontCodePage},

    // The document's numbers.
    {"paperw", number, kRTFPaperWidth},
    {"paperh", number, kRTFPaperHeight},
    {"margl", number, kRTFLeftMargin},
    {"margr", number, kRTFRightMargin},
    {"margt", number, kRTFTopMargin},
    {"margb", number, kRTFBottomMargin},
    {"deftab", number, kRTFDefaultTab},
    {"hyphauto", number, kRTFHyphenation},
    {"hyphfactor", number, kRTFHyphenationFactor},
    {"cocoartf", number, kRTFCocoaVersion},
    {"vieww", number, kRTFViewWidth},
    {"viewh", number, kRTFViewHeight},
    {"viewscale", number, kRTFViewScale},
    {"viewkind", number, kRTFViewKind},
    {"readonlydoc", number, kRTFReadOnly},

    // Its information.
    {"info", info},
    {"title", infoString, kRTFTitle},
    {"author", infoString, kRTFAuthor},
    {"subject", infoString, kRTFSubject},
    {"comment", infoString, kRTFComment},
    {"doccomm", infoString, kRTFDocumentComment},
    {"keywords", infoString, kRTFKeywords},
    {"company", infoString, kRTFCompany},
    {"manager", infoString, kRTFManager},
    {"category", infoString, kRTFCategory},
    {"copyright", infoString, kRTFCopyright},
    {"operator", infoString, kRTFOperator},
    {"creatim", time, kRTFCreationTime},
    {"revtim", time, kRTFModificationTime},
    {"yr", timeField, kRTFYear},
    {"mo", timeField, kRTFMonth},
    {"dy", timeField, kRTFDay},
    {"hr", timeField, kRTFHour},
    {"min", timeField, kRTFMinute},
    {"sec", timeField, kRTFSecond},

    // The background of its pages.
    {"background", background},
    {"sp", shapeProperty},
    {"sn", shapePropertyPart, kRTFPropertyName},
    {"sv", shapePropertyPart, kRTFPropertyValue},

    // Parts of the text.
    {"listtext", listMarker},
    {"pntext", listMarker},
    {"footnote", note},
    {"shptxt", textBox},
    {"dptxbxtext", textBox},
    {"upr", variants},
    {"ud", unicodeText},
    {"NeXTGraphic", attachment},
    {"result", result},
    {"object", container},
    {"shp", container},
    {"shpgrp", container},
    {"shpinst", container},
    {"do", container},
    {"fldrslt", none},
    {"moMath", none},
    {"moMathPara", none},

    // Text beside the document's own: tables of the document, pictures, running heads, comments, field
    // instructions, index entries, and what stands there once more for other readers.
    {"colortbl", skipped},
    {"stylesheet", skipped},
    {"listtable", skipped},
    {"listoverridetable", skipped},
    {"revtbl", skipped},
    {"filetbl", skipped},
    {"rsidtbl", skipped},
    {"xmlnstbl", skipped},
    {"pgdsctbl", skipped},
    {"themedata", skipped},
    {"generator", skipped},
    {"pict", skipped},
    {"objdata", skipped},
    {"objclass", skipped},
    {"objname", skipped},
    {"header", skipped},
    {"headerl", skipped},
    {"headerr", skipped},
    {"headerf", skipped},
    {"footer", skipped},
    {"footerl", skipped},
    {"footerr", skipped},
    {"footerf", skipped},
    {"ftnsep", skipped},
    {"ftnsepc", skipped},
    {"ftncn", skipped},
    {"aftnsep", skipped},
    {"aftnsepc", skipped},
    {"aftncn", skipped},
    {"annotation", skipped},
    {"atnid", skipped},
    {"atnauthor", skipped},
    {"atndate", skipped},
    {"atntime", skipped},
    {"atnicn", skipped},
    {"atnref", skipped},
    {"atnparent", skipped},
    {"atrfstart", skipped},
    {"atrfend", skipped},
    {"bkmkstart", skipped},
    {"bkmkend", skipped},
    {"fldinst", skipped},
    {"datafield", skipped},
    {"xe", skipped},
    {"tc", skipped},
    {"tcn", skipped},
    {"rxe", skipped},
    {"txe", skipped},
    {"pn", skipped},
    {"pnseclvl", skipped},
    {"nonshppict", skipped},
    {"shprslt", skipped},
    {"nonesttables", skipped},
    {"nesttableprops", skipped},
    {"mmathPict", skipped},

    // Properties of parts of equations, whose values are told as text.
    {"maccPr", skipped},
    {"mbarPr", skipped},
    {"mborderBoxPr", skipped},
    {"mboxPr", skipped},
    {"mctrlPr", skipped},
    {"mdPr", skipped},
    {"meqArrPr", skipped},
    {"mfPr", skipped},
    {"mfuncPr", skipped},
    {"mgroupChrPr", skipped},
    {"mlimLowPr", skipped},
    {"mlimUppPr", skipped},
    {"mmPr", skipped},
    {"mnaryPr", skipped},
    {"mphantPr", skipped},
    {"mradPr", skipped},
    {"msPrePr", skipped},
    {"msSubPr", skipped},
    {"msSubSupPr", skipped},
    {"msSupPr", skipped},
};

constexpr size_t kSlotCount = 512;
static_assert(std::size(kWords) * 2 < kSlotCount && std::size(kWords) < 255);

constexpr uint8_t kFree = 255;

constexpr size_t slotOf(std::string_view name) {
    uint32_t hash = 2166136261u;
    for (char c : name) hash = (hash ^ static_cast<unsigned char>(c)) * 16777619u;
    return (hash >> 12 ^ hash) % kSlotCount;
}

// Slots hold places in `kWords`; a word whose slot is taken lies in the next free one.
constexpr std::array<uint8_t, kSlotCount> makeSlots() {
    std::array<uint8_t, kSlotCount> slots{};
    slots.fill(kFree);
    for (size_t i = 0; i < std::size(kWords); ++i) {
        size_t slot = slotOf(kWords[i].name);
        while (slots[slot] != kFree) slot = (slot + 1) % kSlotCount;
        slots[slot] = uint8_t(i);
    }
    return slots;
}

constexpr std::array<uint8_t, kSlotCount> kSlots = makeSlots();

} // namespace

const RTFControlWord* findRTFControlWord(std::string_view name) {
    if (name.size() >= RTFControlWord::kNameLimit) return nullptr;
    for (size_t slot = slotOf(name); kSlots[slot] != kFree; slot = (slot + 1) % kSlotCount) {
        const RTFControlWord& word = kWords[kSlots[slot]];
        if (name == word.name) return &word;
    }
    return nullptr;
}
