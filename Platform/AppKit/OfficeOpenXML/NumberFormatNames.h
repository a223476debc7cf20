// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "Platform/AppKit/NumberFormat.h"

namespace OfficeOpenXML {

// The format by the name that documents have for it. A bullet has no number; unknown names are decimal.
NumberFormat numberFormatNamed(std::string_view name);

} // namespace OfficeOpenXML
