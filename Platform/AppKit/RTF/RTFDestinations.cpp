// SPDX-License-Identifier: Apache-2.0
//
// The destinations of RTF: what becomes of the text of a group, and what its end brings about.
#include "Platform/AppKit/RTF/RTFReader.h"
#include "Platform/Foundation/ASCII.h"

#include <utility>

namespace {

bool isBlank(char32_t c) { return c == kTab || c == u' '; }

} // namespace

// True where text is not shown, but parts of it tell about the document.
bool RTFReader::isInformation(Target target) {
    return target == Target::information || target == Target::background;
}

void RTFReader::beginDestination(const RTFControlWord& word) {
    // In the document's own group such a word is damage, and its text is all there is.
    if (groups_.size() == 1) return;

    if (word.action == RTFAction::unicodeText) {
        beginUnicodeVariant();
        return;
    }
    const Target target = group().target;
    const bool takesParts = target == Target::story || target == Target::nowhere || isInformation(target);
    const bool takesVariants = takesParts || target == Target::gathered;
    const bool isPart = group().ending != Ending::nothing;
    if (word.action == RTFAction::variants ? takesVariants : takesParts && !isPart) {
        flush();
        beginPart(word);
    } else {
        skipGroup();
    }
}

void RTFReader::beginPart(const RTFControlWord& word) {
    const bool isInInformation = group().target == Target::information;
    const bool isInBackground = group().target == Target::background;
    switch (word.action) {
    case RTFAction::container:
        if (!isInBackground) group().target = Target::nowhere;
        break;
    case RTFAction::background: group().target = Target::background; break;
    case RTFAction::shapeProperty:
        if (!isInBackground) skipGroup();
        break;
    case RTFAction::shapePropertyPart:
        isInBackground ? beginGathering(Ending::shapePropertyPart, word.value) : skipGroup();
        break;
    case RTFAction::info:
        group().target = Target::information;
        group().font = RTFFonts::kNoFont;
        useFont();
        break;
    case RTFAction::infoString:
        isInInformation ? beginGathering(Ending::infoString, word.value) : skipGroup();
        break;
    case RTFAction::time:
        if (!isInInformation) return skipGroup();
        group().target = Target::nowhere;
        group().ending = Ending::time;
        group().endingValue = uint8_t(word.value);
        info_.beginTime();
        break;
    case RTFAction::fontTable: group().target = Target::fontTable; break;
    case RTFAction::listMarker:
        group().target == Target::story ? beginGathering(Ending::listMarker, 0) : skipGroup();
        break;
    case RTFAction::note: beginStory(Ending::note); break;
    case RTFAction::textBox: beginStory(Ending::textBox); break;
    case RTFAction::result:
        if (group().target == Target::nowhere) group().target = Target::story;
        break;
    case RTFAction::variants: group().target = Target::variants; break;
    case RTFAction::attachment: attach(); break;
    default: skipGroup(); break;
    }
}

void RTFReader::beginStory(Ending ending) {
    // What is anchored in hidden text is hidden, whatever the formatting inside it.
    if (group().hidden != 0 || isInformation(group().target)) return skipGroup();
    group().target = Target::story;
    group().ending = ending;
    ending == Ending::note ? story_.beginNote() : story_.beginTextBox();
    paragraphIsMarked_ = false;
}

void RTFReader::beginGathering(Ending ending, uint16_t value) {
    group().target = Target::gathered;
    group().ending = ending;
    group().endingValue = uint8_t(value);
    gathered_.clear();
}

void RTFReader::beginUnicodeVariant() {
    // The text goes where it would have gone without the variants.
    const size_t depth = groups_.size();
    if (depth < 3 || groups_[depth - 2].target != Target::variants) return skipGroup();
    group().target = groups_[depth - 3].target;
}

void RTFReader::attach() {
    if (attachments_ == Attachments::inText) write(kAttachment);
    placeholderDepth_ = groups_.size() - 1;
    skipGroup();
}

void RTFReader::skipGroup() { tokenizer_.skipGroup(deadline_); }

void RTFReader::endPart(const Group& ended) {
    switch (ended.ending) {
    case Ending::nothing: return;
    case Ending::infoString:
        info_.setString(RTFInfoString(ended.endingValue), std::exchange(gathered_, {}));
        return;
    case Ending::time: info_.endTime(RTFTime(ended.endingValue)); return;
    case Ending::listMarker: endListMarker(); return;
    case Ending::shapePropertyPart:
        info_.setBackground(RTFShapePropertyPart(ended.endingValue), std::exchange(gathered_, {}));
        return;
    case Ending::note: story_.endNote(); break;
    case Ending::textBox: story_.endTextBox(); break;
    }
    paragraphIsMarked_ = false;
}

// Writers store the marker in their own ways, some in two of them.
void RTFReader::endListMarker() {
    if (gathered_.empty() || paragraphIsMarked_) return;
    paragraphIsMarked_ = true;
    beginPage();
    if (gathered_.front() == kTab) {
        story_.append(gathered_);
        return;
    }
    const std::u16string_view marker = trimmed(gathered_, isBlank);
    if (!marker.empty()) story_.listMarker(marker);
}
