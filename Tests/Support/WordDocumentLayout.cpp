// SPDX-License-Identifier: Apache-2.0
//
// How the sample documents are laid out in their streams.
#include "Tests/Support/LittleEndianWriter.h"
#include "Tests/Support/WordDocumentWriter.h"

#include <algorithm>

namespace {

constexpr size_t kTextOffset = 0x800, kPageSize = 512;
constexpr uint32_t kNarrowFlag = 0x40000000;

// Where the header holds the offset and the length of a table, in both layouts.
struct TablePlace {
    unsigned inWord6, inWord97;
};
enum Table {
    styleSheet,
    footnoteReferences,
    footnoteTexts,
    sections,
    characterPages,
    paragraphPages,
    fonts,
    piecesTable,
    shapeAnchors,
    endnoteReferences,
    endnoteTexts,
    drawings,
    textBoxTexts,
    lists,
    listOverrides
};
constexpr TablePlace kPlaces[] = {{0x60, 0xA2},   {0x68, 0xAA},   {0x70, 0xB2},   {0x88, 0xCA},
                                  {0xB8, 0xFA},   {0xC0, 0x102},  {0xD0, 0x112},  {0x160, 0x1A2},
                                  {0x192, 0x1DA}, {0x1D2, 0x20A}, {0x1DA, 0x212}, {0, 0x22A},
                                  {0x222, 0x25A}, {0, 0x2E2},     {0, 0x2EA}};

} // namespace

uint32_t WordDocumentWriter::storyBegin(Story story) const {
    size_t begin = 0;
    for (int i = 0; i < story; ++i) begin += stories_[size_t(i)].text.size();
    return uint32_t(begin);
}

void WordDocumentWriter::layText() {
    std::u16string text;
    for (const Content& story : stories_) text += story.text;
    auto length = uint32_t(text.size());
    uint32_t pieceLength = pieceLength_ > 0 ? pieceLength_ : std::max(length, 1u);
    for (uint32_t begin = 0; begin < length; begin += pieceLength) {
        bool isNarrow = isNarrow_ || pieces_.size() % 2 == 1;
        pieces_.push_back({begin, std::min(begin + pieceLength, length), 0, isNarrow});
    }
    main_.resize(kTextOffset);
    for (auto piece = pieces_.rbegin(); piece != pieces_.rend(); ++piece) {
        piece->offset = uint32_t(main_.size());
        for (uint32_t i = piece->begin; i < piece->end; ++i) {
            if (piece->isNarrow) {
                append8(main_, text[i]);
            } else {
                append16(main_, text[i]);
            }
        }
    }
}

std::vector<WordRun> WordDocumentWriter::allRuns(const std::vector<WordRun> Content::*runs) const {
    std::vector<WordRun> all;
    for (int story = 0; story < storyCount; ++story) {
        for (WordRun run : stories_[size_t(story)].*runs) {
            run.end += storyBegin(Story(story));
            all.push_back(run);
        }
    }
    return all;
}

// The pages tell of the text as it lies in the stream, each of a part of one piece.
void WordDocumentWriter::addPages(const std::vector<WordRun>& runs, bool isOfParagraphs) {
    constexpr size_t kRunsInPage = 8;
    std::string table, numbers;
    uint32_t end = 0;
    for (auto piece = pieces_.rbegin(); piece != pieces_.rend(); ++piece) {
        uint32_t width = piece->isNarrow ? 1 : 2, begin = piece->offset;
        std::vector<WordRun> page;
        auto flush = [&] {
            if (page.empty()) return;
            padTo(main_, kPageSize);
            auto number = uint32_t(main_.size() / kPageSize);
            append32(table, begin);
            isOld() ? append16(numbers, number) : append32(numbers, number);
            main_ += formattingPage(layout_, isOfParagraphs, begin, page);
            begin = page.back().end;
            page.clear();
        };
        for (const WordRun& run : runs) {
            if (run.end <= piece->begin) continue;
            end = piece->offset + (std::min(run.end, piece->end) - piece->begin) * width;
            page.push_back({end, run.modifiers, run.style});
            if (page.size() == kRunsInPage) flush();
            if (run.end >= piece->end) break;
        }
        flush();
    }
    append32(table, end);
    place(isOfParagraphs ? paragraphPages : characterPages, table + numbers);
}

void WordDocumentWriter::place(unsigned table, std::string_view bytes, size_t length) {
    unsigned offset = isOld() ? kPlaces[table].inWord6 : kPlaces[table].inWord97;
    if (length == 0 || offset == 0) return;
    std::string& stream = isOld() ? main_ : table_;
    put32(main_, offset, uint32_t(stream.size()));
    put32(main_, offset + 4, uint32_t(length));
    stream += bytes;
}

void WordDocumentWriter::place(unsigned table, std::string_view bytes) { place(table, bytes, bytes.size()); }

void WordDocumentWriter::addNotes(Story story, const std::vector<Note>& notes, unsigned references,
                                  unsigned texts) {
    if (notes.empty()) return;
    std::string places, begins, kinds;
    for (const Note& note : notes) {
        append32(places, note.reference);
        append16(kinds, note.isAutomatic);
        append32(begins, note.begin);
    }
    append32(places, uint32_t(stories_[main].text.size()));
    append32(begins, uint32_t(stories_[story].text.size()));
    append32(begins, uint32_t(stories_[story].text.size()));
    place(references, places + kinds);
    place(texts, begins);
}

void WordDocumentWriter::addTextBoxes() {
    std::string places, drawn, begins, boxes;
    for (const auto& [position, value] : anchors_) {
        append32(places, position);
        if (isOld()) append32(drawn, 0);
        isOld() ? append16(drawn, value) : append32(drawn, value);
        if (!isOld()) drawn.append(22, '\0');
    }
    append32(places, uint32_t(stories_[main].text.size()));
    if (!anchors_.empty()) place(shapeAnchors, places + drawn);
    if (textBoxes_.empty()) return;
    textBoxes_.emplace_back(uint32_t(stories_[textBoxes].text.size()), 0); // stands for the end
    for (const auto& [begin, shape] : textBoxes_) {
        append32(begins, begin);
        if (isOld()) continue;
        boxes.append(14, '\0');
        append32(boxes, shape);
        append32(boxes, 0);
    }
    append32(begins, uint32_t(stories_[textBoxes].text.size()));
    place(textBoxTexts, begins + boxes);
    place(drawings, drawings_);
}

void WordDocumentWriter::addPieceTable() {
    if (!hasPieceTable_) return;
    std::string bytes, positions, descriptors;
    for (const std::string& list : modifierLists_) {
        append8(bytes, 1);
        append16(bytes, unsigned(list.size()));
        bytes += list;
    }
    append32(positions, 0);
    for (size_t i = 0; i < pieces_.size(); ++i) {
        append32(positions, pieces_[i].end);
        bool isMarkedNarrow = pieces_[i].isNarrow && !isOld();
        unsigned modifier = 0;
        for (const auto& [piece, value] : pieceModifiers_) modifier = piece == i ? value : modifier;
        append16(descriptors, 0);
        append32(descriptors, isMarkedNarrow ? pieces_[i].offset * 2 | kNarrowFlag : pieces_[i].offset);
        append16(descriptors, modifier);
    }
    append8(bytes, 2);
    append32(bytes, uint32_t(positions.size() + descriptors.size()));
    place(piecesTable, bytes + positions + descriptors);
}

void WordDocumentWriter::addSections() {
    if (sections_.empty()) return;
    std::string positions, entries;
    append32(positions, 0);
    for (const auto& [end, modifiers] : sections_) {
        append32(positions, end);
        append16(entries, 0);
        append32(entries, uint32_t(main_.size()));
        entries.append(6, '\0');
        append16(main_, unsigned(modifiers.size()));
        main_ += modifiers;
    }
    place(sections, positions + entries);
}

void WordDocumentWriter::addTables() {
    addNotes(footnotes, footnotes_, footnoteReferences, footnoteTexts);
    addNotes(endnotes, endnotes_, endnoteReferences, endnoteTexts);
    addTextBoxes();
    addSections();
    place(styleSheet, styles_.bytes());
    place(fonts, fonts_.bytes());
    if (!lists_.empty()) {
        std::string declared = lists_.lists();
        place(lists, declared + lists_.levels(), declared.size());
        place(listOverrides, lists_.overrides());
    }
    addPieceTable();
}

std::string WordDocumentWriter::mainStream() {
    layText();
    uint32_t textEnd = uint32_t(main_.size());
    addPages(allRuns(&Content::characters), false);
    addPages(allRuns(&Content::paragraphs), true);
    addTables();
    put16(main_, 0, isOld() ? 0xA5DC : 0xA5EC);
    put16(main_, 2, isOld() ? 0x68 : 0xC1);
    put16(main_, 6, language_ & 0xFFFF);
    put16(main_, 10, flags_ | (isOld() ? 0 : 0x1200));
    put16(main_, 20, language_ >> 16 ? 256 : 0);
    put32(main_, 24, kTextOffset);
    put32(main_, 28, textEnd);
    size_t lengths = isOld() ? 0x34 : 0x4C;
    for (size_t i = 0; i < storyCount; ++i) put32(main_, lengths + 4 * i, uint32_t(stories_[i].text.size()));
    return main_;
}

std::string WordDocumentWriter::finish() {
    CompoundFileWriter file;
    file.stream("WordDocument", mainStream());
    if (!isOld()) file.stream("1Table", table_);
    if (!data_.empty()) file.stream("Data", data_);
    for (const auto& [name, bytes] : streams_) file.stream(name, bytes);
    return file.finish();
}
