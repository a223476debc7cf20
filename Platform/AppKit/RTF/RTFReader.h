// SPDX-License-Identifier: Apache-2.0
//
// Reads RTF: keeps the state of the open groups on a stack of its own, follows the control words, and sends
// text to the story, to the document's information, or nowhere.
#pragma once

#include "Platform/AppKit/DocumentReader.h"
#include "Platform/AppKit/RTF/RTFControlWords.h"
#include "Platform/AppKit/RTF/RTFDecoder.h"
#include "Platform/AppKit/RTF/RTFFonts.h"
#include "Platform/AppKit/RTF/RTFInfo.h"
#include "Platform/AppKit/RTF/RTFTokenizer.h"
#include "Platform/AppKit/StoryBuilder.h"

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

class RTFReader {
public:
    enum class Attachments { inText, leftOut };

    // Groups that lie deeper are left out.
    static constexpr size_t kDepthLimit = 1 << 18;

    // The bytes begin with the document's first brace.
    RTFReader(std::string_view bytes, Deadline& deadline, Attachments attachments);

    // Reads up to the end of the first group.
    DocumentContents read() &&;

private:
    // Where a group's text goes.
    enum class Target : uint8_t {
        story,
        nowhere,
        information, // nowhere, but the parts of the document's information count
        gathered,    // to `gathered_`; nothing inside it is a destination
        fontTable,   // likewise
        variants,    // likewise, but for the variant in Unicode
        background,  // nowhere, but the properties of the shape count
    };

    // What the end of a group brings about.
    enum class Ending : uint8_t { nothing, infoString, time, listMarker, note, textBox, shapePropertyPart };

    struct Group {
        Target target = Target::story;
        Ending ending = Ending::nothing;
        uint8_t endingValue = 0; // an RTFInfoString, an RTFTime or an RTFShapePropertyPart
        uint8_t hidden = 0;      // of RTFHidden
        uint8_t paragraph = 0;   // of RTFParagraphFormat
        uint16_t font = RTFFonts::kNoFont;
        int32_t fallbackLength = 1; // of each \u, in characters
    };

    Group& group() { return groups_.back(); }

    void readToken(const RTFToken& token);
    void beginGroup();
    void endGroup();
    void word(const RTFToken& token);
    void perform(const RTFControlWord& word, const RTFToken& token);
    void setFont(RTFAction action, int32_t parameter);
    void setHidden(unsigned bits, bool hidden);
    void setParagraphFormat(unsigned bits, bool isSet);
    void symbol(std::string_view symbol);
    void text(std::string_view bytes);

    static bool isInformation(Target target);
    void beginDestination(const RTFControlWord& word);
    void beginPart(const RTFControlWord& word);
    void beginStory(Ending ending);
    void beginGathering(Ending ending, uint16_t value);
    void beginUnicodeVariant();
    void attach();
    void skipGroup();
    void endPart(const Group& ended);
    void endListMarker();

    std::u16string* target();
    void write(char16_t unit);
    void writeUnicode(char16_t unit);
    void beginPage();
    void endParagraph();
    void endRow();
    void useFont();
    void flush();

    RTFTokenizer tokenizer_;
    Deadline& deadline_;
    Attachments attachments_;
    std::vector<Group> groups_;
    RTFFonts fonts_;
    RTFDecoder decoder_;
    RTFInfo info_;
    StoryBuilder story_;
    std::u16string gathered_;
    int32_t fallback_ = 0;        // how many characters that stand for the last \u are still to come
    size_t placeholderDepth_ = 0; // of the group in which an attachment's placeholder is due
    bool atGroupStart_ = false;   // nothing but blanks since the brace
    bool isOptional_ = false;     // `\*` stands before the coming word
    bool paragraphIsMarked_ = false;
};
