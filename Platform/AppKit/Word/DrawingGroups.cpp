// SPDX-License-Identifier: Apache-2.0
#include "Platform/AppKit/Word/DrawingGroups.h"

#include "Platform/Foundation/LittleEndian.h"

namespace Word {

namespace {

constexpr size_t kHeaderSize = 8; // version and instance, type, length

enum RecordType : uint16_t {
    kDrawing = 0xF002,
    kGroup = 0xF003,
    kShape = 0xF004,
    kShapeProperties = 0xF00A,
};

} // namespace

DrawingGroups::DrawingGroups(std::string_view drawings) {
    // First comes a record about all drawings, then each drawing behind a byte that tells whose it is.
    std::string_view rest = slice(drawings, kHeaderSize + uint32At(drawings, 4));
    while (rest.size() > kHeaderSize) {
        size_t size = kHeaderSize + uint32At(rest, 5);
        readDrawing(slice(rest, 1, size));
        rest = slice(rest, 1 + size);
    }
    std::sort(groups_.begin(), groups_.end());
}

// Groups nest. The outermost one is the drawing itself; the first shape in a group is the group.
void DrawingGroups::readDrawing(std::string_view drawing) {
    std::vector<size_t> groupEnds;
    uint32_t group = 0;
    for (size_t offset = 0; holds(drawing, offset, kHeaderSize);) {
        while (!groupEnds.empty() && offset >= groupEnds.back()) groupEnds.pop_back();
        uint16_t type = uint16At(drawing, offset + 2);
        size_t length = uint32At(drawing, offset + 4);
        offset += kHeaderSize;
        if (type == kGroup) {
            groupEnds.push_back(offset + length);
            if (groupEnds.size() == 2) group = 0;
        } else if (type == kShapeProperties && groupEnds.size() > 1) {
            uint32_t shape = uint32At(drawing, offset);
            if (group == 0) {
                group = shape;
            } else {
                groups_.emplace_back(shape, group);
            }
        }
        bool isContainer = type == kDrawing || type == kGroup || type == kShape;
        if (!isContainer) offset += length;
    }
}

uint32_t DrawingGroups::outermost(uint32_t shape) const {
    auto group = std::lower_bound(groups_.begin(), groups_.end(), std::pair(shape, uint32_t(0)));
    return group != groups_.end() && group->first == shape ? group->second : shape;
}

} // namespace Word
