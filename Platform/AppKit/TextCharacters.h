// SPDX-License-Identifier: Apache-2.0
//
// The characters that stand in a document's text for what is more than a character: breaks, the blanks and
// hyphens that bind or part words, attachments. They are the same for all readers.
#pragma once

constexpr char16_t kParagraphEnd = u'\n';
constexpr char16_t kLineBreak = u'\u2028';
constexpr char16_t kPageBreak = u'\f';
constexpr char16_t kTab = u'\t';
constexpr char16_t kNoBreakSpace = u'\u00A0';
constexpr char16_t kNoBreakHyphen = u'\u2011';
constexpr char16_t kSoftHyphen = u'\u00AD';
constexpr char16_t kAttachment = u'\uFFFC';
