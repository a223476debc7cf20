// SPDX-License-Identifier: Apache-2.0
#include "Tests/Platform/AppKit/OpenDocument/OpenDocumentTesting.h"

namespace {

using namespace OpenDocumentTesting;

constexpr std::string_view kStyles =
    "<office:styles>"
    "<style:style style:name='Secret' style:family='paragraph'><style:text-properties "
    "text:display='none'/></style:style>"
    "<style:style style:name='Told' style:family='paragraph' style:parent-style-name='Secret'>"
    "<style:text-properties text:display='true'/></style:style>"
    "<style:style style:name='Whisper' style:family='text'><style:text-properties "
    "text:display='none'/></style:style>"
    "<style:style style:name='Maybe' style:family='text'>"
    "<style:text-properties text:display='condition' text:condition='none'/></style:style>"
    "<style:style style:name='Loud' style:family='text'><style:text-properties "
    "text:display='true'/></style:style>"
    "<style:style style:name='Ring' style:family='text' style:parent-style-name='Round'/>"
    "<style:style style:name='Round' style:family='text' style:parent-style-name='Ring'/>"
    "</office:styles><office:automatic-styles>"
    "<style:style style:name='P1' style:family='paragraph' style:parent-style-name='Secret'/>"
    "<style:style style:name='T1' style:family='text' style:parent-style-name='Whisper'/>"
    "</office:automatic-styles>";

TEST(OpenDocumentHiddenText, staysOutByStyle) {
    expectTexts(
        {
            {"paragraph", "<text:p>a</text:p><text:p text:style-name='Secret'>x</text:p><text:p>b</text:p>",
             u"a\nb\n"},
            {"inherited", "<text:p>a</text:p><text:p text:style-name='P1'>x</text:p>", u"a\n"},
            {"shown again by a child", "<text:p text:style-name='Told'>a</text:p>", u"a\n"},
            {"span", "<text:p>a<text:span text:style-name='Whisper'>x</text:span>b</text:p>", u"ab\n"},
            {"inherited by a span",
             "<text:p>a<text:span text:style-name='T1'>x<text:tab/><text:s/></text:span>b</text:p>", u"ab\n"},
            {"condition", "<text:p>a<text:span text:style-name='Maybe'>x</text:span>b</text:p>", u"ab\n"},
            {"shown in the hidden",
             "<text:p text:style-name='Secret'>x<text:span text:style-name='Loud'>a</text:span>x</text:p>",
             u"a\n"},
            {"plain span in the hidden",
             "<text:p>a<text:span text:style-name='Whisper'><text:span>x</text:span></text:span>b</text:p>",
             u"ab\n"},
            {"notes and boxes in the hidden",
             "<text:p>a<text:span "
             "text:style-name='Whisper'><text:note><text:note-body><text:p>x</text:p></text:note-body>"
             "</text:note><draw:text-box><text:p>x</text:p></draw:text-box></text:span>b</text:p>",
             u"ab\n"},
            {"a ring of parents", "<text:p><text:span text:style-name='Ring'>a</text:span></text:p>", u"a\n"},
            {"no such style", "<text:p text:style-name='Nowhere'>a</text:p>", u"a\n"},
        },
        kStyles);
}

TEST(OpenDocumentHiddenText, staysOutBySectionAndField) {
    expectTexts({
        {"section", "<text:section text:display='none'><text:p>x</text:p></text:section><text:p>a</text:p>",
         u"a\n"},
        {"section under a condition that holds",
         "<text:section text:display='condition' "
         "text:is-hidden='true'><text:p>x</text:p></text:section><text:p>a</text:p>",
         u"a\n"},
        {"section under a condition that does not hold",
         "<text:section text:display='condition'><text:p>a</text:p></text:section>", u"a\n"},
        {"field", "<text:p>a<text:hidden-text text:is-hidden='true'>x</text:hidden-text>b</text:p>", u"ab\n"},
        {"shown field", "<text:p>a<text:hidden-text text:is-hidden='false'>b</text:hidden-text></text:p>",
         u"ab\n"},
        {"field without display",
         "<text:p>a<text:variable-set text:display='none'>x</text:variable-set>b</text:p>", u"ab\n"},
        {"paragraph field",
         "<text:p>a</text:p><text:p>x<text:hidden-paragraph "
         "text:is-hidden='true'/>x</text:p><text:p>b</text:p>",
         u"a\nb\n"},
        {"shown paragraph field", "<text:p>a<text:hidden-paragraph text:is-hidden='false'/>b</text:p>",
         u"ab\n"},
    });
}

} // namespace
