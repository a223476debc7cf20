// SPDX-License-Identifier: Apache-2.0
//
// What the reader of image files gives: the descriptive fields of the first image, without the value model.
#pragma once

#include <string>
#include <vector>

struct ImageField {
    std::u16string dictionary; // kCGImageProperty...Dictionary
    std::u16string key;        // a name in that dictionary
    bool isArray = false;      // whether the field can be repeated
    std::vector<std::u16string> values;
};

// Reads an open file and appends its fields in the order in which an image's fields are listed. False when it
// is not an image, or a damaged one of which nothing can be read. The descriptor stays the caller's.
using ImageReader = bool (*)(int file, std::vector<ImageField>& fields);
