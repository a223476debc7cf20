// SPDX-License-Identifier: Apache-2.0
//
// Writes small PDF documents for tests, object by object.
#pragma once

#include <string>
#include <string_view>
#include <vector>

class PDFWriter {
public:
    // Number 1 is the catalogue, number 2 the root of the pages, number 3 the font that pages call /F.
    PDFWriter();

    // Adds an object and answers its number.
    int add(const std::string& object);
    // `entries` are those of the dictionary besides /Length.
    int addStream(std::string_view data, const std::string& entries = "");
    void replace(int number, const std::string& object) { objects_[size_t(number) - 1] = object; }

    // Adds a page with this content. `entries` are further ones of its dictionary and may hold resources.
    int addPage(std::string_view content, const std::string& entries = "");

    // Further entries of these dictionaries.
    std::string catalog, pages, trailer;
    // What the root of the pages says of their number; -1 for the truth.
    long long count = -1;

    std::string write() const;

private:
    std::vector<std::string> objects_;
    std::vector<int> kids_;
};

// "5 0 R".
std::string reference(int number);

// A line of text at a place: BT /F 10 Tf x y Td (text) Tj ET.
std::string textAt(double x, double y, const std::string& text, double size = 10);

// A document with one page for each content.
std::string pdfOfPages(const std::vector<std::string>& contents);
