// SPDX-License-Identifier: Apache-2.0
//
// What the end-to-end tests share: a folder for the test's documents, the program run on them, and its
// records taken apart.
#pragma once

#include "Platform/Foundation/NSDictionary.h"
#include "Platform/Foundation/NSError.h"
#include "Tests/Support/RunTool.h"
#include "Tests/Support/TemporaryFolder.h"

#include <gtest/gtest.h>

// The request keys in the order in which they are tried.
constexpr const char* kRequestKeys[] = {"WebArchivePath", "HTMLPath",  "PDFPath",       "WordPath",
                                        "WordXPath",      "ODTPath",   "RTFPath",       "RTFDPath",
                                        "QTPath",         "ImagePath", "SpotlightPath", "EMLPath"};

// Those of the documents that the text readers open.
constexpr const char* kTextKeys[] = {"HTMLPath", "WordPath", "WordXPath", "ODTPath", "RTFPath", "RTFDPath"};

class EndToEnd : public testing::Test {
protected:
    std::string path(const std::string& name) const { return folder.path() + "/" + name; }
    // The file's path.
    std::string write(const std::string& name, std::string_view bytes) const;

    // Runs the program for one request; checks that it ended with status 0, as it always does.
    ToolResult request(const std::string& key, const std::string& value,
                       const std::map<std::string, std::string>& environment = {}) const;

    TemporaryFolder folder;
};

// A record's property list; nil and a failure of the test when the bytes are not one binary list.
NSDictionary recordOf(std::string_view bytes);

// A string of a success record, or of its other attributes, as UTF-8; "(nil)" when it is not there.
std::string stringIn(const NSDictionary& record, const char16_t* key);
std::string attributeIn(const NSDictionary& record, const char16_t* key);

// The error of an error record, nil for the other kinds.
NSError errorOf(std::string_view bytes);

// The errors that the program reports in many places.
NSError cocoaError(int64_t code, const NSDictionary& userInfo = NSDictionary());
NSError missingFile(const std::string& path);
