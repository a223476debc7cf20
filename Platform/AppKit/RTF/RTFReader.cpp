// SPDX-License-Identifier: Apache-2.0
#include "Platform/AppKit/RTF/RTFReader.h"

#include <algorithm>
#include <optional>
#include <utility>

namespace {

constexpr std::string_view kSignature = "{\\rt";

// What editors and mailers leave before a document: byte order marks, white space, NUL bytes.
constexpr std::string_view kJunk("\xEF\xBB\xBF\xFE\xFF \t\r\n\f\v\0", 12);

// Stands behind an attachment's group.
constexpr char kPlaceholder = '\xAC';

// Characters. Room for a text as long as its document costs no memory until it is used, and spares the text
// from being moved while it grows.
constexpr size_t kReserveLimit = 64 << 20;

ReadStatus read(std::string_view bytes, Deadline& deadline, RTFReader::Attachments attachments,
                DocumentContents& contents) {
    bytes.remove_prefix(std::min(bytes.find_first_not_of(kJunk), bytes.size()));
    if (!bytes.starts_with(kSignature)) return ReadStatus::wrongKind;
    contents = RTFReader(bytes, deadline, attachments).read();
    return ReadStatus::read;
}

} // namespace

ReadStatus readRTF(std::string_view bytes, Deadline& deadline, DocumentContents& contents) {
    return read(bytes, deadline, RTFReader::Attachments::leftOut, contents);
}

ReadStatus readRTFDText(std::string_view bytes, Deadline& deadline, DocumentContents& contents) {
    // A package flattened into one file: the text stands whole behind the table of its files.
    if (bytes.starts_with("rtfd")) bytes.remove_prefix(std::min(bytes.find(kSignature), bytes.size()));
    return read(bytes, deadline, RTFReader::Attachments::inText, contents);
}

RTFReader::RTFReader(std::string_view bytes, Deadline& deadline, Attachments attachments)
    : tokenizer_(bytes), deadline_(deadline), attachments_(attachments) {
    story_.current().reserve(std::min(bytes.size(), kReserveLimit));
}

DocumentContents RTFReader::read() && {
    do {
        readToken(tokenizer_.next());
    } while (!groups_.empty() && !deadline_.passed());
    while (!groups_.empty()) endGroup();
    return {std::move(story_).finish(), std::move(info_).finish()};
}

void RTFReader::readToken(const RTFToken& token) {
    switch (token.kind) {
    case RTFToken::Kind::groupBegin: beginGroup(); break;
    case RTFToken::Kind::groupEnd: endGroup(); break;
    case RTFToken::Kind::word: word(token); break;
    case RTFToken::Kind::symbol: symbol(token.text); break;
    case RTFToken::Kind::text: text(token.text); break;
    case RTFToken::Kind::byte: {
        char byte = char(token.parameter);
        text({&byte, 1});
        break;
    }
    case RTFToken::Kind::end:
        while (!groups_.empty()) endGroup();
        break;
    }
}

void RTFReader::beginGroup() {
    fallback_ = 0;
    atGroupStart_ = true;
    isOptional_ = false;
    if (groups_.size() == kDepthLimit) {
        skipGroup();
        tokenizer_.next();
        return;
    }
    Group inner = groups_.empty() ? Group() : group();
    inner.ending = Ending::nothing;
    groups_.push_back(inner);
}

void RTFReader::endGroup() {
    fallback_ = 0;
    atGroupStart_ = false;
    isOptional_ = false;
    if (placeholderDepth_ == groups_.size()) placeholderDepth_ = 0;

    const Group ended = group();
    const Group outer = groups_.size() > 1 ? groups_[groups_.size() - 2] : Group{.target = Target::nowhere};
    // Bytes of one character may lie on both sides of a brace that changes nothing.
    if (ended.ending != Ending::nothing || ended.target != outer.target || ended.hidden != outer.hidden)
        flush();
    groups_.pop_back();
    endPart(ended);
    if (!groups_.empty()) useFont();
}

void RTFReader::word(const RTFToken& token) {
    const bool wasOptional = std::exchange(isOptional_, false);
    atGroupStart_ = false;
    const RTFControlWord* word = findRTFControlWord(token.text);
    // A word counts as one character, but writers that leave out the replacement go on with the next \u.
    if (fallback_ > 0 && (word == nullptr || word->action != RTFAction::unicode)) {
        --fallback_;
    } else if (word != nullptr) {
        perform(*word, token);
    } else if (wasOptional && groups_.size() > 1) {
        skipGroup();
    }
}

void RTFReader::perform(const RTFControlWord& word, const RTFToken& token) {
    switch (word.action) {
    case RTFAction::none: break;
    case RTFAction::character: write(char16_t(word.value)); break;
    case RTFAction::paragraphEnd: endParagraph(); break;
    case RTFAction::rowEnd: endRow(); break;
    case RTFAction::paragraphFormat:
        setParagraphFormat(word.value, !token.hasParameter || token.parameter != 0);
        break;
    case RTFAction::paragraphPlain: setParagraphFormat(0xFF, false); break;
    case RTFAction::unicode:
        if (!token.hasParameter) break;
        writeUnicode(char16_t(token.parameter));
        fallback_ = group().fallbackLength;
        break;
    case RTFAction::unicodeFallback:
        group().fallbackLength = token.hasParameter ? std::max(token.parameter, 0) : 1;
        break;
    case RTFAction::hidden: setHidden(word.value, !token.hasParameter || token.parameter != 0); break;
    case RTFAction::plain:
        setHidden(0xFF, false);
        group().font = fonts_.defaultFont();
        useFont();
        break;
    case RTFAction::font:
    case RTFAction::defaultFont:
    case RTFAction::fontCharset:
    case RTFAction::fontCodePage:
        if (token.hasParameter) setFont(word.action, token.parameter);
        break;
    case RTFAction::documentCodePage:
        fonts_.setDocumentCodePage(word.value != 0 ? word.value : token.parameter);
        useFont();
        break;
    case RTFAction::number:
        info_.setNumber(RTFNumber(word.value),
                        token.hasParameter ? std::optional(token.parameter) : std::nullopt);
        break;
    case RTFAction::timeField: info_.setTimeField(RTFTimeField(word.value), token.parameter); break;
    default: beginDestination(word); break;
    }
}

void RTFReader::setFont(RTFAction action, int32_t parameter) {
    const bool isInTable = group().target == Target::fontTable;
    switch (action) {
    case RTFAction::font:
        if (isInTable) {
            fonts_.begin(parameter);
        } else {
            group().font = RTFFonts::font(parameter);
        }
        break;
    case RTFAction::defaultFont:
        fonts_.setDefaultFont(parameter);
        group().font = fonts_.defaultFont();
        break;
    case RTFAction::fontCharset:
        if (isInTable) fonts_.setCharset(parameter);
        break;
    default:
        if (isInTable) fonts_.setCodePage(parameter);
        break;
    }
    useFont();
}

void RTFReader::setHidden(unsigned bits, bool hidden) {
    flush();
    group().hidden = uint8_t(hidden ? group().hidden | bits : group().hidden & ~bits);
}

void RTFReader::setParagraphFormat(unsigned bits, bool isSet) {
    group().paragraph = uint8_t(isSet ? group().paragraph | bits : group().paragraph & ~bits);
}

void RTFReader::symbol(std::string_view symbol) {
    const bool wasAtGroupStart = std::exchange(atGroupStart_, false);
    isOptional_ = false;
    switch (symbol.front()) {
    // Escaped, these are bytes of the text, which may be the second of a character.
    case '\\':
    case '{':
    case '}':
    case ' ': text(symbol); return;
    default: break;
    }
    if (fallback_ > 0) {
        --fallback_;
        return;
    }
    switch (symbol.front()) {
    case '*': isOptional_ = atGroupStart_ = wasAtGroupStart; break;
    case '\r':
    case '\n': endParagraph(); break;
    case '\t': write(kTab); break;
    case '~': write(kNoBreakSpace); break;
    case '_': write(kNoBreakHyphen); break;
    default: break;
    }
}

void RTFReader::text(std::string_view bytes) {
    isOptional_ = false;
    if (atGroupStart_) atGroupStart_ = bytes.find_first_not_of(" \t") == bytes.npos;
    if (fallback_ > 0) {
        size_t skipped = std::min(bytes.size(), size_t(fallback_));
        fallback_ -= int32_t(skipped);
        bytes.remove_prefix(skipped);
        if (bytes.empty()) return;
    }
    if (placeholderDepth_ == groups_.size()) {
        placeholderDepth_ = 0;
        if (bytes.front() == kPlaceholder) bytes.remove_prefix(1);
    }
    if (group().target == Target::fontTable) fonts_.setName(bytes);
    beginPage();
    if (std::u16string* out = target()) decoder_.append(*out, bytes);
}

std::u16string* RTFReader::target() {
    if (group().hidden != 0) return nullptr;
    switch (group().target) {
    case Target::story: return &story_.current();
    case Target::gathered: return &gathered_;
    default: return nullptr;
    }
}

void RTFReader::write(char16_t unit) {
    beginPage();
    std::u16string* out = target();
    if (out == nullptr) return;
    decoder_.flush(*out);
    out->push_back(unit);
}

// Before anything of a paragraph is written: a paragraph that is to begin a page does.
void RTFReader::beginPage() {
    const bool isShown = group().target == Target::story && group().hidden == 0;
    if (group().paragraph == kRTFPageBreakBefore && isShown) story_.beginPage();
}

void RTFReader::writeUnicode(char16_t unit) {
    write(isSymbolCode(unit) ? signOf(fonts_.symbols(group().font), unit) : unit);
}

void RTFReader::endRow() {
    if (group().target != Target::story || group().hidden != 0) return;
    flush();
    if (!story_.atParagraphStart()) endParagraph();
}

void RTFReader::endParagraph() {
    if (group().target != Target::story || group().hidden != 0) {
        write(kParagraphEnd);
        return;
    }
    beginPage();
    flush();
    story_.endParagraph();
    paragraphIsMarked_ = false;
}

void RTFReader::useFont() {
    const NSStringEncoding encoding = fonts_.encoding(group().font);
    const SymbolFont symbols = fonts_.symbols(group().font);
    if (decoder_.uses(encoding, symbols)) return;
    flush();
    decoder_.use(encoding, symbols);
}

void RTFReader::flush() {
    if (!decoder_.holdsBytes()) return;
    if (std::u16string* out = target()) decoder_.flush(*out);
}
