// SPDX-License-Identifier: Apache-2.0
#include "Platform/AppKit/RTF/RTFTokenizer.h"

#include <gtest/gtest.h>
#include <string>
#include <string_view>

namespace {

// One line for all tokens: { } \word \word=7 \'41 "text" and the symbols as they stand.
std::string tokensOf(std::string_view rtf) {
    std::string line;
    RTFTokenizer tokenizer(rtf);
    for (;;) {
        RTFToken token = tokenizer.next();
        if (token.kind == RTFToken::Kind::end) return line;
        if (!line.empty()) line += ' ';
        switch (token.kind) {
        case RTFToken::Kind::end: break;
        case RTFToken::Kind::groupBegin: line += '{'; break;
        case RTFToken::Kind::groupEnd: line += '}'; break;
        case RTFToken::Kind::word:
            line += '\\' + std::string(token.text);
            if (token.hasParameter) line += '=' + std::to_string(token.parameter);
            break;
        case RTFToken::Kind::symbol: line += '\\' + std::string(token.text); break;
        case RTFToken::Kind::byte: line += '#' + std::to_string(token.parameter); break;
        case RTFToken::Kind::text: line += '"' + std::string(token.text) + '"'; break;
        }
    }
}

struct TokenCase {
    std::string_view rtf, tokens;
};

TEST(RTFTokenizer, cutsWordsSymbolsBytesBracesAndText) {
    constexpr TokenCase kCases[] = {
        {"", ""},
        {"{}", "{ }"},
        {"{\\b bold}", "{ \\b \"bold\" }"},
        {"\\fs24 x", "\\fs=24 \"x\""},
        {"\\fs24  x", "\\fs=24 \" x\""},
        {"\\li-720\\par", "\\li=-720 \\par"},
        {"\\b-x", "\\b \"-x\""},
        {"\\b- x", "\\b \"- x\""},
        {"\\u8226?", "\\u=8226 \"?\""},
        {"\\NeXTGraphic a", "\\NeXTGraphic \"a\""},
        {"\\~\\_\\-\\*", "\\~ \\_ \\- \\*"},
        {"\\\\\\{\\}", "\\\\ \\{ \\}"},
        {"\\'41\\'eF", "#65 #239"},
        {"a\\\tb", "\"a\" \\\t \"b\""},
        {"\\b\nx", "\\b \"x\""},
    };
    for (const TokenCase& c : kCases) EXPECT_EQ(tokensOf(c.rtf), c.tokens) << c.rtf;
}

TEST(RTFTokenizer, leavesOutLineEndsAndNULBytes) {
    EXPECT_EQ(tokensOf(std::string_view("a\r\nb\0c", 6)), "\"a\" \"b\" \"c\"");
}

TEST(RTFTokenizer, holdsParametersWithinTheirRange) {
    EXPECT_EQ(tokensOf("\\a99999999999999999999999\\b-99999999999999999999999"),
              "\\a=2147483647 \\b=-2147483647");
    EXPECT_EQ(tokensOf("\\a0000000000000000000000012"), "\\a=12");
}

TEST(RTFTokenizer, stepsOverBinaryDataOfItsLength) {
    EXPECT_EQ(tokensOf("\\bin4 {}\\}x"), "\\bin=4 \"x\"");
    EXPECT_EQ(tokensOf("\\bin4{}\\}x"), "\\bin=4 \"x\"");
    EXPECT_EQ(tokensOf("\\bin0 x"), "\\bin=0 \"x\"");
    EXPECT_EQ(tokensOf("\\bin x"), "\\bin \"x\"");
    EXPECT_EQ(tokensOf("\\bin-5 x"), "\\bin=-5 \"x\"");
    EXPECT_EQ(tokensOf("\\bin2147483647 x"), "\\bin=2147483647");
}

TEST(RTFTokenizer, leavesOutBytesThatAreNotToldWhole) {
    EXPECT_EQ(tokensOf("a\\'zzb"), "\"a\" \"zzb\"");
    EXPECT_EQ(tokensOf("a\\'4"), "\"a\" \"4\"");
    EXPECT_EQ(tokensOf("a\\'"), "\"a\"");
    EXPECT_EQ(tokensOf("a\\"), "\"a\"");
}

TEST(RTFTokenizer, skipsTheRestOfTheOpenGroup) {
    constexpr TokenCase kCases[] = {
        {"a{b}c}d", "} \"d\""},
        {"{{}{}}\\}\\{\\\\}d", "} \"d\""},
        {"\\bin3 }}}}d", "} \"d\""},
        {"\\'7d}d", "} \"d\""},
        {"}d", "} \"d\""},
        {"{a}", ""},
        {"a\\", ""},
    };
    for (const TokenCase& c : kCases) {
        RTFTokenizer tokenizer(c.rtf);
        Deadline deadline;
        tokenizer.skipGroup(deadline);
        std::string rest;
        for (RTFToken token = tokenizer.next(); token.kind != RTFToken::Kind::end; token = tokenizer.next())
            rest += token.kind == RTFToken::Kind::groupEnd ? "} " : '"' + std::string(token.text) + '"';
        EXPECT_EQ(rest, c.tokens) << c.rtf;
    }
}

} // namespace
