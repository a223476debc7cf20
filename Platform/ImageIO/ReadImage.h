// SPDX-License-Identifier: Apache-2.0
//
// Reads images with the library exiv2, from a file or from memory. No exception of the library comes out.
#pragma once

#include "Platform/ImageIO/ImageReader.h"

#include <string_view>

// As ImageReader says.
bool readImageFile(int file, std::vector<ImageField>& fields);
bool readImageBytes(std::string_view bytes, std::vector<ImageField>& fields);
