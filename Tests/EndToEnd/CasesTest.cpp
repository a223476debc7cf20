// SPDX-License-Identifier: Apache-2.0
//
// Documents and what the program makes of them, as data. A case is a folder of Samples/Cases with
//
//   arguments    the command line, one argument a line
//   environment  variables, NAME=value a line; optional
//   expected     the log lines, then the record as showrecord prints it, or "no record"
//
// and the documents, all of which the arguments or the variables name. The program runs in the case's folder.
// An @ stands for the folder's path, in the arguments, in the variables and in what is expected.
//
// With UPDATE_EXPECTED=1 in the environment the tests write `expected` anew: read the difference before you
// keep it.
#include "Tests/EndToEnd/EndToEnd.h"

#include <algorithm>
#include <cstdlib>
#include <filesystem>

namespace {

namespace fs = std::filesystem;

const fs::path kCases = fs::path(SAMPLES_FOLDER) / "Cases";

std::vector<std::string> caseNames() {
    std::vector<std::string> names;
    for (const auto& entry : fs::directory_iterator(kCases)) names.push_back(entry.path().filename());
    std::sort(names.begin(), names.end());
    return names;
}

std::string replaced(std::string text, const std::string& from, const std::string& to) {
    for (size_t at = 0; (at = text.find(from, at)) != std::string::npos; at += to.size()) {
        text.replace(at, from.size(), to);
    }
    return text;
}

std::vector<std::string> linesOf(const fs::path& file, const std::string& folder) {
    std::string text = replaced(readFile(file), "@", folder);
    std::vector<std::string> lines;
    for (size_t at = 0; at < text.size();) {
        size_t end = std::min(text.find('\n', at), text.size());
        lines.push_back(text.substr(at, end - at));
        at = end + 1;
    }
    return lines;
}

ToolCommand commandOf(const fs::path& folder) {
    ToolCommand command{.arguments = linesOf(folder / "arguments", folder), .directory = folder};
    if (!fs::exists(folder / "environment")) return command;
    for (const std::string& line : linesOf(folder / "environment", folder)) {
        size_t sign = line.find('=');
        command.environment[line.substr(0, sign)] = line.substr(sign + 1);
    }
    return command;
}

// What the case names: its arguments and the values of its variables.
std::vector<std::string> namesIn(const fs::path& folder) {
    const ToolCommand command = commandOf(folder);
    std::vector<std::string> names = command.arguments;
    for (const auto& [variable, value] : command.environment) names.push_back(value);
    return names;
}

std::string shown(const ToolResult& result) {
    std::string text;
    for (const std::string& line : logLines(result)) text += "log: " + line + "\n";
    if (result.output.empty()) return text + "no record\n";
    return text + runTool({.input = result.output, .program = SHOWRECORD_PROGRAM}).output;
}

class Cases : public testing::TestWithParam<std::string> {};

TEST_P(Cases, GiveWhatIsExpected) {
    fs::path folder = kCases / GetParam();
    ToolResult result = runTool(commandOf(folder));
    EXPECT_EQ(result.status, 0);
    std::string actual = replaced(shown(result), folder, "@");
    if (getenv("UPDATE_EXPECTED")) writeFile(folder / "expected", actual);
    EXPECT_EQ(readFile(folder / "expected"), actual);
}

INSTANTIATE_TEST_SUITE_P(Samples, Cases, testing::ValuesIn(caseNames()), [](const auto& test) {
    std::string name = test.param;
    std::replace_if(
        name.begin(), name.end(), [](char c) { return !isalnum(c); }, '_');
    return name;
});

bool isNamedBy(const std::vector<std::string>& arguments, const fs::path& folder, const fs::path& file) {
    return std::any_of(arguments.begin(), arguments.end(), [&](const std::string& argument) {
        fs::path named = argument.empty() ? fs::path() : (folder / argument).lexically_normal();
        return !argument.empty() &&
               std::mismatch(named.begin(), named.end(), file.begin(), file.end()).first == named.end();
    });
}

TEST(SamplesOfCases, AreAllRead) {
    for (const auto& entry : fs::recursive_directory_iterator(kCases)) {
        if (entry.is_directory()) continue;
        fs::path inCases = entry.path().lexically_relative(kCases);
        fs::path folder = kCases / *inCases.begin();
        ASSERT_TRUE(fs::is_directory(folder)) << entry.path() << " is in no case";
        std::string name = entry.path().filename();
        bool isDescription = entry.path().parent_path() == folder &&
                             (name == "arguments" || name == "environment" || name == "expected");
        EXPECT_TRUE(isDescription || isNamedBy(namesIn(folder), folder, entry.path()))
            << entry.path() << " is not read by its case";
    }
}

} // namespace
