// SPDX-License-Identifier: Apache-2.0
#include "Platform/Foundation/Containment.h"

#include "Platform/Foundation/ByteRecord.h"

#include <atomic>
#include <csignal>
#include <cstdlib>
#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

namespace {

using namespace std::chrono_literals;

bool answers(const std::function<std::string()>& work, const ContainmentLimits& limits = {}) {
    std::string answer;
    return runContained(work, answer, limits);
}

TEST(Containment, GivesTheAnswerOfTheWork) {
    std::string answer = "old";
    EXPECT_TRUE(runContained([] { return std::string("new\0", 4); }, answer));
    EXPECT_EQ(answer, std::string("new\0", 4));
    EXPECT_TRUE(runContained([] { return std::string(); }, answer));
    EXPECT_EQ(answer, "");
    EXPECT_TRUE(runContained([] { return std::string(3 << 20, 'x'); }, answer));
    EXPECT_EQ(answer.size(), 3u << 20);
}

TEST(Containment, DoesTheWorkElsewhere) {
    static int changed = 0;
    std::string answer;
    EXPECT_TRUE(runContained([] { return std::to_string(changed = getpid()); }, answer));
    EXPECT_NE(answer, std::to_string(getpid()));
    EXPECT_EQ(changed, 0);
}

TEST(Containment, OutlivesACrash) {
    EXPECT_FALSE(answers([]() -> std::string { std::abort(); }));
    EXPECT_FALSE(answers([]() -> std::string {
        raise(SIGSEGV);
        return {};
    }));
    EXPECT_FALSE(answers([]() -> std::string { _exit(0); }));
}

TEST(Containment, EndsWorkThatTakesTooLong) {
    const auto spin = []() -> std::string {
        std::atomic<unsigned> turns = 0;
        for (;;) ++turns;
    };
    EXPECT_FALSE(answers(spin, {.processorTime = 20ms}));
    const auto sleep = []() -> std::string {
        for (;;) pause();
    };
    EXPECT_FALSE(answers(sleep, {.wallTime = 1s}));
}

TEST(Containment, BoundsTheAnswer) {
    EXPECT_FALSE(answers([] { return std::string(1 << 20, 'x'); }, {.answer = 1 << 16}));
}

TEST(Containment, PrintsNothing) {
    testing::internal::CaptureStderr();
    EXPECT_TRUE(answers([] {
        (void)!write(STDERR_FILENO, "noise", 5);
        return std::string();
    }));
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "");
}

TEST(ByteRecord, GivesBackWhatWasAdded) {
    ByteRecordWriter writer;
    writer.add(uint64_t(7));
    writer.add(std::string_view("text"));
    writer.add(std::u16string(u"wide\0", 5));
    const std::string bytes = writer.take();
    ByteRecordReader reader(bytes);
    EXPECT_EQ(reader.number(), 7u);
    EXPECT_EQ(reader.string(), "text");
    EXPECT_FALSE(reader.atEnd());
    EXPECT_EQ(reader.wideString(), std::u16string(u"wide\0", 5));
    EXPECT_TRUE(reader.atEnd());
    EXPECT_EQ(reader.number(), 0u);
    EXPECT_EQ(reader.string(), "");
}

} // namespace
