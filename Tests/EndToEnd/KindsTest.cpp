// SPDX-License-Identifier: Apache-2.0
//
// Files of many kinds as people's programs write them, and their words, as data. Samples/Kinds holds the
// files, the script `make` that made them, and `terms`, a line for each file:
//
//   NAME: the terms in the order of the index
//   NAME [PROGRAM...]: the terms, by an importer that needs these programs or libraries; skipped without them
//
// With UPDATE_EXPECTED=1 in the environment the tests write `terms` anew, one after the other: read the
// difference before you keep it.
#include "Tests/EndToEnd/EndToEnd.h"

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <ostream>
#include <sstream>

namespace {

namespace fs = std::filesystem;

const fs::path kKinds = fs::path(SAMPLES_FOLDER) / "Kinds";

struct Kind {
    std::string name;
    std::vector<std::string> needed;
    std::string terms;
};

void PrintTo(const Kind& kind, std::ostream* stream) { *stream << kind.name; }

std::string lineOf(const Kind& kind) {
    std::string needed;
    for (const std::string& program : kind.needed) needed += (needed.empty() ? "" : " ") + program;
    return kind.name + (needed.empty() ? "" : " [" + needed + "]") + ": " + kind.terms;
}

Kind kindOf(const std::string& line) {
    const size_t colon = std::min(line.find(": "), line.size());
    Kind kind;
    if (colon < line.size()) kind.terms = line.substr(colon + 2);
    std::string head = line.substr(0, colon);
    std::replace_if(
        head.begin(), head.end(), [](char c) { return c == '[' || c == ']' || c == ':'; }, ' ');
    std::istringstream words(head);
    words >> kind.name;
    for (std::string program; words >> program;) kind.needed.push_back(program);
    return kind;
}

std::vector<Kind> allKinds() {
    std::istringstream lines(readFile(kKinds / "terms"));
    std::vector<Kind> kinds;
    for (std::string line; std::getline(lines, line);) {
        if (!line.empty() && line[0] != '#') kinds.push_back(kindOf(line));
    }
    return kinds;
}

void keepTerms(const Kind& read) {
    std::istringstream lines(readFile(kKinds / "terms"));
    std::string kept;
    for (std::string line; std::getline(lines, line);) {
        const bool isOther = line.empty() || line[0] == '#' || kindOf(line).name != read.name;
        kept += (isOther ? line : lineOf(read)) + "\n";
    }
    writeFile(kKinds / "terms", kept);
}

bool isThere(const std::string& program) {
    for (const char* folder : {"/usr/bin/", "/bin/", "/usr/share/recoll/filters/", MODULE_FOLDER "/"}) {
        if (fs::exists(folder + program)) return true;
    }
    return false;
}

class Kinds : public testing::TestWithParam<Kind> {
protected:
    // The importers that come with the tool are as if they were installed.
    void SetUp() override {
        fs::create_directories(folder.path() + "/texttool");
        fs::create_directory_symlink(DESCRIPTORS_FOLDER, folder.path() + "/texttool/importers");
    }
    std::string termsOf(const Kind& kind) const {
        const std::string data = folder.path() + ":/usr/local/share:/usr/share";
        const ToolResult result = runTool(
            {.arguments = {"-SpotlightPath", kKinds / kind.name}, .environment = {{"XDG_DATA_DIRS", data}}});
        EXPECT_EQ(result.status, 0);
        EXPECT_EQ(result.errors, "");
        std::string terms = stringIn(recordOf(result.output), u"string");
        if (terms.ends_with(' ')) terms.pop_back();
        return terms;
    }

    TemporaryFolder folder;
};

TEST_P(Kinds, GiveTheirTerms) {
    Kind kind = GetParam();
    for (const std::string& program : kind.needed) {
        if (!isThere(program))
            GTEST_SKIP() << kind.name << " needs " << program << ", which is not installed";
    }
    const std::string expected = std::exchange(kind.terms, termsOf(kind));
    if (getenv("UPDATE_EXPECTED")) {
        keepTerms(kind);
    } else {
        EXPECT_EQ(kind.terms, expected);
    }
}

INSTANTIATE_TEST_SUITE_P(Samples, Kinds, testing::ValuesIn(allKinds()), [](const auto& test) {
    std::string name = test.param.name;
    std::replace_if(
        name.begin(), name.end(), [](char c) { return !isalnum(c); }, '_');
    return name;
});

TEST(SamplesOfKinds, AreAllRead) {
    std::vector<std::string> listed{"make", "terms"}, found;
    for (const Kind& kind : allKinds()) listed.push_back(kind.name);
    for (const auto& entry : fs::directory_iterator(kKinds)) found.push_back(entry.path().filename());
    std::sort(listed.begin(), listed.end());
    std::sort(found.begin(), found.end());
    EXPECT_EQ(found, listed);
}

} // namespace
