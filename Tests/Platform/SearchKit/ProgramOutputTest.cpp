// SPDX-License-Identifier: Apache-2.0
#include "Platform/SearchKit/ProgramOutput.h"

#include "Tests/Support/TemporaryFolder.h"

#include <csignal>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {

struct Outcome {
    bool isSuccess = false;
    std::string output, why;
};

Outcome run(const std::string& script, const ProgramLimits& limits = ProgramLimits()) {
    Outcome outcome;
    outcome.isSuccess =
        readProgramOutput({"/bin/sh", "-c", script, "name", "$(x)"}, limits, outcome.output, outcome.why);
    return outcome;
}

ProgramLimits brief() {
    ProgramLimits limits;
    limits.time = std::chrono::seconds(1);
    return limits;
}

TEST(ProgramOutput, IsWhatTheProgramWrites) {
    const Outcome outcome = run("printf '%s' \"$1\"; echo complaint >&2");
    EXPECT_TRUE(outcome.isSuccess) << outcome.why;
    EXPECT_EQ(outcome.output, "$(x)") << "no shell looks at arguments";
}

TEST(ProgramOutput, HasNothingOnItsInput) { EXPECT_EQ(run("cat; echo end").output, "end\n"); }

TEST(ProgramOutput, TellsHowTheProgramFailed) {
    EXPECT_EQ(run("exit 3").why, "it ended with status 3");
    EXPECT_EQ(run("kill -SEGV $$").why, "it ended with signal 11");
    std::string output, why;
    EXPECT_FALSE(readProgramOutput({"/none/such"}, ProgramLimits(), output, why));
    EXPECT_EQ(why, "it cannot be started");
}

TEST(ProgramOutput, IsBoundedInTime) {
    EXPECT_EQ(run("sleep 60", brief()).why, "it took too long");
    EXPECT_EQ(run("exec >&-; sleep 60", brief()).why, "it took too long") << "with its output closed";
}

TEST(ProgramOutput, IsBoundedInLength) {
    ProgramLimits limits;
    limits.output = 100'000;
    EXPECT_EQ(run("yes", limits).why, "it wrote too much");
}

TEST(ProgramOutput, IsBoundedInMemory) {
    ProgramLimits limits;
    limits.memory = 64 << 20;
    EXPECT_FALSE(run("exec head -c 300000000 /dev/zero | tail -c 200000000", limits).output.size() >
                 1'000'000);
}

TEST(ProgramOutput, LeavesNoProcessBehind) {
    const Outcome outcome = run("sleep 60 >/dev/null & echo $!");
    ASSERT_TRUE(outcome.isSuccess) << outcome.why;
    const pid_t left = pid_t(std::stoi(outcome.output));
    for (int i = 0; i < 200 && kill(left, 0) == 0; ++i) usleep(10'000);
    // Killed; where nobody reaps orphans it stays a zombie.
    const std::string state = "/proc/" + std::to_string(left) + "/stat";
    EXPECT_TRUE(kill(left, 0) != 0 || readFile(state).find(") Z ") != std::string::npos);
}

TEST(ProgramOutput, NeedsAProgramThatCanBeRun) {
    TemporaryFolder folder;
    writeFile(folder.path() + "/file", "text");
    EXPECT_EQ(programFile(folder.path() + "/file"), "");
    EXPECT_EQ(programFile(folder.path()), "");
    EXPECT_EQ(programFile("/bin/sh"), "/bin/sh");
    EXPECT_NE(programFile("sh"), "");
    EXPECT_EQ(programFile("no-such-program-anywhere"), "");
}

} // namespace
