// SPDX-License-Identifier: Apache-2.0
//
// The values of attributes and elements as XML documents of several kinds write them.
#pragma once

#include "Platform/AppKit/DocumentReader.h"

#include <optional>
#include <string_view>

// A whole number of at most nine digits; larger ones are held at that.
std::optional<int> integerValue(std::string_view text);

// A length with its unit ("21.001cm", "8.5in") in points. Relative lengths have none.
std::optional<double> lengthValue(std::string_view text);

// A date or a date and time of ISO 8601. One that names no time zone is local time, as writers mean it.
std::optional<DocumentTime> timeValue(std::string_view text);
