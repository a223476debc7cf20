// SPDX-License-Identifier: Apache-2.0
//
// Makes small binary Word documents for tests, in the layout of Word 97 or of Word 6.
#pragma once

#include "Tests/Support/CompoundFileWriter.h"
#include "Tests/Support/WordTables.h"

#include <array>
#include <cstdint>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

class WordDocumentWriter {
public:
    enum Story {
        main,
        footnotes,
        headers,
        macros,
        comments,
        endnotes,
        textBoxes,
        headerTextBoxes,
        storyCount
    };

    explicit WordDocumentWriter(WordLayout layout = WordLayout::word97);

    // Adds to the main story. Modifiers are lists made with modifier() and oldModifier().
    WordDocumentWriter& text(std::u16string_view text, std::string_view characters = {});
    // Text and the mark that ends its paragraph.
    WordDocumentWriter& paragraph(std::u16string_view text, std::string_view paragraph = {},
                                  unsigned style = 0);
    WordDocumentWriter& mark(char16_t mark, std::string_view paragraph = {}, unsigned style = 0,
                             std::string_view characters = {});
    // A field with its three marks.
    WordDocumentWriter& field(std::u16string_view instruction, std::u16string_view result);

    // A reference in the main story, and the note. With a mark of the author's own, that stands in both.
    WordDocumentWriter& note(Story story, std::u16string_view text, std::u16string_view ownMark = {},
                             std::string_view characters = {});
    // The place of a drawing in the main story, and a text box of the shape.
    WordDocumentWriter& anchor(uint32_t shape, std::string_view characters = {}, unsigned boxes = 1);
    WordDocumentWriter& textBox(uint32_t shape, std::u16string_view text);
    // Shapes of which the first is the group of the others.
    WordDocumentWriter& group(const std::vector<uint32_t>& shapes);
    WordDocumentWriter& storyText(Story story, std::u16string_view text);

    WordDocumentWriter& style(const WordStyle& style);
    WordDocumentWriter& font(std::u16string_view name, unsigned characterSet = 0);
    WordDocumentWriter& list(const WordList& list);
    WordDocumentWriter& listOverride(const WordListOverride& change);
    WordDocumentWriter& endSection(std::string_view section = {}); // without it there is no section
    WordDocumentWriter& data(std::string_view bytes);

    // One byte a character, which must be below U+0100.
    WordDocumentWriter& narrow();
    // Cuts the text into pieces of this length, which lie in reverse order, every other one narrow.
    WordDocumentWriter& pieces(uint32_t length);
    // Modifiers of the piece with this index; the numbers of lists are those of the calls.
    WordDocumentWriter& pieceModifier(size_t piece, unsigned modifier);
    WordDocumentWriter& modifierList(std::string_view list);
    WordDocumentWriter& withoutPieceTable();

    WordDocumentWriter& flags(unsigned flags);       // in addition to those that the document needs
    WordDocumentWriter& language(unsigned language); // and of the Macintosh when 0x10000 is set
    WordDocumentWriter& stream(std::string name, std::string bytes);

    std::string mainStream();
    std::string tableStream() const { return table_; } // after mainStream()
    std::string finish();

private:
    struct Piece {
        uint32_t begin, end, offset;
        bool isNarrow;
    };
    struct Note {
        uint32_t reference, begin;
        bool isAutomatic;
    };
    struct Content {
        std::u16string text;
        std::vector<WordRun> characters, paragraphs; // to the end of each; positions within the story
    };

    bool isOld() const { return layout_ == WordLayout::word6; }
    void add(Story story, std::u16string_view text, std::string_view characters);
    uint32_t storyBegin(Story story) const;
    void layText();
    std::vector<WordRun> allRuns(const std::vector<WordRun> Content::*runs) const;
    void addPages(const std::vector<WordRun>& runs, bool isOfParagraphs);
    void addTables();
    void addNotes(Story story, const std::vector<Note>& notes, unsigned references, unsigned texts);
    void addTextBoxes();
    void addPieceTable();
    void addSections();
    void place(unsigned table, std::string_view bytes);
    void place(unsigned table, std::string_view bytes, size_t length);

    WordLayout layout_;
    std::array<Content, storyCount> stories_;
    std::vector<Note> footnotes_, endnotes_;
    std::vector<std::pair<uint32_t, uint32_t>> anchors_;     // position, shape or number of boxes
    std::vector<std::pair<uint32_t, uint32_t>> textBoxes_;   // begin, shape
    std::vector<std::pair<uint32_t, std::string>> sections_; // end, modifiers
    std::string drawings_, data_;
    WordStyles styles_;
    WordFonts fonts_;
    WordLists lists_;
    std::vector<std::string> modifierLists_;
    std::vector<std::pair<size_t, unsigned>> pieceModifiers_;
    uint32_t pieceLength_ = 0;
    bool isNarrow_ = false, hasPieceTable_ = true;
    unsigned flags_ = 0, language_ = 0x409;
    std::vector<Piece> pieces_; // by position
    std::string main_, table_;
    std::vector<std::pair<std::string, std::string>> streams_;
};
