// SPDX-License-Identifier: Apache-2.0
//
// Puts a document's text together in reading order: the main story, each text box after the paragraph that
// anchors it, then the notes. The rules of this order are here once for all readers.
#pragma once

#include "Platform/AppKit/TextCharacters.h"

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

class StoryBuilder {
public:
    StoryBuilder();

    void append(char16_t unit) { top().text.push_back(unit); }
    void append(std::u16string_view text) { top().text.append(text); }
    void lineBreak() { append(kLineBreak); }
    void pageBreak() { append(kPageBreak); }
    void tab() { append(kTab); }

    // For a paragraph that is to begin a page, before its first character. The document's first does anyway,
    // and boxes and notes have no pages of their own.
    void beginPage() {
        if (isInMainStory() && atParagraphStart() && !current().empty()) pageBreak();
    }

    // Ends the paragraph and sets the text boxes that were anchored in it behind it.
    void endParagraph();

    // The marker of a list item, in front of the item's text: TAB, marker, TAB.
    void listMarker(std::u16string_view marker);

    // Between begin and end, text goes to a box or a note instead of the story. Both nest, in themselves and
    // in each other; an end without its begin is ignored. Each box and note ends with a paragraph end; an
    // empty one leaves nothing.
    void beginTextBox() { begin(Place::textBox); }
    void endTextBox() { end(Place::textBox); }
    void beginNote() { begin(Place::note); }
    void endNote() { end(Place::note); }

    // The text that is being built at this moment, of the innermost open box or note, else of the main story.
    std::u16string& current() { return top().text; }
    bool isInMainStory() const { return parts_.size() == 1; }
    bool atParagraphStart() { return current().empty() || current().back() == kParagraphEnd; }

    // The whole text: ends what is open, then sets the notes behind the main story, in the order of their
    // begins.
    std::u16string finish() &&;

    // How many boxes and notes may lie in one another; text of deeper ones goes to the innermost allowed.
    static constexpr size_t kDepthLimit = 16;

private:
    enum class Place { mainStory, textBox, note };
    struct Part {
        Place place;
        size_t note = 0; // a note's place in `notes_`
        std::u16string text;
        std::u16string boxes; // ended boxes that wait for the end of the paragraph
    };

    Part& top() { return parts_.back(); }
    void begin(Place place);
    void end(Place place);
    void endTop();

    std::vector<Part> parts_;          // the main story, then what is open inside it
    std::vector<Place> ignoredBegins_; // begins past the depth limit, whose ends must find them
    std::vector<std::u16string> notes_;
};
