// SPDX-License-Identifier: Apache-2.0
#include "Tests/Support/WordDocumentWriter.h"

#include "Tests/Support/LittleEndianWriter.h"

WordDocumentWriter::WordDocumentWriter(WordLayout layout)
    : layout_(layout), styles_(layout), fonts_(layout), isNarrow_(layout == WordLayout::word6) {}

void WordDocumentWriter::add(Story story, std::u16string_view text, std::string_view characters) {
    Content& content = stories_[story];
    content.text += text;
    content.characters.push_back({uint32_t(content.text.size()), std::string(characters), 0});
}

WordDocumentWriter& WordDocumentWriter::text(std::u16string_view text, std::string_view characters) {
    add(main, text, characters);
    return *this;
}

WordDocumentWriter& WordDocumentWriter::paragraph(std::u16string_view text, std::string_view paragraph,
                                                  unsigned style) {
    return this->text(text).mark(u'\r', paragraph, style);
}

WordDocumentWriter& WordDocumentWriter::mark(char16_t mark, std::string_view paragraph, unsigned style,
                                             std::string_view characters) {
    add(main, std::u16string_view(&mark, 1), characters);
    stories_[main].paragraphs.push_back(
        {uint32_t(stories_[main].text.size()), std::string(paragraph), style});
    return *this;
}

WordDocumentWriter& WordDocumentWriter::field(std::u16string_view instruction, std::u16string_view result) {
    const std::string special = isOld() ? oldModifier(117, {1}) : modifier(0x0855, {1});
    return text(u"\x13", special)
        .text(instruction)
        .text(u"\x14", special)
        .text(result)
        .text(u"\x15", special);
}

WordDocumentWriter& WordDocumentWriter::note(Story story, std::u16string_view noteText,
                                             std::u16string_view ownMark, std::string_view characters) {
    std::u16string mark(ownMark.empty() ? u"\x02" : ownMark);
    std::vector<Note>& notes = story == footnotes ? footnotes_ : endnotes_;
    notes.push_back(
        {uint32_t(stories_[main].text.size()), uint32_t(stories_[story].text.size()), ownMark.empty()});
    text(mark, characters);
    storyText(story, mark + std::u16string(noteText));
    return *this;
}

WordDocumentWriter& WordDocumentWriter::anchor(uint32_t shape, std::string_view characters, unsigned boxes) {
    anchors_.emplace_back(uint32_t(stories_[main].text.size()), isOld() ? boxes : shape);
    return text(u"\x08", characters);
}

WordDocumentWriter& WordDocumentWriter::textBox(uint32_t shape, std::u16string_view text) {
    textBoxes_.emplace_back(uint32_t(stories_[textBoxes].text.size()), shape);
    return storyText(textBoxes, text);
}

WordDocumentWriter& WordDocumentWriter::group(const std::vector<uint32_t>& shapes) {
    auto record = [](unsigned type, bool isContainer, const std::string& bytes) {
        std::string whole;
        append16(whole, isContainer ? 0xF : 0);
        append16(whole, type);
        append32(whole, uint32_t(bytes.size()));
        return whole + bytes;
    };
    auto shape = [&](uint32_t identifier) {
        std::string bytes;
        append32(bytes, identifier);
        append32(bytes, 0);
        return record(0xF004, true, record(0xF00A, false, bytes));
    };
    std::string inner;
    for (uint32_t identifier : shapes) inner += shape(identifier);
    std::string patriarch = record(0xF003, true, shape(0) + record(0xF003, true, inner) + shape(0));
    drawings_ = record(0xF000, true, {}) + std::string(1, '\0') +
                record(0xF002, true, record(0xF008, false, std::string(8, '\0')) + patriarch);
    return *this;
}

WordDocumentWriter& WordDocumentWriter::storyText(Story story, std::u16string_view text) {
    add(story, text, {});
    return *this;
}

WordDocumentWriter& WordDocumentWriter::style(const WordStyle& style) { return styles_.add(style), *this; }

WordDocumentWriter& WordDocumentWriter::font(std::u16string_view name, unsigned characterSet) {
    fonts_.add(name, characterSet);
    return *this;
}

WordDocumentWriter& WordDocumentWriter::list(const WordList& list) { return lists_.add(list), *this; }

WordDocumentWriter& WordDocumentWriter::listOverride(const WordListOverride& change) {
    lists_.add(change);
    return *this;
}

WordDocumentWriter& WordDocumentWriter::endSection(std::string_view section) {
    sections_.emplace_back(uint32_t(stories_[main].text.size()), section);
    return *this;
}

WordDocumentWriter& WordDocumentWriter::data(std::string_view bytes) { return data_ += bytes, *this; }
WordDocumentWriter& WordDocumentWriter::narrow() { return isNarrow_ = true, *this; }
WordDocumentWriter& WordDocumentWriter::pieces(uint32_t length) { return pieceLength_ = length, *this; }
WordDocumentWriter& WordDocumentWriter::withoutPieceTable() { return hasPieceTable_ = false, *this; }
WordDocumentWriter& WordDocumentWriter::flags(unsigned flags) { return flags_ = flags, *this; }
WordDocumentWriter& WordDocumentWriter::language(unsigned language) { return language_ = language, *this; }

WordDocumentWriter& WordDocumentWriter::pieceModifier(size_t piece, unsigned modifier) {
    pieceModifiers_.emplace_back(piece, modifier);
    return *this;
}

WordDocumentWriter& WordDocumentWriter::modifierList(std::string_view list) {
    modifierLists_.emplace_back(list);
    return *this;
}

WordDocumentWriter& WordDocumentWriter::stream(std::string name, std::string bytes) {
    streams_.emplace_back(std::move(name), std::move(bytes));
    return *this;
}
