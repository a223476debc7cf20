// SPDX-License-Identifier: Apache-2.0
//
// The steps of the extractor over a search library that fails where a test wants it to: the functions here
// take the library's place in this program.
#include "Source/Tools/texttool/Spotlight.h"

#include "Platform/Foundation/NSArchiver.h"
#include "Platform/Foundation/NSError.h"
#include "Platform/Foundation/NSNumber.h"
#include "Platform/Foundation/NSPropertyListSerialization.h"
#include "Platform/SearchKit/SearchIndex.h"
#include "Source/Tools/texttool/Settings.h"
#include "Tests/Support/TemporaryFolder.h"

#include <cstdlib>
#include <gtest/gtest.h>

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
    std::string reported() {
        const std::string bytes = readFile(output);
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

TEST_F(SpotlightSteps, PutABlankBehindEachTermInTheOrderOfTheArray) {
    EXPECT_EQ(extractDocument(document, index).utf8(), "d b c ");
    EXPECT_EQ(reported(), "");
}

} // namespace
