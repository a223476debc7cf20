// SPDX-License-Identifier: Apache-2.0
//
// Numbers as the platform prints them, independent of the process's locale.
#pragma once

#include <string>

// As printf's %.<digits>g; not-a-number and the infinities as "nan", "inf" and "-inf".
std::u16string generalNumberText(double value, int digits);
