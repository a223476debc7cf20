// SPDX-License-Identifier: Apache-2.0
#include "Tests/Platform/AppKit/Word/WordTesting.h"

namespace {

TEST(WordStories, NotesFollowTheMainStory) {
    WordDocumentWriter document;
    document.text(u"one").note(WordDocumentWriter::footnotes, u" first note\r").mark(u'\r');
    document.text(u"two").note(WordDocumentWriter::endnotes, u" an endnote\r").mark(u'\r');
    document.text(u"three")
        .note(WordDocumentWriter::footnotes, u" second note\rwith two paragraphs\r")
        .mark(u'\r');
    EXPECT_EQ(textOf(document),
              u"one\ntwo\nthree\n first note\n second note\nwith two paragraphs\n an endnote\n");
}

TEST(WordStories, AnAuthorsOwnReferenceMarksAreDropped) {
    WordDocumentWriter document;
    document.text(u"word")
        .note(WordDocumentWriter::footnotes, u" the note\r", u"**")
        .text(u" behind")
        .mark(u'\r');
    EXPECT_EQ(textOf(document), u"word behind\n the note\n");
}

TEST(WordStories, NotesOfDeletedOrHiddenReferencesAreDropped) {
    for (const std::string& modifiers : {deleted(), hidden()}) {
        WordDocumentWriter document;
        document.text(u"one").note(WordDocumentWriter::footnotes, u" gone\r", {}, modifiers).mark(u'\r');
        document.text(u"two").note(WordDocumentWriter::footnotes, u" kept\r").mark(u'\r');
        EXPECT_EQ(textOf(document), u"one\ntwo\n kept\n");
    }
}

TEST(WordStories, HeadersAndCommentsAreLeftOut) {
    WordDocumentWriter document;
    document.text(u"one").note(WordDocumentWriter::footnotes, u"note\r").paragraph(u" two\x05");
    document.storyText(WordDocumentWriter::headers, u"header\r")
        .storyText(WordDocumentWriter::comments, u"\x05 no\r");
    document.note(WordDocumentWriter::endnotes, u"end\r")
        .storyText(WordDocumentWriter::headerTextBoxes, u"box\r");
    EXPECT_EQ(textOf(document), u"one two\nnote\nend\n");
}

TEST(WordStories, TextBoxesFollowTheParagraphOfTheirAnchor) {
    WordDocumentWriter document;
    document.text(u"one").anchor(11).text(u" and").mark(u'\r').paragraph(u"two");
    document.anchor(22).paragraph(u"three");
    document.textBox(22, u"box of three\r").textBox(11, u"box of one\rgoes on\r");
    EXPECT_EQ(textOf(document), u"one and\nbox of one\ngoes on\ntwo\nthree\nbox of three\n");
}

TEST(WordStories, BoxesInAGroupFollowTheGroupsAnchor) {
    WordDocumentWriter document;
    document.anchor(10).paragraph(u"one").paragraph(u"two").group({10, 11, 12});
    document.textBox(11, u"first\r").textBox(12, u"second\r");
    EXPECT_EQ(textOf(document), u"one\nfirst\nsecond\ntwo\n");
}

TEST(WordStories, BoxesWithoutAnAnchorEndTheMainStory) {
    WordDocumentWriter document;
    document.text(u"one").note(WordDocumentWriter::footnotes, u"note\r").mark(u'\r').paragraph(u"two");
    document.textBox(99, u"box\r");
    EXPECT_EQ(textOf(document), u"one\ntwo\nbox\nnote\n");
}

TEST(WordStories, BlankBoxesLeaveNothing) {
    WordDocumentWriter document;
    document.anchor(1).paragraph(u"one").textBox(1, u"\r");
    EXPECT_EQ(textOf(document), u"one\n");
}

TEST(WordStories, BoxesOfHiddenOrDeletedAnchorsAreLeftOut) {
    for (const std::string& modifiers : {deleted(), hidden()}) {
        WordDocumentWriter document;
        document.text(u"one").anchor(1, modifiers).mark(u'\r').textBox(1, u"gone\r");
        EXPECT_EQ(textOf(document), u"one\n");
    }
}

// Drawings in line with the text lie in the instruction of a field.
TEST(WordStories, BoxesAnchoredInAFieldsInstructionAreKept) {
    WordDocumentWriter document;
    document.text(u"\x13 SHAPE ").anchor(1).text(u"\x14\x01\x15").paragraph(u"one").textBox(1, u"box\r");
    EXPECT_EQ(textOf(document), u"one\nbox\n");
}

TEST(WordStories, AFieldLeftOpenInABoxDoesNotReachTheMainStory) {
    WordDocumentWriter document;
    document.anchor(1).paragraph(u"one").paragraph(u"two").textBox(1, u"box \x13PAGE\r");
    EXPECT_EQ(textOf(document), u"one\nbox \ntwo\n");
}

} // namespace
