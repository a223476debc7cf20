// SPDX-License-Identifier: Apache-2.0
#include "Platform/Foundation/NSPathUtilities.h"
#include "Tests/Support/TemporaryFolder.h"
#include "ZORFoundation/Source/NSURL+ZORFileBasics.h"

#include <atomic>
#include <cerrno>
#include <fcntl.h>
#include <filesystem>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <thread>
#include <unistd.h>
#include <vector>

namespace {

class SimilarNames : public testing::Test {
protected:
    NSURL at(const std::string& name) const {
        return NSURL::fileURLWithPath(stringWithFileSystemRepresentation(folder.path() + "/" + name));
    }
    void make(const std::string& name) const { writeFile(folder.path() + "/" + name, ""); }
    // The similar name's last component.
    std::string similar(const std::string& name) const {
        const NSURL found = zorSimilarNonExistentURL(at(name));
        EXPECT_EQ(zorParent(found), NSObject(at(""))) << name;
        return fileSystemRepresentation(zorName(found));
    }
    TemporaryFolder folder;
};

TEST_F(SimilarNames, AreTheNameItselfWhenItIsFree) {
    EXPECT_EQ(zorSimilarNonExistentURL(at("Report.pdf")), NSObject(at("Report.pdf")));
    EXPECT_EQ(zorSimilarNonExistentURL(at("Report.pdf")), NSObject(at("Report.pdf"))) << "again";
    EXPECT_FALSE(zorSimilarNonExistentURL(NSURL()));
}

TEST_F(SimilarNames, AreNumberedBeforeTheExtension) {
    struct {
        const char *name, *first, *second;
    } cases[] = {{"Report.pdf", "Report-1.pdf", "Report-2.pdf"},
                 {"site.tar.gz", "site-1.tar.gz", "site-2.tar.gz"},
                 {"Tool.app.zip", "Tool-1.app.zip", "Tool-2.app.zip"},
                 {"Site.TAR.gz", "Site-1.TAR.gz", "Site-2.TAR.gz"},
                 {"a.b.c", "a.b-1.c", "a.b-2.c"},
                 {"plain", "plain-1", "plain-2"},
                 {".hidden", ".hidden-1", ".hidden-2"},
                 {"notes.old copy", "notes.old copy-1", "notes.old copy-2"},
                 {"a b.txt", "a b-1.txt", "a b-2.txt"},
                 {"100%.txt", "100%-1.txt", "100%-2.txt"},
                 {"\xff.txt", "\xff-1.txt", "\xff-2.txt"}};
    for (const auto& c : cases) {
        make(c.name);
        EXPECT_EQ(similar(c.name), c.first);
        make(c.first);
        EXPECT_EQ(similar(c.name), c.second);
    }
}

TEST_F(SimilarNames, SkipTheNumbersThatAreTaken) {
    make("a.tar.gz");
    make("a-1.tar.gz");
    EXPECT_EQ(similar("a.tar.gz"), "a-2.tar.gz");
    make("a-3.tar.gz");
    make("a-2.tar.gz");
    EXPECT_EQ(similar("a.tar.gz"), "a-4.tar.gz");
}

TEST_F(SimilarNames, OfADirectoryAreNumberedToo) {
    ASSERT_EQ(mkdir((folder.path() + "/Tool.app").c_str(), 0700), 0);
    EXPECT_EQ(similar("Tool.app"), "Tool-1.app");
}

TEST_F(SimilarNames, OfADanglingLinkAreItsOwn) {
    ASSERT_EQ(symlink("nothing", (folder.path() + "/link").c_str()), 0);
    EXPECT_EQ(similar("link"), "link");
}

TEST_F(SimilarNames, AreCutToTheLongestName) {
    const std::string longest = std::string(251, 'n') + ".pdf";
    make(longest);
    EXPECT_EQ(similar(longest), std::string(249, 'n') + "-1.pdf");
    const std::string shorter = std::string(249, 'n') + ".pdf";
    make(shorter);
    EXPECT_EQ(similar(shorter), std::string(249, 'n') + "-1.pdf");
    make(std::string(249, 'n') + "-1.pdf");
    for (int i = 2; i < 10; ++i) make(std::string(249, 'n') + "-" + std::to_string(i) + ".pdf");
    EXPECT_EQ(similar(longest), std::string(248, 'n') + "-10.pdf");
}

TEST_F(SimilarNames, KeepCompositeCharactersWhole) {
    // 255 bytes of "e" with its accent: the cut never parts them.
    std::string name;
    for (int i = 0; i < 83; ++i) name += "e\xCC\x81";
    make(name + ".txt");
    EXPECT_EQ(similar(name + ".txt"), name + "-1.txt");
}

TEST_F(SimilarNames, InADirectoryKeepTheLastComponent) {
    ASSERT_EQ(mkdir((folder.path() + "/other").c_str(), 0700), 0);
    make("Report.pdf");
    EXPECT_EQ(zorSimilarNonExistentURLInDirectory(at("Report.pdf"), at("other")),
              NSObject(at("other/Report.pdf")));
    make("other/Report.pdf");
    EXPECT_EQ(zorSimilarNonExistentURLInDirectory(at("Report.pdf"), at("other")),
              NSObject(at("other/Report-1.pdf")));
}

TEST_F(SimilarNames, NeverMeetBetweenThreadsThatCreateThem) {
    constexpr int kThreads = 8, kNames = 25;
    std::atomic<int> collisions{0}, failures{0};
    auto work = [&] {
        for (int i = 0; i < kNames; ++i) {
            const NSURL mine = zorSimilarNonExistentURL(at("Report.pdf"));
            std::this_thread::yield();
            const int fd =
                open(zorFileSystemRepresentation(mine)->c_str(), O_CREAT | O_EXCL | O_WRONLY, 0600);
            if (fd < 0) ++(errno == EEXIST ? collisions : failures);
            if (fd >= 0) close(fd);
        }
    };
    std::vector<std::thread> threads;
    for (int i = 0; i < kThreads; ++i) threads.emplace_back(work);
    for (std::thread& thread : threads) thread.join();
    EXPECT_EQ(collisions, 0);
    EXPECT_EQ(failures, 0);
    const auto entries = std::filesystem::directory_iterator(folder.path());
    EXPECT_EQ(std::distance(begin(entries), end(entries)), kThreads * kNames);
    EXPECT_EQ(similar("Report.pdf"), "Report-" + std::to_string(kThreads * kNames) + ".pdf")
        << "none left out";
}

TEST_F(SimilarNames, AreKeptForTheirThreadUntilItAsksAgainOrEnds) {
    auto elsewhere = [&](const std::string& name) {
        std::string found;
        std::thread([&] { found = similar(name); }).join();
        return found;
    };
    EXPECT_EQ(elsewhere("Report.pdf"), "Report.pdf");
    EXPECT_EQ(similar("Report.pdf"), "Report.pdf") << "the other thread has ended";
    EXPECT_EQ(elsewhere("Report.pdf"), "Report-1.pdf");
    EXPECT_EQ(similar("Other.pdf"), "Other.pdf");
    EXPECT_EQ(elsewhere("Report.pdf"), "Report.pdf");
}

TEST_F(SimilarNames, AreFreeAgainOnceTheyHaveBeenUsed) {
    NSURL mine = zorSimilarNonExistentURL(at("Report.pdf"));
    auto elsewhere = [&] {
        std::string found;
        std::thread([&] { found = similar("Report.pdf"); }).join();
        return found;
    };
    EXPECT_EQ(elsewhere(), "Report-1.pdf");
    make("Report.pdf");
    EXPECT_EQ(elsewhere(), "Report-1.pdf");
    std::filesystem::remove(folder.path() + "/Report.pdf");
    EXPECT_EQ(elsewhere(), "Report.pdf");
}

TEST_F(SimilarNames, InADirectoryOfTwoNamesNeverMeet) {
    std::filesystem::create_directory(folder.path() + "/real");
    std::filesystem::create_directory_symlink("real", folder.path() + "/link");
    NSURL mine = zorSimilarNonExistentURL(at("real/x"));
    EXPECT_EQ(fileSystemRepresentation(zorName(mine)), "x");
    std::string other;
    std::thread([&] {
        other = fileSystemRepresentation(zorName(zorSimilarNonExistentURL(at("link/x"))));
    }).join();
    EXPECT_EQ(other, "x-1");
}

TEST(MissingDirectoryDeathTest, IsReportedThenStopsTheProcess) {
    testing::FLAGS_gtest_death_test_style = "threadsafe";
    const NSURL url = NSURL::URLWithString(u"file:///a"),
                directory = NSURL::URLWithString(u"file:///none/at/all");
    EXPECT_DEATH(
        (void)zorSimilarNonExistentURLInDirectory(url, directory),
        "NSURL.ZORFileBasics:[0-9]+ -zorSimilarNonExistentURLInDirectory:: Assertion Failed: Precondition "
        "Failed: \\[directory zorDirectoryExists\\]");
    EXPECT_DEATH((void)zorSimilarNonExistentURLInDirectory(url, directory),
                 "Assertion failed: \\(\\(\\(\\[directory zorDirectoryExists\\]\\)\\)\\), function "
                 "-\\[NSURL\\(ZORFileBasics\\) zorSimilarNonExistentURLInDirectory:\\], file "
                 "ZORFoundation/Source/NSURL.ZORFileBasics, line [0-9]+\\.");
    EXPECT_DEATH((void)zorSimilarNonExistentURLInDirectory(url, NSURL()), "zorDirectoryExists");
}

} // namespace
