// SPDX-License-Identifier: Apache-2.0
//
// Makes Office Open XML text documents for tests out of the insides of their parts. An empty part is left
// out, and the relationship to it.
#pragma once

#include "Tests/Support/ZipWriter.h"

#include <initializer_list>
#include <map>
#include <string>

struct DocxWriter {
    std::string body; // what stands in w:body
    std::string styles, numbering, footnotes, endnotes;
    std::string core, extended;                // properties
    std::map<std::string, std::string> others; // whole parts by their names
    std::string otherRelationships;            // of the main part

    bool strict = false; // the namespaces of the strict form
    std::string mainPart = "word/document.xml";

    std::string documentXML() const;
    std::string finish() const { return finish(ZipWriter::Options()); }
    std::string finish(const ZipWriter::Options& options) const;
};

// For w:body: paragraphs with one run of text each.
std::string paragraphs(std::initializer_list<std::string> texts);
// w:p and w:r with properties, if any.
std::string paragraph(const std::string& content, const std::string& properties = "");
std::string run(const std::string& text, const std::string& properties = "");
