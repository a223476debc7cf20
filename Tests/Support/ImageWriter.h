// SPDX-License-Identifier: Apache-2.0
//
// Makes the smallest files of several image formats that carry metadata, for tests.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

// A dataset of IPTC; the character set's announcement is record 1, dataset 90.
std::string iptcDataset(unsigned record, unsigned dataset, std::string_view value);

// A TIFF structure with texts in its first directory, by their tags.
std::string tiffFile(const std::vector<std::pair<uint16_t, std::string>>& texts);

// A packet of XMP with what stands in its description.
std::string xmpPacket(std::string_view properties);

// Each part may be empty, and is then left out.
std::string jpegFile(std::string_view iptc, std::string_view tiff = {}, std::string_view xmp = {});
std::string pngFile(std::string_view xmp);
std::string gifFile(std::string_view xmp);
