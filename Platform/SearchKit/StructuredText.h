// SPDX-License-Identifier: Apache-2.0
//
// What people read of texts that are written for programs. All take any text, however damaged.
#pragma once

#include <string>
#include <string_view>

// JSON, also several values in one file, with the escapes of its strings resolved.
std::u16string textOfJSON(std::u16string_view json);

// Tables with commas between their fields, or semicolons where the first line has them; each field on a line
// of its own, since "1,2" would else be one number.
std::u16string textOfTable(std::u16string_view table);

// Subtitles in SubRip, WebVTT and SubStation Alpha, without their times, numbers and marks.
std::u16string textOfSubtitles(std::u16string_view subtitles);
