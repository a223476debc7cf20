// SPDX-License-Identifier: Apache-2.0
#include "Platform/AppKit/StoryBuilder.h"

#include <algorithm>
#include <utility>

namespace {

void endLastParagraph(std::u16string& text) {
    if (!text.empty() && text.back() != kParagraphEnd) text.push_back(kParagraphEnd);
}

// Sets `back` behind `front`. A text that nothing stands in front of is not copied.
void join(std::u16string& front, std::u16string&& back) {
    if (front.empty()) {
        front = std::move(back);
    } else {
        front += back;
    }
}

} // namespace

StoryBuilder::StoryBuilder() { parts_.push_back({Place::mainStory, 0, {}, {}}); }

void StoryBuilder::endParagraph() {
    append(kParagraphEnd);
    if (!top().boxes.empty()) {
        append(top().boxes);
        top().boxes.clear();
    }
}

void StoryBuilder::listMarker(std::u16string_view marker) {
    tab();
    append(marker);
    tab();
}

void StoryBuilder::begin(Place place) {
    if (parts_.size() > kDepthLimit) {
        ignoredBegins_.push_back(place);
        return;
    }
    Part part{place, notes_.size(), {}, {}};
    if (place == Place::note) notes_.emplace_back();
    parts_.push_back(std::move(part));
}

void StoryBuilder::end(Place place) {
    if (!ignoredBegins_.empty()) {
        if (ignoredBegins_.back() == place) ignoredBegins_.pop_back();
        return;
    }
    auto open = std::find_if(parts_.rbegin(), parts_.rend(), [&](const Part& p) { return p.place == place; });
    if (open == parts_.rend()) return;
    size_t remaining = size_t(parts_.rend() - open) - 1;
    while (parts_.size() > remaining) endTop();
}

void StoryBuilder::endTop() {
    Part part = std::move(top());
    parts_.pop_back();
    endLastParagraph(part.text);
    join(part.text, std::move(part.boxes));
    if (part.place == Place::note) {
        notes_[part.note] = std::move(part.text);
    } else {
        join(top().boxes, std::move(part.text));
    }
}

std::u16string StoryBuilder::finish() && {
    while (parts_.size() > 1) endTop();
    std::u16string text = std::move(top().text);
    if (!top().boxes.empty()) {
        endLastParagraph(text);
        text += top().boxes;
    }
    for (const std::u16string& note : notes_) {
        if (note.empty()) continue;
        endLastParagraph(text);
        text += note;
    }
    return text;
}
