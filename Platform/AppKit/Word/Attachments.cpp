// SPDX-License-Identifier: Apache-2.0
#include "Platform/AppKit/Word/Attachments.h"

#include "Platform/AppKit/Word/DrawingGroups.h"

#include <utility>

namespace Word {

namespace {

constexpr uint32_t kLongestMark = 10;

class AttachmentReader {
public:
    AttachmentReader(const FileInformation& information, std::string_view tableStream,
                     const PieceTable& pieces)
        : information_(information), tableStream_(tableStream), pieces_(pieces) {}

    std::vector<Attachment> read() {
        readNotes(Attachment::Kind::footnote, Story::footnotes, Table::footnoteReferences,
                  Table::footnoteTexts);
        readNotes(Attachment::Kind::endnote, Story::endnotes, Table::endnoteReferences, Table::endnoteTexts);
        readTextBoxes();
        std::stable_sort(attachments_.begin(), attachments_.end(),
                         [](const Attachment& a, const Attachment& b) { return a.position < b.position; });
        return std::move(attachments_);
    }

private:
    PositionTable positionTable(Table table, size_t entrySize) const {
        return information_.positionTable(table, entrySize, tableStream_);
    }

    void readNotes(Attachment::Kind kind, Story story, Table references, Table texts);
    uint32_t markLength(uint32_t reference, uint32_t text) const;
    void readTextBoxes();
    void anchorByShape(size_t firstBox, const std::vector<uint32_t>& shapes);
    void anchorInOrder(size_t firstBox);

    const FileInformation& information_;
    std::string_view tableStream_;
    const PieceTable& pieces_;
    std::vector<Attachment> attachments_;
};

// The part of a story between two positions of a table, empty when it does not follow `taken`.
FileInformation::Span partOf(FileInformation::Span story, const PositionTable& table, size_t index,
                             uint32_t taken) {
    uint64_t begin = uint64_t(story.begin) + table.position(index);
    uint64_t end = uint64_t(story.begin) + table.position(index + 1);
    if (begin < taken || end <= begin || begin >= story.end) return {};
    return {uint32_t(begin), uint32_t(std::min<uint64_t>(end, story.end))};
}

void AttachmentReader::readNotes(Attachment::Kind kind, Story story, Table references, Table texts) {
    FileInformation::Span span = information_.story(story);
    if (span.begin == span.end) return;
    constexpr size_t kReferenceSize = 2;
    PositionTable places = positionTable(references, kReferenceSize);
    PositionTable parts = positionTable(texts, 0);
    uint32_t taken = span.begin;
    for (size_t i = 0; i < std::min(places.count(), parts.count()); ++i) {
        FileInformation::Span text = partOf(span, parts, i, taken);
        if (text.begin == text.end) continue;
        taken = text.end;
        uint32_t mark = markLength(places.position(i), text.begin);
        text.begin = std::min(text.begin + mark, text.end);
        attachments_.push_back({kind, places.position(i), mark, text.begin, text.end, false});
    }
}

// An author's own mark stands both at the reference and in front of the note; nothing else tells its length.
uint32_t AttachmentReader::markLength(uint32_t reference, uint32_t text) const {
    uint32_t length = 0;
    while (length < kLongestMark) {
        uint16_t unit = pieces_.characterAt(reference + length);
        if (unit <= u' ' || unit != pieces_.characterAt(text + length)) break;
        ++length;
    }
    return length;
}

void AttachmentReader::readTextBoxes() {
    FileInformation::Span span = information_.story(Story::textBoxes);
    if (span.begin == span.end) return;
    constexpr size_t kBoxSize = 22, kReusableOffset = 8, kShapeOffset = 14;
    PositionTable boxes = positionTable(Table::textBoxTexts, information_.isOld ? 0 : kBoxSize);
    size_t firstBox = attachments_.size();
    uint32_t taken = span.begin;
    std::vector<uint32_t> shapes;
    // The last entry stands for the end of the story.
    for (size_t i = 0; i + 1 < boxes.count(); ++i) {
        FileInformation::Span text = partOf(span, boxes, i, taken);
        bool isUnused = uint16At(boxes.entry(i), kReusableOffset) != 0;
        if (text.begin == text.end || isUnused) continue;
        taken = text.end;
        attachments_.push_back(
            {Attachment::Kind::textBox, Attachment::kNowhere, 0, text.begin, text.end, false});
        shapes.push_back(uint32At(boxes.entry(i), kShapeOffset));
    }
    if (information_.isOld) {
        anchorInOrder(firstBox);
    } else {
        anchorByShape(firstBox, shapes);
    }
}

void AttachmentReader::anchorByShape(size_t firstBox, const std::vector<uint32_t>& shapes) {
    constexpr size_t kAnchorSize = 26;
    PositionTable table = positionTable(Table::shapeAnchors, kAnchorSize);
    std::vector<std::pair<uint32_t, uint32_t>> anchors; // shape and position
    anchors.reserve(table.count());
    for (size_t i = 0; i < table.count(); ++i)
        anchors.emplace_back(uint32At(table.entry(i), 0), table.position(i));
    std::sort(anchors.begin(), anchors.end());
    auto positionOf = [&](uint32_t shape) {
        auto anchor = std::lower_bound(anchors.begin(), anchors.end(), std::pair(shape, uint32_t(0)));
        return anchor != anchors.end() && anchor->first == shape ? anchor->second : Attachment::kNowhere;
    };
    bool allAnchored = true;
    for (size_t i = 0; i < shapes.size(); ++i) {
        attachments_[firstBox + i].position = positionOf(shapes[i]);
        allAnchored &= attachments_[firstBox + i].position != Attachment::kNowhere;
    }
    if (allAnchored) return;
    DrawingGroups groups(information_.table(Table::drawings, tableStream_));
    for (size_t i = 0; i < shapes.size(); ++i) {
        uint32_t& position = attachments_[firstBox + i].position;
        if (position == Attachment::kNowhere) position = positionOf(groups.outermost(shapes[i]));
    }
}

// Old documents say at each drawing how many boxes it has.
void AttachmentReader::anchorInOrder(size_t firstBox) {
    constexpr size_t kAnchorSize = 6, kCountOffset = 4;
    PositionTable anchors = positionTable(Table::shapeAnchors, kAnchorSize);
    size_t box = firstBox;
    for (size_t i = 0; i < anchors.count(); ++i) {
        for (unsigned left = uint16At(anchors.entry(i), kCountOffset); left > 0; --left) {
            if (box == attachments_.size()) return;
            attachments_[box++].position = anchors.position(i);
        }
    }
}

} // namespace

std::vector<Attachment> readAttachments(const FileInformation& information, std::string_view tableStream,
                                        const PieceTable& pieces) {
    return AttachmentReader(information, tableStream, pieces).read();
}

} // namespace Word
