// SPDX-License-Identifier: Apache-2.0
//
// The two ways in which messages carry any bytes as lines of ASCII. What is no part of the encoding is passed
// over or stands for itself, as mail readers have it.
#pragma once

#include <string>
#include <string_view>

std::string decodedBase64(std::string_view text);
std::string decodedQuotedPrintable(std::string_view text);
