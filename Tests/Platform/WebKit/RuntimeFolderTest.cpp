// SPDX-License-Identifier: Apache-2.0
#include "Platform/WebKit/RuntimeFolder.h"

#include "Platform/WebKit/SandboxProbe.h"

#include <chrono>
#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <thread>

namespace {

namespace fs = std::filesystem;

TEST(RuntimeFolder, GoesWithWhatIsInItWhenItsOwnerGoes) {
    std::string path;
    {
        const RuntimeFolder folder;
        path = folder.path();
        ASSERT_EQ(fs::status(path).permissions(), fs::perms::owner_all);
        fs::create_directories(path + "/a/b");
        std::ofstream(path + "/a/b/file") << "text";
    }
    for (int i = 0; i < 500 && fs::exists(path); ++i)
        std::this_thread::sleep_for(std::chrono::milliseconds(20));
    EXPECT_FALSE(fs::exists(path));
}

TEST(RuntimeFolder, IsInAnotherPlaceWithoutAFolderForTemporaryFiles) {
    const char* before = getenv("TMPDIR");
    const std::string kept = before ? before : "";
    setenv("TMPDIR", "/nonexistent", 1);
    EXPECT_EQ(RuntimeFolder().path().rfind("/tmp/texttool-", 0), 0u);
    before ? setenv("TMPDIR", kept.c_str(), 1) : unsetenv("TMPDIR");
}

// Whatever this system says, a trial that nobody waits for is no hindrance.
TEST(SandboxProbe, EndsWithItsOwner) {
    for (int i = 0; i < 5; ++i) SandboxProbe();
    const bool first = SandboxProbe().succeeded(), second = SandboxProbe().succeeded();
    EXPECT_EQ(first, second);
}

} // namespace
