// SPDX-License-Identifier: Apache-2.0
#include "Source/Tools/texttool/Lines.h"

NSString joinedLines(const std::vector<NSString>& lines) {
    std::u16string text;
    for (const NSString& line : lines) {
        if (&line != &lines.front()) text += u'\n';
        text += line.text();
    }
    return text;
}
