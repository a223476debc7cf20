// SPDX-License-Identifier: Apache-2.0
#include "Platform/SearchKit/MIMEDatabase.h"

#include "Platform/SearchKit/MagicRules.h"
#include "Tests/Support/TemporaryFolder.h"

#include <filesystem>
#include <gtest/gtest.h>

namespace {

using Types = std::vector<std::string>;

class KindsOfFiles : public testing::Test {
protected:
    // A folder of data with these files of the database.
    std::string data(const std::string& name, const std::map<std::string, std::string>& files) const {
        const std::string path = folder.path() + "/" + name;
        std::filesystem::create_directories(path + "/mime");
        for (const auto& [file, bytes] : files) writeFile(path + "/mime/" + file, bytes);
        return path;
    }
    TemporaryFolder folder;
};

TEST_F(KindsOfFiles, AreToldByNames) {
    const MIMEDatabase kinds(
        {data("a", {{"globs2", "# comment\n80:text/html:*.html\n50:a/tar:*.tar\n"
                               "50:a/gz:*.gz\n50:a/targz:*.tar.gz\n50:text/x-make:makefile\n"
                               "50:text/c:*.c:cs\n50:text/c++:*.C:cs\n50:a/old:*.html\n"
                               "10:a/readme:README*\n"}})});
    EXPECT_EQ(kinds.typeOf("a.html", ""), "text/html") << "the greatest weight";
    EXPECT_EQ(kinds.typeOf("A.HTML", ""), "text/html");
    EXPECT_EQ(kinds.typeOf("a.tar.gz", ""), "a/targz") << "the longest pattern";
    EXPECT_EQ(kinds.typeOf("makefile", ""), "text/x-make");
    EXPECT_EQ(kinds.typeOf("a.c", ""), "text/c");
    EXPECT_EQ(kinds.typeOf("a.C", ""), "text/c++");
    EXPECT_EQ(kinds.typeOf("README.x", ""), "a/readme");
    EXPECT_EQ(kinds.typeOf("a.other", ""), "");
}

template <size_t size>
std::string bytes(const char (&text)[size]) {
    return std::string(text, size - 1);
}

std::string magic(const std::string& sections) { return bytes("MIME-Magic\0\n") + sections; }

const std::string kRule = bytes("[50:a/one]\n>0=\0\3abc\n");

TEST_F(KindsOfFiles, AreToldByBytesWhereNamesDoNotDecide) {
    const MIMEDatabase kinds(
        {data("a", {{"globs2", "50:a/one:*.x\n50:a/two:*.x\n50:a/three:*.y\n"}, {"magic", magic(kRule)}})});
    EXPECT_EQ(kinds.typeOf("f", "abcd"), "a/one");
    EXPECT_EQ(kinds.typeOf("f.x", "abcd"), "a/one");
    EXPECT_EQ(kinds.typeOf("f.x", "else"), "a/one") << "the first of the names";
    EXPECT_EQ(kinds.typeOf("f.y", "abcd"), "a/three") << "the name decides";
}

TEST_F(KindsOfFiles, OfTheUserGoBeforeTheSystems) {
    const MIMEDatabase kinds(
        {data("user", {{"globs2", "50:a/mine:*.x\n50:a/two:__NOGLOBS__\n50:a/two:*.z\n"}}),
         data("system", {{"globs2", "50:a/two:*.w\n"}})});
    EXPECT_EQ(kinds.typeOf("f.x", ""), "a/mine");
    EXPECT_EQ(kinds.typeOf("f.z", ""), "a/two");
    EXPECT_EQ(kinds.typeOf("f.w", ""), "") << "withdrawn";
}

TEST_F(KindsOfFiles, HaveAliasesAndParents) {
    const MIMEDatabase kinds(
        {data("a", {{"aliases", "a/other a/one\n"},
                    {"subclasses", "a/one a/parent\na/parent text/x\na/loop a/loop\n"}})});
    EXPECT_EQ(kinds.lineage("a/one"), (Types{"a/one", "a/other", "a/parent", "text/x", "text/plain"}));
    EXPECT_EQ(kinds.lineage("a/other"), (Types{"a/other", "a/one", "a/parent", "text/x", "text/plain"}));
    EXPECT_EQ(kinds.lineage("a/loop"), Types{"a/loop"});
    EXPECT_EQ(kinds.lineage(""), Types());
}

TEST_F(KindsOfFiles, AreUnknownWithoutADatabase) {
    const MIMEDatabase kinds({folder.path() + "/none"});
    EXPECT_EQ(kinds.typeOf("a.html", "<html>"), "");
}

TEST(MagicRules, MatchTheBytesOfARange) {
    const std::string rules = magic(bytes("[50:a/one]\n>2=\0\2ab+3\n"));
    EXPECT_EQ(findMagic(rules, "..ab").type, "a/one");
    EXPECT_EQ(findMagic(rules, "....ab").type, "a/one");
    EXPECT_EQ(findMagic(rules, ".....ab").type, "");
    EXPECT_EQ(findMagic(rules, "ab").type, "");
}

TEST(MagicRules, MatchUnderAMask) {
    const std::string rules = magic(bytes("[50:a/one]\n>0=\0\2\x10\x20&\xF0\xF0\n"));
    EXPECT_EQ(findMagic(rules, "\x1F\x2F").type, "a/one");
    EXPECT_EQ(findMagic(rules, "\x2F\x2F").type, "");
}

TEST(MagicRules, TakeWordsInTheOrderOfTheMachine) {
    const std::string rules = magic(bytes("[50:a/one]\n>0=\0\2\1\2~2\n"));
    EXPECT_EQ(findMagic(rules, "\2\1").type, "a/one");
}

TEST(MagicRules, NeedARuleBelowEachThatHasSome) {
    const std::string rules = magic(bytes("[50:a/one]\n>0=\0\1a\n1>1=\0\1b\n1>1=\0\1c\n>0=\0\1z\n"));
    EXPECT_EQ(findMagic(rules, "ab").type, "a/one");
    EXPECT_EQ(findMagic(rules, "ac").type, "a/one");
    EXPECT_EQ(findMagic(rules, "ax").type, "");
    EXPECT_EQ(findMagic(rules, "xb").type, "");
    EXPECT_EQ(findMagic(rules, "zb").type, "a/one");
}

TEST(MagicRules, PreferTheHighestPriority) {
    const std::string other = bytes("[60:a/two]\n>0=\0\1a\n");
    EXPECT_EQ(findMagic(magic(kRule + other), "abc").type, "a/two");
    EXPECT_EQ(findMagic(magic(kRule + other), "abc").priority, 60);
}

TEST(MagicRules, EndWhereTheyAreDamaged) {
    const std::string rules = magic(kRule + "[40:a/two]\n>0=\1\1cut off");
    for (size_t length = 0; length < rules.size(); ++length) {
        const std::string type = findMagic(rules.substr(0, length), "abc").type;
        EXPECT_TRUE(type.empty() || type == "a/one") << length;
    }
}

} // namespace
