// SPDX-License-Identifier: Apache-2.0
//
// Any bytes as a document of unknown kind, as plain text, and its text as a list of keywords.
#include "Platform/AppKit/DocumentKinds.h"
#include "Platform/AppKit/Keywords.h"

#include <cstddef>
#include <cstdlib>

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    const std::string_view bytes(reinterpret_cast<const char*>(data), size);
    if (!documentKindOfBytes(bytes) && !bytes.starts_with("bplist0")) std::abort();
    Deadline deadline;
    DocumentContents contents;
    if (readPlainText(bytes, deadline, contents) != ReadStatus::read) std::abort();
    if (contents.text.size() > size) std::abort();

    const std::vector<std::u16string> keywords = splitKeywords(contents.text);
    size_t total = 0;
    for (const std::u16string& keyword : keywords) {
        if (keyword.empty() || keyword.find_first_of(u",;") != std::u16string::npos) std::abort();
        total += keyword.size();
    }
    if (keywords.size() > kKeywordLimit || total > contents.text.size()) std::abort();
    return 0;
}
