// SPDX-License-Identifier: Apache-2.0
//
// What a document says of itself: its title, its authors, its times.
#pragma once

#include "Platform/AppKit/DocumentReader.h"
#include "Platform/AppKit/OfficeOpenXML/Part.h"

#include <string_view>

namespace OfficeOpenXML {

// Adds what stands in a part of core properties or of extended ones.
void readProperties(const ZipPackage& package, std::string_view name, Deadline& deadline, DocumentInfo& info);

} // namespace OfficeOpenXML
