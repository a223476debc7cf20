// SPDX-License-Identifier: Apache-2.0
//
// Readers that cannot be loaded: each is an error of its own kind of document and of no other.
#include "Tests/EndToEnd/EndToEnd.h"

#include "Platform/Foundation/NSPathUtilities.h"
#include "Tests/Support/ImageWriter.h"
#include "Tests/Support/MediaWriter.h"

#include <filesystem>

namespace {

namespace fs = std::filesystem;

// A copy of the program without its modules.
class Module : public EndToEnd {
protected:
    void SetUp() override {
        fs::create_directories(path("bin"));
        fs::create_directories(path("lib/texttool"));
        fs::copy_file(TEXTTOOL_PROGRAM, path("bin/texttool"));
    }

    ToolResult requestToCopy(const std::string& key, const std::string& file) const {
        ToolResult result = runTool({.arguments = {"-" + key, file}, .program = path("bin/texttool")});
        EXPECT_EQ(result.status, 0);
        return result;
    }

    void expectModuleError(const std::string& key, const std::string& file, const std::string& module) const {
        NSError error = errorOf(requestToCopy(key, file).output);
        EXPECT_EQ(error.domain().utf8(), "NSCocoaErrorDomain") << key;
        EXPECT_EQ(error.code(), NSExecutableLoadError);
        EXPECT_EQ(error.userInfo().get<NSString>(NSString(NSFilePathErrorKey)),
                  stringWithFileSystemRepresentation(file));
        std::string description = error.localizedDescription().utf8();
        EXPECT_EQ(description.find("The module “" + module + "” can’t be loaded: "), 0u) << description;
    }
};

constexpr std::pair<const char*, const char*> kModules[] = {
    {"HTMLPath", "HTML"}, {"WordXPath", "OpenPackage"}, {"ODTPath", "OpenPackage"}, {"PDFPath", "PDF"}};

TEST_F(Module, ThatIsMissingIsError3587WithThePath) {
    std::string file = write("document", "PK\3\4");
    for (const auto& [key, module] : kModules) expectModuleError(key, file, module);
}

TEST_F(Module, ThatIsBrokenIsTheSame) {
    std::string file = write("document", "PK\3\4");
    for (const auto& [key, module] : kModules) {
        write(std::string("lib/texttool/") + module + ".so", "not a library");
        expectModuleError(key, file, module);
    }
}

TEST_F(Module, ThatIsMissingDisturbsNoOtherKind) {
    std::string file = write("document.rtf", "{\\rtf1 text}");
    for (const char* key : {"RTFPath", "WordPath", "RTFDPath"}) {
        EXPECT_EQ(stringIn(recordOf(requestToCopy(key, file).output), u"string"), "text") << key;
    }
    EXPECT_EQ(stringIn(recordOf(requestToCopy("EMLPath", file).output), u"string"), "{\n}");
}

TEST_F(Module, IsFoundBesideAProgramThatWasMoved) {
    fs::path built = fs::path(TEXTTOOL_PROGRAM).parent_path().parent_path() / "lib/texttool";
    fs::copy_file(built / "HTML.so", path("lib/texttool/HTML.so"));
    ToolResult result = requestToCopy("HTMLPath", write("a.html", "<title>moved</title>"));
    EXPECT_EQ(stringIn(recordOf(result.output), u"title"), "moved");
}

// Media and images do without their modules: an empty success, and a line in the log.
void expectEmptySuccess(const ToolResult& result, const std::string& module) {
    EXPECT_EQ(recordOf(result.output).count(), 6u) << module;
    EXPECT_EQ(stringIn(recordOf(result.output), u"string"), "") << module;
    const std::vector<std::string> lines = logLines(result);
    ASSERT_EQ(lines.size(), 1u) << module;
    EXPECT_EQ(lines[0].find("The module “" + module + "” can’t be loaded: "), 0u) << lines[0];
}

TEST_F(Module, ForMediaAndImagesIsNotMissedInARecord) {
    const std::string movie = write("a.m4a", movieFile("")), image = write("a.jpg", jpegFile(""));
    expectEmptySuccess(requestToCopy("QTPath", movie), "AVFoundation");
    expectEmptySuccess(requestToCopy("ImagePath", image), "ImageIO");
    for (const char* module : {"AVFoundation", "ImageIO"})
        write(std::string("lib/texttool/") + module + ".so", "not a library");
    expectEmptySuccess(requestToCopy("QTPath", movie), "AVFoundation");
    expectEmptySuccess(requestToCopy("ImagePath", image), "ImageIO");
}

TEST_F(Module, ForFurtherTagsIsLoadedOnlyForThem) {
    const fs::path built = fs::path(TEXTTOOL_PROGRAM).parent_path().parent_path() / "lib/texttool";
    fs::copy_file(built / "AVFoundation.so", path("lib/texttool/AVFoundation.so"));
    const std::string movie = write("a.mov", movieFile(atom("udta", atom("@nam", languageText(0, "Title")))));
    const ToolResult result = requestToCopy("QTPath", movie);
    EXPECT_EQ(stringIn(recordOf(result.output), u"title"), "Title");
    EXPECT_EQ(logLines(result), std::vector<std::string>());
    expectEmptySuccess(requestToCopy("QTPath", write("a.mp3", "TAG" + std::string(125, 'x'))), "AudioTags");
}

} // namespace
