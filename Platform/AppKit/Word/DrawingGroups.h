// SPDX-License-Identifier: Apache-2.0
//
// Shapes that are grouped: the text knows only the group's anchor, the text boxes only their own shape.
#pragma once

#include <cstdint>
#include <string_view>
#include <utility>
#include <vector>

namespace Word {

class DrawingGroups {
public:
    explicit DrawingGroups(std::string_view drawings);

    // The outermost group that a shape is in, or the shape itself.
    uint32_t outermost(uint32_t shape) const;

private:
    void readDrawing(std::string_view drawing);

    std::vector<std::pair<uint32_t, uint32_t>> groups_; // shape and group, ascending
};

} // namespace Word
