// SPDX-License-Identifier: Apache-2.0
//
// The steps of the extractor over a search library that fails where a test wants it to: the functions here
// take the library's place in this program.
#include "Source/Tools/texttool/Spotlight.h"

#include "Platform/Foundation/NSArchiver.h"
#include "Platform/Foundation/NSError.h"
#include "Platform/Foundation/NSException.h"
#include "Platform/Foundation/NSNumber.h"
#include "Platform/Foundation/NSPropertyListSerialization.h"
#include "Platform/Foundation/NSUserDefaults.h"
#include "Platform/SearchKit/SearchIndex.h"
#include "Source/Tools/texttool/Extractors.h"
#include "Source/Tools/texttool/Settings.h"
#include "Tests/Support/TemporaryFolder.h"

#include <cstdlib>
#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

struct SearchDocument {};

namespace {

struct Library {
    bool createsIndex = true, createsDocument = true, adds = true, flushes = true, hasTermIDs = true;
    int64_t missingTerm = -1;
    NSArray propertyNames;
};
Library library;

} // namespace

void SKLoadDefaultExtractorPlugIns() {}
SKIndexRef SKIndexCreateWithMutableData(const CFMutableDataRef& data, const NSString& name, SKIndexType type,
                                        const NSDictionary& properties) {
    EXPECT_TRUE(data && data->empty());
    EXPECT_FALSE(name);
    EXPECT_EQ(type, 1);
    std::vector<NSObject> names;
    for (const auto& [key, value] : properties) names.push_back(key);
    library.propertyNames = NSArray(std::move(names));
    EXPECT_EQ(properties.objectForKey(NSString(kSKProximityIndexing)), NSNumber::withBool(true));
    EXPECT_EQ(properties.objectForKey(NSString(kSKMaximumTerms)), NSNumber::withInt(0));
    return library.createsIndex ? std::make_shared<SearchIndex>(data, true, 0) : nullptr;
}
SKDocumentRef SKDocumentCreateWithURL(const NSURL& url) {
    EXPECT_TRUE(url.isFileURL());
    return library.createsDocument ? std::make_shared<const SearchDocument>() : nullptr;
}
bool SKIndexAddDocument(const SKIndexRef&, const SKDocumentRef&, const NSString& hint, bool canReplace) {
    EXPECT_FALSE(hint);
    EXPECT_TRUE(canReplace);
    return library.adds;
}
bool SKIndexFlush(const SKIndexRef&) { return library.flushes; }
SKDocumentID SKIndexGetDocumentID(const SKIndexRef&, const SKDocumentRef&) { return 7; }
NSArray SKIndexCopyTermIDArrayForDocumentID(const SKIndexRef&, SKDocumentID document) {
    EXPECT_EQ(document, 7);
    if (!library.hasTermIDs) return NSArray();
    return {NSNumber::withInteger(3), NSNumber::withInteger(1), NSNumber::withInteger(2)};
}
NSString SKIndexCopyTermStringForTermID(const SKIndexRef&, int64_t term) {
    if (term == library.missingTerm) return nullptr;
    return NSString(std::u16string(1, char16_t(u'a' + term)));
}

namespace {

// Reports go to a file of the test's.
class SpotlightSteps : public testing::Test {
protected:
    void SetUp() override {
        library = Library();
        writeFile(output, "");
        setenv("OutPath", output.c_str(), 1);
    }
    void TearDown() override { unsetenv("OutPath"); }

    // The message of the error that was reported, "" when none was.
    std::string reported() { return errorIn(readFile(output)); }

    static std::string errorIn(const std::string& bytes) {
        if (bytes.empty()) return "";
        const auto record = as<NSDictionary>(propertyListWithData(bytes, nullptr, nullptr));
        const NSData archive = record.get<NSData>(NSString(u"errorData"));
        const NSError error = as<NSError>(NSUnarchiver::unarchiveObjectWithData(archive.bytes(), nullptr));
        EXPECT_TRUE(error.domain().isEqualToString(NSString(kHostDomain)));
        EXPECT_EQ(error.code(), 42);
        EXPECT_EQ(error.userInfo().count(), 1u);
        return error.localizedDescription().utf8();
    }

    TemporaryFolder folder;
    std::string output = folder.path() + "/record";
    SKIndexRef index = std::make_shared<SearchIndex>(std::make_shared<std::string>(), true, 0);
    SKDocumentRef document = std::make_shared<const SearchDocument>();
};

TEST_F(SpotlightSteps, CreateAnIndexWithItsTwoPropertiesInOrder) {
    EXPECT_TRUE(createIndex());
    EXPECT_EQ(library.propertyNames, NSArray({NSString(kSKProximityIndexing), NSString(kSKMaximumTerms)}));
    EXPECT_EQ(reported(), "");
}

TEST_F(SpotlightSteps, ReportAnIndexThatIsNotCreated) {
    library.createsIndex = false;
    EXPECT_FALSE(createIndex());
    EXPECT_EQ(reported(), "Error creating index");
}

TEST_F(SpotlightSteps, ReportADocumentThatIsNotCreated) {
    library.createsDocument = false;
    EXPECT_FALSE(createDocument(u"/a"));
    EXPECT_EQ(reported(), "Error creating document");
}

TEST_F(SpotlightSteps, ReportADocumentThatIsNotAdded) {
    library.adds = false;
    addDocument(document, index);
    EXPECT_EQ(reported(), "Error extracting document");
}

TEST_F(SpotlightSteps, ReportAnIndexThatIsNotFlushed) {
    library.flushes = false;
    addDocument(document, index);
    EXPECT_EQ(reported(), "Error flushing");
}

TEST_F(SpotlightSteps, FlushAlsoAfterADocumentThatWasNotAdded) {
    library.adds = library.flushes = false;
    addDocument(document, index);
    EXPECT_EQ(reported(), "Error flushing") << "the last report";
}

TEST_F(SpotlightSteps, ReportTermIDsThatAreNotThere) {
    library.hasTermIDs = false;
    EXPECT_EQ(extractDocument(document, index).utf8(), "");
    EXPECT_EQ(reported(), "Error getting term IDs");
}

TEST_F(SpotlightSteps, DropAllTermsWhenOneCannotBeReadBack) {
    library.missingTerm = 2;
    EXPECT_EQ(extractDocument(document, index).utf8(), "");
    EXPECT_EQ(reported(), "Error getting term");
}

// All of the handler's reports: to standard output, which takes the first one, and to a file, which keeps the
// last one.
class SpotlightFailures : public SpotlightSteps {
protected:
    void SetUp() override {
        SpotlightSteps::SetUp();
        writeFile(file, "words");
        NSUserDefaults::standardUserDefaults().registerDefaults(
            {{NSString(u"SpotlightPath"), NSString::fromUTF8(file)}});
    }

    void expect(const std::string& firstError, const std::string& lastText) {
        unsetenv("OutPath");
        if (const pid_t child = fork(); child == 0) {
            const int standard = open(output.c_str(), O_WRONLY | O_TRUNC);
            dup2(standard, STDOUT_FILENO);
            try {
                handleSpotlight();
            } catch (const NSException&) {
                // Standard output is closed after the first report; the program's own guard ends so.
            }
            _exit(0);
        } else {
            int status = -1;
            ASSERT_EQ(waitpid(child, &status, 0), child);
            ASSERT_EQ(status, 0) << "no crash";
        }
        EXPECT_EQ(reported(), firstError);
        setenv("OutPath", output.c_str(), 1);
        handleSpotlight();
        const auto last = as<NSDictionary>(propertyListWithData(readFile(output), nullptr, nullptr));
        ASSERT_TRUE(last.get<NSString>(NSString(u"string"))) << "a success";
        EXPECT_EQ(last.get<NSString>(NSString(u"string")).utf8(), lastText);
    }

    std::string file = folder.path() + "/a.txt";
};

TEST_F(SpotlightFailures, OfTheIndexAreReportedBeforeTheSuccess) {
    library.createsIndex = false;
    expect("Error creating index", "d b c ");
}

TEST_F(SpotlightFailures, OfTheDocumentAreReportedBeforeTheSuccess) {
    library.createsDocument = false;
    expect("Error creating document", "d b c ");
}

TEST_F(SpotlightFailures, OfAddingAreReportedBeforeTheSuccess) {
    library.adds = false;
    expect("Error extracting document", "d b c ");
}

TEST_F(SpotlightFailures, OfFlushingAreReportedBeforeTheSuccess) {
    library.flushes = false;
    expect("Error flushing", "d b c ");
}

TEST_F(SpotlightFailures, OfTermIDsAreReportedBeforeTheSuccess) {
    library.hasTermIDs = false;
    expect("Error getting term IDs", "");
}

TEST_F(SpotlightFailures, OfOneTermAreReportedBeforeTheSuccess) {
    library.missingTerm = 1;
    expect("Error getting term", "");
}

TEST_F(SpotlightSteps, PutABlankBehindEachTermInTheOrderOfTheArray) {
    EXPECT_EQ(extractDocument(document, index).utf8(), "d b c ");
    EXPECT_EQ(reported(), "");
}

} // namespace
