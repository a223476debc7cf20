// SPDX-License-Identifier: Apache-2.0
#include "Platform/SearchKit/ImporterDescriptor.h"

#include "Platform/SearchKit/ImporterRegistry.h"
#include "Tests/Support/TemporaryFolder.h"

#include <filesystem>
#include <gtest/gtest.h>

namespace {

using Strings = std::vector<std::string>;

const std::string kDocument(1, ImporterDescriptor::kDocument);

ImporterDescriptor described(const std::string& lines) {
    std::string why;
    const auto descriptor = importerDescriptor("[Importer]\nMimeTypes=a/b\n" + lines, why);
    EXPECT_TRUE(descriptor) << why;
    return descriptor.value_or(ImporterDescriptor());
}

std::string refusal(const std::string& text) {
    std::string why;
    EXPECT_FALSE(importerDescriptor(text, why)) << text;
    return why;
}

TEST(ImporterDescriptor, HasDefaults) {
    const ImporterDescriptor d = described("Type=builtin\nReader=text\n");
    EXPECT_EQ(d.mimeTypes, Strings{"a/b"});
    EXPECT_EQ(d.reader, "text");
    EXPECT_EQ(d.priority, 50);
    EXPECT_EQ(d.timeout.count(), 30);
    EXPECT_EQ(d.charset, NSUTF8StringEncoding);
    EXPECT_FALSE(d.writesHTML);
}

TEST(ImporterDescriptor, SaysAllOfAProgram) {
    std::string why;
    const auto d =
        importerDescriptor("# comment\n[Other]\nType=module\n[Importer]\r\n Name = A name \r\n"
                           "MimeTypes=a/b; c/d ;\nType=exec\nExec=run --in=%f \"a \\\"b\\\"\" 100%%\n"
                           "Output=text/html\nCharset=windows-1252\nPriority=70\nTimeout=5\n"
                           "X-Unknown=1\n",
                           why);
    ASSERT_TRUE(d) << why;
    EXPECT_EQ(d->name, "A name");
    EXPECT_EQ(d->mimeTypes, (Strings{"a/b", "c/d"}));
    EXPECT_EQ(d->command, (Strings{"run", "--in=" + kDocument, "a \"b\"", "100%"}));
    EXPECT_TRUE(d->writesHTML);
    EXPECT_EQ(d->charset, NSWindowsCP1252StringEncoding);
    EXPECT_EQ(d->priority, 70);
    EXPECT_EQ(d->timeout.count(), 5);
}

TEST(ImporterDescriptor, IsRefusedWithAReason) {
    const std::string start = "[Importer]\nMimeTypes=a/b\n";
    EXPECT_EQ(refusal(""), "there is no group “[Importer]”");
    EXPECT_EQ(refusal("[Importer]\nType=builtin\nReader=text\n"), "MimeTypes names no kind");
    EXPECT_EQ(refusal(start), "Type is none of “builtin”, “module” and “exec”");
    EXPECT_EQ(refusal(start + "Type=exec\nExec=run\n"), "Exec needs a program and “%f”");
    EXPECT_EQ(refusal(start + "Type=exec\nExec=run \"%f\n"), "a quote in Exec does not end");
    EXPECT_EQ(refusal(start + "Type=exec\nExec=run %u\n"), "Exec knows only “%f” and “%%”");
    EXPECT_EQ(refusal(start + "Type=module\n"), "Module is missing");
    EXPECT_EQ(refusal(start + "Type=builtin\n"), "Reader is missing");
    EXPECT_EQ(refusal(start + "Type=builtin\nReader=text\nPriority=101\n"),
              "Priority is no number from 0 to 100");
    EXPECT_EQ(refusal(start + "Type=builtin\nReader=text\nTimeout=x\n"),
              "Timeout is no number of seconds from 1 to 600");
    EXPECT_EQ(refusal(start + "Type=builtin\nReader=text\nOutput=image/png\n"),
              "Output is neither “text/plain” nor “text/html”");
    EXPECT_EQ(refusal(start + "Type=builtin\nReader=text\nCharset=klingon\n"), "Charset is not known");
    EXPECT_EQ(refusal(start + "nonsense\n"), "“nonsense” is no key with a value");
    EXPECT_EQ(refusal("\xFF"), "it is no text in UTF-8");
}

TEST(ImporterDescriptor, OfEveryImporterThatComesAlongIsSound) {
    size_t count = 0;
    for (const auto& entry : std::filesystem::directory_iterator(DESCRIPTORS_FOLDER)) {
        std::string why;
        EXPECT_TRUE(importerDescriptor(readFile(entry.path()), why)) << entry.path() << ": " << why;
        ++count;
    }
    EXPECT_GT(count, 0u);
}

class Registry : public testing::Test {
protected:
    void write(const std::string& data, const std::string& name, const std::string& lines) const {
        const std::string path = folder.path() + "/" + data + "/texttool/importers";
        std::filesystem::create_directories(path);
        writeFile(path + "/" + name, "[Importer]\nType=builtin\nReader=text\n" + lines);
    }
    std::string nameFor(const Strings& types) const {
        const ImporterRegistry registry({folder.path() + "/user", folder.path() + "/system"});
        const auto* importer = registry.importerForTypes(types, [](const auto&) { return true; });
        return importer ? importer->name : "";
    }
    TemporaryFolder folder;
};

TEST_F(Registry, AsksTheUsersFirstThenByPriorityThenByName) {
    write("system", "a.importer", "MimeTypes=a/b\nPriority=99\n");
    EXPECT_EQ(nameFor({"a/b"}), "a");
    write("user", "c.importer", "MimeTypes=a/b\n");
    EXPECT_EQ(nameFor({"a/b"}), "c");
    write("user", "b.importer", "MimeTypes=a/b\n");
    EXPECT_EQ(nameFor({"a/b"}), "b");
    write("user", "d.importer", "MimeTypes=a/b\nPriority=51\n");
    EXPECT_EQ(nameFor({"a/b"}), "d");
}

TEST_F(Registry, PrefersTheNearestType) {
    write("user", "parent.importer", "MimeTypes=a/parent\n");
    write("user", "sort.importer", "MimeTypes=a/*\n");
    EXPECT_EQ(nameFor({"a/b", "a/parent"}), "parent");
    EXPECT_EQ(nameFor({"a/b"}), "sort");
    EXPECT_EQ(nameFor({"b/b", "text/plain"}), "text") << "a built-in one";
    EXPECT_EQ(nameFor({"b/b"}), "");
}

TEST_F(Registry, IsNotDisturbedByDamagedDescriptors) {
    write("user", "a.importer", "MimeTypes=a/b\nPriority=many\n");
    write("user", "b.importer", "MimeTypes=a/b\n");
    write("user", "c.importer", "MimeTypes=a/b\nReader=none\n");
    write("user", "not-one", "MimeTypes=a/b\nPriority=99\n");
    std::filesystem::create_directories(folder.path() + "/user/texttool/importers/d.importer");
    testing::internal::CaptureStderr();
    EXPECT_EQ(nameFor({"a/b"}), "b");
    const std::string log = testing::internal::GetCapturedStderr();
    EXPECT_EQ(std::count(log.begin(), log.end(), '\n'), 3);
    EXPECT_NE(log.find("a.importer is not used: Priority is no number from 0 to 100"), log.npos) << log;
    EXPECT_NE(log.find("c.importer is not used: there is no such reader"), log.npos);
}

} // namespace
