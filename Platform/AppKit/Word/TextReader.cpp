// SPDX-License-Identifier: Apache-2.0
#include "Platform/AppKit/Word/TextReader.h"

#include "Platform/Foundation/LittleEndian.h"

#include <utility>

namespace Word {

namespace {

enum Mark : uint16_t {
    kCellMark = 0x07,
    kTabMark = 0x09,
    kLineMark = 0x0B,
    kPageMark = 0x0C,
    kParagraphMark = 0x0D,
    kColumnMark = 0x0E,
    kFieldBegin = 0x13,
    kFieldSeparator = 0x14,
    kFieldEnd = 0x15,
    kNoBreakHyphenMark = 0x1E,
    kSoftHyphenMark = 0x1F,
    kFirstOrdinary = 0x20,
    kSymbolMark = 0x28,
};

constexpr size_t kSectionSize = 12;
// What no honest document reaches, for each byte of the main stream.
constexpr uint64_t kTextLimit = 2, kMarkerLimit = 1;

} // namespace

TextReader::TextReader(const FileInformation& information, Streams& streams, Deadline& deadline)
    : information_(information), streams_(streams), deadline_(deadline),
      pieces_(information, streams.main(), streams.table()), formatting_(information, streams, pieces_),
      attachments_(readAttachments(information, streams.table(), pieces_)),
      sections_(information.positionTable(Table::sections, kSectionSize, streams.table())),
      fonts_(information, streams.table()), numbering_(information, streams.table(), fonts_),
      charactersLeft_(kTextLimit * streams.main().size()),
      markersLeft_(kMarkerLimit * streams.main().size()) {}

std::u16string TextReader::read() {
    Span main = information_.story(Story::main);
    story_.current().reserve(std::min<size_t>(main.end, streams_.main().size()));
    readSpan(main, true);
    for (Attachment& attachment : attachments_) {
        if (attachment.kind == Attachment::Kind::textBox) readTextBox(attachment);
    }
    for (Attachment::Kind kind : {Attachment::Kind::footnote, Attachment::Kind::endnote}) {
        for (Attachment& attachment : attachments_) {
            if (attachment.kind == kind) readNote(attachment);
        }
    }
    return std::move(story_).finish();
}

void TextReader::readSpan(Span span, bool isMainStory) {
    FieldStack outerFields = std::exchange(fields_, {});
    size_t outerStart = std::exchange(paragraphStart_, story_.current().size());
    bool outerIsMain = std::exchange(isInMainStory_, isMainStory);
    const std::vector<Piece>& pieces = pieces_.pieces();
    for (size_t i = pieces_.indexOf(span.begin); i < pieces.size() && pieces[i].begin < span.end; ++i) {
        readPiece(pieces[i], {std::max(span.begin, pieces[i].begin), std::min(span.end, pieces[i].end)});
    }
    fields_ = std::move(outerFields);
    paragraphStart_ = outerStart;
    isInMainStory_ = outerIsMain;
}

void TextReader::readPiece(const Piece& piece, Span span) {
    for (uint32_t position = span.begin; position < span.end;) {
        if (deadline_.passed() || charactersLeft_ == 0) return;
        Place place{piece, position, piece.offsetOf(position)};
        Formatting::Characters characters = formatting_.charactersAt(piece, place.offset);
        uint32_t limit = span.end;
        if (isInMainStory_) {
            if (uint32_t skipped = attach(position, characters.isVisible()); skipped > 0) {
                position += skipped;
                continue;
            }
            if (nextAttachment_ < attachments_.size()) {
                limit = std::min(limit, attachments_[nextAttachment_].position);
            }
        }
        uint64_t inRun = (uint64_t(characters.end) - place.offset + piece.width() - 1) / piece.width();
        uint32_t count = uint32_t(std::min<uint64_t>({limit - position, inRun, charactersLeft_}));
        charactersLeft_ -= count;
        readRun(place, count, characters);
        position += count;
    }
}

// Deals with what hangs on a place, and tells how many characters of the place are the reference mark.
uint32_t TextReader::attach(uint32_t position, bool isVisible) {
    uint32_t markLength = 0;
    for (; nextAttachment_ < attachments_.size(); ++nextAttachment_) {
        Attachment& attachment = attachments_[nextAttachment_];
        if (attachment.position > position) break;
        if (attachment.position < position) continue;
        if (!isVisible) {
            attachment.isDropped = true;
        } else if (attachment.kind == Attachment::Kind::textBox) {
            readTextBox(attachment);
        } else {
            markLength = std::max(markLength, attachment.markLength);
        }
    }
    return markLength;
}

void TextReader::readTextBox(Attachment& box) {
    if (std::exchange(box.isDropped, true)) return;
    story_.beginTextBox();
    readSpan({box.begin, box.end}, false);
    dropIfBlank();
    story_.endTextBox();
}

void TextReader::readNote(Attachment& note) {
    if (note.isDropped) return;
    story_.beginNote();
    readSpan({note.begin, note.end}, false);
    dropIfBlank();
    story_.endNote();
}

void TextReader::dropIfBlank() {
    std::u16string& text = story_.current();
    if (text.size() == 1 && text[0] == kParagraphEnd) text.clear();
}

uint16_t TextReader::unitAt(const Place& place) const {
    return place.piece.isWide ? uint16At(streams_.main(), place.offset)
                              : uint8At(streams_.main(), place.offset);
}

void TextReader::readRun(Place place, uint32_t count, const Formatting::Characters& characters) {
    while (count > 0 && !deadline_.passed()) {
        uint32_t ordinary = ordinaryCount(place, count, characters);
        uint32_t taken = ordinary;
        if (ordinary == 0) {
            readSpecial(unitAt(place), place, characters);
            taken = 1;
        } else if (characters.isVisible() && !fields_.isInInstruction()) {
            appendOrdinary(place, ordinary, characters);
        }
        place.position += taken;
        place.offset += taken * place.piece.width();
        count -= taken;
    }
}

// How many characters from here on mean just what they are.
uint32_t TextReader::ordinaryCount(const Place& place, uint32_t count,
                                   const Formatting::Characters& characters) const {
    bool hasSymbols = characters.symbol != 0;
    uint32_t width = place.piece.width();
    const char* bytes = streams_.main().data() + place.offset;
    uint32_t i = 0;
    for (; i < count; ++i, bytes += width) {
        uint16_t unit = uint8_t(bytes[0]);
        if (width == 2) unit = uint16_t(unit | uint8_t(bytes[1]) << 8);
        if (unit < kFirstOrdinary || isSymbolCode(unit)) break;
        if (hasSymbols && unit == kSymbolMark) break;
    }
    return i;
}

void TextReader::appendOrdinary(const Place& place, uint32_t count,
                                const Formatting::Characters& characters) {
    std::string_view bytes = slice(streams_.main(), place.offset, size_t(count) * place.piece.width());
    if (!place.piece.isWide) return appendNarrow(bytes, place, characters);
    std::u16string& text = story_.current();
    size_t end = text.size();
    text.resize(end + count);
    for (uint32_t i = 0; i < count; ++i) text[end + i] = uint16At(bytes, 2 * size_t(i));
}

void TextReader::appendNarrow(std::string_view bytes, const Place& place,
                              const Formatting::Characters& characters) {
    NSStringEncoding encoding = NSWindowsCP1252StringEncoding;
    std::u16string& text = story_.current();
    if (information_.isOld) {
        std::optional<uint16_t> font =
            characters.font ? characters.font : formatting_.paragraphFontAt(place.offset);
        SymbolFont symbols = font ? fonts_.symbolFont(*font) : SymbolFont::none;
        if (symbols != SymbolFont::none) {
            for (char byte : bytes) text.push_back(characterOf(symbols, uint8_t(byte)));
            return;
        }
        encoding = fonts_.encoding(font.value_or(0));
    }
    appendDecoded(text, bytes, encoding);
}

void TextReader::readSpecial(uint16_t unit, const Place& place, const Formatting::Characters& characters) {
    // Fields stay balanced whatever parts of them are hidden or deleted.
    switch (unit) {
    case kFieldBegin: return fields_.begin();
    case kFieldSeparator: return fields_.separate();
    case kFieldEnd: return fields_.end();
    default: break;
    }
    if (fields_.isInInstruction()) return;
    if (!characters.isVisible()) {
        // A hidden mark still keeps apart what is not hidden around it.
        bool endsText = !characters.isDeleted && story_.current().size() > paragraphStart_;
        if (endsText && (unit == kParagraphMark || unit == kCellMark)) endParagraph(place);
        return;
    }
    if (unit < kFirstOrdinary) return readMark(unit, place);
    if (unit != kSymbolMark) {
        story_.append(characterOf(symbolFontOf(place, characters), uint8_t(unit)));
    } else if (isSymbolCode(characters.symbol)) {
        story_.append(characterOf(fonts_.symbolFont(characters.symbolFont), uint8_t(characters.symbol)));
    } else {
        story_.append(characters.symbol);
    }
}

void TextReader::readMark(uint16_t unit, const Place& place) {
    switch (unit) {
    case kParagraphMark:
    case kCellMark: return endParagraph(place);
    case kPageMark: return endPageOrSection(place);
    case kTabMark: return story_.tab();
    case kLineMark:
    case kColumnMark: return story_.lineBreak();
    case kNoBreakHyphenMark: return story_.append(kNoBreakHyphen);
    case kSoftHyphenMark: return story_.append(kSoftHyphen);
    default: return; // pictures, reference marks and the like
    }
}

void TextReader::endParagraph(const Place& place) {
    Formatting::Paragraph paragraph = formatting_.paragraphAt(place.piece, place.offset);
    if (paragraph.endsRow || paragraph.endsInnerRow) return;
    setListMarker(paragraph.list);
    if (paragraph.beginsPage) beginPage();
    story_.endParagraph();
    paragraphStart_ = story_.current().size();
}

bool TextReader::isSectionEnd(uint32_t position) {
    while (nextSection_ < sections_.count() && sections_.position(nextSection_ + 1) <= position)
        ++nextSection_;
    return nextSection_ < sections_.count() && sections_.position(nextSection_ + 1) == position + 1;
}

// The mark of a page break lies within a paragraph, that of a section's end ends one.
void TextReader::endPageOrSection(const Place& place) {
    bool endsSection = isInMainStory_ && isSectionEnd(place.position);
    if (endsSection) {
        Formatting::Paragraph paragraph = formatting_.paragraphAt(place.piece, place.offset);
        setListMarker(paragraph.list);
        if (paragraph.beginsPage) beginPage();
    }
    story_.pageBreak();
    if (endsSection) paragraphStart_ = story_.current().size();
}

// The paragraph that ends here was to begin a page. The document's first does anyway, and so does one behind
// a break.
void TextReader::beginPage() {
    std::u16string& text = story_.current();
    if (!isInMainStory_ || paragraphStart_ == 0 || text[paragraphStart_ - 1] == kPageBreak) return;
    text.insert(paragraphStart_, 1, kPageBreak);
}

// Only its end tells what a paragraph is; the marker is moved in front of the text then.
void TextReader::setListMarker(const ListMembership& list) {
    std::u16string marker = numbering_.nextMarker(list);
    if (marker.empty() || marker.size() > markersLeft_) return;
    markersLeft_ -= marker.size();
    std::u16string& text = story_.current();
    auto end = std::ptrdiff_t(text.size());
    story_.listMarker(marker);
    std::rotate(text.begin() + std::ptrdiff_t(paragraphStart_), text.begin() + end, text.end());
}

SymbolFont TextReader::symbolFontOf(const Place& place, const Formatting::Characters& characters) {
    std::optional<uint16_t> font =
        characters.font ? characters.font : formatting_.paragraphFontAt(place.offset);
    return font ? fonts_.symbolFont(*font) : SymbolFont::none;
}

} // namespace Word
